#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// The names of what a user can do in more than one place, there and in the undo history.
inline QString addFilamentText()
{
    return QStringLiteral("Ajouter un filament");
}

inline QString duplicateFilamentText()
{
    return QStringLiteral("Dupliquer le filament");
}

} // namespace reelhouse
