#pragma once

#include <QtCore/QString>

#include <string_view>

namespace reelhouse {

/// The letters of a name, to look it up by in a standard container: hashed and compared in a small
/// part of the time that a QString takes. The name outlives it.
inline std::u16string_view exactKey(const QString& name)
{
    return {QStringView(name).utf16(), size_t(name.size())};
}

} // namespace reelhouse
