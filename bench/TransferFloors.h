#pragma once

#include "core/model/StoreContext.h"

#include <QtCore/QStringConverter>

#include <charconv>
#include <cstring>

/// The least that writing a stock out can cost, to measure beside: the same members and cells, put
/// one after the other into one buffer, without a look at what they hold.
namespace reelhouse::bench {

/// Appends texts in UTF-8 to a buffer that is large enough from the start.
class PlainText final {
public:
    explicit PlainText(qsizetype size)
        : m_bytes(size, Qt::Uninitialized)
    {
    }

    PlainText& operator<<(QByteArrayView text)
    {
        std::memcpy(m_bytes.data() + m_size, text.data(), size_t(text.size()));
        m_size += text.size();
        return *this;
    }
    PlainText& operator<<(const char* text) { return *this << QByteArrayView(text); }
    PlainText& operator<<(const QString& text)
    {
        m_size = m_encoder.appendToBuffer(m_bytes.data() + m_size, text) - m_bytes.constData();
        return *this;
    }
    PlainText& operator<<(qint64 number)
    {
        char* begin = m_bytes.data() + m_size;
        m_size += std::to_chars(begin, begin + 24, number).ptr - begin;
        return *this;
    }

    QByteArray take()
    {
        m_bytes.truncate(m_size);
        return std::move(m_bytes);
    }

private:
    QByteArray m_bytes;
    qsizetype m_size = 0;
    QStringEncoder m_encoder{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
};

/// Bytes that no filament of the generated stock exceeds by itself in the mean.
constexpr qsizetype plainBytesPerFilament = 600;

inline void putReference(PlainText& text, QByteArrayView key, const FilamentContainer* entry)
{
    if (entry)
        text << key << entry->name() << "\",\n";
}

/// The filaments of a document, laid out as a document is. Not escaped; every date is the same one.
inline QByteArray plainDocument(StoreContext& context)
{
    PlainText text(plainBytesPerFilament * (context.count<Filament>() + 1));
    text << "{\n  \"filaments\" : [";
    for (const auto& filament : context.fetchAll<Filament>()) {
        text << "\n    {\n";
        putReference(text, "      \"brand\" : \"", filament->brand());
        text << "      \"colorHex\" : \"" << filament->colorHex();
        text << "\",\n      \"colorName\" : \"" << filament->colorName();
        text << "\",\n      \"dateAdded\" : \"2025-03-14T09:26:53Z\",\n";
        putReference(text, "      \"location\" : \"", filament->location());
        text << "      \"notes\" : \"" << filament->notes();
        text << "\",\n      \"openedSpoolsCount\" : " << filament->openedSpoolsCount() << ",\n";
        putReference(text, "      \"range\" : \"", filament->range());
        text << "      \"spoolsCount\" : " << filament->spoolsCount();
        putReference(text, ",\n      \"type\" : \"", filament->type());
        text << "\n    },";
    }
    return text.take();
}

inline void putName(PlainText& text, const FilamentContainer* entry)
{
    if (entry)
        text << entry->name();
    text << ";";
}

/// The rows of a table of these filaments, none of whose cells is quoted.
inline QByteArray plainTable(const std::vector<const Filament*>& filaments)
{
    PlainText text(plainBytesPerFilament * (qsizetype(filaments.size()) + 1));
    for (const Filament* filament : filaments) {
        text << filament->colorHex() << ";" << filament->colorName() << ";";
        putName(text, filament->type());
        putName(text, filament->brand());
        putName(text, filament->range());
        text << filament->spoolsCount() << ";" << filament->openedSpoolsCount() << ";";
        putName(text, filament->location());
        text << filament->notes() << "\n";
    }
    return text.take();
}

} // namespace reelhouse::bench
