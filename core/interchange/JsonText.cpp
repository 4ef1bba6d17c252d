#include "core/interchange/JsonText.h"

#include <array>
#include <chrono>

namespace reelhouse {

namespace {

constexpr qsizetype longestEscape = 6; ///< Bytes that one UTF-16 unit may need: \u001f.
constexpr std::chrono::year lastWrittenYear{9999};

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

/// Puts so many units if all of them are written as they are. Without branches, so that they are
/// looked at at once.
template <qsizetype count>
bool putPlain(char* out, const char16_t* units)
{
    unsigned others = 0;
    for (qsizetype place = 0; place < count; ++place) {
        const char16_t unit = units[place];
        others |= unsigned(unit < 0x20) | unsigned(unit >= escapes.size()) | unsigned(unit == u'"')
            | unsigned(unit == u'\\') | unsigned(unit == u'/');
        out[place] = char(unit);
    }
    return others == 0;
}

/// The same of a whole text of at least `count` units; the last stretch overlaps the one before.
template <qsizetype count>
bool putPlainText(char* out, QStringView text)
{
    const char16_t* units = text.utf16();
    const qsizetype last = text.size() - count;
    for (qsizetype place = 0; place < last; place += count) {
        if (!putPlain<count>(out + place, units + place))
            return false;
    }
    return putPlain<count>(out + last, units + last);
}

bool putPlainText(char* out, QStringView text)
{
    if (text.size() >= 8)
        return putPlainText<8>(out, text);
    return text.size() >= 4 && putPlainText<4>(out, text);
}

} // namespace

void JsonText::string(QStringView text)
{
    char* const begin = room(longestEscape * text.size() + 2);
    char* out = begin;
    *out++ = '"';
    const char16_t* unit = text.utf16();
    const char16_t* const end = unit + text.size();
    if (putPlainText(out, text)) {
        out += text.size();
        unit = end;
    }
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

} // namespace reelhouse
