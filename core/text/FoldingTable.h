#pragma once

#include <QtCore/QString>

#include <array>

namespace reelhouse {

enum class FoldingRules : quint8;

/// What single UTF-16 units fold to, for the Latin letters, their diacritics and the common
/// punctuation. A text of nothing else folds unit by unit, which is what makes folding quick.
class FoldingTable final {
public:
    /// Up to two units.
    struct Folded {
        char16_t first;
        char16_t second;
    };

    static constexpr char16_t nothing = 0xFFFF; ///< In place of a unit that is not there.
    static constexpr char16_t unknown = 0xFFFE; ///< As `first`: the table cannot say.

    static const FoldingTable& of(FoldingRules rules);

    Folded operator[](QChar unit) const
    {
        const unsigned place = unit.unicode();
        if (place < latinEnd)
            return m_rows[place];
        if (place - punctuationBegin < punctuationCount)
            return m_rows[latinEnd + place - punctuationBegin];
        return {unknown, nothing};
    }

private:
    explicit FoldingTable(FoldingRules rules);

    static constexpr unsigned latinEnd = 0x0370;
    static constexpr unsigned punctuationBegin = 0x2000;
    static constexpr unsigned punctuationCount = 0x70;

    std::array<Folded, latinEnd + punctuationCount> m_rows;
};

/// Folds any text, by normalising it as a whole; the table is made from this.
QString foldedAsAWhole(QStringView text, FoldingRules rules);

} // namespace reelhouse
