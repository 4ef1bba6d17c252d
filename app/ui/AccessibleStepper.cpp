#include "app/ui/AccessibleStepper.h"

#include "app/ui/Stepper.h"

#include <algorithm>

namespace reelhouse {

AccessibleStepper::AccessibleStepper(Stepper* stepper)
    : QAccessibleWidget(stepper, QAccessible::SpinBox)
{
}

QAccessibleInterface* AccessibleStepper::make(const QString& /*className*/, QObject* object)
{
    auto* stepper = qobject_cast<Stepper*>(object);
    return stepper ? new AccessibleStepper(stepper) : nullptr;
}

void* AccessibleStepper::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleStepper::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value)
        return QString::number(stepper()->value());
    return QAccessibleWidget::text(kind);
}

QVariant AccessibleStepper::currentValue() const
{
    return stepper()->value();
}

QVariant AccessibleStepper::maximumValue() const
{
    return stepper()->maximum();
}

QVariant AccessibleStepper::minimumValue() const
{
    return stepper()->minimum();
}

QVariant AccessibleStepper::minimumStepSize() const
{
    return 1;
}

void AccessibleStepper::setCurrentValue(const QVariant& value)
{
    const qint64 wanted = std::clamp(value.toLongLong(), stepper()->minimum(),
        std::max(stepper()->minimum(), stepper()->maximum()));
    const qint64 distance = wanted - stepper()->value();
    stepper()->step(int(std::clamp<qint64>(distance, -1'000'000, 1'000'000)));
}

Stepper* AccessibleStepper::stepper() const
{
    return static_cast<Stepper*>(object());
}

} // namespace reelhouse
