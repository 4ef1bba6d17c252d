#include "app/library/StatTile.h"

#include "app/ui/ColorMath.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>

namespace reelhouse {

namespace {

constexpr int statTileSquare = 44;
constexpr qreal statTileRadius = 12;
constexpr int statTileSymbol = 20;
constexpr int statTileGap = 16;

} // namespace

StatTile::StatTile(QString symbol, ColorsOf colors, QString label, QWidget* parent)
    : QLabel(parent)
    , m_symbol(std::move(symbol))
    , m_colors(colors)
    , m_label(std::move(label))
{
    setValue(0);
}

void StatTile::setValue(qint64 value)
{
    m_value = value;
    setText(QString::number(value) + u' ' + m_label);
    updateGeometry();
}

void StatTile::setCornerMark(QWidget* mark)
{
    auto* corner = new QHBoxLayout(this);
    corner->setContentsMargins(0, 0, 0, 0);
    corner->addStretch(1);
    corner->addWidget(mark, 0, Qt::AlignTop);
    m_cornerWidth = statTileGap + mark->sizeHint().width();
}

QSize StatTile::sizeHint() const
{
    const QFontMetrics number(fontOf(TextStyle::TileValue));
    const QFontMetrics word(fontOf(TextStyle::Callout));
    return {statTileSquare + statTileGap
            + std::max(
                number.horizontalAdvance(QString::number(m_value)), word.horizontalAdvance(m_label))
            + 1 + m_cornerWidth,
        std::max(statTileSquare, number.height() + word.height())};
}

void StatTile::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    const Colors colors = m_colors(theme);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF square(0, (height() - statTileSquare) / 2.0, statTileSquare, statTileSquare);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(colors.wash, 0.16));
    painter.drawRoundedRect(square, statTileRadius, statTileRadius);
    QRectF symbol(0, 0, statTileSymbol, statTileSymbol);
    symbol.moveCenter(square.center());
    paintSymbol(painter, symbol, m_symbol, colors.symbol);

    const int numberHeight = QFontMetrics(fontOf(TextStyle::TileValue)).height();
    const int wordHeight = QFontMetrics(fontOf(TextStyle::Callout)).height();
    QRect texts(statTileSquare + statTileGap, (height() - numberHeight - wordHeight) / 2,
        width() - statTileSquare - statTileGap, numberHeight);
    painter.setFont(fontOf(TextStyle::TileValue));
    painter.setPen(theme.textPrimary);
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, QString::number(m_value));
    texts.translate(0, numberHeight);
    texts.setHeight(wordHeight);
    painter.setFont(fontOf(TextStyle::Callout));
    painter.setPen(theme.textSecondary);
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, m_label);
}

} // namespace reelhouse
