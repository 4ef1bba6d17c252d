#include "core/filters/FilterCriteria.h"

#include "core/filters/FilterSelection.h"
#include "core/text/Graphemes.h"
#include "core/text/Plural.h"

#include <QtCore/QStringList>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qsizetype longestSuggestion = 60;

QString bucketText(qint64 bucket)
{
    return bucket < fourOrMoreBucket ? QString::number(bucket) : u"4+"_s;
}

QString suggestedSpools(qint64 bucket)
{
    return bucket < fourOrMoreBucket ? counted(bucket, u"bobine"_s) : u"4+ bobines"_s;
}

QString suggestedOpened(qint64 bucket)
{
    if (bucket == 0)
        return u"aucune entamée"_s;
    return bucket >= 1 && bucket < fourOrMoreBucket ? counted(bucket, u"entamée"_s)
                                                    : u"4+ entamées"_s;
}

QString quoted(const QString& text)
{
    return u"« "_s + text + u" »"_s;
}

/// Without the spaces and tabs at both ends; line breaks stay.
QString withoutOuterBlanks(QStringView text)
{
    const auto isBlank = [](QChar character) {
        return character == u'\t' || character.category() == QChar::Separator_Space;
    };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text.toString();
}

void write(QJsonObject& object, const QString& key, const std::optional<QString>& text)
{
    if (text)
        object.insert(key, *text);
}

void write(QJsonObject& object, const QString& key, const std::optional<qint64>& bucket)
{
    if (bucket)
        object.insert(key, *bucket);
}

/// Each returns whether `value` has the right type.
bool read(const QJsonValue& value, std::optional<QString>& text)
{
    if (value.isString())
        text = value.toString();
    return text || value.isUndefined() || value.isNull();
}

bool read(const QJsonValue& value, std::optional<qint64>& bucket)
{
    // A number with a fraction, or too large, gives the default: two different ones tell them.
    if (value.isDouble() && value.toInteger(0) == value.toInteger(1))
        bucket = value.toInteger();
    return bucket || value.isUndefined() || value.isNull();
}

template <class T>
size_t hashOf(const std::optional<T>& value, size_t seed)
{
    return value ? ::qHash(*value, seed ^ 1) : seed;
}

} // namespace

std::optional<QString> FilterCriteria::summary() const
{
    QStringList parts;
    const std::pair<QString, const std::optional<QString>&> names[] = {{u"Type : "_s, typeName},
        {u"Marque : "_s, brandName}, {u"Gamme : "_s, rangeName}, {u"Lieu : "_s, locationName}};
    for (const auto& [field, name] : names) {
        if (name && !name->isEmpty())
            parts << field + *name;
    }
    if (spools)
        parts << u"Bobines : "_s + bucketText(*spools);
    if (opened)
        parts << u"Entamées : "_s + bucketText(*opened);
    if (!searchText.isEmpty())
        parts << u"Recherche : "_s + quoted(searchText);
    return parts.isEmpty() ? std::nullopt : std::optional(parts.join(u" — "_s));
}

QString FilterCriteria::suggestedName() const
{
    QStringList parts;
    for (const auto* name : {&typeName, &brandName, &rangeName, &locationName}) {
        if (*name && !(*name)->isEmpty())
            parts << **name;
    }
    if (spools)
        parts << suggestedSpools(*spools);
    if (opened)
        parts << suggestedOpened(*opened);
    if (!searchText.isEmpty())
        parts << quoted(searchText);
    const QString joined = parts.join(u" · "_s);
    const QString name = withoutOuterBlanks(firstGraphemes(joined, longestSuggestion));
    return name.isEmpty() ? u"Tous les filaments"_s : name;
}

QJsonObject FilterCriteria::toJson() const
{
    QJsonObject object;
    write(object, u"typeName"_s, typeName);
    write(object, u"brandName"_s, brandName);
    write(object, u"rangeName"_s, rangeName);
    write(object, u"locationName"_s, locationName);
    write(object, u"spools"_s, spools);
    write(object, u"opened"_s, opened);
    object.insert(u"searchText"_s, searchText);
    return object;
}

Result<FilterCriteria, FilterDecodingError> FilterCriteria::fromJson(const QJsonObject& object)
{
    FilterCriteria criteria;
    const std::pair<QString, std::optional<QString>&> names[]
        = {{u"typeName"_s, criteria.typeName}, {u"brandName"_s, criteria.brandName},
            {u"rangeName"_s, criteria.rangeName}, {u"locationName"_s, criteria.locationName}};
    for (const auto& [key, name] : names) {
        if (!read(object.value(key), name))
            return Failure{FilterDecodingError{key}};
    }
    const std::pair<QString, std::optional<qint64>&> buckets[]
        = {{u"spools"_s, criteria.spools}, {u"opened"_s, criteria.opened}};
    for (const auto& [key, bucket] : buckets) {
        if (!read(object.value(key), bucket))
            return Failure{FilterDecodingError{key}};
    }
    const QJsonValue searchText = object.value(u"searchText"_s);
    if (!searchText.isString())
        return Failure{FilterDecodingError{u"searchText"_s}};
    criteria.searchText = searchText.toString();
    return criteria;
}

size_t qHash(const FilterCriteria& criteria, size_t seed)
{
    return qHashMulti(seed, hashOf(criteria.typeName, 1), hashOf(criteria.brandName, 2),
        hashOf(criteria.rangeName, 3), hashOf(criteria.locationName, 4), hashOf(criteria.spools, 5),
        hashOf(criteria.opened, 6), criteria.searchText);
}

} // namespace reelhouse
