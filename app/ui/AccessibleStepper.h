#pragma once

#include <QtWidgets/QAccessibleWidget>

namespace reelhouse {

class Stepper;

/// A Stepper as a spin box to assistive technology, which may also set its number.
class AccessibleStepper final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleStepper(Stepper* stepper);

    /// For `QAccessible::installFactory`.
    static QAccessibleInterface* make(const QString& className, QObject* object);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QVariant currentValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;
    void setCurrentValue(const QVariant& value) override;

private:
    Stepper* stepper() const;
};

} // namespace reelhouse
