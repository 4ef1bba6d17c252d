#pragma once

#include "core/interchange/DocumentReader.h"

#include <optional>
#include <simdjson.h>
#include <string_view>
#include <unordered_map>

/// The single values of a JSON document, read from what the parser found.
namespace reelhouse {

inline constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

/// Of valid UTF-8, to the letter: what looks like a byte-order mark stays.
QString toText(std::string_view bytes);

/// Gives equal texts one buffer: a document names few entries and colours many times. The bytes
/// outlive it.
class SharedTexts final {
public:
    const QString& text(std::string_view bytes)
    {
        const auto [place, isNew] = m_texts.try_emplace(bytes);
        if (isNew)
            place->second = toText(bytes);
        return place->second;
    }

private:
    std::unordered_map<std::string_view, QString> m_texts;
};

/// An integer, however it is written: 3.0 counts as 3. `target` is set unless it is refused.
std::optional<ExportDecodingError::Kind> readInteger(simdjson::dom::element value, qint64& target);

/// "2025-03-14T09:26:53Z" as milliseconds since 1970; nothing for any other form, or a day or time
/// that there is not.
std::optional<qint64> readDate(std::string_view text);

} // namespace reelhouse
