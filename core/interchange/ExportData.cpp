#include "core/interchange/ExportData.h"

#include "core/interchange/DocumentWriter.h"
#include "core/interchange/ExactKey.h"

#include <QtCore/QSet>

#include <unordered_set>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

template <class Entry>
std::optional<ExportValidationError> findDuplicate(
    const std::vector<Entry>& entries, const QString& category, FoldingRules rules)
{
    QSet<QString> keys;
    keys.reserve(qsizetype(entries.size()));
    for (const Entry& entry : entries) {
        const qsizetype known = keys.size();
        keys.insert(normalizedForKey(entry.name, rules));
        if (keys.size() == known)
            return ExportValidationError::duplicateName(category, entry.name);
    }
    return std::nullopt;
}

/// The names of one list as a filament may refer to them: to the letter. The list outlives it.
class ExactNames final {
public:
    template <class Entry>
    ExactNames(const std::vector<Entry>& entries, QString category)
        : m_category(std::move(category))
    {
        m_names.reserve(entries.size());
        for (const Entry& entry : entries)
            m_names.insert(exactKey(entry.name));
    }

    std::optional<ExportValidationError> check(const std::optional<QString>& reference) const
    {
        if (!reference || m_names.contains(exactKey(*reference)))
            return std::nullopt;
        return ExportValidationError::unknownReference(m_category, *reference);
    }

private:
    QString m_category;
    std::unordered_set<std::u16string_view> m_names;
};

/// Whether every choice of the counts added up in any order stays within 64 bits.
class CountSum final {
public:
    bool add(qint64 count)
    {
        qint64& sum = count < 0 ? m_negative : m_positive;
        return !__builtin_add_overflow(sum, count, &sum);
    }

private:
    qint64 m_positive = 0;
    qint64 m_negative = 0;
};

} // namespace

std::optional<QByteArray> ExportData::encodeJSON() const
{
    DocumentWriter writer(*this, qsizetype(filaments.size()));
    for (const ExportFilament& filament : filaments)
        writer.add(FilamentText::of(filament));
    return writer.finish();
}

std::optional<ExportValidationError> ExportData::validate(FoldingRules rules) const
{
    if (schemaVersion && *schemaVersion > currentSchemaVersion)
        return ExportValidationError::unsupportedSchema(*schemaVersion);
    const QString type = u"type"_s;
    const QString brand = u"marque"_s;
    const QString range = u"gamme"_s;
    const QString location = u"lieu"_s;

    if (auto error = findDuplicate(types, type, rules))
        return error;
    if (auto error = findDuplicate(brands, brand, rules))
        return error;
    if (auto error = findDuplicate(ranges, range, rules))
        return error;
    if (auto error = findDuplicate(locations, location, rules))
        return error;

    const ExactNames typeNames(types, type);
    const ExactNames brandNames(brands, brand);
    const ExactNames rangeNames(ranges, range);
    const ExactNames locationNames(locations, location);
    for (const ExportFilament& filament : filaments) {
        if (auto error = typeNames.check(filament.type))
            return error;
        if (auto error = brandNames.check(filament.brand))
            return error;
        if (auto error = rangeNames.check(filament.range))
            return error;
        if (auto error = locationNames.check(filament.location))
            return error;
    }

    CountSum spools;
    CountSum opened;
    for (const ExportFilament& filament : filaments) {
        if (!spools.add(filament.spoolsCount)
            || !opened.add(filament.openedSpoolsCount.value_or(0)))
            return ExportValidationError::countsTooLarge();
    }
    return std::nullopt;
}

} // namespace reelhouse
