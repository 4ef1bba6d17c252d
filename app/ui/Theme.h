#pragma once

#include <QtGui/QColor>

namespace reelhouse {

/// What a filter capsule wears once its value is set.
struct CapsuleTint {
    QColor base; ///< The field's own colour; graphics only.
    QColor ground;
    QColor text; ///< Text and icon, readable on `ground`.

    bool operator==(const CapsuleTint&) const = default;
};

/// Every colour the program paints with, apart from filament colours and the application icon.
/// Text tokens reach 4.5:1 on every ground on which they are used.
struct Theme {
    bool isDark;

    QColor window; ///< Sidebar, status bar, loading and failure screens.
    QColor canvas; ///< Content column, toolbar, filter bar, sheets.
    QColor list; ///< Ground of tables.
    QColor surface; ///< Cards, form groups, buttons, capsules, inputs.
    QColor sunken; ///< Search field, segmented track, pressed button.
    QColor raised; ///< The chosen one of several segments.
    QColor menu; ///< Menus and combo pop-ups.

    QColor hairline; ///< Row lines, card edges, separators.
    QColor line; ///< Border of buttons, steppers and sheets.
    QColor control; ///< Border of inputs and unticked boxes.
    QColor off; ///< Track of a toggle that is off.
    QColor track; ///< Ground of a bar; selection without focus.
    QColor scroller; ///< Slider of a scroll bar.

    QColor textPrimary;
    QColor textSecondary; ///< Notes, captions, icons at rest.
    QColor textTertiary; ///< Codes and hints; not on a selection.

    QColor accent; ///< Focus ring, bars, outlines; never text.
    QColor accentText; ///< Links and active icons.
    QColor chosenIcon; ///< Icon of the chosen segment, on `raised`.
    QColor accentButton; ///< Default button, ticked box.
    QColor accentButtonHover;
    QColor onAccent; ///< Text on accentButton and redFill.

    QColor selection; ///< Selected row, highlighted menu entry.
    QColor selectionSide; ///< Selected sidebar entry.
    QColor hover; ///< A wash laid over the ground under the pointer.

    QColor red;
    QColor redFill; ///< Destructive button of an alert.
    QColor redSoft;
    QColor orange;
    QColor orangeGraphic;
    QColor orangeSoft;
    QColor green;
    QColor greenSoft;

    QColor scrim; ///< Laid over the window behind a sheet.

    CapsuleTint typeTint;
    CapsuleTint brandTint;
    CapsuleTint rangeTint;
    CapsuleTint locationTint;
    CapsuleTint countTint; ///< Spools and opened spools.

    QColor typeBar;
    QColor brandBar;
    QColor locationBar;
    QColor typesMark; ///< Icon of the type count in the status bar.
    QColor gradientStart; ///< Icons of the export screens, from here …
    QColor gradientEnd; ///< … to here.

    bool operator==(const Theme&) const = default;
};

/// Names one colour token: `&Theme::accentText`. What is given a role asks for the colour again
/// each time it paints, and so follows a change of theme.
using ColorRole = QColor Theme::*;

Theme lightTheme();
Theme darkTheme();

/// The same theme for a desktop that asks for high contrast: lines and borders become as strong as
/// secondary text, secondary and tertiary text as strong as primary text.
Theme withHighContrast(Theme theme);

/// The theme in use: the installed SpoolwrightStyle's, or the light one where it is not installed.
const Theme& currentTheme();

} // namespace reelhouse
