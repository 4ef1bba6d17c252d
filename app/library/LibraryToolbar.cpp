#include "app/library/LibraryToolbar.h"

#include "app/editing/CommandTexts.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/SegmentedPicker.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using namespace Qt::StringLiterals;

namespace reelhouse {

LibraryToolbar::LibraryToolbar(QWidget* parent)
    : QWidget(parent)
    , m_modes(nullptr)
{
    auto* title = new QLabel(u"Stock de filaments"_s, this);
    setTextStyle(title, TextStyle::ScreenTitle);

    m_modes = new SegmentedPicker({{u"view.list"_s, viewModeTitle(ViewMode::List)},
                                      {u"view.cards"_s, viewModeTitle(ViewMode::Cards)},
                                      {u"view.statistics"_s, viewModeTitle(ViewMode::Stats)}},
        this);
    connect(m_modes, &SegmentedPicker::selectionChosen, this,
        [this](int index) { emit viewModeChosen(ViewMode(index)); });

    auto* add = new QPushButton(symbolIcon(u"plus"_s, &Theme::onAccent), u"Ajouter"_s, this);
    setButtonLook(add, ButtonLook::Default);
    add->setToolTip(addFilamentText());
    connect(add, &QPushButton::clicked, this, &LibraryToolbar::additionRequested);

    auto* print
        = new QPushButton(symbolIcon(u"printer"_s, &Theme::textPrimary), u"Imprimer"_s, this);
    print->setIconSize({16, 16});
    print->setToolTip(u"Imprimer la liste du stock"_s);
    connect(print, &QPushButton::clicked, this, &LibraryToolbar::printRequested);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 10, 16, 10);
    row->setSpacing(8);
    row->addWidget(title);
    row->addStretch();
    row->addWidget(m_modes);
    row->addSpacing(16);
    row->addWidget(add);
    row->addWidget(print);
    QAbstractButton* settings = makeIconButton(u"gearshape"_s, u"Réglages"_s);
    QAbstractButton* about = makeIconButton(u"info.circle"_s, u"À propos de Spoolwright"_s);
    row->addWidget(settings);
    row->addWidget(about);
    connect(settings, &QAbstractButton::clicked, this, &LibraryToolbar::settingsRequested);
    connect(about, &QAbstractButton::clicked, this, &LibraryToolbar::aboutRequested);
}

void LibraryToolbar::setViewMode(ViewMode mode)
{
    m_modes->setSelection(int(mode));
}

QAbstractButton* LibraryToolbar::makeIconButton(const QString& symbol, const QString& name)
{
    auto* button = new QPushButton(symbolIcon(symbol, &Theme::textPrimary), {}, this);
    setButtonLook(button, ButtonLook::Ghost);
    button->setIconSize({17, 17});
    button->setFixedSize(28, 32);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

} // namespace reelhouse
