#include "app/ui/WrappingLabel.h"

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <cmath>

namespace reelhouse {

namespace {

/// Lays `layout` out in lines of `width` and returns the height of all of them.
qreal layOutLines(QTextLayout& layout, int width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    return height;
}

QString withLineSeparators(QString text)
{
    return text.replace(u'\n', QChar::LineSeparator);
}

} // namespace

WrappingLabel::WrappingLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

QSize WrappingLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

int WrappingLabel::heightForWidth(int width) const
{
    QTextLayout layout(withLineSeparators(text()), font());
    return int(std::ceil(layOutLines(layout, width)));
}

void WrappingLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    QTextLayout layout(withLineSeparators(text()), font());
    layOutLines(layout, width());
    layout.draw(&painter, {});
}

} // namespace reelhouse
