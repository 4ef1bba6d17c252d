#include "app/library/FilterBarLayout.h"

#include <algorithm>

namespace reelhouse {

namespace {

constexpr int itemGap = 6;
constexpr int lineGap = 8;
constexpr int widestSearchBeside = 250; ///< Of the search field on one line with the capsules.

} // namespace

FilterBarLayout::FilterBarLayout(QWidget* parent)
    : QLayout(parent)
{
}

FilterBarLayout::~FilterBarLayout()
{
    qDeleteAll(m_items);
}

void FilterBarLayout::addItem(QLayoutItem* item)
{
    m_items << item;
}

QLayoutItem* FilterBarLayout::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem* FilterBarLayout::takeAt(int index)
{
    return index >= 0 && index < count() ? m_items.takeAt(index) : nullptr;
}

QSize FilterBarLayout::sizeHint() const
{
    const Line line = lineOf(0, count());
    const QMargins margins = contentsMargins();
    return QSize(line.width, line.height).grownBy(margins);
}

QSize FilterBarLayout::minimumSize() const
{
    QSize least = lineOf(m_searchPlace, count()).width > 0
        ? QSize(lineOf(m_searchPlace, count()).width, 0)
        : QSize(0, 0);
    for (const QLayoutItem* item : m_items)
        least = least.expandedTo(item->minimumSize());
    return least.grownBy(contentsMargins());
}

FilterBarLayout::Line FilterBarLayout::lineOf(int first, int last) const
{
    Line line{first, last};
    for (int place = first; place < last; ++place) {
        if (m_items.at(place)->isEmpty())
            continue;
        const QSize size = m_items.at(place)->sizeHint();
        line.width += size.width() + (line.width > 0 ? itemGap : 0);
        line.height = std::max(line.height, size.height());
    }
    return line;
}

std::vector<FilterBarLayout::Line> FilterBarLayout::linesWithin(int width) const
{
    if (const Line all = lineOf(0, count()); all.width <= width)
        return {all};
    std::vector<Line> lines;
    for (int first = 0; first < m_searchPlace;) {
        int last = first + 1;
        while (last < m_searchPlace && lineOf(first, last + 1).width <= width)
            ++last;
        lines.push_back(lineOf(first, last));
        first = last;
    }
    lines.push_back(lineOf(m_searchPlace, count()));
    return lines;
}

int FilterBarLayout::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    const auto lines = linesWithin(width - margins.left() - margins.right());
    int height = margins.top() + margins.bottom() + int(lines.size() - 1) * lineGap;
    for (const Line& line : lines)
        height += line.height;
    return height;
}

void FilterBarLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    QRect rest = contentsRect();
    const auto lines = linesWithin(rest.width());
    for (const Line& line : lines) {
        place(line, QRect(rest.topLeft(), QSize(rest.width(), line.height)), lines.size() == 1);
        rest.adjust(0, line.height + lineGap, 0, 0);
    }
}

void FilterBarLayout::place(const Line& line, const QRect& rect, bool isOnlyLine)
{
    // The search field takes what the others leave; what it may not take stands before the count.
    const int spare = rect.width() - line.width;
    int left = rect.left();
    for (int place = line.first; place < line.last; ++place) {
        QLayoutItem* item = m_items.at(place);
        if (item->isEmpty())
            continue;
        QSize size = item->sizeHint();
        if (place == m_searchPlace) {
            const int wanted = size.width() + spare;
            const int widest = std::max(widestSearchBeside, size.width());
            size.setWidth(isOnlyLine ? std::min(wanted, widest) : wanted);
        }
        if (place == count() - 1)
            left = rect.right() + 1 - size.width();
        item->setGeometry(QRect(
            left, rect.top() + (rect.height() - size.height()) / 2, size.width(), size.height()));
        left += size.width() + itemGap;
    }
}

} // namespace reelhouse
