#include "app/ui/ButtonLook.h"

#include <QtWidgets/QAbstractButton>

namespace reelhouse {

namespace {

constexpr const char* lookProperty = "buttonLook";
constexpr const char* smallProperty = "smallButton";

} // namespace

void setButtonLook(QAbstractButton* button, ButtonLook look)
{
    button->setProperty(lookProperty, static_cast<int>(look));
    button->setAttribute(Qt::WA_Hover);
    button->updateGeometry();
    button->update();
}

void setSmallButton(QAbstractButton* button)
{
    button->setProperty(smallProperty, true);
    button->updateGeometry();
}

bool isSmallButton(const QWidget* widget)
{
    return widget != nullptr && widget->property(smallProperty).toBool();
}

ButtonLook buttonLook(const QWidget* widget)
{
    const QVariant look = widget == nullptr ? QVariant() : widget->property(lookProperty);
    return look.isValid() ? static_cast<ButtonLook>(look.toInt()) : ButtonLook::Normal;
}

} // namespace reelhouse
