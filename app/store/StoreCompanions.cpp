#include "app/store/StoreCompanions.h"

#include "app/store/DurableFiles.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

QString freeNameFor(const QString& companion)
{
    int number = 1;
    QString name;
    do
        name = companion + u".orphan"_s + QString::number(number++);
    while (DurableFiles::isTaken(name));
    return name;
}

} // namespace

QStringList storeCompanionSuffixes()
{
    return {u"-shm"_s, u"-wal"_s, u"-journal"_s};
}

std::optional<SystemError> setOrphanedCompanionsAside(const QString& path)
{
    for (const QString& suffix : storeCompanionSuffixes()) {
        const QString companion = path + suffix;
        if (!DurableFiles::isTaken(companion))
            continue;
        if (auto error = DurableFiles::rename(companion, freeNameFor(companion)))
            return error;
    }
    return std::nullopt;
}

} // namespace reelhouse
