#include "app/shell/FrenchTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

struct OwnText {
    const char* english;
    QStringView french;
};

/// What Qt's own French lacks, all of it in the print dialog, and one text in it that is no French.
constexpr std::array ownTexts{
    OwnText{"Double Sided Printing", u"Impression recto verso"},
    OwnText{"Off", u"Désactivée"},
    OwnText{"Long side binding", u"Reliure sur le bord long"},
    OwnText{"Short side binding", u"Reliure sur le bord court"},
    OwnText{"Specify pages or ranges separated by commas. Ranges are specified by two numbers "
            "separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
        u"Pages ou intervalles séparés par des virgules, un intervalle étant écrit avec un trait "
        u"d'union : 3,5-7,9 imprime les pages 3, 5, 6, 7 et 9."},
    OwnText{"Invalid Pages Definition", u"Pages mal indiquées"},
    OwnText{"%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, "
            "'-' to define ranges and make sure ranges do not intersect with each other.",
        u"« %1 » est mal écrit. Séparez les pages et les intervalles par des virgules, écrivez un "
        u"intervalle avec un trait d'union, sans que deux intervalles se recouvrent."},
    OwnText{"Printer Properties", u"Propriétés de l'imprimante"},
    OwnText{"Advanced", u"Avancé"},
    OwnText{"Page Setup Conflicts", u"Conflits dans la mise en page"},
    OwnText{"There are conflicts in page setup options. Do you want to fix them?",
        u"Des options de mise en page se contredisent. Voulez-vous les corriger ?"},
    OwnText{"Advanced Option Conflicts", u"Conflits dans les options avancées"},
    OwnText{"There are conflicts in some advanced options. Do you want to fix them?",
        u"Des options avancées se contredisent. Voulez-vous les corriger ?"},
    OwnText{"Duplex Settings Conflicts", u"Conflits dans le recto verso"},
    OwnText{"There are conflicts in duplex settings. Do you want to fix them?",
        u"Des réglages du recto verso se contredisent. Voulez-vous les corriger ?"},
    OwnText{"There are conflicts in some options. Please fix them.",
        u"Des options se contredisent. Corrigez-les."},
    OwnText{"Change to detail view mode", u"Affiche la vue sous forme détaillée"},
};

/// The desktop's dialogs speak the language of the session.
bool sessionSpeaksFrench()
{
    return QLocale::system().uiLanguages().value(0).startsWith(QStringLiteral("fr"));
}

} // namespace

QString FrenchTexts::Translator::translate(
    const char* context, const char* source, const char* disambiguation, int n) const
{
    const auto* own = std::find_if(ownTexts.begin(), ownTexts.end(),
        [source](const OwnText& text) { return qstrcmp(text.english, source) == 0; });
    if (own != ownTexts.end())
        return own->french.toString();
    return QTranslator::translate(context, source, disambiguation, n);
}

FrenchTexts::FrenchTexts()
{
    // Read where Qt keeps them, not embedded: their licence is stricter than that of the libraries.
    if (m_translator.load(u"qtbase_fr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_translator);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, !sessionSpeaksFrench());
}

FrenchTexts::~FrenchTexts()
{
    QCoreApplication::removeTranslator(&m_translator);
}

} // namespace reelhouse
