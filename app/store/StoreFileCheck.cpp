#include "app/store/StoreFileCheck.h"

#include "app/store/StoreCompanions.h"
#include "app/store/StoreSchema.h"
#include "app/store/SystemErrors.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QtEndian>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qsizetype headerSize = 100;
constexpr qsizetype versionOffset = 60;
constexpr qsizetype applicationIdOffset = 68;

/// What a name leads to, links followed; nothing when it leads nowhere.
std::optional<struct stat> statusOf(const QString& path)
{
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return status;
}

bool isWritable(const QString& path)
{
    // The rights that count are those SQLite will open with: the effective user's.
    return ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
}

std::optional<StoreError> checkKind(const QString& path)
{
    const auto status = statusOf(path);
    if (!status && errno == ENOENT)
        return StoreError{u"Le lien symbolique de la base de données ne mène à aucun fichier."_s};
    if (!status)
        return StoreError{lastSystemError().description()};
    if (S_ISDIR(status->st_mode))
        return StoreError{u"Un dossier se trouve à la place du fichier de la base de données."_s};
    if (!S_ISREG(status->st_mode))
        return StoreError{
            u"Ce qui se trouve à la place de la base de données n'est pas un fichier."_s};
    if (status->st_size == 0)
        return StoreError{u"Le fichier de la base de données est vide."_s};
    return std::nullopt;
}

/// A companion that is not a file would block SQLite or be written into.
std::optional<StoreError> checkCompanions(const QString& path)
{
    for (const QString& file : storeCompanions(path)) {
        const QFileInfo companion(file);
        if (companion.isSymLink() || (companion.exists() && !companion.isFile()))
            return StoreError{
                sentenceWithDetail(u"Ce qui accompagne la base de données n'est pas un fichier"_s,
                    companion.fileName())};
    }
    return std::nullopt;
}

std::optional<StoreError> checkRights(const QString& path)
{
    if (!isWritable(path))
        return StoreError{u"Le fichier de la base de données est en lecture seule."_s};
    if (!isWritable(QFileInfo(path).path()))
        return StoreError{u"Le dossier de la base de données est en lecture seule."_s};
    return std::nullopt;
}

std::optional<StoreError> checkHeader(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return StoreError{lastSystemError().description()};
    const QByteArray header = file.read(headerSize);
    if (header.size() < headerSize || !header.startsWith(QByteArrayView("SQLite format 3\0", 16)))
        return StoreError{u"Le fichier n'est pas une base de données."_s};
    return checkStoreIdentity(qFromBigEndian<qint32>(header.constData() + applicationIdOffset),
        qFromBigEndian<qint32>(header.constData() + versionOffset));
}

} // namespace

std::optional<StoreError> checkStoreFile(const QString& path)
{
    if (auto error = checkKind(path))
        return error;
    // SQLite puts the companions beside the file itself, not beside a link to it.
    const QString file = QFileInfo(path).canonicalFilePath();
    if (auto error = checkCompanions(file))
        return error;
    if (auto error = checkRights(file))
        return error;
    return checkHeader(file);
}

std::optional<StoreError> checkStoreIdentity(int applicationId, int version)
{
    if (applicationId != StoreSchema::applicationId)
        return StoreError{u"Ce fichier est la base de données d'une autre application."_s};
    if (version > StoreSchema::currentVersion)
        return StoreError{sentenceWithDetail(
            u"La base de données vient d'une version plus récente de Spoolwright"_s,
            u"user_version %1"_s.arg(version))};
    if (version < StoreSchema::oldestVersion)
        return StoreError{sentenceWithDetail(
            u"La version de la base de données est inconnue"_s, u"user_version %1"_s.arg(version))};
    return std::nullopt;
}

} // namespace reelhouse
