#pragma once

#include <QtGui/QFont>

class QWidget;

namespace reelhouse {

/// The sizes of text, as multiples of the application font size.
enum class TextStyle {
    Display, ///< 2.0
    Title, ///< 1.5, semibold
    ScreenTitle, ///< 1.3, semibold
    Headline, ///< 1.15, semibold
    CardTitle, ///< 1.05, semibold
    Body, ///< 1.0
    Name, ///< 1.0, medium
    Count, ///< 1.0, semibold
    Callout, ///< .95
    Caption, ///< .9
    Header, ///< .85, semibold: sections and column headers
    Code, ///< .85, fixed width: colour codes
    TileValue, ///< 2.2, semibold
};

/// The font of a text style. Follows the application font as it is now.
QFont fontOf(TextStyle style);

/// Gives `widget` the font of `style`.
void setTextStyle(QWidget* widget, TextStyle style);

} // namespace reelhouse
