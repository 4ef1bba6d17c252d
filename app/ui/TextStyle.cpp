#include "app/ui/TextStyle.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace reelhouse {

namespace {

struct Measure {
    qreal size; ///< Times the application font size.
    QFont::Weight weight;
};

Measure measureOf(TextStyle style)
{
    switch (style) {
    case TextStyle::Display:
        return {2.0, QFont::DemiBold};
    case TextStyle::Title:
        return {1.5, QFont::DemiBold};
    case TextStyle::ScreenTitle:
        return {1.3, QFont::DemiBold};
    case TextStyle::Headline:
        return {1.15, QFont::DemiBold};
    case TextStyle::CardTitle:
        return {1.05, QFont::DemiBold};
    case TextStyle::Body:
        return {1.0, QFont::Normal};
    case TextStyle::Name:
        return {1.0, QFont::Medium};
    case TextStyle::Count:
        return {1.0, QFont::DemiBold};
    case TextStyle::Callout:
        return {0.95, QFont::Normal};
    case TextStyle::Caption:
        return {0.9, QFont::Normal};
    case TextStyle::Header:
        return {0.85, QFont::DemiBold};
    case TextStyle::Code:
        return {0.85, QFont::Normal};
    case TextStyle::TileValue:
        return {2.2, QFont::DemiBold};
    }
    Q_UNREACHABLE();
}

} // namespace

QFont fontOf(TextStyle style)
{
    const QFont base = QApplication::font();
    const Measure measure = measureOf(style);
    QFont font
        = style == TextStyle::Code ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : base;
    // A desktop may give its font in pixels; then there is no point size to multiply.
    if (base.pointSizeF() > 0)
        font.setPointSizeF(base.pointSizeF() * measure.size);
    else
        font.setPixelSize(qRound(base.pixelSize() * measure.size));
    font.setWeight(measure.weight);
    return font;
}

void setTextStyle(QWidget* widget, TextStyle style)
{
    widget->setFont(fontOf(style));
}

} // namespace reelhouse
