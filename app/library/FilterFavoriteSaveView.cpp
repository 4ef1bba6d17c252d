#include "app/library/FilterFavoriteSaveView.h"

#include "app/library/FavoriteTexts.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/ui/InputState.h"
#include "app/ui/Palette.h"
#include "app/ui/TextStyle.h"
#include "core/text/Folding.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int saveSheetWidth = 440;

QLabel* wrappedLabel(const QString& text, TextTone tone, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    setTextStyle(label, TextStyle::Caption);
    setTextTone(label, tone);
    return label;
}

} // namespace

FilterFavoriteSaveView::FilterFavoriteSaveView(
    FilterFavoritesStore& favorites, const FilterCriteria& criteria, QWidget* parent)
    : Sheet(u"Enregistrer un favori"_s, saveSheetWidth, parent)
    , m_favorites(favorites)
    , m_criteria(criteria)
    , m_name(new QLineEdit(favorites.uniqueName(criteria.suggestedName()), this))
    , m_error(wrappedLabel({}, TextTone::Red, this))
{
    auto* nameLabel = new QLabel(u"Nom du favori"_s, this);
    setTextStyle(nameLabel, TextStyle::Header);
    setTextTone(nameLabel, TextTone::Secondary);
    nameLabel->setBuddy(m_name);
    m_name->selectAll();
    // Its line is kept while it is empty, so that nothing jumps.
    m_error->setMinimumHeight(m_error->fontMetrics().height());

    body()->setSpacing(10);
    body()->addWidget(FavoriteTexts::makeHeader(windowTitle(), this));
    body()->addSpacing(4);
    body()->addWidget(nameLabel);
    body()->addWidget(m_name);
    body()->addWidget(wrappedLabel(FavoriteTexts::summary(criteria), TextTone::Accent, this));
    body()->addWidget(wrappedLabel(
        u"Le favori apparaîtra sous la barre de filtres, dans les vues Liste et Cartes."_s,
        TextTone::Tertiary, this));
    body()->addWidget(m_error);

    auto* cancel = new QPushButton(u"Annuler"_s, this);
    auto* confirm = new QPushButton(u"Enregistrer"_s, this);
    cancel->setAutoDefault(false);
    buttonRow()->addStretch();
    buttonRow()->addWidget(cancel);
    buttonRow()->addWidget(confirm);
    setConfirmButton(confirm);
    m_name->setFocus();

    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(confirm, &QPushButton::clicked, this, &FilterFavoriteSaveView::save);
    connect(m_name, &QLineEdit::textEdited, this, [this] { showError({}); });
}

void FilterFavoriteSaveView::save()
{
    if (trimmed(m_name->text()).isEmpty())
        return;
    if (m_favorites.add(m_name->text(), m_criteria))
        accept();
    else
        showError(FavoriteTexts::nameTaken());
}

void FilterFavoriteSaveView::showError(const QString& message)
{
    m_error->setText(message);
    setInputState(m_name, {.isRefused = !message.isEmpty()});
}

} // namespace reelhouse
