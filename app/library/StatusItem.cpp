#include "app/library/StatusItem.h"

#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"
#include "core/text/Plural.h"

#include <QtGui/QPainter>

namespace reelhouse {

namespace {

constexpr int symbolSize = 13;
constexpr int gapAfterSymbol = 8;
constexpr int gapAfterNumber = 6;

QFont numberFont()
{
    QFont font = fontOf(TextStyle::Caption);
    font.setWeight(QFont::DemiBold);
    return font;
}

/// Where the number ends in "28 filaments".
qsizetype numberLength(const QString& text)
{
    return text.indexOf(u' ');
}

} // namespace

StatusItem::StatusItem(QString symbol, const QColor& color, QWidget* parent)
    : QLabel(parent)
    , m_symbol(std::move(symbol))
    , m_color(color)
{
}

void StatusItem::setCount(qint64 count, const QString& noun)
{
    setText(counted(count, noun));
    updateGeometry();
}

QSize StatusItem::sizeHint() const
{
    const QFontMetrics number(numberFont());
    const QFontMetrics word(fontOf(TextStyle::Caption));
    const qsizetype length = numberLength(text());
    return {symbolSize + gapAfterSymbol + number.horizontalAdvance(text().left(length))
            + gapAfterNumber + word.horizontalAdvance(text().mid(length + 1)) + 1,
        std::max(symbolSize, number.height())};
}

void StatusItem::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect symbolRect(0, 0, symbolSize, symbolSize);
    symbolRect.moveTop((height() - symbolSize) / 2);
    paintSymbol(painter, symbolRect, m_symbol, m_color);

    const qsizetype length = numberLength(text());
    const QString number = text().left(length);
    QRect rest = rect().adjusted(symbolSize + gapAfterSymbol, 0, 0, 0);
    painter.setFont(numberFont());
    painter.setPen(theme.textPrimary);
    painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, number);
    rest.adjust(painter.fontMetrics().horizontalAdvance(number) + gapAfterNumber, 0, 0, 0);
    painter.setFont(fontOf(TextStyle::Caption));
    painter.setPen(theme.textSecondary);
    painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, text().mid(length + 1));
}

} // namespace reelhouse
