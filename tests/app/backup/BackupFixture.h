#pragma once

#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>

namespace reelhouse::tests {

/// A small stock that takes itself for the one of a store file in a folder of its own.
struct BackupFixture {
    explicit BackupFixture(StoreKind kind = StoreKind::File)
    {
        auto store = SqliteStore::openInMemory();
        stock = std::move(StoreContainer::load(std::move(store.value()), kind,
            folder.filePath(QStringLiteral("Spoolwright/Spoolwright.store")))
                              .value());
    }

    StoreContext& context() { return stock->context(); }
    QString backupFolder() const { return folder.filePath(QStringLiteral("Spoolwright/Backups")); }
    QString backupPath(const QString& name) const { return backupFolder() + u'/' + name; }
    /// Everything in the backup folder, hidden entries included, by name.
    QStringList entries() const
    {
        return QDir(backupFolder())
            .entryList(
                QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    Filament& addFilament(const QString& colorName, FilamentType* type = nullptr)
    {
        Filament& filament = context().insert(std::make_unique<Filament>(type, nullptr, nullptr,
            nullptr, 2, 1, QStringLiteral("#E53935"), colorName, QString()));
        filament.setDateAdded(QDateTime::fromMSecsSinceEpoch(1741944413750, Qt::UTC));
        return filament;
    }

    /// Makes backups with these names, one clearly after the other.
    void makeBackups(const QStringList& names) const
    {
        QDir().mkpath(backupFolder());
        for (const QString& name : names) {
            writeFile(backupPath(name), "{}");
            QThread::msleep(12); // File systems tell moments apart by the kernel's ticks.
        }
    }
    /// "ancien_00.json" and so on.
    static QStringList numberedNames(int count)
    {
        QStringList names;
        for (int number = 0; number < count; ++number)
            names << QStringLiteral("ancien_%1.json").arg(number, 2, 10, QChar(u'0'));
        return names;
    }

    static void writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s cannot be written.", qPrintable(path));
    }
    static QByteArray readFile(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s cannot be read.", qPrintable(path));
        return file.readAll();
    }

    QTemporaryDir folder;
    std::unique_ptr<StoreContainer> stock;
};

} // namespace reelhouse::tests
