#pragma once

#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"
#include "tests/support/StockGenerator.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <map>

namespace reelhouse::bench {

inline std::unique_ptr<StoreContainer> openStock(const QString& path)
{
    auto store = SqliteStore::openFile(path);
    if (!store)
        qFatal("%s", qPrintable(store.error().description()));
    auto container = StoreContainer::load(std::move(store.value()), StoreKind::File, path);
    if (!container)
        qFatal("%s", qPrintable(container.error().description()));
    return std::move(container.value());
}

inline void save(StoreContext& context)
{
    if (const auto error = context.save())
        qFatal("%s", qPrintable(error->description()));
}

/// Makes a store at `path` that has the generator's reference entries and no filament.
inline void makeShelves(const QString& path)
{
    QFile::remove(path);
    const auto container = openStock(path);
    tests::generateStock(container->context(), 0);
    save(container->context());
}

/// A folder for stores beside this program: on a disk, as the temporary folder may not be.
class StoreWorkplace final {
public:
    explicit StoreWorkplace(const char* program)
        : m_folder(
            QFileInfo(QFile::decodeName(program)).dir().filePath(QStringLiteral("stocks-XXXXXX")))
    {
    }

    QString filePath(const QString& name) const { return m_folder.filePath(name); }

    /// The path of a store with so many filaments, made once.
    QString stockOf(int filaments)
    {
        QString& path = m_stocks[filaments];
        if (path.isEmpty()) {
            path = filePath(QString::number(filaments) + QStringLiteral(".store"));
            const auto container = openStock(path);
            tests::generateStock(container->context(), filaments);
            save(container->context());
        }
        return path;
    }

    QString copyOf(const QString& path, const QString& name) const
    {
        QString copy = filePath(name);
        QFile::remove(copy);
        QFile::copy(path, copy);
        return copy;
    }

private:
    QTemporaryDir m_folder;
    std::map<int, QString> m_stocks;
};

} // namespace reelhouse::bench
