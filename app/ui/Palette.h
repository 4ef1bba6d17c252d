#pragma once

#include "app/ui/Theme.h"

#include <QtGui/QPalette>

class QWidget;

namespace reelhouse {

/// What an area is painted on.
enum class Ground { Window, Canvas, List, Surface, Sunken };

/// The colours that running text may have.
enum class TextTone { Primary, Secondary, Tertiary, Accent, Red, Orange, Green };

/// The application palette of a theme. Disabled text is the same colour at 45 %.
/// The roles that no control of ours reads carry the grounds and tones that Qt has no role for.
QPalette paletteOf(const Theme& theme);

/// The role of the application palette that carries a ground or a tone.
QPalette::ColorRole roleOf(Ground ground);
QPalette::ColorRole roleOf(TextTone tone);

/// Fills `widget` with `ground`, whatever the theme is or becomes.
void setGround(QWidget* widget, Ground ground);

/// Gives the text of a label the colour of `tone`, whatever the theme is or becomes.
void setTextTone(QWidget* widget, TextTone tone);

} // namespace reelhouse
