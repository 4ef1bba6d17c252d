#include "core/filters/FilterFavorite.h"
#include "core/filters/FilterFavoriteNaming.h"

using namespace reelhouse;

/// Whatever bytes the preference holds, they are no list of favourites, or one that can be shown,
/// named anew and saved so that the same favourites are read again.
extern "C" int LLVMFuzzerTestOneInput( // NOLINT(readability-identifier-naming): libFuzzer's
    const uint8_t* data, size_t size)
{
    const auto read = decodedFavorites({reinterpret_cast<const char*>(data), qsizetype(size)});
    if (!read)
        return 0;
    QStringList names;
    for (const FilterFavorite& favorite : *read) {
        names << favorite.name;
        if (favorite.criteria.summary().value_or(QStringLiteral("-")).isEmpty())
            qFatal("A favourite has nothing to say about itself.");
        const QString unique
            = FilterFavoriteNaming::uniqueName(favorite.criteria.suggestedName(), names);
        if (!FilterFavoriteNaming::isNameAvailable(unique, names, std::nullopt))
            qFatal("The suggested name is taken.");
    }
    if (decodedFavorites(encodedFavorites(*read)) != read)
        qFatal("Saved favourites are read as others.");
    return 0;
}
