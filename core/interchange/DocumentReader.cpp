#include "core/interchange/DocumentReader.h"

#include "core/interchange/JsonValues.h"
#include "core/interchange/SyntaxError.h"

#include <algorithm>
#include <array>
#include <new>
#include <simdjson.h>
#include <string_view>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

using Refusal = ExportDecodingError::Kind;
using Failed = std::optional<ExportDecodingError>;
namespace dom = simdjson::dom;

/// A key as the user is told of it.
QString keyText(std::string_view key)
{
    return key.empty() ? u"\"\""_s : toText(key);
}

/// A path into the document, written out only when something is wrong there.
struct Place {
    const char* list;
    size_t index;

    QString text() const { return QLatin1StringView(list) + u'[' + QString::number(index) + u']'; }
    QString text(std::string_view key) const { return text() + u'.' + keyText(key); }
};

/// Where in a value that the program does not know a key stands twice, as the end of a path:
/// ".key" or "[3].key". It is put together on the way back, for the one key it is about: in a
/// foreign document keys may be long and members many.
std::optional<QString> duplicateKeyIn(dom::element value);

std::optional<QString> duplicateKeyIn(dom::object object)
{
    // Nothing in a JSON text says which of two equal keys counts.
    std::unordered_set<std::string_view> keys;
    for (const auto [key, value] : object) {
        if (!keys.insert(key).second)
            return u'.' + keyText(key);
        if (const auto below = duplicateKeyIn(value))
            return u'.' + keyText(key) + *below;
    }
    return std::nullopt;
}

std::optional<QString> duplicateKeyIn(dom::array array)
{
    size_t index = 0;
    for (const dom::element value : array) {
        if (const auto below = duplicateKeyIn(value))
            return u'[' + QString::number(index) + u']' + *below;
        ++index;
    }
    return std::nullopt;
}

/// The depth is bounded by the parser's.
std::optional<QString> duplicateKeyIn(dom::element value)
{
    if (value.is_object())
        return duplicateKeyIn(value.get_object().value_unsafe());
    if (value.is_array())
        return duplicateKeyIn(value.get_array().value_unsafe());
    return std::nullopt;
}

/// What is known while a whole document is read.
struct Reading {
    size_t documentBytes;
    SharedTexts shared;
};

enum class Need : quint8 { Required, Optional };

std::optional<Refusal> readShared(dom::element value, QString& target, SharedTexts& shared)
{
    if (!value.is_string())
        return Refusal::NotAText;
    target = shared.text(value.get_string().value_unsafe());
    return std::nullopt;
}

template <class Value, class Read>
std::optional<Refusal> readOptional(dom::element value, std::optional<Value>& target, Read read)
{
    if (value.is_null())
        return std::nullopt;
    return read(value, target.emplace());
}

/// One key of an object and how its value is read.
template <class Record>
struct Field {
    std::string_view key;
    Need need;
    std::optional<Refusal> (*read)(dom::element value, Record& record, SharedTexts& shared);
};

template <class Record, QString Record::*member>
std::optional<Refusal> textField(dom::element value, Record& record, SharedTexts& shared)
{
    return readShared(value, record.*member, shared);
}

template <class Record, std::optional<QString> Record::*member>
std::optional<Refusal> optionalTextField(dom::element value, Record& record, SharedTexts& shared)
{
    return readOptional(value, record.*member,
        [&](dom::element text, QString& target) { return readShared(text, target, shared); });
}

/// Hardly two filaments have the same.
std::optional<Refusal> notesField(
    dom::element value, ExportFilament& filament, SharedTexts& /*shared*/)
{
    if (!value.is_string())
        return Refusal::NotAText;
    filament.notes = toText(value.get_string().value_unsafe());
    return std::nullopt;
}

std::optional<Refusal> dateField(
    dom::element value, ExportFilament& filament, SharedTexts& /*shared*/)
{
    if (!value.is_string())
        return Refusal::NotADate;
    const auto date = readDate(value.get_string().value_unsafe());
    if (!date)
        return Refusal::NotADate;
    filament.dateAddedMs = *date;
    return std::nullopt;
}

std::optional<Refusal> spoolsField(
    dom::element value, ExportFilament& filament, SharedTexts& /*shared*/)
{
    return readInteger(value, filament.spoolsCount);
}

std::optional<Refusal> openedField(
    dom::element value, ExportFilament& filament, SharedTexts& /*shared*/)
{
    return readOptional(value, filament.openedSpoolsCount, readInteger);
}

template <class Named>
constexpr std::array namedFields{
    Field<Named>{"name", Need::Required, textField<Named, &Named::name>}};

constexpr std::array typeFields{Field<ExportType>{"iconName", Need::Optional,
                                    optionalTextField<ExportType, &ExportType::iconName>},
    Field<ExportType>{"name", Need::Required, textField<ExportType, &ExportType::name>}};

/// In the order of a written document, so that the next key is mostly the next field.
constexpr std::array filamentFields{Field<ExportFilament>{"brand", Need::Optional,
                                        optionalTextField<ExportFilament, &ExportFilament::brand>},
    Field<ExportFilament>{
        "colorHex", Need::Required, textField<ExportFilament, &ExportFilament::colorHex>},
    Field<ExportFilament>{
        "colorName", Need::Optional, optionalTextField<ExportFilament, &ExportFilament::colorName>},
    Field<ExportFilament>{"dateAdded", Need::Required, dateField},
    Field<ExportFilament>{
        "location", Need::Optional, optionalTextField<ExportFilament, &ExportFilament::location>},
    Field<ExportFilament>{"notes", Need::Required, notesField},
    Field<ExportFilament>{"openedSpoolsCount", Need::Optional, openedField},
    Field<ExportFilament>{
        "range", Need::Optional, optionalTextField<ExportFilament, &ExportFilament::range>},
    Field<ExportFilament>{"spoolsCount", Need::Required, spoolsField},
    Field<ExportFilament>{
        "type", Need::Optional, optionalTextField<ExportFilament, &ExportFilament::type>}};

template <class Record, size_t count>
size_t fieldOf(const std::array<Field<Record>, count>& fields, std::string_view key, size_t guess)
{
    for (size_t tried = 0; tried < count; ++tried) {
        const size_t field = (guess + tried) % count;
        if (fields[field].key == key)
            return field;
    }
    return count;
}

/// Reads the members of one record. A key is looked for where it stands in a written document.
template <class Record, size_t count>
Failed readRecord(dom::element element, const std::array<Field<Record>, count>& fields,
    const Place& place, SharedTexts& shared, Record& record)
{
    dom::object object;
    if (element.get(object) != simdjson::SUCCESS)
        return ExportDecodingError{Refusal::NotAnObject, place.text()};
    std::array<bool, count> isRead{};
    bool hasUnknown = false;
    size_t next = 0;
    for (const auto [key, value] : object) {
        const size_t field = fieldOf(fields, key, next);
        if (field == count) {
            hasUnknown = true;
            continue;
        }
        if (std::exchange(isRead[field], true))
            return ExportDecodingError{Refusal::DuplicateKey, place.text(key)};
        if (value.is_null() && fields[field].need == Need::Required)
            return ExportDecodingError{Refusal::Missing, place.text(key)};
        if (const auto kind = fields[field].read(value, record, shared))
            return ExportDecodingError{*kind, place.text(key)};
        next = field + 1;
    }
    if (hasUnknown) {
        if (const auto duplicate = duplicateKeyIn(object))
            return ExportDecodingError{Refusal::DuplicateKey, place.text() + *duplicate};
    }
    for (size_t field = 0; field < count; ++field) {
        if (!isRead[field] && fields[field].need == Need::Required)
            return ExportDecodingError{Refusal::Missing, place.text(fields[field].key)};
    }
    return std::nullopt;
}

/// The bytes that a record takes in a document at the least: its required keys, each with two
/// quotes, a colon, a value and a comma or bracket.
template <class Record, size_t count>
constexpr size_t leastBytes(const std::array<Field<Record>, count>& fields)
{
    size_t bytes = 0;
    for (const auto& field : fields)
        bytes += field.need == Need::Required ? field.key.size() + 5 : 0;
    return bytes;
}

template <class Record, size_t count>
Failed readList(dom::object root, const char* key, const std::array<Field<Record>, count>& fields,
    Reading& reading, std::vector<Record>& records)
{
    dom::element value;
    if (root.at_key(key).get(value) != simdjson::SUCCESS || value.is_null())
        return ExportDecodingError{Refusal::Missing, toText(key)};
    dom::array array;
    if (value.get(array) != simdjson::SUCCESS)
        return ExportDecodingError{Refusal::NotAnArray, toText(key)};
    // However many elements a list has that are no records.
    records.reserve(std::min(array.size(), reading.documentBytes / leastBytes(fields)));
    Place place{key, 0};
    for (const dom::element element : array) {
        if (auto failed
            = readRecord(element, fields, place, reading.shared, records.emplace_back()))
            return failed;
        ++place.index;
    }
    return std::nullopt;
}

/// The keys of the root itself; what lies below those it knows is read by readList.
Failed checkRootKeys(dom::object root)
{
    constexpr std::array lists{"types", "brands", "ranges", "locations", "filaments"};
    std::unordered_set<std::string_view> keys;
    for (const auto [key, value] : root) {
        if (!keys.insert(key).second)
            return ExportDecodingError{Refusal::DuplicateKey, keyText(key)};
        if (std::ranges::find(lists, key) != lists.end())
            continue;
        if (const auto duplicate = duplicateKeyIn(value))
            return ExportDecodingError{Refusal::DuplicateKey, keyText(key) + *duplicate};
    }
    return std::nullopt;
}

Failed readVersion(dom::object root, std::optional<qint64>& version)
{
    dom::element value;
    if (root.at_key("schemaVersion").get(value) != simdjson::SUCCESS)
        return std::nullopt;
    if (const auto kind = readOptional(value, version, readInteger))
        return ExportDecodingError{*kind, u"schemaVersion"_s};
    return std::nullopt;
}

Failed readRoot(dom::element element, size_t documentBytes, ExportData& data)
{
    dom::object root;
    if (element.get(root) != simdjson::SUCCESS)
        return ExportDecodingError{Refusal::NotAnObject, {}};
    if (auto failed = checkRootKeys(root))
        return failed;
    if (auto failed = readVersion(root, data.schemaVersion))
        return failed;
    Reading reading{documentBytes, {}};
    if (auto failed = readList(root, "types", typeFields, reading, data.types))
        return failed;
    if (auto failed = readList(root, "brands", namedFields<ExportBrand>, reading, data.brands))
        return failed;
    if (auto failed = readList(root, "ranges", namedFields<ExportRange>, reading, data.ranges))
        return failed;
    if (auto failed
        = readList(root, "locations", namedFields<ExportLocation>, reading, data.locations))
        return failed;
    return readList(root, "filaments", filamentFields, reading, data.filaments);
}

/// The parser says what is wrong at most, never where.
ExportDecodingError describe(simdjson::error_code code, QByteArrayView bytes)
{
    if (code == simdjson::CAPACITY || code == simdjson::MEMALLOC)
        return {Refusal::TooLarge, {}};
    const auto error = findSyntaxError(bytes);
    const bool isNumber = error && error->kind == SyntaxError::Kind::NumberTooLarge;
    return {isNumber ? Refusal::NumberTooLarge : Refusal::NotJson,
        error ? u"ligne "_s + QString::number(error->line) : QString()};
}

/// The text itself and what the parser needed are gone when this returns, before records are made.
Failed parse(QByteArray bytes, dom::document& document)
{
    if (bytes.startsWith(byteOrderMark.data()))
        bytes.remove(0, qsizetype(byteOrderMark.size()));
    bytes.reserve(bytes.size() + qsizetype(simdjson::SIMDJSON_PADDING));
    dom::parser parser;
    // The room behind the text is there already, so the parser need not copy it.
    const simdjson::error_code code
        = parser.parse_into_document(document, bytes.constData(), size_t(bytes.size()), false)
              .error();
    return code == simdjson::SUCCESS ? Failed() : describe(code, bytes);
}

Result<ExportData, ExportDecodingError> decode(QByteArray bytes)
{
    const auto documentBytes = size_t(bytes.size());
    dom::document document;
    if (auto failed = parse(std::move(bytes), document))
        return Failure{*failed};
    ExportData data;
    if (auto failed = readRoot(document.root(), documentBytes, data))
        return Failure{*failed};
    return data;
}

} // namespace

Result<ExportData, ExportDecodingError> decodeDocument(QByteArray bytes)
{
    try {
        return decode(std::move(bytes));
    } catch (const std::bad_alloc&) {
        return Failure{ExportDecodingError{Refusal::TooLarge, {}}};
    }
}

} // namespace reelhouse
