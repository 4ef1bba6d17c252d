#include "core/text/Folding.h"

#include "core/text/FoldingTable.h"

#include <QtCore/QLocale>

namespace reelhouse {

FoldingRules systemFoldingRules()
{
    const QLocale::Language language = QLocale::system().language();
    return language == QLocale::Turkish || language == QLocale::Azerbaijani
        ? FoldingRules::Turkic
        : FoldingRules::Standard;
}

QStringView trimmed(QStringView text)
{
    return text.trimmed();
}

QString normalizedForKey(const QString& text, FoldingRules rules)
{
    const QStringView bare = trimmed(text);
    const FoldingTable& table = FoldingTable::of(rules);
    QString folded;
    folded.reserve(bare.size());
    for (const QChar unit : bare) {
        const FoldingTable::Folded row = table[unit];
        if (row.first == FoldingTable::unknown)
            return foldedAsAWhole(bare, rules);
        if (row.first != FoldingTable::nothing)
            folded += row.first;
        if (row.second != FoldingTable::nothing)
            folded += row.second;
    }
    return folded;
}

QString normalizedForSearch(const QString& text, FoldingRules rules)
{
    return normalizedForKey(text, rules);
}

SearchPattern::SearchPattern(const QString& query, FoldingRules rules)
    : m_rules(rules)
    , m_folded(normalizedForSearch(query, rules))
    , m_borders(size_t(m_folded.size()), 0)
{
    for (qsizetype place = 1; place < m_folded.size(); ++place)
        m_borders[size_t(place)]
            = advanced(m_borders[size_t(place) - 1], m_folded[place].unicode());
}

bool SearchPattern::isFoundIn(const QString& text) const
{
    if (matchesEverything())
        return true;
    const QStringView bare = trimmed(text);
    const FoldingTable& table = FoldingTable::of(m_rules);
    qsizetype matched = 0;
    for (const QChar unit : bare) {
        const FoldingTable::Folded row = table[unit];
        // Also right after a match: an unknown mark may change the letter before it.
        if (row.first == FoldingTable::unknown)
            return foldedAsAWhole(bare, m_rules).contains(m_folded);
        if (matched == m_folded.size())
            return true;
        if (row.first != FoldingTable::nothing)
            matched = advanced(matched, row.first);
        if (row.second != FoldingTable::nothing && matched < m_folded.size())
            matched = advanced(matched, row.second);
    }
    return matched == m_folded.size();
}

/// How much of the query the text ends with after `unit`, when it ended with `matched` units of it.
qsizetype SearchPattern::advanced(qsizetype matched, char16_t unit) const
{
    while (matched > 0 && m_folded[matched] != unit)
        matched = m_borders[size_t(matched) - 1];
    return m_folded[matched] == unit ? matched + 1 : 0;
}

} // namespace reelhouse
