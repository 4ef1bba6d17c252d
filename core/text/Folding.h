#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// `text` without the Unicode white space and line breaks at both ends.
QStringView trimmed(QStringView text);

/// `text` trimmed, then without differences of case and of diacritics, by the rules of the system's
/// locale (in Turkish and Azeri i and ı are two letters). Composed and decomposed texts fold alike;
/// inner spaces are kept. The one rule for comparing names.
QString normalizedForKey(const QString& text);

/// The same rule, under the name it has when searching.
QString normalizedForSearch(const QString& text);

/// A search text folded once, to be looked for in many texts.
class SearchPattern final {
public:
    explicit SearchPattern(const QString& query);

    /// Whether the query folds to nothing, so that it is found everywhere.
    bool matchesEverything() const { return m_folded.isEmpty(); }
    /// Whether `normalizedForSearch(text)` contains the folded query. Mostly Latin texts are folded
    /// and compared in one pass, without a copy.
    bool isFoundIn(const QString& text) const;

private:
    QString m_folded;
};

} // namespace reelhouse
