#pragma once

#include "core/text/FoldingTable.h"

#include <QtCore/QString>

#include <array>

namespace reelhouse {

/// How the letter I loses its case. Everything else folds the same way everywhere.
enum class FoldingRules : quint8 {
    Standard,
    Turkic, ///< Turkish and Azeri: I and ı are one letter, İ and i another.
};

/// The rules of the system's locale.
FoldingRules systemFoldingRules();

/// `text` without the Unicode white space and line breaks at both ends.
QStringView trimmed(QStringView text);

/// `text` trimmed, then without differences of case and without diacritics, in composed form.
/// Composed and decomposed texts fold alike; inner spaces are kept. The one rule for comparing
/// names.
QString normalizedForKey(const QString& text, FoldingRules rules = systemFoldingRules());

/// The same rule, under the name it has when searching.
QString normalizedForSearch(const QString& text, FoldingRules rules = systemFoldingRules());

/// A search text folded once, to be looked for in many texts.
class SearchPattern final {
public:
    explicit SearchPattern(const QString& query, FoldingRules rules = systemFoldingRules());

    /// Whether the query folds to nothing, so that it is found everywhere.
    bool matchesEverything() const { return m_folded.isEmpty(); }
    /// Whether `normalizedForSearch(text)` contains the folded query. Mostly Latin texts are folded
    /// and compared in one pass, without a copy.
    bool isFoundIn(const QString& text) const;

private:
    /// What a unit is to the query: nothing, what to look for, or not to be folded by itself.
    enum class Unit : quint8 { Plain, Anchor, Special };

    Unit kindOf(char16_t unit) const
    {
        return unit < FoldingTable::latinEnd ? m_latinKinds[unit] : findKind(unit);
    }
    Unit findKind(char16_t unit) const;
    bool begins(QStringView text) const;
    bool isFoundInWhole(const QString& text) const;

    FoldingRules m_rules;
    QString m_folded;
    const FoldingTable& m_table;
    std::array<Unit, FoldingTable::latinEnd> m_latinKinds{};
    qsizetype m_anchor = 0; ///< The place in the query of its rarest letter.
    bool m_isQuick;
};

} // namespace reelhouse
