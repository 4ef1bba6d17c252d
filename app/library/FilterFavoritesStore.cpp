#include "app/library/FilterFavoritesStore.h"

#include "core/filters/FilterFavoriteNaming.h"
#include "core/preferences/Preferences.h"
#include "core/text/Folding.h"

namespace reelhouse {

FilterFavoritesStore::FilterFavoritesStore(Preferences& preferences, QObject* parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_favorites(decodedFavorites(preferences.filterFavorites()).value_or(QList<FilterFavorite>()))
{
    m_favorites.removeIf(
        [](const FilterFavorite& favorite) { return trimmed(favorite.name).isEmpty(); });
}

std::optional<FilterFavorite> FilterFavoritesStore::find(const QUuid& id) const
{
    const qsizetype place = placeOf(id);
    return place < 0 ? std::nullopt : std::optional(m_favorites.at(place));
}

std::optional<FilterFavorite> FilterFavoritesStore::matching(const FilterCriteria& criteria) const
{
    const auto found = std::ranges::find(m_favorites, criteria, &FilterFavorite::criteria);
    return found == m_favorites.end() ? std::nullopt : std::optional(*found);
}

std::optional<FilterFavorite> FilterFavoritesStore::add(
    const QString& name, const FilterCriteria& criteria)
{
    if (!isNameAvailable(name))
        return std::nullopt;
    FilterFavorite favorite{QUuid::createUuid(), trimmed(name).toString(), criteria};
    m_favorites << favorite;
    save();
    return favorite;
}

bool FilterFavoritesStore::isNameAvailable(
    const QString& name, const std::optional<QUuid>& excluding) const
{
    std::optional<QString> excludedName;
    if (excluding) {
        if (const auto favorite = find(*excluding))
            excludedName = favorite->name;
    }
    return FilterFavoriteNaming::isNameAvailable(name, names(), excludedName);
}

bool FilterFavoritesStore::rename(const QUuid& id, const QString& name)
{
    const qsizetype place = placeOf(id);
    if (place < 0 || !isNameAvailable(name, id))
        return false;
    m_favorites[place].name = trimmed(name).toString();
    save();
    return true;
}

void FilterFavoritesStore::update(const QUuid& id, const FilterCriteria& criteria)
{
    const qsizetype place = placeOf(id);
    if (place < 0)
        return;
    m_favorites[place].criteria = criteria;
    save();
}

void FilterFavoritesStore::remove(const QUuid& id)
{
    const qsizetype place = placeOf(id);
    if (place < 0)
        return;
    m_favorites.removeAt(place);
    save();
}

void FilterFavoritesStore::move(const QList<qsizetype>& fromOffsets, qsizetype toOffset)
{
    QList<FilterFavorite> before;
    QList<FilterFavorite> moved;
    QList<FilterFavorite> after;
    for (qsizetype place = 0; place < m_favorites.size(); ++place) {
        auto& part = fromOffsets.contains(place) ? moved : place < toOffset ? before : after;
        part << m_favorites.at(place);
    }
    m_favorites = before + moved + after;
    save();
}

QString FilterFavoritesStore::uniqueName(const QString& base) const
{
    return FilterFavoriteNaming::uniqueName(base, names());
}

QStringList FilterFavoritesStore::names() const
{
    QStringList names;
    for (const FilterFavorite& favorite : m_favorites)
        names << favorite.name;
    return names;
}

qsizetype FilterFavoritesStore::placeOf(const QUuid& id) const
{
    const auto found = std::ranges::find(m_favorites, id, &FilterFavorite::id);
    return found == m_favorites.end() ? -1 : found - m_favorites.begin();
}

void FilterFavoritesStore::save()
{
    m_preferences.setFilterFavorites(encodedFavorites(m_favorites));
    emit changed();
}

} // namespace reelhouse
