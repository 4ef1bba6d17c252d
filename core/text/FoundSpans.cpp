#include "core/text/FoundSpans.h"

#include <QtCore/QTextBoundaryFinder>

#include <algorithm>

namespace reelhouse {

namespace {

/// A text folded letter by letter, which knows where each letter came from.
class FoldedLetters final {
public:
    FoldedLetters(QStringView text, FoldingRules rules)
    {
        const FoldingTable& table = FoldingTable::of(rules);
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
        for (qsizetype start = 0; start < text.size();) {
            m_letters.push_back({m_folded.size(), start});
            const qsizetype next = finder.toNextBoundary();
            const QStringView letter = text.sliced(start, next - start);
            const char16_t unit
                = letter.size() == 1 ? table[letter[0].unicode()] : FoldingTable::special;
            if (unit == FoldingTable::special)
                m_folded += foldedAsAWhole(letter, rules);
            else
                m_folded += QChar(unit);
            start = next;
        }
        m_letters.push_back({m_folded.size(), text.size()});
    }

    const QString& folded() const { return m_folded; }

    /// The letters that some folded characters came from.
    TextSpan letters(qsizetype start, qsizetype length) const
    {
        const auto first = letterAt(start);
        const auto last = letterAt(start + length - 1);
        return {first->start, (last + 1)->start - first->start};
    }

private:
    struct Letter {
        qsizetype folded; ///< Where it begins in the folded text.
        qsizetype start; ///< Where it begins in the text.
    };

    /// Of several that begin there the last: the others folded to nothing.
    std::vector<Letter>::const_iterator letterAt(qsizetype folded) const
    {
        return std::ranges::upper_bound(m_letters, folded, {}, &Letter::folded) - 1;
    }

    QString m_folded;
    std::vector<Letter> m_letters; ///< And one more at the end.
};

} // namespace

std::vector<TextSpan> foundSpans(QStringView text, const QString& foldedQuery, FoldingRules rules)
{
    std::vector<TextSpan> spans;
    if (foldedQuery.isEmpty())
        return spans;
    const FoldedLetters letters(text, rules);
    qsizetype found = letters.folded().indexOf(foldedQuery);
    while (found >= 0) {
        const TextSpan span = letters.letters(found, foldedQuery.size());
        const bool isBesideLast
            = spans.empty() || spans.back().start + spans.back().length <= span.start;
        if (isBesideLast) // Two matches may lie in one letter.
            spans.push_back(span);
        found = letters.folded().indexOf(foldedQuery, found + foldedQuery.size());
    }
    return spans;
}

} // namespace reelhouse
