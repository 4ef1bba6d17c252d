#pragma once

#include <QtCore/QString>

#include <vector>

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
    qsizetype advanced(qsizetype matched, char16_t unit) const;

    FoldingRules m_rules;
    QString m_folded;
    /// For each beginning of the query, up to and with a unit: the length of the longest proper
    /// beginning of the query that it ends with.
    std::vector<qsizetype> m_borders;
};

} // namespace reelhouse
