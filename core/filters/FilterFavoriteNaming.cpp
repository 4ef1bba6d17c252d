#include "core/filters/FilterFavoriteNaming.h"

#include "core/text/Folding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse::FilterFavoriteNaming {

QString normalized(const QString& name)
{
    return normalizedForKey(name);
}

bool isNameAvailable(
    const QString& name, const QStringList& existing, const std::optional<QString>& excluded)
{
    const QString wanted = normalized(name);
    if (wanted.isEmpty())
        return false;
    if (excluded && normalized(*excluded) == wanted)
        return true;
    return std::ranges::none_of(
        existing, [&](const QString& taken) { return normalized(taken) == wanted; });
}

QString uniqueName(const QString& base, const QStringList& existing)
{
    const QString bare = trimmed(base).toString();
    const QString first = bare.isEmpty() ? u"Favori"_s : bare;
    QString name = first;
    for (int number = 2; !isNameAvailable(name, existing); ++number)
        name = first + u" ("_s + QString::number(number) + u')';
    return name;
}

} // namespace reelhouse::FilterFavoriteNaming
