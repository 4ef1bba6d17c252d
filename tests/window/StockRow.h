#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

#include <optional>

namespace reelhouse::tests {

class Screen;

/// One row of the stock's list, as the eye and the mouse find it on the screen.
struct StockRow {
    QPoint minus; ///< "Retirer une bobine".
    QPoint plus; ///< "Ajouter une bobine".
    QRect count; ///< Where the number of spools stands.

    /// Moves the pointer onto the row that lies at `position` and looks where its buttons appear;
    /// nothing when none does. `away` is a place where the pointer changes nothing.
    static std::optional<StockRow> hover(
        Screen& screen, const QPoint& position, const QPoint& away);
};

} // namespace reelhouse::tests
