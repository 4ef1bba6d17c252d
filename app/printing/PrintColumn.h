#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

namespace reelhouse {

class Filament;

/// One column that a report can have.
struct PrintColumn {
    /// In the order of the report's columns.
    enum class Kind { Type, Brand, Range, Spools, ColorName, Location, Notes };

    Kind kind;
    bool isEnabled = true; ///< Printed or not.

    /// Every column in order, all enabled.
    static QList<PrintColumn> allDefault();

    bool operator==(const PrintColumn&) const = default;
};

/// The name that stands for a column where one is kept: "colorName". Never shown.
QString printColumnKey(PrintColumn::Kind kind);

/// What stands above a column: "Nom de la couleur".
QString printColumnTitle(PrintColumn::Kind kind);

/// What a column says of `filament`: "—" where there is nothing, only notes may be empty. Notes are
/// given as they are, with their line breaks.
QString printColumnCell(PrintColumn::Kind kind, const Filament& filament);

} // namespace reelhouse
