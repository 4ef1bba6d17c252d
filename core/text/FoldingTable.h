#pragma once

#include <QtCore/QString>

#include <array>

namespace reelhouse {

enum class FoldingRules : quint8;

/// What single UTF-16 units fold to: the Latin and Greek letters and the common punctuation.
/// A text of nothing else folds unit by unit, which is what makes folding quick.
class FoldingTable final {
public:
    /// Every unit below it has a row; the punctuation has rows of its own.
    static constexpr char16_t latinEnd = 0x0400;
    /// Instead of a folded unit: to be folded with its neighbours, or not into just one unit.
    static constexpr char16_t special = 0xFFFF;

    static const FoldingTable& of(FoldingRules rules);

    char16_t operator[](char16_t unit) const
    {
        if (unit < latinEnd)
            return m_rows[unit];
        const unsigned punctuation = unsigned(unit) - punctuationBegin;
        return punctuation < punctuationCount ? m_rows[latinEnd + punctuation] : special;
    }

private:
    explicit FoldingTable(FoldingRules rules);

    static constexpr unsigned punctuationBegin = 0x2000;
    static constexpr unsigned punctuationCount = 0x70;

    std::array<char16_t, latinEnd + punctuationCount> m_rows;
};

/// Folds any text, by normalising it as a whole; the table is made from this.
QString foldedAsAWhole(QStringView text, FoldingRules rules);

} // namespace reelhouse
