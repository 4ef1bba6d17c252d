#include "app/backup/BackupService.h"

#include "tests/app/backup/BackupFixture.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

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
    void aFailedBackupSaysWhyAndDeletesNothing_data();
    void aFailedBackupSaysWhyAndDeletesNothing();
    void whatCannotBeEncodedIsNotWritten();
    void errorsHaveTheirSentences();
};

namespace {

const QDateTime backupMoment(QDate(2025, 3, 14), QTime(9, 26, 53, 750));

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
    fixture.makeBackups({u"sauvegarde_2025-03-14_092653_999.json"_s});
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
    fixture.makeBackups({u"a.json"_s, u"b.json"_s});

    const auto written = BackupService::performBackup(*fixture.stock, 1);

    QVERIFY(written);
    QCOMPARE(written.value(), std::nullopt);
    QCOMPARE(fixture.entries(), (QStringList{u"a.json"_s, u"b.json"_s}));

    BackupService::pruneBackups(*fixture.stock, 1);
    QCOMPARE(fixture.entries(), QStringList{u"b.json"_s});
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
        fixture.makeBackups(BackupFixture::numberedNames(3));
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
    fixture.makeBackups(BackupFixture::numberedNames(3));
    fixture.addFilament(QString(QChar(0xd83d)));

    const auto written = BackupService::performBackup(*fixture.stock, 1);

    QVERIFY(!written);
    QVERIFY(written.error() == BackupError{.kind = BackupError::Kind::EncodingFailed});
    QCOMPARE(fixture.entries(), BackupFixture::numberedNames(3));
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
