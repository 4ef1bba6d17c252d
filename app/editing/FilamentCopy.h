#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QString>

namespace reelhouse {

class Filament;
class StoreContext;

/// "Copie de PLA Acme Mat Étagère 2": what the notes of a copy say. "Copie" of one without any
/// reference.
QString notesOfCopy(const Filament& original);

/// Puts a copy into the stock as one action of the user: the same references and colour, one
/// spool, none opened, no colour name, added now. Returns the copy, or nothing's identity when
/// there is no such filament.
FilamentId duplicateFilament(StoreContext& context, FilamentId original);

} // namespace reelhouse
