#include "core/text/FoldingTable.h"

#include "core/text/Folding.h"

#include <QtCore/QList>

namespace reelhouse {

namespace {

bool isNonSpacingMark(char32_t letter)
{
    return QChar::category(letter) == QChar::Mark_NonSpacing;
}

/// Full case folding. QString folds letter for letter; the letters that fold to several (ß to ss)
/// are those that have several for a capital.
QString caseFolded(const QString& text)
{
    QString folded;
    for (const uint letter : text.toCaseFolded().toUcs4()) {
        const auto buffer = QChar::fromUcs4(letter);
        const QStringView units = buffer;
        const QString capital = units.toString().toUpper();
        if (capital.size() > units.size())
            folded += capital.toCaseFolded();
        else
            folded += units;
    }
    return folded;
}

} // namespace

QString foldedAsAWhole(QStringView text, FoldingRules rules)
{
    const QList<uint> letters = text.toString().normalized(QString::NormalizationForm_D).toUcs4();
    QString bare;
    for (qsizetype place = 0; place < letters.size(); ++place) {
        const char32_t letter = letters[place];
        if (isNonSpacingMark(letter))
            continue;
        // With a mark it is the capital of an i with that mark: İ of i, Î of î, Į of į.
        const bool isBareI = letter == U'I'
            && (place + 1 == letters.size() || !isNonSpacingMark(letters[place + 1]));
        if (isBareI && rules == FoldingRules::Turkic)
            bare += u'ı';
        else
            bare += QChar::fromUcs4(letter);
    }
    // Composed again so that Korean compares syllable by syllable.
    return caseFolded(bare).normalized(QString::NormalizationForm_C);
}

const FoldingTable& FoldingTable::of(FoldingRules rules)
{
    // Each is made when it is first asked for.
    if (rules == FoldingRules::Turkic) {
        static const FoldingTable turkic(rules);
        return turkic;
    }
    static const FoldingTable standard(rules);
    return standard;
}

FoldingTable::FoldingTable(FoldingRules rules)
    : m_rows()
{
    for (unsigned row = 0; row < m_rows.size(); ++row) {
        const QChar unit(row < latinEnd ? row : punctuationBegin + row - latinEnd);
        const QString folded = foldedAsAWhole(QStringView(&unit, 1), rules);
        m_rows[row] = folded.size() == 1 ? folded[0].unicode() : special;
    }
}

} // namespace reelhouse
