#pragma once

#include "app/ui/Theme.h"

#include <QtWidgets/QProxyStyle>

namespace reelhouse {

/// Draws every standard control from the theme that it holds. Made and installed by ThemeService.
class SpoolwrightStyle final : public QProxyStyle {
    Q_OBJECT

public:
    explicit SpoolwrightStyle(const Theme& theme);

    const Theme& theme() const { return m_theme; }
    /// Only changes what will be painted next; ThemeService has everything painted again.
    void setTheme(const Theme& theme) { m_theme = theme; }

    QPalette standardPalette() const override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;
    void unpolish(QWidget* widget) override;
    using QProxyStyle::unpolish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
        QPainter* painter, const QWidget* widget) const override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* returnData) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
        const QWidget* widget) const override;
    QRect subElementRect(
        SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
        SubControl subControl, const QWidget* widget) const override;

private:
    Theme m_theme;
};

} // namespace reelhouse
