#include "app/backup/BackupFolder.h"
#include "app/backup/BackupService.h"
#include "tests/app/backup/BackupFixture.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// Which backups go, and which stay.
class BackupPruningTest final : public QObject {
    Q_OBJECT

private slots:
    void onlyTheNewestAreKept_data();
    void onlyTheNewestAreKept();
    void pruningBringsTheFolderDown_data();
    void pruningBringsTheFolderDown();
    void pruningGoesByAge_data();
    void pruningGoesByAge();
    void theBackupJustWrittenStays();
    void onlyFilesAndLinksCount();
    void aLinkGoesAndItsTargetStays();
    void whatCannotBeDeletedIsPassedOver();
    void aMissingFolderHoldsNothing();
};

void BackupPruningTest::onlyTheNewestAreKept_data()
{
    QTest::addColumn<int>("existing");
    QTest::addColumn<int>("keep");
    QTest::addColumn<QStringList>("remaining");

    QTest::newRow("room is left") << 2 << 4 << BackupFixture::numberedNames(2);
    QTest::newRow("the last room") << 3 << 4 << BackupFixture::numberedNames(3);
    QTest::newRow("the oldest goes") << 4 << 4 << BackupFixture::numberedNames(4).sliced(1);
    QTest::newRow("the 21st backup") << 20 << 20 << BackupFixture::numberedNames(20).sliced(1);
    QTest::newRow("only the new one") << 3 << 1 << QStringList();
}

void BackupPruningTest::onlyTheNewestAreKept()
{
    QFETCH(int, existing);
    QFETCH(int, keep);
    QFETCH(QStringList, remaining);
    const BackupFixture fixture;
    fixture.makeBackups(BackupFixture::numberedNames(existing));

    QVERIFY(BackupService::performBackup(
        *fixture.stock, keep, QDateTime(QDate(2025, 3, 14), QTime(9, 26, 53, 750))));

    QCOMPARE(
        fixture.entries(), remaining + QStringList{u"sauvegarde_2025-03-14_092653_750.json"_s});
}

void BackupPruningTest::pruningBringsTheFolderDown_data()
{
    QTest::addColumn<int>("keep");
    QTest::addColumn<QStringList>("remaining");

    QTest::newRow("more than there are") << 9 << BackupFixture::numberedNames(4);
    QTest::newRow("as many") << 4 << BackupFixture::numberedNames(4);
    QTest::newRow("fewer") << 2 << BackupFixture::numberedNames(4).sliced(2);
    QTest::newRow("none") << 0 << QStringList();
}

void BackupPruningTest::pruningBringsTheFolderDown()
{
    QFETCH(int, keep);
    const BackupFixture fixture;
    fixture.makeBackups(BackupFixture::numberedNames(4));

    BackupService::pruneBackups(*fixture.stock, keep);

    QTEST(fixture.entries(), "remaining");
}

void BackupPruningTest::pruningGoesByAge_data()
{
    using Ages = QList<std::optional<qint64>>;
    QTest::addColumn<Ages>("ages"); // In the order of the listing; the files are named 0, 1, 2, …
    QTest::addColumn<int>("keep");
    QTest::addColumn<QString>("spared");
    QTest::addColumn<QStringList>("deleted");

    QTest::newRow("the oldest goes") << Ages{30, 10, 20} << 2 << QString() << QStringList{u"1"_s};
    QTest::newRow("oldest last") << Ages{30, 10, 20} << 1 << QString()
                                 << QStringList{u"2"_s, u"1"_s};
    QTest::newRow("equal ages keep their order")
        << Ages{10, 10, 10, 10} << 2 << QString() << QStringList{u"2"_s, u"3"_s};
    QTest::newRow("unreadable is oldest")
        << Ages{std::nullopt, 10, -5} << 2 << QString() << QStringList{u"0"_s};
    QTest::newRow("the spared one stays and counts")
        << Ages{30, 10, 20} << 2 << u"1"_s << QStringList{u"2"_s};
    QTest::newRow("the spared one alone")
        << Ages{30, 10, 20} << 1 << u"1"_s << QStringList{u"0"_s, u"2"_s};
    QTest::newRow("spared, none to keep") << Ages{30, 10} << 0 << u"1"_s << QStringList{u"0"_s};
    QTest::newRow("spared but not there") << Ages{30, 10} << 1 << u"9"_s << QStringList{u"1"_s};
    QTest::newRow("a negative count keeps none")
        << Ages{1} << -3 << QString() << QStringList{u"0"_s};
}

void BackupPruningTest::pruningGoesByAge()
{
    QFETCH(QList<std::optional<qint64>>, ages);
    QFETCH(int, keep);
    QFETCH(QString, spared);
    std::vector<BackupFolder::Backup> backups;
    for (const auto& age : ages)
        backups.push_back({std::to_string(backups.size()), age});

    QStringList deleted;
    for (const auto& path : BackupFolder::superfluous(backups, keep, spared.toStdString()))
        deleted << QString::fromStdString(path.string());

    QTEST(deleted, "deleted");
}

void BackupPruningTest::theBackupJustWrittenStays()
{
    // Every other file is younger than the new one's name says, as after a clock went back.
    const BackupFixture fixture;
    fixture.makeBackups(BackupFixture::numberedNames(2));
    const QDateTime longAgo(QDate(1999, 1, 1), QTime(0, 0));

    const auto written = BackupService::performBackup(*fixture.stock, 1, longAgo);

    QCOMPARE(fixture.entries(), QStringList{u"sauvegarde_1999-01-01_000000_000.json"_s});
    QCOMPARE(written.value(), std::optional(fixture.backupPath(fixture.entries().first())));
}

void BackupPruningTest::onlyFilesAndLinksCount()
{
    const BackupFixture fixture;
    fixture.makeBackups({u"notes.JSON"_s, u"notes.json.bak"_s, u"json"_s, u".json"_s, u"a.json"_s,
        u".caché.json"_s});
    QDir(fixture.backupFolder()).mkdir(u"dossier.json"_s);
    BackupFixture::writeFile(fixture.backupPath(u"dossier.json/dedans.json"_s), "{}");
    QCOMPARE(::mkfifo(QFile::encodeName(fixture.backupPath(u"tube.json"_s)), 0600), 0);
    QCOMPARE(::symlink("nulle-part", QFile::encodeName(fixture.backupPath(u"lien.json"_s))), 0);

    QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 3);
    BackupService::pruneBackups(*fixture.stock, 0);

    QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 0);
    QStringList left = fixture.entries();
    left.sort();
    QCOMPARE(left,
        (QStringList{u".json"_s, u"dossier.json"_s, u"json"_s, u"notes.JSON"_s, u"notes.json.bak"_s,
            u"tube.json"_s}));
    QVERIFY(QFile::exists(fixture.backupPath(u"dossier.json/dedans.json"_s)));
}

void BackupPruningTest::aLinkGoesAndItsTargetStays()
{
    const BackupFixture fixture;
    fixture.makeBackups({u"ailleurs"_s});
    QCOMPARE(::symlink("ailleurs", QFile::encodeName(fixture.backupPath(u"lien.json"_s))), 0);

    BackupService::pruneBackups(*fixture.stock, 0);

    QCOMPARE(fixture.entries(), QStringList{u"ailleurs"_s});
}

void BackupPruningTest::whatCannotBeDeletedIsPassedOver()
{
    const BackupFixture fixture;
    fixture.makeBackups(BackupFixture::numberedNames(2));
    QFile folder(fixture.backupFolder());
    {
        const OrdinaryUser user(QFile::encodeName(fixture.folder.path()));
        QVERIFY(folder.setPermissions(QFile::ReadOwner | QFile::ExeOwner));

        BackupService::pruneBackups(*fixture.stock, 0);

        QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 2);
        QVERIFY(folder.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    BackupService::pruneBackups(*fixture.stock, 1);
    QCOMPARE(fixture.entries(), QStringList{u"ancien_01.json"_s});
}

void BackupPruningTest::aMissingFolderHoldsNothing()
{
    const BackupFixture fixture;

    BackupService::pruneBackups(*fixture.stock, 1);

    QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 0);
}

REELHOUSE_TEST(BackupPruningTest)

#include "BackupPruningTest.moc"
