#include "app/library/StatBar.h"

#include "app/ui/FocusRing.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int trackHeight = 8;
constexpr qreal statTrackRadius = 4;
constexpr qreal statRingRadius = 8;
constexpr int labelGap = 5;
constexpr int statSymbolSide = 14;
constexpr int statSymbolGap = 8;

QFont valueFont()
{
    QFont font = fontOf(TextStyle::Callout);
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace

StatBar::StatBar(ColorRole color, QWidget* parent)
    : QProgressBar(parent)
    , m_color(color)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void StatBar::setGroup(const StockGroup& group, qint64 total)
{
    m_group = group;
    m_total = total;
    setRange(0, int(total));
    setValue(int(group.count));
    setAccessibleName(group.name);
    setToolTip(plainToolTip(group.name));
    const bool canBeChosen = group.selection.isActive();
    setFocusPolicy(canBeChosen ? Qt::StrongFocus : Qt::NoFocus);
    setCursor(canBeChosen ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

qreal StatBar::filledWidth(qreal available, qint64 value, qint64 total)
{
    return total >= 1 ? available * qreal(value) / qreal(total) : 0;
}

QString StatBar::text() const
{
    return QString::number(m_group.count) + u" sur "_s + QString::number(m_total);
}

QSize StatBar::sizeHint() const
{
    const int line = std::max(QFontMetrics(fontOf(TextStyle::Callout)).height(), statSymbolSide);
    return {120 + 2 * margin, line + labelGap + trackHeight + 2 * margin};
}

QSize StatBar::minimumSizeHint() const
{
    return {60 + 2 * margin, sizeHint().height()};
}

bool StatBar::event(QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QProgressBar::event(event);
}

void StatBar::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect inside = rect().adjusted(margin, margin, -margin, -margin);
    QRect line = inside.adjusted(0, 0, 0, -trackHeight - labelGap);

    const QString count = QString::number(m_group.count);
    painter.setFont(valueFont());
    painter.setPen(theme.textPrimary);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, count);
    line.setRight(line.right() - painter.fontMetrics().horizontalAdvance(count) - statSymbolGap);
    if (!m_group.icon.isEmpty()) {
        paintSymbol(painter,
            QRectF(line.left(), line.top() + (line.height() - statSymbolSide) / 2.0, statSymbolSide,
                statSymbolSide),
            m_group.icon, theme.textSecondary);
        line.setLeft(line.left() + statSymbolSide + statSymbolGap);
    }
    QFont labelFont = fontOf(TextStyle::Callout);
    labelFont.setUnderline(underMouse() && m_group.selection.isActive());
    painter.setFont(labelFont);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(m_group.name, Qt::ElideRight, line.width()));

    const QRectF track(
        inside.left(), inside.bottom() + 1 - trackHeight, inside.width(), trackHeight);
    QPainterPath rounded;
    rounded.addRoundedRect(track, statTrackRadius, statTrackRadius);
    painter.fillPath(rounded, theme.track);
    QRectF filled = track;
    filled.setWidth(filledWidth(track.width(), m_group.count, m_total));
    painter.setClipPath(rounded);
    painter.fillRect(filled, theme.*m_color);
    painter.setClipping(false);
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange))
        paintFocusRing(painter, rect(), statRingRadius, theme);
}

void StatBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter
        || event->key() == Qt::Key_Space)
        choose();
    else
        QProgressBar::keyPressEvent(event);
}

void StatBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        choose();
}

void StatBar::choose()
{
    if (m_group.selection.isActive())
        emit groupChosen(m_group.selection);
}

} // namespace reelhouse
