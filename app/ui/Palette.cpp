#include "app/ui/Palette.h"

#include "app/ui/ColorMath.h"

#include <QtWidgets/QWidget>

namespace reelhouse {

namespace {

} // namespace

QPalette paletteOf(const Theme& theme)
{
    QPalette palette(theme.surface, theme.canvas);
    const auto set = [&palette](QPalette::ColorRole role, const QColor& color) {
        palette.setColor(QPalette::All, role, color);
    };
    const auto setText = [&palette](QPalette::ColorRole role, const QColor& color) {
        palette.setColor(QPalette::All, role, color);
        palette.setColor(QPalette::Disabled, role, faded(color, disabledOpacity));
    };

    set(roleOf(Ground::Window), theme.window);
    set(roleOf(Ground::Canvas), theme.canvas);
    set(roleOf(Ground::List), theme.list);
    set(roleOf(Ground::Surface), theme.surface);
    set(roleOf(Ground::Sunken), theme.sunken);
    set(QPalette::Button, theme.surface);
    set(QPalette::Mid, theme.hairline);
    set(QPalette::Highlight, theme.selection);
    set(QPalette::ToolTipBase, theme.menu);

    setText(roleOf(TextTone::Primary), theme.textPrimary);
    setText(roleOf(TextTone::Secondary), theme.textSecondary);
    setText(roleOf(TextTone::Tertiary), theme.textTertiary);
    setText(roleOf(TextTone::Accent), theme.accentText);
    setText(roleOf(TextTone::Red), theme.red);
    setText(roleOf(TextTone::Orange), theme.orange);
    setText(roleOf(TextTone::Green), theme.green);
    setText(QPalette::Text, theme.textPrimary);
    setText(QPalette::ButtonText, theme.textPrimary);
    setText(QPalette::ToolTipText, theme.textPrimary);
    setText(QPalette::HighlightedText, theme.textPrimary);
    return palette;
}

QPalette::ColorRole roleOf(Ground ground)
{
    switch (ground) {
    case Ground::Window:
        return QPalette::Midlight;
    case Ground::Canvas:
        return QPalette::Window;
    case Ground::List:
        return QPalette::AlternateBase;
    case Ground::Surface:
        return QPalette::Base;
    case Ground::Sunken:
        return QPalette::Light;
    }
    Q_UNREACHABLE();
}

QPalette::ColorRole roleOf(TextTone tone)
{
    switch (tone) {
    case TextTone::Primary:
        return QPalette::WindowText;
    case TextTone::Secondary:
        return QPalette::BrightText;
    case TextTone::Tertiary:
        return QPalette::PlaceholderText;
    case TextTone::Accent:
        return QPalette::Link;
    case TextTone::Red:
        return QPalette::LinkVisited;
    case TextTone::Orange:
        return QPalette::Dark;
    case TextTone::Green:
        return QPalette::Shadow;
    }
    Q_UNREACHABLE();
}

void setGround(QWidget* widget, Ground ground)
{
    widget->setBackgroundRole(roleOf(ground));
    widget->setAutoFillBackground(true);
}

void setTextTone(QWidget* widget, TextTone tone)
{
    widget->setForegroundRole(roleOf(tone));
}

} // namespace reelhouse
