#include "app/library/FilterFavoritesManagementView.h"

#include "app/library/FavoriteList.h"
#include "app/library/FavoriteTexts.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/ui/Alert.h"
#include "app/ui/EmptyState.h"
#include "app/ui/Palette.h"
#include "app/ui/TextStyle.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int managementSheetWidth = 560;

} // namespace

FilterFavoritesManagementView::FilterFavoritesManagementView(
    FilterFavoritesStore& favorites, QWidget* parent)
    : Sheet(u"Filtres favoris"_s, managementSheetWidth, parent)
    , m_favorites(favorites)
    , m_empty(new EmptyState(u"star"_s, u"Aucun favori"_s,
          u"Sélectionnez des filtres puis cliquez sur l'étoile + pour les enregistrer."_s, this))
    , m_content(new QWidget(this))
{
    auto* list = new FavoriteList(favorites, m_content);
    auto* hint = new QLabel(
        u"Faites glisser un favori pour le réordonner. Un double-clic sur son nom permet de le renommer."_s,
        m_content);
    hint->setWordWrap(true);
    setTextStyle(hint, TextStyle::Caption);
    setTextTone(hint, TextTone::Secondary);
    auto* column = new QVBoxLayout(m_content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(10);
    column->addWidget(list);
    column->addWidget(hint);

    body()->setSpacing(14);
    body()->addWidget(FavoriteTexts::makeHeader(windowTitle(), this));
    body()->addWidget(m_content);
    body()->addWidget(m_empty);
    body()->addStretch();

    auto* close = new QPushButton(u"Fermer"_s, this);
    close->setAutoDefault(false);
    buttonRow()->addStretch();
    buttonRow()->addWidget(close);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(list, &FavoriteList::deletionRequested, this,
        &FilterFavoritesManagementView::confirmDeletion);
    connect(list, &FavoriteList::resized, this, &FilterFavoritesManagementView::refresh);
    refresh();
}

void FilterFavoritesManagementView::refresh()
{
    const bool isEmpty = m_favorites.favorites().isEmpty();
    m_content->setVisible(!isEmpty);
    m_empty->setVisible(isEmpty);
    setPanelSize(managementSheetWidth); // Fits the height to what there is now.
}

void FilterFavoritesManagementView::confirmDeletion(const QUuid& id)
{
    const auto favorite = m_favorites.find(id);
    if (!favorite)
        return;
    askBeforeDestroying(u"Supprimer le favori « "_s + favorite->name + u" » ?"_s,
        u"Le filtre sera retiré des raccourcis. Les données des filaments ne sont pas modifiées."_s,
        u"Supprimer"_s, this, [this, id] { m_favorites.remove(id); });
}

} // namespace reelhouse
