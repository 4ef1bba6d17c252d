#include "core/interchange/DocumentWriter.h"

#include "core/interchange/ExportData.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstring>

namespace reelhouse {

namespace {

constexpr qsizetype longestEscape = 6; ///< Bytes that one UTF-16 unit may need: \u001f.
constexpr qsizetype longestNumber = 24;
constexpr qsizetype usualFilament = 400; ///< Bytes, with the names and a note.
constexpr std::chrono::year lastWrittenYear{9999};

/// Appends to one buffer that grows by doubling. A text that cannot be written marks it as failed.
class JsonText final {
public:
    explicit JsonText(qsizetype expectedSize) { m_bytes.resize(expectedSize); }

    void raw(QByteArrayView text)
    {
        char* end = room(text.size());
        std::memcpy(end, text.data(), size_t(text.size()));
        m_size += text.size();
    }

    void number(qint64 value)
    {
        char* begin = room(longestNumber);
        m_size += std::to_chars(begin, begin + longestNumber, value).ptr - begin;
    }

    void string(QStringView text);
    void date(qint64 millisecondsSinceEpoch);

    std::optional<QByteArray> take()
    {
        if (m_hasFailed)
            return std::nullopt;
        m_bytes.truncate(m_size);
        return std::move(m_bytes);
    }

private:
    char* room(qsizetype size)
    {
        if (m_bytes.size() - m_size < size)
            m_bytes.resize(2 * m_bytes.size() + size);
        return m_bytes.data() + m_size;
    }

    QByteArray m_bytes;
    qsizetype m_size = 0;
    bool m_hasFailed = false;
};

/// The letter behind the backslash, 'u' for a number, 0 for a character written as it is.
constexpr std::array<char, 128> escapes = [] {
    std::array<char, 128> letters{};
    for (size_t control = 0; control < 0x20; ++control)
        letters[control] = 'u';
    letters['\b'] = 'b';
    letters['\f'] = 'f';
    letters['\n'] = 'n';
    letters['\r'] = 'r';
    letters['\t'] = 't';
    letters['"'] = '"';
    letters['\\'] = '\\';
    letters['/'] = '/';
    return letters;
}();

char* putEscape(char* out, char16_t unit, char letter)
{
    constexpr char digits[] = "0123456789abcdef";
    *out++ = '\\';
    *out++ = letter;
    if (letter != 'u')
        return out;
    *out++ = '0';
    *out++ = '0';
    *out++ = digits[unit >> 4];
    *out++ = digits[unit & 15];
    return out;
}

char* putBeyondAscii(char* out, char32_t code)
{
    const auto tail = [code](int shift) { return char(0x80 | ((code >> shift) & 0x3f)); };
    if (code < 0x800) {
        *out++ = char(0xc0 | (code >> 6));
    } else if (code < 0x10000) {
        *out++ = char(0xe0 | (code >> 12));
        *out++ = tail(6);
    } else {
        *out++ = char(0xf0 | (code >> 18));
        *out++ = tail(12);
        *out++ = tail(6);
    }
    *out++ = tail(0);
    return out;
}

void JsonText::string(QStringView text)
{
    char* const begin = room(longestEscape * text.size() + 2);
    char* out = begin;
    *out++ = '"';
    const char16_t* unit = text.utf16();
    const char16_t* const end = unit + text.size();
    while (unit < end) {
        const char16_t first = *unit++;
        if (first < escapes.size()) {
            const char letter = escapes[first];
            if (letter == 0)
                *out++ = char(first);
            else
                out = putEscape(out, first, letter);
        } else if (!QChar::isSurrogate(first)) {
            out = putBeyondAscii(out, first);
        } else if (QChar::isHighSurrogate(first) && unit < end && QChar::isLowSurrogate(*unit)) {
            out = putBeyondAscii(out, QChar::surrogateToUcs4(first, *unit++));
        } else {
            m_hasFailed = true;
            return;
        }
    }
    *out++ = '"';
    m_size += out - begin;
}

void JsonText::date(qint64 millisecondsSinceEpoch)
{
    using namespace std::chrono;
    const sys_time<milliseconds> moment{milliseconds(millisecondsSinceEpoch)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    if (date.year() < year{0} || date.year() > lastWrittenYear) {
        m_hasFailed = true;
        return;
    }
    const hh_mm_ss time(floor<seconds>(moment - day));
    char text[] = "\"0000-00-00T00:00:00Z\"";
    const auto put = [&text](size_t lastDigit, int value) {
        for (size_t place = lastDigit; value > 0; --place, value /= 10)
            text[place] = char('0' + value % 10);
    };
    put(4, int(date.year()));
    put(7, int(unsigned(date.month())));
    put(10, int(unsigned(date.day())));
    put(13, int(time.hours().count()));
    put(16, int(time.minutes().count()));
    put(19, int(time.seconds().count()));
    raw(text);
}

/// Writes the members of one object; the first needs no comma before it.
class ObjectText final {
public:
    /// `indentation` stands before each key, after the line break.
    ObjectText(JsonText& text, QByteArrayView indentation)
        : m_text(text)
        , m_indentation(indentation)
    {
        m_text.raw("{");
    }

    void key(QByteArrayView quotedName)
    {
        m_text.raw(m_isEmpty ? "\n" : ",\n");
        m_isEmpty = false;
        m_text.raw(m_indentation);
        m_text.raw(quotedName);
        m_text.raw(" : ");
    }

    void member(QByteArrayView quotedName, const QString& value)
    {
        key(quotedName);
        m_text.string(value);
    }
    void member(QByteArrayView quotedName, qint64 value)
    {
        key(quotedName);
        m_text.number(value);
    }
    template <class Value>
    void member(QByteArrayView quotedName, const std::optional<Value>& value)
    {
        if (value)
            member(quotedName, *value);
    }

private:
    JsonText& m_text;
    QByteArrayView m_indentation;
    bool m_isEmpty = true;
};

constexpr QByteArrayView rootIndentation = "  ";
constexpr QByteArrayView entryIndentation = "      ";

template <class Entry>
void writeMembers(JsonText& text, const Entry& entry)
{
    ObjectText object(text, entryIndentation);
    if constexpr (std::is_same_v<Entry, ExportType>)
        object.member("\"iconName\"", entry.iconName);
    object.member("\"name\"", entry.name);
}

void writeMembers(JsonText& text, const ExportFilament& filament)
{
    ObjectText object(text, entryIndentation);
    object.member("\"brand\"", filament.brand);
    object.member("\"colorHex\"", filament.colorHex);
    object.member("\"colorName\"", filament.colorName);
    object.key("\"dateAdded\"");
    text.date(filament.dateAddedMs);
    object.member("\"location\"", filament.location);
    object.member("\"notes\"", filament.notes);
    object.member("\"openedSpoolsCount\"", filament.openedSpoolsCount);
    object.member("\"range\"", filament.range);
    object.member("\"spoolsCount\"", filament.spoolsCount);
    object.member("\"type\"", filament.type);
}

template <class Entry>
void writeList(JsonText& text, const std::vector<Entry>& entries)
{
    text.raw("[");
    if (entries.empty())
        text.raw("\n");
    bool isFirst = true;
    for (const Entry& entry : entries) {
        text.raw(std::exchange(isFirst, false) ? "\n    " : ",\n    ");
        writeMembers(text, entry);
        text.raw("\n    }");
    }
    text.raw("\n  ]");
}

} // namespace

std::optional<QByteArray> writeDocument(const ExportData& data)
{
    JsonText text(4096 + usualFilament * qsizetype(data.filaments.size()));
    ObjectText root(text, rootIndentation);
    root.key("\"brands\"");
    writeList(text, data.brands);
    root.key("\"filaments\"");
    writeList(text, data.filaments);
    root.key("\"locations\"");
    writeList(text, data.locations);
    root.key("\"ranges\"");
    writeList(text, data.ranges);
    root.member("\"schemaVersion\"", data.schemaVersion);
    root.key("\"types\"");
    writeList(text, data.types);
    text.raw("\n}");
    return text.take();
}

} // namespace reelhouse
