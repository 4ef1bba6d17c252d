#include "core/interchange/DocumentWriter.h"

#include "core/interchange/ExportData.h"

#include <utility>

namespace reelhouse {

namespace {

constexpr qsizetype usualFilament = 400; ///< Bytes, with the names and a note.

/// Writes the members of one object; the first needs no comma before it.
class ObjectText final {
public:
    explicit ObjectText(JsonText& text)
        : m_text(text)
    {
        m_text.raw("{");
    }

    /// `key` with the line break before it and the colon behind it.
    void key(QByteArrayView key)
    {
        if (!std::exchange(m_isEmpty, false))
            m_text.raw(",");
        m_text.raw(key);
    }
    void member(QByteArrayView name, const QString& value)
    {
        key(name);
        m_text.string(value);
    }
    void member(QByteArrayView name, const QString* value)
    {
        if (value)
            member(name, *value);
    }
    void member(QByteArrayView name, const std::optional<qint64>& value)
    {
        if (!value)
            return;
        key(name);
        m_text.number(*value);
    }

private:
    JsonText& m_text;
    bool m_isEmpty = true;
};

const QString* addressOf(const std::optional<QString>& text)
{
    return text ? &*text : nullptr;
}

template <class Entry>
void writeEntries(JsonText& text, const std::vector<Entry>& entries)
{
    text.raw("[");
    if (entries.empty())
        text.raw("\n");
    bool isFirst = true;
    for (const Entry& entry : entries) {
        text.raw(std::exchange(isFirst, false) ? "\n    " : ",\n    ");
        ObjectText object(text);
        if constexpr (std::is_same_v<Entry, ExportType>)
            object.member("\n      \"iconName\" : ", addressOf(entry.iconName));
        object.member("\n      \"name\" : ", entry.name);
        text.raw("\n    }");
    }
    text.raw("\n  ]");
}

} // namespace

FilamentText FilamentText::of(const ExportFilament& filament)
{
    return {
        .type = addressOf(filament.type),
        .brand = addressOf(filament.brand),
        .range = addressOf(filament.range),
        .location = addressOf(filament.location),
        .colorHex = filament.colorHex,
        .colorName = addressOf(filament.colorName),
        .notes = filament.notes,
        .spoolsCount = filament.spoolsCount,
        .openedSpoolsCount = filament.openedSpoolsCount,
        .dateAddedMs = filament.dateAddedMs,
    };
}

DocumentWriter::DocumentWriter(const ExportData& lists, qsizetype filaments)
    : m_lists(lists)
    , m_text(4096 + usualFilament * filaments)
{
    m_text.raw("{\n  \"brands\" : ");
    writeEntries(m_text, lists.brands);
    m_text.raw(",\n  \"filaments\" : [");
}

void DocumentWriter::add(const FilamentText& filament)
{
    m_text.raw(std::exchange(m_hasFilaments, true) ? ",\n    " : "\n    ");
    ObjectText object(m_text);
    object.member("\n      \"brand\" : ", filament.brand);
    object.member("\n      \"colorHex\" : ", filament.colorHex);
    object.member("\n      \"colorName\" : ", filament.colorName);
    object.key("\n      \"dateAdded\" : ");
    m_text.date(filament.dateAddedMs);
    object.member("\n      \"location\" : ", filament.location);
    object.member("\n      \"notes\" : ", filament.notes);
    object.member("\n      \"openedSpoolsCount\" : ", filament.openedSpoolsCount);
    object.member("\n      \"range\" : ", filament.range);
    object.member("\n      \"spoolsCount\" : ", filament.spoolsCount);
    object.member("\n      \"type\" : ", filament.type);
    m_text.raw("\n    }");
}

std::optional<QByteArray> DocumentWriter::finish()
{
    m_text.raw(m_hasFilaments ? "\n  ]" : "\n\n  ]");
    m_text.raw(",\n  \"locations\" : ");
    writeEntries(m_text, m_lists.locations);
    m_text.raw(",\n  \"ranges\" : ");
    writeEntries(m_text, m_lists.ranges);
    if (m_lists.schemaVersion) {
        m_text.raw(",\n  \"schemaVersion\" : ");
        m_text.number(*m_lists.schemaVersion);
    }
    m_text.raw(",\n  \"types\" : ");
    writeEntries(m_text, m_lists.types);
    m_text.raw("\n}");
    return m_text.take();
}

} // namespace reelhouse
