#include "app/library/ListHeader.h"

#include "app/library/RowLayout.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>

namespace reelhouse {

namespace {

int titlePadding(int column)
{
    return column == 0 ? RowLayout::firstPadding : RowLayout::cellPadding;
}

} // namespace

void HeaderEnd::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), currentTheme().list);
    painter.fillRect(0, height() - 1, width(), 1, currentTheme().hairline);
}

ListHeader::ListHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setSectionResizeMode(Fixed);
    setSectionsClickable(false);
    setHighlightSections(false);
}

QSize ListHeader::sizeHint() const
{
    const int height = std::max(30, QFontMetrics(fontOf(TextStyle::Header)).height() + 14);
    return {QHeaderView::sizeHint().width(), height};
}

QSize ListHeader::sectionSizeFromContents(int column) const
{
    const QString title = model()->headerData(column, orientation()).toString();
    return {titlePadding(column) + RowLayout::cellPadding
            + QFontMetrics(fontOf(TextStyle::Header)).horizontalAdvance(title) + 1,
        sizeHint().height()};
}

void ListHeader::paintSection(QPainter* painter, const QRect& rect, int column) const
{
    const QRect textRect = rect.adjusted(titlePadding(column), 0, -RowLayout::cellPadding, 0);
    const QString title = model()->headerData(column, orientation()).toString();
    painter->setFont(fontOf(TextStyle::Header));
    painter->setPen(currentTheme().textSecondary);
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title);
}

void ListHeader::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), currentTheme().list);
    painter.fillRect(0, height() - 1, width(), 1, currentTheme().hairline);
    painter.end();
    QHeaderView::paintEvent(event);
}

} // namespace reelhouse
