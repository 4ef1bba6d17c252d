#include "app/library/CardGeometry.h"

#include <algorithm>

namespace reelhouse {

CardGeometry::CardGeometry(int width, int cardHeight)
    : m_width(std::max(width - 2 * sideMargin, leastCardWidth))
    , m_cardHeight(cardHeight)
    , m_columns(std::max(1, (m_width + gap) / (leastCardWidth + gap)))
{
}

QRect CardGeometry::rect(int place) const
{
    const int column = place % m_columns;
    // The pixels that do not divide are shared out, so that both edges are met.
    const int left = column * (m_width + gap) / m_columns;
    const int right = (column + 1) * (m_width + gap) / m_columns - gap;
    return {
        sideMargin + left, topMargin + place / m_columns * rowHeight(), right - left, m_cardHeight};
}

int CardGeometry::placeAt(QPoint position, int count) const
{
    if (position.y() < topMargin)
        return -1;
    const int row = (position.y() - topMargin) / rowHeight();
    for (int column = 0; column < m_columns; ++column) {
        const int place = row * m_columns + column;
        if (place < count && rect(place).contains(position))
            return place;
    }
    return -1;
}

int CardGeometry::heightOf(int count) const
{
    const int rows = (count + m_columns - 1) / m_columns;
    return 2 * topMargin + std::max(0, rows * rowHeight() - gap);
}

} // namespace reelhouse
