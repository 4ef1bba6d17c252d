#include "app/ui/Stepper.h"

#include "app/ui/AccessibleStepper.h"
#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"
#include "app/ui/Theme.h"

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr QSize stepButtonSize(31, 26);
constexpr qreal stepperRadius = 8;
constexpr int stepSymbolSide = 16;
constexpr int bigStep = 10;
constexpr int typingPauseMs = 1000;
constexpr int firstRepetitionMs = 400;
constexpr int nextRepetitionMs = 60;

} // namespace

Stepper::Stepper(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_title(title)
    , m_label(new QLabel(this))
{
    static const bool isKnown = (QAccessible::installFactory(&AccessibleStepper::make), true);
    Q_UNUSED(isKnown);
    QString name = title.trimmed();
    while (name.endsWith(u':') || name.endsWith(u' '))
        name.chop(1);
    setAccessibleName(name);
    m_label->hide(); // Until it is placed.
    m_label->setBuddy(this);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setContentsMargins(focusRingInset, focusRingInset, focusRingInset, focusRingInset);
    showNumber();
}

void Stepper::setSuffix(const QString& suffix)
{
    m_suffix = suffix;
    showNumber();
}

void Stepper::setValue(qint64 value)
{
    m_typed.reset();
    m_typingPause.stop();
    if (std::exchange(m_value, value) != value) {
        QAccessibleValueChangeEvent changed(this, value);
        QAccessible::updateAccessibility(&changed);
    }
    showNumber();
}

void Stepper::setRange(qint64 minimum, qint64 maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    update();
}

qint64 Stepper::reached(int steps) const
{
    if (steps > 0 && m_value < m_maximum)
        return std::max(m_minimum, m_maximum - m_value > steps ? m_value + steps : m_maximum);
    if (steps < 0 && m_value > m_minimum)
        return std::min(m_maximum, m_value - m_minimum > -steps ? m_value + steps : m_minimum);
    return m_value;
}

void Stepper::step(int steps)
{
    finishTyping();
    edit(reached(steps));
}

void Stepper::edit(qint64 value)
{
    if (value == m_value)
        return;
    setValue(value);
    emit valueEdited(value);
}

void Stepper::typeDigit(int digit)
{
    const qint64 longer = m_typed && *m_typed <= m_maximum / 10 ? *m_typed * 10 + digit : digit;
    m_typed = longer <= m_maximum ? longer : digit;
    if (*m_typed > m_maximum / 10) {
        finishTyping();
        return;
    }
    m_typingPause.start(typingPauseMs, this);
    showNumber();
}

void Stepper::finishTyping()
{
    m_typingPause.stop();
    const std::optional<qint64> typed = std::exchange(m_typed, std::nullopt);
    if (typed && *typed >= m_minimum && *typed <= m_maximum)
        edit(*typed);
    showNumber();
}

void Stepper::showNumber()
{
    m_label->setText(m_title + QString::number(m_typed.value_or(m_value)) + m_suffix);
    update();
}

QSize Stepper::sizeHint() const
{
    const QMargins ring = contentsMargins();
    return {2 * stepButtonSize.width() + ring.left() + ring.right(),
        stepButtonSize.height() + ring.top() + ring.bottom()};
}

QRect Stepper::body() const
{
    return contentsRect();
}

QRect Stepper::buttonRect(Button button) const
{
    QRect rect = body();
    rect.setWidth(rect.width() / 2);
    if (button == Button::Plus)
        rect.moveRight(body().right());
    return QStyle::visualRect(layoutDirection(), body(), rect);
}

Stepper::Button Stepper::buttonAt(QPoint position) const
{
    for (const Button button : {Button::Minus, Button::Plus}) {
        if (buttonRect(button).contains(position))
            return button;
    }
    return Button::None;
}

bool Stepper::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // A shortcut may read the number: "Ctrl+Return" right after a digit.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->text().isEmpty() || !key->text().front().isDigit())
            finishTyping();
    }
    return QWidget::event(event);
}

void Stepper::focusOutEvent(QFocusEvent* event)
{
    finishTyping();
    QWidget::focusOutEvent(event);
}

void Stepper::keyPressEvent(QKeyEvent* event)
{
    const QChar typed = event->text().isEmpty() ? QChar() : event->text().front();
    const bool isPlain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
    if (isPlain && typed.isDigit()) {
        typeDigit(typed.digitValue());
        return;
    }
    if (isPlain && (typed == u'+' || typed == u'-')) {
        step(typed == u'+' ? 1 : -1);
        return;
    }
    switch (isPlain ? event->key() : 0) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        step(1);
        return;
    case Qt::Key_Down:
    case Qt::Key_Left:
        step(-1);
        return;
    case Qt::Key_PageUp:
        step(bigStep);
        return;
    case Qt::Key_PageDown:
        step(-bigStep);
        return;
    default:
        finishTyping();
        QWidget::keyPressEvent(event);
    }
}

void Stepper::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = buttonAt(event->position().toPoint());
    if (m_pressed == Button::None)
        return;
    step(int(m_pressed));
    m_repetition.start(firstRepetitionMs, this);
    update();
}

void Stepper::mouseReleaseEvent(QMouseEvent*)
{
    m_pressed = Button::None;
    m_repetition.stop();
    update();
}

void Stepper::mouseMoveEvent(QMouseEvent* event)
{
    m_hovered = buttonAt(event->position().toPoint());
    update();
}

void Stepper::leaveEvent(QEvent* event)
{
    m_hovered = Button::None;
    update();
    QWidget::leaveEvent(event);
}

void Stepper::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_typingPause.timerId()) {
        finishTyping();
    } else if (event->timerId() == m_repetition.timerId()) {
        m_repetition.start(nextRepetitionMs, this);
        step(int(m_pressed));
    }
}

void Stepper::paintEvent(QPaintEvent*)
{
    QStyleOption option;
    option.initFrom(this);
    const Theme& theme = currentTheme();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    if (showsFocusRing(option))
        paintFocusRing(painter, rect(), stepperRadius + focusRingInset, theme);
    paintRoundedPanel(painter, body(), stepperRadius, theme.surface);
    paintButton(painter, Button::Minus);
    paintButton(painter, Button::Plus);
    paintRoundedPanel(painter, body(), stepperRadius, {}, theme.line);
    const QRect minus = buttonRect(Button::Minus);
    const int middle = layoutDirection() == Qt::LeftToRight ? minus.right() : minus.left();
    painter.fillRect(QRect(middle, body().top(), 1, body().height()), theme.line);
}

void Stepper::paintButton(QPainter& painter, Button button) const
{
    const Theme& theme = currentTheme();
    const QRect rect = buttonRect(button);
    const bool isUsable = isEnabled() && canStep(int(button));
    painter.save();
    if (isUsable && (m_pressed == button || m_hovered == button)) {
        QPainterPath shape;
        shape.addRoundedRect(body(), stepperRadius, stepperRadius);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(rect);
        painter.fillPath(shape, m_pressed == button ? theme.sunken : theme.hover);
    }
    QRectF symbol(0, 0, stepSymbolSide, stepSymbolSide);
    symbol.moveCenter(QRectF(rect).center());
    const QColor ink
        = isUsable || !isEnabled() ? theme.textPrimary : faded(theme.textPrimary, disabledOpacity);
    paintSymbol(painter, symbol, button == Button::Plus ? u"plus"_s : u"stepper.minus"_s, ink);
    painter.restore();
}

} // namespace reelhouse
