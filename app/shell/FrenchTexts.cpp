#include "app/shell/FrenchTexts.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>

namespace reelhouse {

namespace {

struct MissingText {
    const char* english;
    QStringView french;
};

/// What Qt's own French lacks, all of it in the print dialog.
constexpr std::array missingTexts{
    MissingText{"Double Sided Printing", u"Impression recto verso"},
    MissingText{"Off", u"Désactivée"},
    MissingText{"Long side binding", u"Reliure sur le bord long"},
    MissingText{"Short side binding", u"Reliure sur le bord court"},
    MissingText{"Specify pages or ranges separated by commas. Ranges are specified by two numbers "
                "separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
        u"Pages ou intervalles séparés par des virgules, un intervalle étant écrit avec un trait "
        u"d'union : 3,5-7,9 imprime les pages 3, 5, 6, 7 et 9."},
};

} // namespace

QString FrenchTexts::Translator::translate(
    const char* context, const char* source, const char* disambiguation, int n) const
{
    QString known = QTranslator::translate(context, source, disambiguation, n);
    if (!known.isEmpty())
        return known;
    const auto* missing = std::find_if(missingTexts.begin(), missingTexts.end(),
        [source](const MissingText& text) { return qstrcmp(text.english, source) == 0; });
    return missing == missingTexts.end() ? QString() : missing->french.toString();
}

FrenchTexts::FrenchTexts()
{
    if (m_translator.load(QStringLiteral(":/translations/qtbase_fr.qm")))
        QCoreApplication::installTranslator(&m_translator);
}

FrenchTexts::~FrenchTexts()
{
    QCoreApplication::removeTranslator(&m_translator);
}

} // namespace reelhouse
