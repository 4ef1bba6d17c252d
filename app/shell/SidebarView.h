#pragma once

#include "app/shell/NavItem.h"
#include "core/filters/FilterFavorite.h"

#include <QtWidgets/QWidget>

#include <optional>

class QListView;
class QStandardItemModel;

namespace reelhouse {

/// The list of screens at the left of the window, in its sections, with the favourites of the
/// library between them. The selected entry is the screen on show: a favourite or a command does
/// what it says and is not selected. Section headers and hints cannot be chosen.
class SidebarView final : public QWidget {
    Q_OBJECT

public:
    explicit SidebarView(QWidget* parent = nullptr);

    /// Selects the entry of a screen; emits nothing.
    void setSelection(NavItem item);
    std::optional<NavItem> selection() const { return m_selection; }
    /// Shows the favourites in this order; the star of the one in use is marked.
    void setFavorites(
        const QList<FilterFavorite>& favorites, const std::optional<FilterFavorite>& inUse);

    /// Wide enough for the titles of all screens.
    QSize sizeHint() const override;

signals:
    /// The user chose another screen.
    void selectionEdited(NavItem item);
    void favoriteChosen(const FilterFavorite& favorite);
    void manageFavoritesRequested();

private:
    void markInUse(const std::optional<FilterFavorite>& favorite);
    void activate(const QModelIndex& index);
    void showContextMenu(QPoint position);

    std::optional<NavItem> m_selection;
    QList<FilterFavorite> m_favorites;
    QStandardItemModel* m_entries;
    QListView* m_list;
};

} // namespace reelhouse
