#include "app/shell/SidebarView.h"

#include "app/shell/SidebarDelegate.h"
#include "app/ui/Palette.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QListView>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int preferredWidth = 220;
constexpr int narrowest = 200;
constexpr int padding = 10;

QStandardItem* makeItem(SidebarEntry entry, const QString& title, const QString& symbol = {})
{
    auto* item = new QStandardItem(title);
    item->setData(int(entry), SidebarRole::entry);
    item->setData(symbol, SidebarRole::symbol);
    item->setEditable(false);
    item->setEnabled(entry == SidebarEntry::Screen);
    return item;
}

QStandardItem* screenItem(NavItem screen)
{
    QStandardItem* item = makeItem(SidebarEntry::Screen, navItemTitle(screen), navItemIcon(screen));
    item->setData(int(screen), SidebarRole::navItem);
    return item;
}

QStandardItem* headerItem(const QString& title)
{
    return makeItem(SidebarEntry::Header, title);
}

QStandardItem* noFavoriteItem()
{
    const QString hint = u"Enregistrez un filtre avec l'étoile de la barre de filtres"_s;
    QStandardItem* item = makeItem(SidebarEntry::Hint, u"Aucun favori"_s);
    item->setData(hint, SidebarRole::hint);
    item->setData(u"Aucun favori. "_s + hint, Qt::AccessibleTextRole);
    return item;
}

QStandardItem* manageFavoritesItem()
{
    QStandardItem* item
        = makeItem(SidebarEntry::Command, u"Gérer les favoris…"_s, u"slider.horizontal.3"_s);
    item->setToolTip(u"Renommer, réordonner ou supprimer les filtres favoris"_s);
    return item;
}

std::optional<NavItem> screenOf(const QModelIndex& index)
{
    const QVariant screen = index.data(SidebarRole::navItem);
    return screen.isValid() ? std::optional(NavItem(screen.toInt())) : std::nullopt;
}

} // namespace

SidebarView::SidebarView(QWidget* parent)
    : QWidget(parent)
    , m_entries(new QStandardItemModel(this))
    , m_list(new QListView(this))
{
    setMinimumWidth(narrowest);
    setFocusProxy(m_list);
    setGround(this, Ground::Window);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->addWidget(m_list);

    m_list->setAccessibleName(u"Écrans"_s);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setResizeMode(QListView::Adjust); // the hint wraps, so its height depends on the width
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setMouseTracking(true);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->setItemDelegate(new SidebarDelegate(m_list));

    m_entries->appendRow(screenItem(NavItem::Library));
    m_entries->appendRow(headerItem(u"Favoris (filtre)"_s));
    m_entries->appendRow(noFavoriteItem());
    m_entries->appendRow(manageFavoritesItem());
    m_entries->appendRow(headerItem(u"Gestion"_s));
    for (const NavItem screen :
        {NavItem::Types, NavItem::Brands, NavItem::Ranges, NavItem::Locations})
        m_entries->appendRow(screenItem(screen));
    m_entries->appendRow(headerItem(u"Sauvegarde"_s));
    for (const NavItem screen : {NavItem::ExportImport, NavItem::CsvExport})
        m_entries->appendRow(screenItem(screen));
    m_list->setModel(m_entries);

    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& current) {
            if (const auto screen = screenOf(current))
                emit selectionEdited(*screen);
        });
}

void SidebarView::setSelection(NavItem item)
{
    const QSignalBlocker blocker(this);
    for (int row = 0; row < m_entries->rowCount(); ++row) {
        if (screenOf(m_entries->index(row, 0)) == item)
            m_list->setCurrentIndex(m_entries->index(row, 0));
    }
}

std::optional<NavItem> SidebarView::selection() const
{
    return screenOf(m_list->currentIndex());
}

QSize SidebarView::sizeHint() const
{
    return {preferredWidth, QWidget::sizeHint().height()};
}

} // namespace reelhouse
