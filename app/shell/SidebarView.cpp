#include "app/shell/SidebarView.h"

#include "app/shell/SidebarDelegate.h"
#include "app/ui/Palette.h"
#include "app/ui/PlainToolTip.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int preferredWidth = 220;
constexpr int narrowest = 200;
constexpr int padding = 10;
constexpr int firstFavoriteRow = 2; ///< Below the library and the header of the section.

QStandardItem* makeItem(SidebarEntry entry, const QString& title, const QString& symbol = {})
{
    auto* item = new QStandardItem(title);
    item->setData(int(entry), SidebarRole::entry);
    item->setData(symbol, SidebarRole::symbol);
    item->setEditable(false);
    item->setEnabled(entry != SidebarEntry::Header && entry != SidebarEntry::Hint);
    item->setSelectable(entry == SidebarEntry::Screen);
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

QStandardItem* favoriteItem(const FilterFavorite& favorite)
{
    const QString summary = favorite.criteria.summary().value_or(u"Tous les filaments"_s);
    QStandardItem* item = makeItem(SidebarEntry::Favorite, favorite.name, u"star.fill"_s);
    item->setData(favorite.id, SidebarRole::favoriteId);
    item->setToolTip(plainToolTip(summary));
    item->setData(summary, Qt::AccessibleDescriptionRole);
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

/// Leaves the selection on the screen on show when an entry is reached that is none.
class SidebarList final : public QListView {
public:
    using QListView::QListView;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override
    {
        return screenOf(index) ? QListView::selectionCommand(index, event)
                               : QItemSelectionModel::NoUpdate;
    }
};

} // namespace

SidebarView::SidebarView(QWidget* parent)
    : QWidget(parent)
    , m_entries(new QStandardItemModel(this))
    , m_list(new SidebarList(this))
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
    m_entries->appendRow(manageFavoritesItem());
    m_entries->appendRow(headerItem(u"Gestion"_s));
    for (const NavItem screen :
        {NavItem::Types, NavItem::Brands, NavItem::Ranges, NavItem::Locations})
        m_entries->appendRow(screenItem(screen));
    m_entries->appendRow(headerItem(u"Sauvegarde"_s));
    for (const NavItem screen : {NavItem::ExportImport, NavItem::CsvExport})
        m_entries->appendRow(screenItem(screen));
    m_list->setModel(m_entries);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);

    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex& current) {
            if (const auto screen = screenOf(current)) {
                m_selection = screen;
                emit selectionEdited(*screen);
            }
        });
    connect(m_list, &QListView::clicked, this, &SidebarView::activate);
    connect(m_list, &QListView::activated, this, &SidebarView::activate);
    connect(m_list, &QWidget::customContextMenuRequested, this, &SidebarView::showContextMenu);
    m_entries->insertRow(firstFavoriteRow, noFavoriteItem());
}

void SidebarView::setFavorites(
    const QList<FilterFavorite>& favorites, const std::optional<FilterFavorite>& inUse)
{
    if (favorites == m_favorites) {
        markInUse(inUse); // The entry that the keyboard is at stays there.
        return;
    }
    m_entries->removeRows(firstFavoriteRow, std::max(1, int(m_favorites.size())));
    m_favorites = favorites;
    int row = firstFavoriteRow;
    for (const FilterFavorite& favorite : favorites)
        m_entries->insertRow(row++, favoriteItem(favorite));
    if (favorites.isEmpty())
        m_entries->insertRow(row, noFavoriteItem());
    markInUse(inUse);
}

void SidebarView::markInUse(const std::optional<FilterFavorite>& favorite)
{
    for (int place = 0; place < int(m_favorites.size()); ++place) {
        const bool isInUse = favorite && favorite->id == m_favorites.at(place).id;
        QStandardItem* item = m_entries->item(firstFavoriteRow + place);
        item->setData(isInUse, SidebarRole::isInUse);
        item->setCheckState(isInUse ? Qt::Checked : Qt::Unchecked); // for assistive technology only
    }
}

void SidebarView::activate(const QModelIndex& index)
{
    switch (SidebarEntry(index.data(SidebarRole::entry).toInt())) {
    case SidebarEntry::Favorite:
        emit favoriteChosen(m_favorites.at(index.row() - firstFavoriteRow));
        break;
    case SidebarEntry::Command:
        emit manageFavoritesRequested();
        break;
    case SidebarEntry::Screen:
    case SidebarEntry::Header:
    case SidebarEntry::Hint:
        break;
    }
}

void SidebarView::showContextMenu(QPoint position)
{
    const QModelIndex index = m_list->indexAt(position);
    if (!index.data(SidebarRole::favoriteId).isValid())
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const FilterFavorite favorite = m_favorites.at(index.row() - firstFavoriteRow);
    menu->addAction(u"Appliquer"_s, this, [this, favorite] { emit favoriteChosen(favorite); });
    menu->addAction(u"Gérer les favoris…"_s, this, &SidebarView::manageFavoritesRequested);
    menu->popup(m_list->viewport()->mapToGlobal(position));
}

void SidebarView::setSelection(NavItem item)
{
    const QSignalBlocker blocker(this);
    m_selection = item;
    for (int row = 0; row < m_entries->rowCount(); ++row) {
        if (screenOf(m_entries->index(row, 0)) == item)
            m_list->setCurrentIndex(m_entries->index(row, 0));
    }
}

QSize SidebarView::sizeHint() const
{
    int width = preferredWidth;
    for (const NavItem item : allNavItems)
        width = std::max(width, SidebarDelegate::neededWidth(navItemTitle(item)) + 2 * padding);
    return {width, QWidget::sizeHint().height()};
}

} // namespace reelhouse
