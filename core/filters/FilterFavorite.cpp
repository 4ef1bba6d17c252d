#include "core/filters/FilterFavorite.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// Of the form with 36 characters, in capitals or not.
std::optional<QUuid> uuidFrom(const QString& text)
{
    const QUuid id = QUuid::fromString(text);
    if (id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) != 0)
        return std::nullopt;
    return id;
}

} // namespace

QJsonObject FilterFavorite::toJson() const
{
    return {{u"id"_s, id.toString(QUuid::WithoutBraces).toUpper()}, {u"name"_s, name},
        {u"criteria"_s, criteria.toJson()}};
}

Result<FilterFavorite, FilterDecodingError> FilterFavorite::fromJson(const QJsonObject& object)
{
    const auto id = uuidFrom(object.value(u"id"_s).toString());
    if (!id)
        return Failure{FilterDecodingError{u"id"_s}};
    const QJsonValue name = object.value(u"name"_s);
    if (!name.isString())
        return Failure{FilterDecodingError{u"name"_s}};
    const QJsonValue criteria = object.value(u"criteria"_s);
    if (!criteria.isObject())
        return Failure{FilterDecodingError{u"criteria"_s}};
    auto decoded = FilterCriteria::fromJson(criteria.toObject());
    if (!decoded)
        return Failure{decoded.error()};
    return FilterFavorite{*id, name.toString(), std::move(decoded.value())};
}

size_t qHash(const FilterFavorite& favorite, size_t seed)
{
    return qHashMulti(seed, favorite.id, favorite.name, favorite.criteria);
}

QByteArray encodedFavorites(const QList<FilterFavorite>& favorites)
{
    QJsonArray array;
    for (const FilterFavorite& favorite : favorites)
        array.append(favorite.toJson());
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<FilterFavorite>> decodedFavorites(const QByteArray& encoded)
{
    const QJsonDocument document = QJsonDocument::fromJson(encoded);
    if (!document.isArray())
        return std::nullopt;
    QList<FilterFavorite> favorites;
    for (const QJsonValue element : document.array()) {
        auto favorite = FilterFavorite::fromJson(element.toObject());
        if (!favorite)
            return std::nullopt;
        favorites << std::move(favorite.value());
    }
    return favorites;
}

} // namespace reelhouse
