#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace reelhouse {

/// What an entry of the sidebar is, and with it how it looks.
enum class SidebarEntry : quint8 {
    Screen, ///< Icon and title; selectable.
    Favorite, ///< Icon and name; narrows the stock.
    Command, ///< Icon and title, opens something.
    Header, ///< Title of a section.
    Hint, ///< A line, and under it a smaller one that wraps.
};

namespace SidebarRole {
inline constexpr int entry = Qt::UserRole; ///< A SidebarEntry as int.
inline constexpr int navItem = Qt::UserRole + 1; ///< A NavItem as int; only on screens.
inline constexpr int symbol = Qt::UserRole + 2;
inline constexpr int hint = Qt::UserRole + 3; ///< The smaller line of a hint.
inline constexpr int favoriteId = Qt::UserRole + 4; ///< A QUuid; only on favourites.
inline constexpr int isInUse = Qt::UserRole + 5; ///< Whether the library shows just this favourite.
} // namespace SidebarRole

/// Paints the entries of the sidebar; heights come from the font and the width of the view.
class SidebarDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// How wide an entry must be to show its title whole.
    static int neededWidth(const QString& title);
};

} // namespace reelhouse
