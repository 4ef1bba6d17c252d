#pragma once

#include <QtCore/QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QWidget;

/// The part of the style that draws menus, combo pop-ups and the menu bar.
namespace reelhouse::MenuPainting {

/// Space between the edge of a menu and its entries.
inline constexpr int menuPadding = 5;

QSize itemSize(const QStyleOptionMenuItem& option, const QSize& contents);
/// Draws one entry. In a QMenu the one titled exactly "Supprimer" is red, text and icon.
void paintItem(QPainter& painter, const QStyleOptionMenuItem& option, const QWidget* widget);
void paintPanel(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void paintBarItem(QPainter& painter, const QStyleOptionMenuItem& option);

} // namespace reelhouse::MenuPainting
