#include "core/interchange/DocumentReader.h"

using namespace reelhouse;

/// Whatever bytes are given for a document, they are refused with a reason, or read; and what was
/// read is written as a document that says the same and is written the same again.
extern "C" int LLVMFuzzerTestOneInput( // NOLINT(readability-identifier-naming): libFuzzer's
    const uint8_t* data, size_t size)
{
    const auto read = decodeDocument({reinterpret_cast<const char*>(data), qsizetype(size)});
    if (!read) {
        using Kind = ExportDecodingError::Kind;
        const auto& error = read.error();
        if (error.place.isEmpty() && error.kind != Kind::NotAnObject)
            qFatal("A document was refused without a place.");
        return 0;
    }
    if (const auto error = read.value().validate(); error && error->description().isEmpty())
        qFatal("A document was not accepted without a reason.");
    const auto written = read.value().encodeJSON();
    if (!written)
        qFatal("A document that was read cannot be written.");
    const auto again = decodeDocument(*written);
    if (!again || again.value() != read.value() || again.value().encodeJSON() != written)
        qFatal("A written document says something else.");
    return 0;
}
