#include "core/text/Folding.h"

#include "core/text/FoldingTable.h"

#include <QtCore/QLocale>

#include <algorithm>

namespace reelhouse {

namespace {

/// The place of the letter that French texts have least often: looking for it, the processor is
/// seldom surprised.
qsizetype rarestLetter(QStringView folded)
{
    static constexpr QStringView byFrequency = u" esaintrulodcpmvqfbgh";
    const auto rarity = [](QChar letter) {
        const qsizetype place = byFrequency.indexOf(letter);
        return place < 0 ? byFrequency.size() : place;
    };
    const auto rarest = std::ranges::max_element(folded, {}, rarity);
    return rarest - folded.begin();
}

} // namespace

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
    QString folded(bare.size(), Qt::Uninitialized);
    QChar* units = folded.data();
    for (qsizetype place = 0; place < bare.size(); ++place) {
        const char16_t unit = table[bare.utf16()[place]];
        if (unit == FoldingTable::special)
            return foldedAsAWhole(bare, rules);
        units[place] = QChar(unit);
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
    , m_table(FoldingTable::of(rules))
    // The quick way does not reckon with the spaces that a text loses at its ends, and takes what
    // stands for a special unit for one.
    , m_isQuick(!m_folded.isEmpty() && !m_folded.front().isSpace() && !m_folded.back().isSpace()
          && !m_folded.contains(FoldingTable::special))
{
    if (!m_isQuick)
        return;
    m_anchor = rarestLetter(m_folded);
    for (char16_t unit = 0; unit < FoldingTable::latinEnd; ++unit)
        m_latinKinds[unit] = findKind(unit);
}

SearchPattern::Unit SearchPattern::findKind(char16_t unit) const
{
    const char16_t folded = m_table[unit];
    if (folded == FoldingTable::special)
        return Unit::Special;
    return folded == m_folded[m_anchor] ? Unit::Anchor : Unit::Plain;
}

bool SearchPattern::isFoundIn(const QString& text) const
{
    if (!m_isQuick)
        return isFoundInWhole(text);
    const QStringView units = text;
    for (qsizetype place = 0; place < units.size(); ++place) {
        const Unit kind = kindOf(units.utf16()[place]);
        if (kind == Unit::Plain)
            continue;
        if (kind == Unit::Special)
            return isFoundInWhole(text);
        const qsizetype start = place - m_anchor;
        if (start >= 0 && begins(units.sliced(start))) {
            // A mark may change the letter before it.
            const qsizetype after = start + m_folded.size();
            const bool isMarked
                = after < units.size() && kindOf(units.utf16()[after]) == Unit::Special;
            return !isMarked || isFoundInWhole(text);
        }
    }
    return false;
}

/// Whether `text`, folded unit by unit, begins with the query.
bool SearchPattern::begins(QStringView text) const
{
    if (text.size() < m_folded.size())
        return false;
    qsizetype place = 0;
    while (place < m_folded.size() && m_table[text.utf16()[place]] == m_folded[place])
        ++place;
    return place == m_folded.size();
}

bool SearchPattern::isFoundInWhole(const QString& text) const
{
    return normalizedForSearch(text, m_rules).contains(m_folded);
}

} // namespace reelhouse
