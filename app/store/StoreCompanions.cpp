#include "app/store/StoreCompanions.h"

#include "app/store/DurableFiles.h"

#include <QtCore/QDir>
#include <QtCore/QStringBuilder>

#include <algorithm>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// More orphans than anybody has; where the system cannot say what is free, the search must end.
constexpr int mostOrphans = 1000;

QString freeNameFor(const QString& companion)
{
    int number = 1;
    QString name;
    do
        name = companion + u".orphan"_s + QString::number(number++);
    while (DurableFiles::isTaken(name) && number < mostOrphans);
    return name;
}

QString placeOf(const QString& path)
{
    const QFileInfo file(path);
    const QString folder = file.dir().canonicalPath();
    return (folder.isEmpty() ? file.path() : folder) + u'/' + file.fileName();
}

bool isSameFile(const QString& left, const QString& right)
{
    struct stat ofLeft {};
    struct stat ofRight {};
    return ::stat(QFile::encodeName(left).constData(), &ofLeft) == 0
        && ::stat(QFile::encodeName(right).constData(), &ofRight) == 0
        && ofLeft.st_dev == ofRight.st_dev && ofLeft.st_ino == ofRight.st_ino;
}

} // namespace

QStringList storeCompanions(const QString& path)
{
    QStringList companions;
    for (const QStringView suffix : StoreCompanion::all)
        companions << path % suffix;
    return companions;
}

bool belongsToStore(const QString& path, const QString& storeFile)
{
    const auto isAtOrLeadsTo = [&](const QString& file) {
        return placeOf(path) == placeOf(file) || isSameFile(path, file);
    };
    return isAtOrLeadsTo(storeFile)
        || std::ranges::any_of(storeCompanions(storeFile), isAtOrLeadsTo);
}

std::optional<SystemError> setOrphanedCompanionsAside(const QString& path)
{
    for (const QString& companion : storeCompanions(path)) {
        if (!DurableFiles::isTaken(companion))
            continue;
        if (auto error = DurableFiles::renameToFreeName(companion, freeNameFor(companion)))
            return error;
    }
    return std::nullopt;
}

} // namespace reelhouse
