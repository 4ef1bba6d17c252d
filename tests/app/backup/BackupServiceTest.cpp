#include "app/backup/BackupService.h"

#include "app/backup/BackupFolder.h"
#include "core/interchange/DocumentReader.h"
#include "tests/app/backup/BackupFixture.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/support/TestMain.h"

#include <QtCore/QThread>
#include <QtTest/QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class BackupServiceTest final : public QObject {
    Q_OBJECT

private slots:
    void aBackupIsTheWholeStock();
    void theFileIsNamedAfterTheMoment_data();
    void theFileIsNamedAfterTheMoment();
    void aTakenNameIsNeverOverwritten();
    void theFolderIsMadeByTheFirstBackup();
    void theTemporaryStockIsNotBackedUp();
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
    void aFailedBackupSaysWhyAndDeletesNothing_data();
    void aFailedBackupSaysWhyAndDeletesNothing();
    void whatCannotBeEncodedIsNotWritten();
    void errorsHaveTheirSentences();
};

namespace {

const QDateTime backupMoment(QDate(2025, 3, 14), QTime(9, 26, 53, 750));

/// Makes backups with these names, one clearly after the other.
void makeBackups(const BackupFixture& fixture, const QStringList& names)
{
    QDir().mkpath(fixture.backupFolder());
    for (const QString& name : names) {
        BackupFixture::writeFile(fixture.backupPath(name), "{}");
        QThread::msleep(12); // File systems tell moments apart by the kernel's ticks.
    }
}

QStringList numberedNames(int count)
{
    QStringList names;
    for (int number = 0; number < count; ++number)
        names << u"ancien_%1.json"_s.arg(number, 2, 10, QChar(u'0'));
    return names;
}

} // namespace

void BackupServiceTest::aBackupIsTheWholeStock()
{
    BackupFixture fixture;
    auto& type = fixture.context().insert(std::make_unique<FilamentType>(u"PLA"_s));
    fixture.context().insert(std::make_unique<Brand>(u"Filéo"_s));
    fixture.context().insert(std::make_unique<FilamentRange>(u"Matte"_s));
    fixture.context().insert(std::make_unique<Location>(u"Étagère A"_s));
    fixture.addFilament(u"Rouge"_s, &type).setOpenedSpoolsCount(7);

    const auto written = BackupService::performBackup(*fixture.stock, 20, backupMoment);

    QVERIFY(written);
    QCOMPARE(BackupFixture::readFile(written.value().value()), QByteArray(R"({
  "brands" : [
    {
      "name" : "Filéo"
    }
  ],
  "filaments" : [
    {
      "colorHex" : "#E53935",
      "colorName" : "Rouge",
      "dateAdded" : "2025-03-14T09:26:53Z",
      "notes" : "",
      "openedSpoolsCount" : 7,
      "spoolsCount" : 2,
      "type" : "PLA"
    }
  ],
  "locations" : [
    {
      "name" : "Étagère A"
    }
  ],
  "ranges" : [
    {
      "name" : "Matte"
    }
  ],
  "schemaVersion" : 1,
  "types" : [
    {
      "iconName" : "cube.fill",
      "name" : "PLA"
    }
  ]
})"));
}

void BackupServiceTest::theFileIsNamedAfterTheMoment_data()
{
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<QString>("expected");

    QTest::newRow("local time") << backupMoment << u"sauvegarde_2025-03-14_092653_750.json"_s;
    QTest::newRow("zeros are kept") << QDateTime(QDate(2025, 1, 2), QTime(3, 4, 5, 6))
                                    << u"sauvegarde_2025-01-02_030405_006.json"_s;
}

void BackupServiceTest::theFileIsNamedAfterTheMoment()
{
    QFETCH(QDateTime, now);
    QFETCH(QString, expected);
    const BackupFixture fixture;

    const auto written = BackupService::performBackup(*fixture.stock, 20, now);

    QCOMPARE(written.value(), std::optional(fixture.backupPath(expected)));
    QCOMPARE(fixture.entries(), QStringList{expected});
}

void BackupServiceTest::aTakenNameIsNeverOverwritten()
{
    const BackupFixture fixture;
    makeBackups(fixture, {u"sauvegarde_2025-03-14_092653_999.json"_s});
    ::symlink("nulle-part",
        QFile::encodeName(fixture.backupPath(u"sauvegarde_2025-03-14_092654_000.json"_s)));

    const QDateTime now(QDate(2025, 3, 14), QTime(9, 26, 53, 999));
    const auto first = BackupService::performBackup(*fixture.stock, 20, now);
    const auto second = BackupService::performBackup(*fixture.stock, 20, now);

    QCOMPARE(first.value(),
        std::optional(fixture.backupPath(u"sauvegarde_2025-03-14_092654_001.json"_s)));
    QCOMPARE(second.value(),
        std::optional(fixture.backupPath(u"sauvegarde_2025-03-14_092654_002.json"_s)));
    QCOMPARE(
        BackupFixture::readFile(fixture.backupPath(u"sauvegarde_2025-03-14_092653_999.json"_s)),
        QByteArray("{}"));
    QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 4);
}

void BackupServiceTest::theFolderIsMadeByTheFirstBackup()
{
    const BackupFixture fixture;
    QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 0);
    QVERIFY(!QFile::exists(fixture.folder.filePath(u"Spoolwright"_s)));

    QVERIFY(BackupService::performBackup(*fixture.stock, 20));

    QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 1);
    QCOMPARE(BackupService::backupFolder(*fixture.stock), fixture.backupFolder());
}

void BackupServiceTest::theTemporaryStockIsNotBackedUp()
{
    const BackupFixture fixture(StoreKind::Memory);
    makeBackups(fixture, {u"a.json"_s, u"b.json"_s});

    const auto written = BackupService::performBackup(*fixture.stock, 1);

    QVERIFY(written);
    QCOMPARE(written.value(), std::nullopt);
    QCOMPARE(fixture.entries(), (QStringList{u"a.json"_s, u"b.json"_s}));

    BackupService::pruneBackups(*fixture.stock, 1);
    QCOMPARE(fixture.entries(), QStringList{u"b.json"_s});
}

void BackupServiceTest::onlyTheNewestAreKept_data()
{
    QTest::addColumn<int>("existing");
    QTest::addColumn<int>("keep");
    QTest::addColumn<QStringList>("remaining");

    QTest::newRow("room is left") << 2 << 4 << numberedNames(2);
    QTest::newRow("the last room") << 3 << 4 << numberedNames(3);
    QTest::newRow("the oldest goes") << 4 << 4 << numberedNames(4).sliced(1);
    QTest::newRow("the 21st backup") << 20 << 20 << numberedNames(20).sliced(1);
    QTest::newRow("only the new one") << 3 << 1 << QStringList();
}

void BackupServiceTest::onlyTheNewestAreKept()
{
    QFETCH(int, existing);
    QFETCH(int, keep);
    QFETCH(QStringList, remaining);
    const BackupFixture fixture;
    makeBackups(fixture, numberedNames(existing));

    QVERIFY(BackupService::performBackup(*fixture.stock, keep, backupMoment));

    QCOMPARE(
        fixture.entries(), remaining + QStringList{u"sauvegarde_2025-03-14_092653_750.json"_s});
}

void BackupServiceTest::pruningBringsTheFolderDown_data()
{
    QTest::addColumn<int>("keep");
    QTest::addColumn<QStringList>("remaining");

    QTest::newRow("more than there are") << 9 << numberedNames(4);
    QTest::newRow("as many") << 4 << numberedNames(4);
    QTest::newRow("fewer") << 2 << numberedNames(4).sliced(2);
    QTest::newRow("none") << 0 << QStringList();
}

void BackupServiceTest::pruningBringsTheFolderDown()
{
    QFETCH(int, keep);
    const BackupFixture fixture;
    makeBackups(fixture, numberedNames(4));

    BackupService::pruneBackups(*fixture.stock, keep);

    QTEST(fixture.entries(), "remaining");
}

void BackupServiceTest::pruningGoesByAge_data()
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

void BackupServiceTest::pruningGoesByAge()
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

void BackupServiceTest::theBackupJustWrittenStays()
{
    // Every other file is younger than the new one's name says, as after a clock went back.
    const BackupFixture fixture;
    makeBackups(fixture, numberedNames(2));
    const QDateTime longAgo(QDate(1999, 1, 1), QTime(0, 0));

    const auto written = BackupService::performBackup(*fixture.stock, 1, longAgo);

    QCOMPARE(fixture.entries(), QStringList{u"sauvegarde_1999-01-01_000000_000.json"_s});
    QCOMPARE(written.value(), std::optional(fixture.backupPath(fixture.entries().first())));
}

void BackupServiceTest::onlyFilesAndLinksCount()
{
    const BackupFixture fixture;
    makeBackups(fixture,
        {u"notes.JSON"_s, u"notes.json.bak"_s, u"json"_s, u".json"_s, u"a.json"_s,
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

void BackupServiceTest::aLinkGoesAndItsTargetStays()
{
    const BackupFixture fixture;
    makeBackups(fixture, {u"ailleurs"_s});
    QCOMPARE(::symlink("ailleurs", QFile::encodeName(fixture.backupPath(u"lien.json"_s))), 0);

    BackupService::pruneBackups(*fixture.stock, 0);

    QCOMPARE(fixture.entries(), QStringList{u"ailleurs"_s});
}

void BackupServiceTest::whatCannotBeDeletedIsPassedOver()
{
    const BackupFixture fixture;
    makeBackups(fixture, numberedNames(2));
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

void BackupServiceTest::aMissingFolderHoldsNothing()
{
    const BackupFixture fixture;

    BackupService::pruneBackups(*fixture.stock, 1);

    QCOMPARE(BackupService::storedBackupCount(*fixture.stock), 0);
}

void BackupServiceTest::aFailedBackupSaysWhyAndDeletesNothing_data()
{
    // Of the folder; nothing where a file stands in its place.
    QTest::addColumn<std::optional<QFile::Permissions>>("permissions");
    QTest::addColumn<QString>("expected");

    QTest::newRow("a file where the folder should be")
        << std::optional<QFile::Permissions>()
        << u"La sauvegarde n'a pas pu être écrite : Un fichier se trouve à la place d'un dossier."_s;
    const QString refused = u"La sauvegarde n'a pas pu être écrite : L'accès est refusé."_s;
    QTest::newRow("a folder that is read-only")
        << std::optional(QFile::ReadOwner | QFile::ExeOwner) << refused;
    QTest::newRow("a folder that can be listed and not searched")
        << std::optional<QFile::Permissions>(QFile::ReadOwner) << refused;
    QTest::newRow("a folder that is closed")
        << std::optional<QFile::Permissions>(QFile::Permissions()) << refused;
}

void BackupServiceTest::aFailedBackupSaysWhyAndDeletesNothing()
{
    QFETCH(std::optional<QFile::Permissions>, permissions);
    QFETCH(QString, expected);
    const BackupFixture fixture;
    QFile folder(fixture.backupFolder());
    if (permissions) {
        makeBackups(fixture, numberedNames(3));
    } else {
        QDir().mkpath(fixture.folder.filePath(u"Spoolwright"_s));
        BackupFixture::writeFile(fixture.backupFolder(), "pas un dossier");
    }
    const QStringList before = fixture.entries();
    {
        const OrdinaryUser user(QFile::encodeName(fixture.folder.path()));
        if (permissions)
            QVERIFY(folder.setPermissions(*permissions));

        const auto written = BackupService::performBackup(*fixture.stock, 1);

        QVERIFY(!written);
        QCOMPARE(written.error().kind, BackupError::Kind::WriteFailed);
        QCOMPARE(written.error().description(), expected);
        QVERIFY(folder.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    QCOMPARE(fixture.entries(), before);
}

void BackupServiceTest::whatCannotBeEncodedIsNotWritten()
{
    BackupFixture fixture;
    makeBackups(fixture, numberedNames(3));
    fixture.addFilament(QString(QChar(0xd83d)));

    const auto written = BackupService::performBackup(*fixture.stock, 1);

    QVERIFY(!written);
    QVERIFY(written.error() == BackupError{.kind = BackupError::Kind::EncodingFailed});
    QCOMPARE(fixture.entries(), numberedNames(3));
}

void BackupServiceTest::errorsHaveTheirSentences()
{
    QCOMPARE((BackupError{BackupError::Kind::WriteFailed, u"Le disque est plein."_s}.description()),
        u"La sauvegarde n'a pas pu être écrite : Le disque est plein."_s);
    QCOMPARE((BackupError{.kind = BackupError::Kind::EncodingFailed}.description()),
        u"Les données n'ont pas pu être encodées pour la sauvegarde."_s);
}

REELHOUSE_TEST(BackupServiceTest)

#include "BackupServiceTest.moc"
