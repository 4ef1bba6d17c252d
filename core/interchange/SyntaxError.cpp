#include "core/interchange/SyntaxError.h"

#include <QtCore/QChar>

#include <algorithm>
#include <charconv>
#include <string_view>

namespace reelhouse {

namespace {

constexpr int deepestNesting = 1024; ///< What the reader of documents goes down to.

/// Walks over a text for as long as it is JSON, and stands still where it is not.
class SyntaxWalk final {
public:
    explicit SyntaxWalk(QByteArrayView text)
        : m_text(text)
    {
    }

    std::optional<SyntaxError> firstError()
    {
        if (passValue(0) && m_place == m_text.size())
            return std::nullopt;
        return SyntaxError{m_kind, m_text.first(m_place).count('\n') + 1};
    }

private:
    char next() const { return m_place < m_text.size() ? m_text[m_place] : '\0'; }
    bool isNextOneOf(std::string_view letters) const
    {
        return m_place < m_text.size() && letters.find(next()) != std::string_view::npos;
    }

    bool pass(QByteArrayView expected)
    {
        if (!m_text.sliced(m_place).startsWith(expected))
            return false;
        m_place += expected.size();
        return true;
    }

    void passSpace()
    {
        while (isNextOneOf(" \t\n\r"))
            ++m_place;
    }

    /// With the space around it.
    bool passValue(int depth)
    {
        passSpace();
        const bool isPassed = passBareValue(depth);
        if (isPassed)
            passSpace();
        return isPassed;
    }

    bool passBareValue(int depth)
    {
        switch (next()) {
        case '{':
            return passList(depth + 1, '}', &SyntaxWalk::passMember);
        case '[':
            return passList(depth + 1, ']', &SyntaxWalk::passValue);
        case '"':
            return passString();
        case 't':
            return pass("true");
        case 'f':
            return pass("false");
        case 'n':
            return pass("null");
        default:
            return passNumber();
        }
    }

    bool passList(int depth, char end, bool (SyntaxWalk::*passItem)(int depth))
    {
        if (depth > deepestNesting)
            return false;
        ++m_place;
        passSpace();
        if (next() == end) {
            ++m_place;
            return true;
        }
        while ((this->*passItem)(depth)) {
            if (next() == end) {
                ++m_place;
                return true;
            }
            if (next() != ',')
                return false;
            ++m_place;
        }
        return false;
    }

    bool passMember(int depth)
    {
        passSpace();
        if (next() != '"' || !passString())
            return false;
        passSpace();
        return pass(":") && passValue(depth);
    }

    bool passString()
    {
        ++m_place;
        while (m_place < m_text.size()) {
            const auto byte = static_cast<unsigned char>(next());
            if (byte == '"') {
                ++m_place;
                return true;
            }
            if (byte < 0x20 || !(byte == '\\' ? passEscape() : passCharacter(byte)))
                return false;
        }
        return false;
    }

    bool passEscape()
    {
        const auto first = unitOfEscapeAt(m_place);
        if (!first)
            return passLetterEscape();
        if (!QChar::isSurrogate(*first)) {
            m_place += escapedUnit;
            return true;
        }
        const auto second = unitOfEscapeAt(m_place + escapedUnit);
        if (!QChar::isHighSurrogate(*first) || !second || !QChar::isLowSurrogate(*second))
            return false;
        m_place += 2 * escapedUnit;
        return true;
    }

    bool passLetterEscape()
    {
        ++m_place;
        if (!isNextOneOf("\"\\/bfnrt"))
            return false;
        ++m_place;
        return true;
    }

    /// The number of a "\u0041" that begins at `place`.
    std::optional<char16_t> unitOfEscapeAt(qsizetype place) const
    {
        if (m_text.size() - place < escapedUnit || m_text[place] != '\\'
            || m_text[place + 1] != 'u')
            return std::nullopt;
        const char* begin = m_text.data() + place + 2;
        quint16 unit = 0;
        const auto read = std::from_chars(begin, begin + 4, unit, 16);
        return read.ptr == begin + 4 ? std::optional(char16_t(unit)) : std::nullopt;
    }

    /// In UTF-8.
    bool passCharacter(unsigned char lead)
    {
        const qsizetype size = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
        if (size > m_text.size() - m_place || !m_text.sliced(m_place, size).isValidUtf8())
            return false;
        m_place += size;
        return true;
    }

    bool passNumber()
    {
        const qsizetype begin = m_place;
        pass("-");
        if (!pass("0") && !passDigits())
            return false;
        bool isInteger = true;
        if (pass(".")) {
            isInteger = false;
            if (!passDigits())
                return false;
        }
        if (isNextOneOf("eE")) {
            isInteger = false;
            ++m_place;
            if (isNextOneOf("+-"))
                ++m_place;
            if (!passDigits())
                return false;
        }
        const QByteArrayView number = m_text.sliced(begin, m_place - begin);
        if (isInteger ? isHeldBy<qint64>(number) || isHeldBy<quint64>(number) : isFinite(number))
            return true;
        m_kind = SyntaxError::Kind::NumberTooLarge;
        return false;
    }

    bool passDigits()
    {
        const qsizetype begin = m_place;
        while (isNextOneOf("0123456789"))
            ++m_place;
        return m_place > begin;
    }

    template <class Integer>
    static bool isHeldBy(QByteArrayView number)
    {
        Integer value = 0;
        return std::from_chars(number.begin(), number.end(), value).ec == std::errc();
    }

    static bool isFinite(QByteArrayView number)
    {
        double value = 0;
        if (std::from_chars(number.begin(), number.end(), value).ec == std::errc())
            return true;
        // Too small is read as zero.
        const auto exponent
            = std::ranges::find_if(number, [](char c) { return (c | 0x20) == 'e'; });
        return exponent == number.end() || exponent[1] == '-';
    }

    static constexpr qsizetype escapedUnit = 6;

    QByteArrayView m_text;
    qsizetype m_place = 0;
    SyntaxError::Kind m_kind = SyntaxError::Kind::NotJson;
};

} // namespace

std::optional<SyntaxError> findSyntaxError(QByteArrayView text)
{
    return SyntaxWalk(text).firstError();
}

} // namespace reelhouse
