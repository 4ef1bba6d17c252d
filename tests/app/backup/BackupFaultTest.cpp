#include "app/backup/BackupService.h"
#include "app/backup/StockDocument.h"
#include "app/backup/StockImport.h"
#include "tests/app/backup/OneStock.h"
#include "tests/app/backup/TransferFixture.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/app/store/SmallDisk.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// Backups and imports on a full disk and in a process that is killed, as by a power cut.
class BackupFaultTest final : public QObject {
    Q_OBJECT

private slots:
    void aFullDiskCostsNoBackup_data();
    void aFullDiskCostsNoBackup();
    void anExportOnAFullDiskSaysSo_data();
    void anExportOnAFullDiskSaysSo();
    void anImportOnAFullDiskKeepsOneStockWhole_data();
    void anImportOnAFullDiskKeepsOneStockWhole();
    void aKilledBackupLeavesEveryBackupReadable();
    void aKilledImportLeavesOneStockWhole();
};

namespace {

/// What the user reads when the store cannot be opened; empty when it can.
QString refusalToOpen(const QString& path)
{
    auto store = SqliteStore::openFile(path);
    if (!store)
        return store.error().description();
    const auto stock = StoreContainer::load(std::move(store.value()), StoreKind::File, path);
    return stock ? QString() : stock.error().description();
}

int killRounds(int usual)
{
    const int wanted = qEnvironmentVariableIntValue("KILL_ROUNDS");
    return wanted > 0 ? wanted : usual;
}

} // namespace

void BackupFaultTest::aFullDiskCostsNoBackup_data()
{
    QTest::addColumn<int>("kilobytes");

    for (const int kilobytes : {40, 100, 200, 400, 500, 560})
        QTest::addRow("%d KiB", kilobytes) << kilobytes;
}

void BackupFaultTest::aFullDiskCostsNoBackup()
{
    QFETCH(int, kilobytes);
    const BackupFixture fixture;
    const auto answer = onSmallDisk(fixture.folder.path(), kilobytes, [&] {
        StoreContainer& stock = *fixture.stock;
        StockDocument::replaceStock(stock.context(), stockOf(u"Rouge"_s, 10));
        for (int count = 0; count < 3; ++count)
            BackupService::performBackup(stock, 2);
        const QStringList before = fixture.entries();
        StockDocument::replaceStock(stock.context(), stockOf(u"Bleu"_s, 3000));
        const auto failed = BackupService::performBackup(stock, 2);
        return QStringList{failed ? u"written"_s : failed.error().description(),
            QString::number(before.size()), before == fixture.entries() ? u"same"_s : u"other"_s,
            unreadableBackups(fixture.backupFolder()).join(u' ')};
    });
    if (!answer)
        QSKIP("This system does not let the user mount a disk.");

    QCOMPARE(*answer,
        (QStringList{u"La sauvegarde n'a pas pu être écrite : Le disque est plein."_s, u"2"_s,
            u"same"_s, QString()}));
}

void BackupFaultTest::anExportOnAFullDiskSaysSo_data()
{
    QTest::addColumn<bool>("isCsv");

    QTest::newRow("document") << false;
    QTest::newRow("table") << true;
}

void BackupFaultTest::anExportOnAFullDiskSaysSo()
{
    QFETCH(bool, isCsv);
    const QTemporaryDir folder;
    const auto answer = onSmallDisk(folder.path(), 40, [&] {
        TransferFixture fixture;
        StockDocument::replaceStock(fixture.context(), stockOf(u"Rouge"_s, 3000));
        TransferScreen& screen
            = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;
        emit openedPanel(screen, u"Exporter"_s)
            ->fileSelected(folder.filePath(isCsv ? u"stock.csv"_s : u"stock.json"_s));
        return QStringList{outcomeOf(screen)};
    });
    if (!answer)
        QSKIP("This system does not let the user mount a disk.");

    QCOMPARE(*answer, QStringList{u"Erreur d'écriture : Le disque est plein."_s});
}

void BackupFaultTest::anImportOnAFullDiskKeepsOneStockWhole_data()
{
    QTest::addColumn<int>("kilobytes");

    for (const int kilobytes : {400, 600, 800, 1000, 1400, 2000, 3000})
        QTest::addRow("%d KiB", kilobytes) << kilobytes;
}

void BackupFaultTest::anImportOnAFullDiskKeepsOneStockWhole()
{
    QFETCH(int, kilobytes);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Spoolwright.store"_s);
    const auto answer = onSmallDisk(folder.path(), kilobytes, [&] {
        QString outcome;
        {
            const auto stock = openStock(path);
            if (!stock || StockDocument::replaceStock(stock->context(), stockOf(u"Rouge"_s, 200)))
                return QStringList{u"no stock to begin with"_s};
            const auto imported
                = StockImport::importIntoContext(*stock, stockOf(u"Bleu"_s, 4000), 5);
            outcome = imported ? u"imported"_s : u"failed"_s;
        }
        const QString unreadable = unreadableBackups(folder.filePath(u"Backups"_s)).join(u' ');
        // A stock that could take no change is not opened, and says why; the user makes room.
        const QString refusal = refusalToOpen(path);
        QDir(folder.filePath(u"Backups"_s)).removeRecursively();
        return QStringList{outcome, pictureOfOneStock(openStock(path).get()), unreadable, refusal};
    });
    if (!answer)
        QSKIP("This system does not let the user mount a disk.");

    const QString expected = answer->value(0) == u"imported" ? u"Bleu 4000"_s : u"Rouge 200"_s;
    QCOMPARE(answer->sliced(1, 2), (QStringList{expected, QString()}));
    QVERIFY2(answer->value(3).isEmpty() || answer->value(3) == u"Le disque est plein.",
        qPrintable(answer->value(3)));
}

void BackupFaultTest::aKilledBackupLeavesEveryBackupReadable()
{
    const BackupFixture fixture;
    StockDocument::replaceStock(fixture.stock->context(), stockOf(u"Rouge"_s, 4000));
    QVERIFY(BackupService::performBackup(*fixture.stock, 3));
    int former = 1;
    for (int round = 0; round < killRounds(12); ++round) {
        OtherProcess other([&](const OtherProcess::Report& report) {
            report();
            while (true)
                BackupService::performBackup(*fixture.stock, 3);
        });
        other.waitForReport();
        ::usleep(unsigned(round % 40) * 1300);
        other.kill();

        QCOMPARE(unreadableBackups(fixture.backupFolder()), QStringList());
        // Killed after the new one was there and before the oldest was deleted: one more each time.
        const int count = BackupService::storedBackupCount(*fixture.stock);
        QVERIFY2(
            count >= 1 && count <= std::max(former, 3) + 1, qPrintable(QString::number(count)));
        former = count;
        QVERIFY(fixture.entries().size() <= count + 1);
    }
    QVERIFY(BackupService::performBackup(*fixture.stock, 3));
    QVERIFY(fixture.entries().size() <= 3);
}

void BackupFaultTest::aKilledImportLeavesOneStockWhole()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Spoolwright.store"_s);
    QVERIFY(!StockDocument::replaceStock(openStock(path)->context(), stockOf(u"Rouge"_s, 2000)));
    int changes = 0;
    QString former = u"Rouge 2000"_s;
    for (int round = 0; round < killRounds(12); ++round) {
        OtherProcess other([&](const OtherProcess::Report& report) {
            const auto stock = openStock(path);
            report();
            for (int count = 2001 + round; true; ++count) {
                const QString name = count % 2 == 0 ? u"Bleu"_s : u"Vert"_s;
                StockImport::importIntoContext(*stock, stockOf(name, count), 3);
            }
        });
        other.waitForReport();
        ::usleep(unsigned(round % 40) * 9000);
        other.kill();

        const QString found = pictureOfOneStock(openStock(path).get());
        const int count = found.section(u' ', 1).toInt();
        QVERIFY2(found == former
                || (count > 2000
                    && found == (count % 2 == 0 ? u"Bleu %1"_s : u"Vert %1"_s).arg(count)),
            qPrintable(found));
        QCOMPARE(unreadableBackups(folder.filePath(u"Backups"_s)), QStringList());
        changes += found == former ? 0 : 1;
        former = found;
    }
    QVERIFY2(changes > 0, "No import was ever finished.");
}

REELHOUSE_TEST(BackupFaultTest)

#include "BackupFaultTest.moc"
