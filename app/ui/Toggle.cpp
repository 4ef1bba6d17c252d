#include "app/ui/Toggle.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

namespace reelhouse {

namespace {

constexpr QSize toggleSize(38, 22);
constexpr qreal knobGap = 2;
constexpr int knobTravelMs = 120;

} // namespace

Toggle::Toggle(QWidget* parent)
    : QCheckBox(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setContentsMargins(focusRingInset, focusRingInset, focusRingInset, focusRingInset);
    m_knob.setStartValue(0.0);
    m_knob.setEndValue(1.0);
    m_knob.setDuration(knobTravelMs);
    connect(&m_knob, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(this, &QCheckBox::toggled, this, &Toggle::moveKnob);
}

QSize Toggle::sizeHint() const
{
    const QMargins ring = contentsMargins();
    return toggleSize + QSize(ring.left() + ring.right(), ring.top() + ring.bottom());
}

void Toggle::moveKnob(bool isOn)
{
    m_knob.setDirection(isOn ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    const bool isStill = !isVisible()
        || style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0;
    if (isStill) {
        m_knob.stop();
        m_knob.setCurrentTime(isOn ? knobTravelMs : 0);
        update();
    } else if (m_knob.state() != QAbstractAnimation::Running) {
        m_knob.start();
    }
}

void Toggle::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = currentTheme();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const QRectF track = contentsRect();
    const qreal radius = track.height() / 2;
    if (showsFocusRing(option))
        paintFocusRing(painter, rect(), radius + focusRingInset, theme);
    const bool isHovered = isEnabled() && (option.state & QStyle::State_MouseOver) != 0;
    const QColor on = isHovered ? theme.accentButtonHover : theme.accentButton;
    paintRoundedPanel(painter, track, radius, isChecked() ? on : theme.off);

    const qreal side = track.height() - 2 * knobGap;
    const qreal travelled = m_knob.currentValue().toReal();
    const qreal share = layoutDirection() == Qt::LeftToRight ? travelled : 1 - travelled;
    const QRectF knob(track.left() + knobGap + share * (track.width() - side - 2 * knobGap),
        track.top() + knobGap, side, side);
    paintRoundedPanel(painter, knob, side / 2, Qt::white);
}

} // namespace reelhouse
