#pragma once

#include <QtCore/QRect>

namespace reelhouse {

/// Where the cards of the grid lie: as many columns as fit, all of one width, found by arithmetic.
/// Positions are those of the whole grid, before scrolling.
class CardGeometry final {
public:
    static constexpr int gap = 14;
    static constexpr int sideMargin = 20;
    static constexpr int topMargin = 18;
    static constexpr int leastCardWidth = 188;

    /// For a grid `width` wide with cards `cardHeight` high.
    CardGeometry(int width, int cardHeight);

    int columns() const { return m_columns; }
    int cardWidth() const { return rect(0).width(); }
    QRect rect(int place) const;
    /// The place whose card `position` lies on, or -1 beside all of `count` cards.
    int placeAt(QPoint position, int count) const;
    /// The height of a grid of `count` cards, margins included.
    int heightOf(int count) const;
    int rowHeight() const { return m_cardHeight + gap; }

private:
    int m_width;
    int m_cardHeight;
    int m_columns;
};

} // namespace reelhouse
