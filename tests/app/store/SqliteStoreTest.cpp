#include "app/store/SqliteStore.h"

#include "tests/app/store/OtherProcess.h"
#include "tests/app/store/StoreFixtures.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sqlite3.h>
#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class SqliteStoreTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aNewFileIsAnEmptyStoreOfTheCurrentVersion();
    void everythingComesBackAsItWasSaved();
    void editsAndRemovalsComeBack();
    void aRemovalTakesNothingElse_data();
    void aRemovalTakesNothingElse();
    void textsSurvive_data();
    void textsSurvive();
    void aStoreOfVersionOneOpensWithTheDefaultsFilledIn();
    void theLowestAndHighestNumbersSurvive();
    void removingAnEntryInTheFileItselfEmptiesTheReference();
    void aReferenceToAMissingEntryIsDropped();
    void aSaveIsOnDiskBeforeTheStoreIsClosed();
    void tidyingUpMovesTheJournalIntoTheFile();
    void closingLeavesOneFile();
    void nobodyElseReadsAnOpenStore();
    void aStoreOutOfWriteAheadModeIsPutBackIntoIt();
    void aLinkLeadsToTheStore();
    void theMemoryStoreKeepsNothing();

private:
    QString path() const { return m_folder->filePath(u"Spoolwright.store"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

constexpr auto versionOneTables = uR"sql(
    PRAGMA journal_mode = WAL;
    PRAGMA application_id = 1397771351;
    PRAGMA user_version = 1;
    CREATE TABLE Filament (
        id INTEGER PRIMARY KEY,
        type INTEGER REFERENCES FilamentType (id) ON DELETE SET NULL,
        brand INTEGER REFERENCES Brand (id) ON DELETE SET NULL,
        range INTEGER REFERENCES FilamentRange (id) ON DELETE SET NULL,
        location INTEGER REFERENCES Location (id) ON DELETE SET NULL,
        spoolsCount INTEGER NOT NULL,
        dateAddedMs INTEGER NOT NULL,
        colorHex TEXT NOT NULL,
        notes TEXT NOT NULL
    ) STRICT;
    CREATE TABLE FilamentType (
        id INTEGER PRIMARY KEY, name TEXT NOT NULL, iconName TEXT NOT NULL DEFAULT 'cube.fill'
    ) STRICT;
    CREATE TABLE Brand (id INTEGER PRIMARY KEY, name TEXT NOT NULL) STRICT;
    CREATE TABLE FilamentRange (id INTEGER PRIMARY KEY, name TEXT NOT NULL) STRICT;
    CREATE TABLE Location (id INTEGER PRIMARY KEY, name TEXT NOT NULL) STRICT;
    INSERT INTO FilamentType (id, name) VALUES (4, 'PETG');
    INSERT INTO Filament VALUES (7, 4, NULL, NULL, NULL, 5, 1600000000000, '#000000', 'Vieux');
)sql";

template <class T>
T& first(StoreContext& context)
{
    return *context.fetchAll<T>().front();
}

} // namespace

void SqliteStoreTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void SqliteStoreTest::aNewFileIsAnEmptyStoreOfTheCurrentVersion()
{
    {
        auto opened = openStore(path());
        QVERIFY(opened);
        QCOMPARE(linesOf(opened.value()->context()), QStringList());
        QVERIFY(!opened.value()->usesMemoryStore());
        QCOMPARE(opened.value()->storeFile(), path());
    }
    QCOMPARE(askSql(path(), u"PRAGMA application_id"_s), u"1397771351"_s); // "SPLW"
    QCOMPARE(askSql(path(), u"PRAGMA user_version"_s), u"2"_s);
    QCOMPARE(askSql(path(), u"PRAGMA journal_mode"_s), u"wal"_s);
}

void SqliteStoreTest::everythingComesBackAsItWasSaved()
{
    {
        auto opened = openStore(path());
        QVERIFY(opened);
        StoreContext& context = opened.value()->context();
        auto& type = context.insert(std::make_unique<FilamentType>(u"PETG"_s, u"flame.fill"_s));
        auto& brand = context.insert(std::make_unique<Brand>(u"Sunlu"_s));
        auto& range = context.insert(std::make_unique<FilamentRange>(u"Silk"_s));
        auto& location = context.insert(std::make_unique<Location>(u"Étagère A"_s));
        Filament& filament = context.insert(std::make_unique<Filament>(
            &type, &brand, &range, &location, 4, 2, u"#00FF00"_s, u"Vert"_s, u"Séché"_s));
        filament.setDateAdded(QDateTime::fromMSecsSinceEpoch(1234567890123));
        context
            .insert(std::make_unique<Filament>(
                nullptr, nullptr, nullptr, nullptr, 0, 0, QString(), QString(), QString()))
            .setDateAdded(QDateTime::fromMSecsSinceEpoch(-5));
        QVERIFY(!context.save());
    }

    auto opened = openStore(path());
    QVERIFY(opened);
    StoreContext& context = opened.value()->context();
    const QStringList expected{u"1|PETG"_s, u"1|Sunlu"_s, u"1|Silk"_s, u"1|Étagère A"_s,
        u"1|4|2|#00FF00|Vert|Séché|1234567890123|PETG|Sunlu|Silk|Étagère A"_s,
        u"2|0|0||||-5|-|-|-|-"_s};
    QCOMPARE(linesOf(context), expected);
    QCOMPARE(first<FilamentType>(context).iconName(), u"flame.fill"_s);
    QCOMPARE(first<Brand>(context).filamentCount(), 1);
    QVERIFY(!context.hasUnsavedChanges());
}

void SqliteStoreTest::editsAndRemovalsComeBack()
{
    makeSmallStore(path());
    {
        auto opened = openStore(path());
        QVERIFY(opened);
        StoreContext& context = opened.value()->context();
        first<FilamentType>(context).setName(u"PLA+"_s);
        first<FilamentType>(context).setIconName(u"star.fill"_s);
        context.remove(first<Brand>(context));
        context.remove(first<Filament>(context));
        first<Filament>(context).setSpoolsCount(9);
        first<Filament>(context).setLocation(
            &context.insert(std::make_unique<Location>(u"Cave"_s)));
        QVERIFY(!context.save());
    }

    auto opened = openStore(path());
    QVERIFY(opened);
    const QStringList expected{
        u"1|PLA+"_s, u"1|Cave"_s, u"2|9|1|#E53935|Bleu|Éclat|1700000000123|PLA+|-|-|Cave"_s};
    QCOMPARE(linesOf(opened.value()->context()), expected);
    QCOMPARE(first<FilamentType>(opened.value()->context()).iconName(), u"star.fill"_s);
}

void SqliteStoreTest::aRemovalTakesNothingElse_data()
{
    QTest::addColumn<QList<qint64>>("brands");
    QTest::addColumn<QList<qint64>>("filaments");
    QTest::addColumn<QString>("expected"); // What is left: "id:brand" of each filament.
    using Ids = QList<qint64>;

    QTest::newRow("nothing") << Ids{} << Ids{} << u"1:1 2:2 3:3 4:1 5:2 8:3 9:1"_s;
    QTest::newRow("the first") << Ids{} << Ids{1} << u"2:2 3:3 4:1 5:2 8:3 9:1"_s;
    QTest::newRow("the last") << Ids{} << Ids{9} << u"1:1 2:2 3:3 4:1 5:2 8:3"_s;
    QTest::newRow("neighbours") << Ids{} << Ids{2, 3, 4} << u"1:1 5:2 8:3 9:1"_s;
    QTest::newRow("every second") << Ids{} << Ids{1, 3, 5} << u"2:2 4:1 8:3 9:1"_s;
    QTest::newRow("neighbours and one apart") << Ids{} << Ids{1, 2, 4} << u"3:3 5:2 8:3 9:1"_s;
    QTest::newRow("one apart and neighbours") << Ids{} << Ids{2, 4, 5} << u"1:1 3:3 8:3 9:1"_s;
    QTest::newRow("both sides of a gap") << Ids{} << Ids{4, 5, 8} << u"1:1 2:2 3:3 9:1"_s;
    QTest::newRow("in another order") << Ids{} << Ids{4, 1, 3} << u"2:2 5:2 8:3 9:1"_s;
    QTest::newRow("all") << Ids{} << Ids{1, 2, 3, 4, 5, 8, 9} << QString();
    QTest::newRow("a brand") << Ids{2} << Ids{} << u"1:1 2:- 3:3 4:1 5:- 8:3 9:1"_s;
    QTest::newRow("neighbouring brands") << Ids{1, 2} << Ids{} << u"1:- 2:- 3:3 4:- 5:- 8:3 9:-"_s;
    QTest::newRow("brands apart") << Ids{1, 3} << Ids{} << u"1:- 2:2 3:- 4:- 5:2 8:- 9:-"_s;
    QTest::newRow("brands and filaments") << Ids{1, 2} << Ids{2, 3, 4} << u"1:- 5:- 8:3 9:-"_s;
}

void SqliteStoreTest::aRemovalTakesNothingElse()
{
    QFETCH(QList<qint64>, brands);
    QFETCH(QList<qint64>, filaments);
    QVERIFY(openStore(path())); // Makes the tables.
    runSql(path(), uR"sql(
        INSERT INTO Brand VALUES (1, 'A'), (2, 'B'), (3, 'C');
        INSERT INTO Filament (id, brand, spoolsCount, dateAddedMs, colorHex, notes)
        VALUES (1, 1, 1, 0, '', ''), (2, 2, 1, 0, '', ''), (3, 3, 1, 0, '', ''),
            (4, 1, 1, 0, '', ''), (5, 2, 1, 0, '', ''), (8, 3, 1, 0, '', ''), (9, 1, 1, 0, '', '');
    )sql"_s);
    QStringList left;
    {
        const auto opened = openStore(path());
        QVERIFY(opened);
        StoreContext& context = opened.value()->context();
        for (const qint64 id : brands)
            context.remove(*context.find(BrandId{id}));
        for (const qint64 id : filaments)
            context.remove(*context.find(FilamentId{id}));
        QVERIFY(!context.save());
        left = linesOf(context);
    }

    QTEST(askSql(path(), uR"sql(
              SELECT ifnull(group_concat(id || ':' || ifnull(brand, '-'), ' '), '')
              FROM (SELECT id, brand FROM Filament ORDER BY id))sql"_s),
        "expected");
    const auto opened = openStore(path());
    QVERIFY(opened);
    QCOMPARE(linesOf(opened.value()->context()), left);
}

void SqliteStoreTest::textsSurvive_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << u""_s;
    QTest::newRow("spaces around") << u"  Matte \n"_s;
    QTest::newRow("a zero character inside") << QString::fromUtf16(u"a\0b", 3);
    QTest::newRow("only zero characters") << QString::fromUtf16(u"\0\0", 2);
    QTest::newRow("beyond the first plane") << u"bobine 🧵 fin"_s;
    QTest::newRow("combining accents are not composed") << u"E\u0301clat"_s;
    QTest::newRow("quotes") << u"l'\"or\"; DROP TABLE Brand; --"_s;
    QTest::newRow("longer than a page") << QString(20000, u'é');
}

void SqliteStoreTest::textsSurvive()
{
    QFETCH(QString, text);

    {
        auto opened = openStore(path());
        QVERIFY(opened);
        StoreContext& context = opened.value()->context();
        context.insert(std::make_unique<FilamentType>(text, text));
        context.insert(std::make_unique<Location>(text));
        context.insert(
            std::make_unique<Filament>(nullptr, nullptr, nullptr, nullptr, 1, 0, text, text, text));
        QVERIFY(!context.save());
    }

    auto opened = openStore(path());
    QVERIFY(opened);
    StoreContext& context = opened.value()->context();
    QCOMPARE(first<FilamentType>(context).name(), text);
    QCOMPARE(first<FilamentType>(context).iconName(), text);
    QCOMPARE(first<Location>(context).name(), text);
    QCOMPARE(first<Filament>(context).colorHex(), text);
    QCOMPARE(first<Filament>(context).colorName(), text);
    QCOMPARE(first<Filament>(context).notes(), text);
}

void SqliteStoreTest::aStoreOfVersionOneOpensWithTheDefaultsFilledIn()
{
    runSql(path(), QString::fromUtf16(versionOneTables));
    {
        auto opened = openStore(path());
        QVERIFY2(opened, qPrintable(opened ? QString() : opened.error().description()));
        const QStringList expected{u"4|PETG"_s, u"7|5|0|#000000||Vieux|1600000000000|PETG|-|-|-"_s};
        QCOMPARE(linesOf(opened.value()->context()), expected);
        first<Filament>(opened.value()->context()).setColorName(u"Noir"_s);
        first<Filament>(opened.value()->context()).setOpenedSpoolsCount(2);
        QVERIFY(!opened.value()->context().save());
    }

    QCOMPARE(askSql(path(), u"PRAGMA user_version"_s), u"2"_s);
    auto opened = openStore(path());
    QVERIFY(opened);
    QCOMPARE(linesOf(opened.value()->context()).last(),
        u"7|5|2|#000000|Noir|Vieux|1600000000000|PETG|-|-|-"_s);
}

void SqliteStoreTest::theLowestAndHighestNumbersSurvive()
{
    constexpr qint64 lowest = std::numeric_limits<qint64>::min();
    constexpr qint64 highest = std::numeric_limits<qint64>::max();
    makeSmallStore(path());
    {
        auto opened = openStore(path());
        QVERIFY(opened);
        first<Filament>(opened.value()->context()).setSpoolsCount(highest);
        first<Filament>(opened.value()->context()).setOpenedSpoolsCount(lowest);
        QVERIFY(!opened.value()->context().save());
    }

    auto opened = openStore(path());
    QVERIFY(opened);
    QCOMPARE(first<Filament>(opened.value()->context()).spoolsCount(), highest);
    QCOMPARE(first<Filament>(opened.value()->context()).openedSpoolsCount(), lowest);
}

void SqliteStoreTest::removingAnEntryInTheFileItselfEmptiesTheReference()
{
    makeSmallStore(path());
    runSql(path(), u"PRAGMA foreign_keys = ON; DELETE FROM Brand"_s);

    auto opened = openStore(path());
    QVERIFY(opened);
    const QStringList expected{u"1|PLA"_s, u"1|3|1|#E53935|Rouge|Éclat|1700000000123|PLA|-|-|-"_s,
        u"2|3|1|#E53935|Bleu|Éclat|1700000000123|PLA|-|-|-"_s};
    QCOMPARE(linesOf(opened.value()->context()), expected);
}

void SqliteStoreTest::aReferenceToAMissingEntryIsDropped()
{
    makeSmallStore(path());
    runSql(path(), u"PRAGMA foreign_keys = OFF; DELETE FROM Brand"_s);
    {
        auto opened = openStore(path());
        QVERIFY(opened);
        opened.value()->context().insert(std::make_unique<Brand>(u"Marque neuve"_s));
        QVERIFY(!opened.value()->context().save());
    }

    // The new brand may have the number of the missing one.
    auto opened = openStore(path());
    QVERIFY(opened);
    for (const auto& filament : opened.value()->context().fetchAll<Filament>())
        QCOMPARE(filament->brand(), nullptr);
}

void SqliteStoreTest::aSaveIsOnDiskBeforeTheStoreIsClosed()
{
    makeSmallStore(path());
    auto opened = openStore(path());
    QVERIFY(opened);
    first<Filament>(opened.value()->context()).setNotes(u"Entamée hier"_s);
    QVERIFY(!opened.value()->context().save());

    // What a kill would leave: the files as they are now.
    QTemporaryDir other;
    const QString copy = other.filePath(u"Spoolwright.store"_s);
    QVERIFY(QFile::copy(path(), copy));
    QVERIFY(QFile::copy(path() + u"-wal"_s, copy + u"-wal"_s));

    auto recovered = openStore(copy);
    QVERIFY(recovered);
    QCOMPARE(first<Filament>(recovered.value()->context()).notes(), u"Entamée hier"_s);
}

void SqliteStoreTest::tidyingUpMovesTheJournalIntoTheFile()
{
    makeSmallStore(path());
    auto opened = openStore(path());
    QVERIFY(opened);
    first<Filament>(opened.value()->context()).setNotes(u"Entamée hier"_s);
    QVERIFY(!opened.value()->context().save());
    QVERIFY(!bytesOf(path()).contains("Entamée hier"));
    opened.value()->tidyUp();
    QVERIFY(bytesOf(path()).contains("Entamée hier"));
}

void SqliteStoreTest::closingLeavesOneFile()
{
    makeSmallStore(path());
    QCOMPARE(snapshotOf(m_folder->path()).keys(), QStringList{u"Spoolwright.store"_s});
}

void SqliteStoreTest::nobodyElseReadsAnOpenStore()
{
    makeSmallStore(path());
    const auto opened = openStore(path());
    QVERIFY(opened);
    OtherProcess other([&](const OtherProcess::Report& report) {
        sqlite3* database = nullptr;
        sqlite3_open(QFile::encodeName(path()).constData(), &database);
        const int result
            = sqlite3_exec(database, "SELECT count(*) FROM Filament", nullptr, nullptr, nullptr);
        if (result == SQLITE_BUSY)
            report();
        else
            ::_exit(1);
    });
    other.waitForReport();
}

void SqliteStoreTest::aStoreOutOfWriteAheadModeIsPutBackIntoIt()
{
    makeSmallStore(path());
    runSql(path(), u"PRAGMA journal_mode = DELETE"_s);
    {
        const auto opened = openStore(path());
        QVERIFY(opened);
        QCOMPARE(linesOf(opened.value()->context()), smallStoreLines());
    }
    QCOMPARE(askSql(path(), u"PRAGMA journal_mode"_s), u"wal"_s);
}

void SqliteStoreTest::aLinkLeadsToTheStore()
{
    QDir().mkpath(m_folder->filePath(u"elsewhere"_s));
    const QString target = m_folder->filePath(u"elsewhere/stock"_s);
    makeSmallStore(target);
    QVERIFY(QFile::link(target, path()));
    {
        const auto opened = openStore(path());
        QVERIFY(opened);
        opened.value()->context().find(FilamentId{1})->setNotes(u"Par le lien"_s);
        QVERIFY(!opened.value()->context().save());
    }
    QVERIFY(QFileInfo(path()).isSymLink());
    const auto opened = openStore(target);
    QVERIFY(opened);
    QCOMPARE(opened.value()->context().find(FilamentId{1})->notes(), u"Par le lien"_s);
}

void SqliteStoreTest::theMemoryStoreKeepsNothing()
{
    for (int run = 0; run < 2; ++run) {
        auto store = SqliteStore::openInMemory();
        QVERIFY(store);
        auto opened = StoreContainer::load(std::move(store.value()), StoreKind::Memory, path());
        QVERIFY(opened);
        QVERIFY(opened.value()->usesMemoryStore());
        StoreContext& context = opened.value()->context();
        QCOMPARE(context.count<Brand>(), 0);
        context.insert(std::make_unique<Brand>(u"Sunlu"_s));
        QVERIFY(!context.save());
    }
    QCOMPARE(snapshotOf(m_folder->path()).size(), 0);
}

REELHOUSE_TEST(SqliteStoreTest)

#include "SqliteStoreTest.moc"
