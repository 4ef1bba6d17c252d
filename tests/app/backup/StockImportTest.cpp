#include "app/backup/StockImport.h"

#include "app/backup/BackupService.h"
#include "app/backup/StockDocument.h"
#include "core/interchange/DocumentReader.h"
#include "tests/app/backup/BackupFixture.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"
#include "tests/support/WholeDocument.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <sys/stat.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class StockImportTest final : public QObject {
    Q_OBJECT

private slots:
    void aBackupRestoresTheSameStock();
    void documentToStockToDocumentIsTheSameBytes();
    void exportsAreSortedNewestFirst();
    void defaultsComeWithTheRebuild();
    void countsAreThoseOfTheDocument();
    void anEmptyDocumentEmptiesTheStock();
    void oneSaveReplacesEverything();
    void theSafetyBackupHoldsTheFormerStock();
    void aFailedBackupChangesNothing();
    void theTemporaryStockIsReplacedWithoutABackup();
    void aFailedSaveIsToldAndTheContextHoldsTheNewStock();
    void theImportedBackupStaysUntilItIsSaved();
    void theHistoryIsEmptied();
    void theScreensAreToldOnce();
    void filesAreReadOrRefused_data();
    void filesAreReadOrRefused();
    void aDocumentBeyondTheLimitIsRefusedUnread();
};

namespace {

ExportData decoded(const QByteArray& bytes)
{
    auto data = decodeDocument(bytes);
    if (!data)
        qFatal("Not decoded: %s", qPrintable(data.error().description()));
    return data.value();
}

QByteArray documentOf(StoreContext& context)
{
    return StockDocument::encode(context, StockDocument::FilamentOrder::Store).value();
}

ExportData oneFilament(const QString& colorName)
{
    ExportData data;
    data.filaments.emplace_back().colorName = colorName;
    return data;
}

} // namespace

void StockImportTest::aBackupRestoresTheSameStock()
{
    BackupFixture fixture;
    auto& type = fixture.context().insert(std::make_unique<FilamentType>(u"PLA"_s, u"leaf.fill"_s));
    fixture.addFilament(u"Rouge"_s, &type);
    fixture.addFilament(u"Bleu"_s).setOpenedSpoolsCount(9);
    const QByteArray before = documentOf(fixture.context());
    const auto backup = BackupService::performBackup(*fixture.stock, 20);
    fixture.context().remove(type);
    fixture.addFilament(u"Vert"_s);

    auto read = StockImport::readDocument(backup.value().value());
    QVERIFY(read);
    QVERIFY(StockImport::importIntoContext(*fixture.stock, read.value(), 20));

    QCOMPARE(documentOf(fixture.context()), before);
    const Filament& red = *fixture.context().fetchAll<Filament>().front();
    QCOMPARE(red.dateAdded(), QDateTime::fromMSecsSinceEpoch(1741944413000, Qt::UTC));
    QCOMPARE(red.type()->iconName(), u"leaf.fill"_s);
    QCOMPARE(red.type()->filaments().size(), size_t(1));
}

void StockImportTest::documentToStockToDocumentIsTheSameBytes()
{
    // Through a store file and back, as after a restart.
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Spoolwright.store"_s);
    const auto open = [&] {
        auto store = SqliteStore::openFile(path);
        return std::move(
            StoreContainer::load(std::move(store.value()), StoreKind::File, path).value());
    };
    QVERIFY(!StockDocument::replaceStock(open()->context(), decoded(wholeDocument())));

    QCOMPARE(documentOf(open()->context()), wholeDocument());
}

void StockImportTest::exportsAreSortedNewestFirst()
{
    BackupFixture fixture;
    const auto add = [&](const QString& colorName, qint64 milliseconds) {
        fixture.addFilament(colorName).setDateAdded(
            QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC));
    };
    add(u"ancien"_s, 1000);
    add(u"égal 1"_s, 2000);
    add(u"récent"_s, 2001);
    add(u"égal 2"_s, 2000);

    QStringList names;
    const ExportData data = decoded(
        StockDocument::encode(fixture.context(), StockDocument::FilamentOrder::NewestFirst)
            .value());
    for (const ExportFilament& filament : data.filaments)
        names << filament.colorName.value_or(u"-"_s);

    QCOMPARE(names, (QStringList{u"récent"_s, u"égal 1"_s, u"égal 2"_s, u"ancien"_s}));
}

void StockImportTest::defaultsComeWithTheRebuild()
{
    const BackupFixture fixture;
    ExportData data;
    data.types = {{u"PLA"_s, std::nullopt}};
    data.filaments.emplace_back().spoolsCount = 3;

    QVERIFY(!StockDocument::replaceStock(fixture.stock->context(), data));

    QCOMPARE(fixture.stock->context().fetchAll<FilamentType>().front()->iconName(), u"cube.fill"_s);
    const Filament& filament = *fixture.stock->context().fetchAll<Filament>().front();
    QCOMPARE(filament.openedSpoolsCount(), 0);
    QCOMPARE(filament.colorName(), QString());
    QVERIFY(!filament.type() && !filament.brand() && !filament.range() && !filament.location());
}

void StockImportTest::countsAreThoseOfTheDocument()
{
    BackupFixture fixture;
    ExportData data;
    data.filaments.resize(2);
    data.filaments[0].spoolsCount = 2;
    data.filaments[0].openedSpoolsCount = 5;
    data.filaments[1].spoolsCount = -3;
    data.filaments[1].openedSpoolsCount = -1;

    QVERIFY(!StockDocument::replaceStock(fixture.context(), data));

    const auto filaments = fixture.context().fetchAll<Filament>();
    QCOMPARE(filaments[0]->spoolsCount(), 2);
    QCOMPARE(filaments[0]->openedSpoolsCount(), 5);
    QCOMPARE(filaments[1]->spoolsCount(), -3);
    QCOMPARE(filaments[1]->openedSpoolsCount(), -1);
}

void StockImportTest::anEmptyDocumentEmptiesTheStock()
{
    BackupFixture fixture;
    fixture.context().insert(std::make_unique<Brand>(u"Acme"_s));
    fixture.addFilament(u"Rouge"_s);

    QVERIFY(StockImport::importIntoContext(*fixture.stock, {}, 20));

    QCOMPARE(fixture.context().count<Filament>(), 0);
    QCOMPARE(fixture.context().count<Brand>(), 0);
}

void StockImportTest::oneSaveReplacesEverything()
{
    RecordingStore store;
    StoreContext context(store);
    auto& brand = context.insert(std::make_unique<Brand>(u"Acme"_s));
    context.insert(
        std::make_unique<Filament>(nullptr, &brand, nullptr, nullptr, 1, 0, u""_s, u""_s, u""_s));
    context.save();
    store.commits.clear();

    QVERIFY(!StockDocument::replaceStock(context, oneFilament(u"Bleu"_s)));

    QCOMPARE(
        store.commits, (QList<QStringList>{{u"-Brand 1"_s, u"+Filament 2"_s, u"-Filament 1"_s}}));
    QVERIFY(!context.hasUnsavedChanges());
}

void StockImportTest::theSafetyBackupHoldsTheFormerStock()
{
    BackupFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    const QByteArray before = documentOf(fixture.context());

    const auto imported = StockImport::importIntoContext(*fixture.stock, oneFilament(u"Bleu"_s), 1);

    QCOMPARE(BackupFixture::readFile(imported.value().value()), before);
}

void StockImportTest::aFailedBackupChangesNothing()
{
    BackupFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    fixture.context().save();
    const QByteArray before = documentOf(fixture.context());
    BackupFixture::writeFile(fixture.folder.filePath(u"Spoolwright"_s), "pas un dossier");

    const auto imported
        = StockImport::importIntoContext(*fixture.stock, oneFilament(u"Bleu"_s), 20);

    QVERIFY(!imported);
    QVERIFY2(imported.error().startsWith(u"La sauvegarde n'a pas pu être écrite : Un fichier se "
                                         "trouve à la place d'un dossier"_s),
        qPrintable(imported.error()));
    QCOMPARE(documentOf(fixture.context()), before);
    QVERIFY(!fixture.context().hasUnsavedChanges());
}

void StockImportTest::theTemporaryStockIsReplacedWithoutABackup()
{
    BackupFixture fixture(StoreKind::Memory);
    fixture.addFilament(u"Rouge"_s);

    const auto imported
        = StockImport::importIntoContext(*fixture.stock, oneFilament(u"Bleu"_s), 20);

    QCOMPARE(imported.value(), std::nullopt);
    QCOMPARE(fixture.entries(), QStringList());
    QCOMPARE(fixture.context().count<Filament>(), 1);
    QCOMPARE(fixture.context().fetchAll<Filament>().front()->colorName(), u"Bleu"_s);
}

void StockImportTest::aFailedSaveIsToldAndTheContextHoldsTheNewStock()
{
    RecordingStore store;
    StoreContext context(store);
    context.insert(std::make_unique<Brand>(u"Acme"_s));
    context.save();
    store.commits.clear();
    store.error = StoreError{u"Le disque est plein."_s};
    QSignalSpy changed(&context, &StoreContext::changed);

    const auto error = StockDocument::replaceStock(context, oneFilament(u"Bleu"_s));

    QCOMPARE(error, std::optional(StoreError{u"Le disque est plein."_s}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(context.count<Brand>(), 0);
    QCOMPARE(context.count<Filament>(), 1);
    QVERIFY(store.commits.isEmpty());
    store.error = std::nullopt;
    QVERIFY(!context.save());
    QCOMPARE(store.commits, (QList<QStringList>{{u"-Brand 1"_s, u"+Filament 1"_s}}));
}

void StockImportTest::theImportedBackupStaysUntilItIsSaved()
{
    BackupFixture fixture;
    auto recording = std::make_unique<RecordingStore>();
    RecordingStore& store = *recording;
    fixture.stock = std::move(
        StoreContainer::load(std::move(recording), StoreKind::File, fixture.stock->storeFile())
            .value());
    QVERIFY(QDir().mkpath(fixture.backupFolder()));
    const QString path = fixture.backupPath(u"ancien.json"_s);
    BackupFixture::writeFile(path, oneFilament(u"Bleu"_s).encodeJSON().value());
    const auto document = StockImport::readDocument(path);
    QVERIFY(document);

    store.error = StoreError{u"Le disque est plein."_s};
    const auto failed = StockImport::importIntoContext(*fixture.stock, document.value(), 1);

    QVERIFY(!failed);
    QCOMPARE(failed.error(), u"Le disque est plein."_s);
    QVERIFY(QFile::exists(path));
    QCOMPARE(fixture.entries().size(), 2);

    store.error = std::nullopt;
    const auto imported = StockImport::importIntoContext(*fixture.stock, document.value(), 1);

    QVERIFY(imported);
    QCOMPARE(fixture.backupPath(fixture.entries().join(u' ')), imported.value().value());
}

void StockImportTest::theHistoryIsEmptied()
{
    BackupFixture fixture;
    fixture.context().perform(u"Ajouter"_s, [&] { fixture.addFilament(u"Rouge"_s); });
    fixture.context().perform(u"Ajouter"_s, [&] { fixture.addFilament(u"Vert"_s); });
    fixture.context().undo();

    QVERIFY(StockImport::importIntoContext(*fixture.stock, oneFilament(u"Bleu"_s), 20));

    QCOMPARE(fixture.context().undoActionName(), QString());
    QCOMPARE(fixture.context().redoActionName(), QString());
}

void StockImportTest::theScreensAreToldOnce()
{
    BackupFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    fixture.context().save();
    QSignalSpy changed(&fixture.context(), &StoreContext::changed);

    QVERIFY(StockImport::importIntoContext(*fixture.stock, oneFilament(u"Bleu"_s), 20));
    QCoreApplication::processEvents();

    QCOMPARE(changed.count(), 1);
}

void StockImportTest::filesAreReadOrRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected"); // The beginning of the refusal; empty: read.

    QTest::newRow("a document") << wholeDocument() << QString();
    QTest::newRow("a version of the future")
        << wholeDocument().replace("\"schemaVersion\" : 1", "\"schemaVersion\" : 2")
        << u"Ce fichier utilise un format plus récent (version 2) que cette version de l'application."_s;
    QTest::newRow("damaged") << wholeDocument().chopped(2)
                             << u"ligne 56 : le fichier n'est pas un document JSON valide"_s;
    QTest::newRow("a missing key") << wholeDocument().replace("\"notes\" : \"\\u0000\",", "")
                                   << u"filaments[1].notes : champ obligatoire absent"_s;
    QTest::newRow("an unknown reference")
        << wholeDocument().replace("\"brand\" : \"Filéo\"", "\"brand\" : \"acme\"")
        << u"Un filament fait référence à un marque « acme » absent du fichier."_s;
    QTest::newRow("nothing there") << QByteArray() << u"Le fichier ou le dossier n'existe pas."_s;
    QTest::newRow("a folder") << "folder"_ba << u"Un dossier se trouve à la place du fichier."_s;
    QTest::newRow("a pipe") << "pipe"_ba << u"Ce n'est pas un fichier ordinaire."_s;
    QTest::newRow("a device") << "device"_ba << u"Ce n'est pas un fichier ordinaire."_s;
    QTest::newRow("not to be read") << "secret"_ba << u"L'accès est refusé."_s;
}

void StockImportTest::filesAreReadOrRefused()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"stock.json"_s);
    const QByteArray name = QFile::encodeName(path);
    if (content == "folder")
        QVERIFY(QDir().mkdir(path));
    else if (content == "pipe")
        QCOMPARE(::mkfifo(name, 0600), 0);
    else if (content == "device")
        QCOMPARE(::symlink("/dev/zero", name), 0);
    else if (!content.isEmpty())
        BackupFixture::writeFile(path, content);
    const OrdinaryUser user(QFile::encodeName(folder.path()));
    if (content == "secret")
        QVERIFY(QFile(path).setPermissions({}));

    const auto read = StockImport::readDocument(path);

    const QString refusal = read ? QString() : read.error();
    QVERIFY2(refusal.startsWith(expected) && refusal.isEmpty() == expected.isEmpty(),
        qPrintable(refusal));
}

void StockImportTest::aDocumentBeyondTheLimitIsRefusedUnread()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"stock.json"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(StockImport::largestDocument + 1)); // A hole: takes no room on the disk.

    const auto read = StockImport::readDocument(path);

    QVERIFY(!read);
    QVERIFY2(read.error().startsWith(u"Le fichier est trop grand."_s), qPrintable(read.error()));
}

REELHOUSE_TEST(StockImportTest)

#include "StockImportTest.moc"
