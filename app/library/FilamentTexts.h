#pragma once

#include <QtCore/QString>

namespace reelhouse {

class Filament;

/// What the list, the cards and assistive technology say of one filament.
namespace FilamentTexts {

QString typeName(const Filament& filament); ///< "Sans type" without one.
QString brandName(const Filament& filament); ///< "Sans marque" without one.
QString brandAndRange(
    const Filament& filament); ///< "Bambu Lab · PLA Basic"; the range may be left out.
QString typeIconName(const Filament& filament); ///< The default icon without a type.
QString place(const Filament& filament); ///< "—" without one.
QString colorName(const Filament& filament); ///< "—" without one.
QString openedInParentheses(
    const Filament& filament); ///< "(2 entamées)", empty when none is opened.
QString notesOnOneLine(const Filament& filament);

} // namespace FilamentTexts

} // namespace reelhouse
