#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace reelhouse;
using namespace Qt::StringLiterals;

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("The file cannot be written.");
}

QByteArray read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The file is gone.");
    return file.readAll();
}

bool isUsable(const QString& path)
{
    auto store = SqliteStore::openFile(path);
    if (!store)
        return false;
    return StoreContainer::load(std::move(store.value()), StoreKind::File, path).has_value();
}

} // namespace

/// Whatever a store file holds, it is either opened, and then again, or refused with its bytes as
/// they were.
extern "C" int LLVMFuzzerTestOneInput( // NOLINT(readability-identifier-naming): libFuzzer's
    const uint8_t* data, size_t size)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(u"Spoolwright.store"_s);
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    write(path, bytes);
    if (isUsable(path)) {
        if (!isUsable(path))
            qFatal("A store that was opened cannot be opened again.");
    } else if (read(path) != bytes) {
        qFatal("A refused file was changed.");
    }
    for (const QString& suffix : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s})
        QFile::remove(path + suffix);
    return 0;
}
