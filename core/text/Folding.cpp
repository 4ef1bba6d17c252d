#include "core/text/Folding.h"

#include <QtCore/QLocale>

namespace reelhouse {

namespace {

QString folded(QStringView text)
{
    const QString cased = text.toString().normalized(QString::NormalizationForm_D).toCaseFolded();
    QString bare;
    for (const QChar character : cased) {
        if (character.category() != QChar::Mark_NonSpacing)
            bare += character;
    }
    return bare;
}

} // namespace

QStringView trimmed(QStringView text)
{
    return text.trimmed();
}

QString normalizedForKey(const QString& text)
{
    return folded(trimmed(text));
}

QString normalizedForSearch(const QString& text)
{
    return normalizedForKey(text);
}

SearchPattern::SearchPattern(const QString& query)
    : m_folded(normalizedForSearch(query))
{
}

bool SearchPattern::isFoundIn(const QString& text) const
{
    return normalizedForSearch(text).contains(m_folded);
}

} // namespace reelhouse
