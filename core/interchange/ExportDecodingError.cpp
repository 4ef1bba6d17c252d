#include "core/interchange/DocumentReader.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

QString decodingSentence(ExportDecodingError::Kind kind)
{
    using Kind = ExportDecodingError::Kind;
    switch (kind) {
    case Kind::NotJson:
        return u"le fichier n'est pas un document JSON valide"_s;
    case Kind::NumberTooLarge:
        return u"le fichier contient un nombre trop grand"_s;
    case Kind::TooLarge:
        return u"le fichier est trop grand pour être lu"_s;
    case Kind::DuplicateKey:
        return u"champ présent plusieurs fois"_s;
    case Kind::NotAnObject:
        return u"un objet est attendu"_s;
    case Kind::NotAnArray:
        return u"une liste est attendue"_s;
    case Kind::Missing:
        return u"champ obligatoire absent"_s;
    case Kind::NotAText:
        return u"un texte est attendu"_s;
    case Kind::NotAnInteger:
        return u"un nombre entier est attendu"_s;
    case Kind::OutOfRange:
        return u"nombre trop grand"_s;
    case Kind::NotADate:
        return u"une date de la forme 2025-03-14T09:26:53Z est attendue"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

QString ExportDecodingError::description() const
{
    const QString sentence = decodingSentence(kind);
    const bool isOfTheFile
        = kind == Kind::NotJson || kind == Kind::NumberTooLarge || kind == Kind::TooLarge;
    if (place.isEmpty())
        return isOfTheFile ? sentence : u"le document : "_s + sentence;
    return place + u" : "_s + sentence;
}

} // namespace reelhouse
