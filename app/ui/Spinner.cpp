#include "app/ui/Spinner.h"

#include "app/ui/ColorMath.h"
#include "app/ui/Theme.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace reelhouse {

namespace {

constexpr int spinnerSide = 30;
constexpr int spokeCount = 12;
constexpr int turnDuration = 1000; // milliseconds
constexpr qreal faintest = 0.15;

} // namespace

Spinner::Spinner(QWidget* parent)
    : QProgressBar(parent)
{
    setRange(0, 0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Spinner::sizeHint() const
{
    return {spinnerSide, spinnerSide};
}

void Spinner::paintEvent(QPaintEvent*)
{
    const QColor color = currentTheme().textSecondary;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    for (int spoke = 0; spoke < spokeCount; ++spoke) {
        const int age = (m_leadingSpoke - spoke + spokeCount) % spokeCount;
        const qreal strength = std::max(1 - age / qreal(spokeCount), faintest);
        painter.setPen(QPen(faded(color, strength), 2.4, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -7), QPointF(0, -12.5));
        painter.rotate(360.0 / spokeCount);
    }
}

void Spinner::showEvent(QShowEvent* event)
{
    QProgressBar::showEvent(event);
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0)
        m_timer.start(turnDuration / spokeCount, this);
}

void Spinner::hideEvent(QHideEvent* event)
{
    m_timer.stop();
    QProgressBar::hideEvent(event);
}

void Spinner::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QProgressBar::timerEvent(event);
        return;
    }
    m_leadingSpoke = (m_leadingSpoke + 1) % spokeCount;
    update();
}

} // namespace reelhouse
