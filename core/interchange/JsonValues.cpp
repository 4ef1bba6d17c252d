#include "core/interchange/JsonValues.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace reelhouse {

namespace {

/// From here on a floating-point number is no longer one certain integer.
constexpr double firstInexactInteger = 9007199254740992.0;

/// The digits of `text` from `begin` to `end` as a number; -1 when one is none.
int readDigits(std::string_view text, size_t begin, size_t end)
{
    int number = 0;
    for (size_t place = begin; place < end; ++place) {
        if (text[place] < '0' || text[place] > '9')
            return -1;
        number = number * 10 + (text[place] - '0');
    }
    return number;
}

} // namespace

QString toText(std::string_view bytes)
{
    const QUtf8StringView text(bytes.data(), qsizetype(bytes.size()));
    QString decoded = text.toString();
    // Qt takes it for the mark of a file wherever a text begins with it.
    if (bytes.starts_with(byteOrderMark))
        decoded.prepend(QChar::ByteOrderMark);
    return decoded;
}

std::optional<ExportDecodingError::Kind> readInteger(simdjson::dom::element value, qint64& target)
{
    using Kind = ExportDecodingError::Kind;
    namespace dom = simdjson::dom;
    switch (value.type()) {
    case dom::element_type::INT64:
        target = value.get_int64().value_unsafe();
        return std::nullopt;
    case dom::element_type::UINT64:
        return Kind::OutOfRange;
    case dom::element_type::DOUBLE: {
        const double number = value.get_double().value_unsafe();
        if (number != std::floor(number))
            return Kind::NotAnInteger;
        if (std::abs(number) >= firstInexactInteger)
            return Kind::OutOfRange;
        target = qint64(number);
        return std::nullopt;
    }
    default:
        return Kind::NotAnInteger;
    }
}

std::optional<qint64> readDate(std::string_view text)
{
    using namespace std::chrono;
    constexpr std::string_view form = "0000-00-00T00:00:00Z";
    if (text.size() != form.size())
        return std::nullopt;
    for (const size_t place : {4U, 7U, 10U, 13U, 16U, 19U}) {
        if (text[place] != form[place])
            return std::nullopt;
    }
    const std::array parts{readDigits(text, 0, 4), readDigits(text, 5, 7), readDigits(text, 8, 10),
        readDigits(text, 11, 13), readDigits(text, 14, 16), readDigits(text, 17, 19)};
    if (std::ranges::any_of(parts, [](int part) { return part < 0; }))
        return std::nullopt;
    const auto [years, months, monthDays, hour, minute, second] = parts;
    const year_month_day date{
        year(years), month(static_cast<unsigned>(months)), day(static_cast<unsigned>(monthDays))};
    if (!date.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    const sys_seconds moment = sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
    return duration_cast<milliseconds>(moment.time_since_epoch()).count();
}

} // namespace reelhouse
