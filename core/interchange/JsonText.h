#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <charconv>
#include <cstring>
#include <optional>

namespace reelhouse {

/// Appends to one buffer that grows by doubling. A text that cannot be written marks it as failed.
class JsonText final {
public:
    explicit JsonText(qsizetype expectedSize)
        : m_bytes(expectedSize, Qt::Uninitialized)
        , m_begin(m_bytes.data())
    {
    }
    JsonText(const JsonText&) = delete;
    JsonText& operator=(const JsonText&) = delete;

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

    /// In quotation marks, with escapes.
    void string(QStringView text);
    /// In quotation marks, whole seconds of universal time.
    void date(qint64 millisecondsSinceEpoch);

    /// What was written; nothing when it failed.
    std::optional<QByteArray> take()
    {
        if (m_hasFailed)
            return std::nullopt;
        m_bytes.truncate(m_size);
        return std::move(m_bytes);
    }

private:
    static constexpr qsizetype longestNumber = 24;

    /// Where so many bytes may be written.
    char* room(qsizetype size)
    {
        if (m_bytes.size() - m_size < size) {
            m_bytes.resize(2 * m_bytes.size() + size);
            m_begin = m_bytes.data();
        }
        return m_begin + m_size;
    }

    QByteArray m_bytes;
    char* m_begin; ///< Of the bytes; asking them each time would look for other owners each time.
    qsizetype m_size = 0;
    bool m_hasFailed = false;
};

} // namespace reelhouse
