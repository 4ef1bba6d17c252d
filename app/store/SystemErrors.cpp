#include "app/store/SystemErrors.h"

#include <cerrno>
#include <sqlite3.h>
#include <system_error>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// Nothing where no sentence of ours says all.
QString systemSentence(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
        return u"L'accès est refusé"_s;
    case EROFS:
        return u"Le disque est en lecture seule"_s;
    case ENOSPC:
        return u"Le disque est plein"_s;
    case EDQUOT:
        return u"Le quota d'espace disque est atteint"_s;
    case EFBIG:
        return u"Le fichier est trop grand"_s;
    case ENOENT:
        return u"Le fichier ou le dossier n'existe pas"_s;
    case EEXIST:
        return u"Un fichier de ce nom existe déjà"_s;
    case EISDIR:
        return u"Un dossier se trouve à la place du fichier"_s;
    case ENOTDIR:
        return u"Un fichier se trouve à la place d'un dossier"_s;
    case ENXIO:
        return u"Ce n'est pas un fichier ordinaire"_s;
    case ENOTEMPTY:
        return u"Le dossier n'est pas vide"_s;
    case ENAMETOOLONG:
        return u"Le nom du fichier est trop long"_s;
    case ELOOP:
        return u"Le lien symbolique tourne en rond"_s;
    case EBUSY:
    case ETXTBSY:
        return u"Le fichier est utilisé par une autre application"_s;
    case EMFILE:
    case ENFILE:
        return u"Trop de fichiers sont ouverts"_s;
    case ENOMEM:
        return u"La mémoire est insuffisante"_s;
    case EIO:
        return u"Le disque a signalé une erreur de lecture ou d'écriture"_s;
    default:
        return {};
    }
}

/// Nothing where no sentence of ours says all.
QString sqliteSentence(int resultCode)
{
    switch (resultCode & 0xff) {
    case SQLITE_NOTADB:
        return u"Le fichier n'est pas une base de données"_s;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"La base de données est utilisée par une autre application"_s;
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return u"L'accès à la base de données est refusé"_s;
    case SQLITE_READONLY:
        return u"La base de données est en lecture seule"_s;
    case SQLITE_CANTOPEN:
        return u"Le fichier de la base de données ne peut pas être ouvert"_s;
    case SQLITE_FULL:
        return u"Le disque est plein"_s;
    case SQLITE_NOMEM:
        return u"La mémoire est insuffisante"_s;
    case SQLITE_IOERR:
        return u"La base de données ne peut pas être lue ou écrite"_s;
    case SQLITE_TOOBIG:
        return u"Un texte est trop long pour la base de données"_s;
    default:
        return {};
    }
}

/// What is said before SQLite's own words, which tell more.
QString beginningOfSqliteSentence(int resultCode)
{
    switch (resultCode & 0xff) {
    case SQLITE_CORRUPT:
        return u"La base de données est endommagée"_s;
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
        return u"La base de données refuse une valeur"_s;
    case SQLITE_ERROR:
    case SQLITE_SCHEMA:
        return u"La structure de la base de données n'est pas celle attendue"_s;
    default:
        return u"La base de données a signalé une erreur"_s;
    }
}

} // namespace

QString sentenceWithDetail(const QString& sentence, const QString& detail)
{
    return detail.isEmpty() ? sentence + u'.' : sentence + u" ("_s + detail + u")."_s;
}

QString SystemError::description() const
{
    const QString known = systemSentence(code);
    if (!known.isEmpty())
        return known + u'.';
    return sentenceWithDetail(u"Le système a signalé une erreur"_s,
        QString::fromStdString(std::generic_category().message(code)));
}

SystemError lastSystemError()
{
    return {errno};
}

StoreError describeSqliteError(int resultCode, const QString& detail)
{
    const QString known = sqliteSentence(resultCode);
    if (!known.isEmpty())
        return {known + u'.'};
    return {sentenceWithDetail(beginningOfSqliteSentence(resultCode), detail)};
}

} // namespace reelhouse
