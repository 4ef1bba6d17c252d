#include "app/store/CarryOver.h"

#include "app/store/StorePaths.h"
#include "app/store/StoreProvider.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/app/store/StoreFixtures.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <sys/stat.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class CarryOverTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theMainFileAndItsCompanionsAreCopied();
    void whatUndoesAHalfMadeChangeIsCopied();
    void withoutCompanionsOnlyTheMainFileIsCopied();
    void anExistingStoreIsNeverTouched_data();
    void anExistingStoreIsNeverTouched();
    void withoutAnOlderStoreNothingHappens();
    void theCopyBelongsToTheUserEvenWhenTheOlderFileIsReadOnly();
    void aFailedIndexDoesNotStopTheMainFile();
    void aFailedJournalStopsTheMainFile_data();
    void aFailedJournalStopsTheMainFile();
    void aFailedMainFileLeavesNothing_data();
    void aFailedMainFileLeavesNothing();
    void aFolderWithoutRoomForTheCopyIsPassedOver();
    void leftoversOfAnEarlierCopyAreReplaced();
    void anOrphanedJournalIsKeptButNotPlayedBack();
    void aCrashLeavesNoHalfCopy();
    void theProviderOpensWhatWasCarriedOver();
    void theProviderPrefersTheNewStore();

private:
    QString older(const QString& suffix = {}) const { return m_paths->olderStoreFile() + suffix; }
    QString store(const QString& suffix = {}) const { return m_paths->storeFile() + suffix; }
    QStringList copied() const
    {
        return QDir(m_paths->dataFolder())
            .entryList(
                QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    void carryOver() const { carryOverOlderStore(older(), store()); }
    QString olderFolder() const { return QFileInfo(older()).path(); }

    std::unique_ptr<QTemporaryDir> m_documents;
    std::unique_ptr<StorePaths> m_paths;
};

namespace {

const QString& mainName()
{
    static const QString name = u"Spoolwright.store"_s;
    return name;
}

/// What anyone can tell about the folder without opening a file.
std::pair<qint64, QMap<QString, QByteArray>> traceOf(const QString& folder)
{
    return {QFileInfo(folder).lastModified().toMSecsSinceEpoch(), snapshotOf(folder)};
}

/// A store that was not closed: its last changes are in the journal only.
void makeUnclosedStore(const QString& path)
{
    makeSmallStore(path);
    OtherProcess other([&](const OtherProcess::Report& report) {
        const auto opened = openStore(path);
        StoreContext& context = opened.value()->context();
        context.find(FilamentId{2})->setNotes(u"Dans le journal"_s);
        if (!context.save())
            report();
    });
    other.waitForReport();
    other.kill();
    QVERIFY(QFileInfo(path + u"-wal"_s).size() > 0);
}

} // namespace

void CarryOverTest::init()
{
    m_documents = std::make_unique<QTemporaryDir>();
    m_paths = std::make_unique<StorePaths>(m_documents->path());
    QDir().mkpath(m_paths->dataFolder());
    QDir().mkpath(olderFolder());
}

void CarryOverTest::cleanup()
{
    QFile::setPermissions(
        m_paths->dataFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void CarryOverTest::theMainFileAndItsCompanionsAreCopied()
{
    writeBytes(older(), "le fichier");
    writeBytes(older(u"-shm"_s), "l'index");
    writeBytes(older(u"-wal"_s), QByteArray("le journal ").repeated(20000));
    writeBytes(olderFolder() + u"/autre chose"_s, "pas pour nous");
    const auto before = traceOf(olderFolder());

    carryOver();

    const QStringList expected{mainName(), mainName() + u"-shm"_s, mainName() + u"-wal"_s};
    QCOMPARE(copied(), expected);
    QCOMPARE(bytesOf(store()), "le fichier");
    QCOMPARE(bytesOf(store(u"-shm"_s)), "l'index");
    QCOMPARE(bytesOf(store(u"-wal"_s)), QByteArray("le journal ").repeated(20000));
    QCOMPARE(traceOf(olderFolder()), before);
}

void CarryOverTest::whatUndoesAHalfMadeChangeIsCopied()
{
    writeBytes(older(), "le fichier");
    writeBytes(older(u"-journal"_s), "le retour en arrière");

    carryOver();

    const QStringList expected{mainName(), mainName() + u"-journal"_s};
    QCOMPARE(copied(), expected);
    QCOMPARE(bytesOf(store(u"-journal"_s)), "le retour en arrière");
}

void CarryOverTest::withoutCompanionsOnlyTheMainFileIsCopied()
{
    writeBytes(older(), "le fichier");
    carryOver();
    QCOMPARE(copied(), QStringList{mainName()});
    QCOMPARE(bytesOf(store()), "le fichier");
}

void CarryOverTest::anExistingStoreIsNeverTouched_data()
{
    QTest::addColumn<bool>("isLink");

    QTest::newRow("file") << false;
    QTest::newRow("link to nothing") << true;
}

void CarryOverTest::anExistingStoreIsNeverTouched()
{
    QFETCH(bool, isLink);

    writeBytes(older(), "le fichier");
    writeBytes(older(u"-wal"_s), "le journal");
    if (isLink)
        QVERIFY(QFile::link(u"nulle part"_s, store()));
    else
        writeBytes(store(), "le nouveau");
    writeBytes(store(u"-wal"_s), "le nouveau journal");
    const auto before = traceOf(m_documents->path());

    carryOver();

    QCOMPARE(traceOf(m_documents->path()), before);
}

void CarryOverTest::withoutAnOlderStoreNothingHappens()
{
    writeBytes(older(u"-wal"_s), "le journal d'un fichier disparu");
    const auto before = traceOf(m_documents->path());
    carryOver();
    QCOMPARE(traceOf(m_documents->path()), before);
}

void CarryOverTest::theCopyBelongsToTheUserEvenWhenTheOlderFileIsReadOnly()
{
    writeBytes(older(), "le fichier");
    QVERIFY(QFile::setPermissions(older(), QFile::ReadOwner));
    const auto before = traceOf(olderFolder());
    carryOver();
    QVERIFY(QFileInfo(store()).permissions() & QFile::WriteOwner);
    QCOMPARE(traceOf(olderFolder()), before);
}

void CarryOverTest::aFailedIndexDoesNotStopTheMainFile()
{
    writeBytes(older(), "le fichier");
    QVERIFY(QDir().mkpath(older(u"-shm"_s))); // A folder cannot be copied.
    writeBytes(older(u"-wal"_s), "le journal");

    carryOver();

    const QStringList expected{mainName(), mainName() + u"-wal"_s};
    QCOMPARE(copied(), expected);
    QCOMPARE(bytesOf(store()), "le fichier");
}

void CarryOverTest::aFailedJournalStopsTheMainFile_data()
{
    QTest::addColumn<QString>("suffix");

    QTest::newRow("write-ahead") << u"-wal"_s;
    QTest::newRow("rollback") << u"-journal"_s;
}

void CarryOverTest::aFailedJournalStopsTheMainFile()
{
    QFETCH(QString, suffix);

    writeBytes(older(), "le fichier");
    writeBytes(older(u"-shm"_s), "l'index");
    QVERIFY(QDir().mkpath(older(suffix)));
    const auto before = traceOf(olderFolder());

    carryOver();

    QCOMPARE(copied(), QStringList());
    QCOMPARE(traceOf(olderFolder()), before);
}

void CarryOverTest::aFailedMainFileLeavesNothing_data()
{
    QTest::addColumn<bool>("isPipe");

    QTest::newRow("a folder in its place") << false;
    QTest::newRow("a pipe in its place") << true;
}

void CarryOverTest::aFailedMainFileLeavesNothing()
{
    QFETCH(bool, isPipe);

    if (isPipe)
        QVERIFY(::mkfifo(QFile::encodeName(older()).constData(), 0600) == 0);
    else
        QVERIFY(QDir().mkpath(older()));
    writeBytes(older(u"-wal"_s), "le journal");
    carryOver();
    QCOMPARE(copied(), QStringList());
}

void CarryOverTest::aFolderWithoutRoomForTheCopyIsPassedOver()
{
    writeBytes(older(), "le fichier");
    QVERIFY(QFile::setPermissions(m_paths->dataFolder(), QFile::ReadOwner | QFile::ExeOwner));
    const auto before = traceOf(olderFolder());
    {
        const OrdinaryUser user(qPrintable(m_documents->path()));
        carryOver();
    }
    QCOMPARE(copied(), QStringList());
    QCOMPARE(traceOf(olderFolder()), before);
}

void CarryOverTest::leftoversOfAnEarlierCopyAreReplaced()
{
    writeBytes(older(), "le fichier");
    writeBytes(store(u".copy"_s), "à moitié");
    writeBytes(store(u"-wal.copy"_s), "à moitié");
    writeBytes(store(u"-shm.copy"_s), "à moitié");
    carryOver();
    QCOMPARE(copied(), QStringList{mainName()});
    QCOMPARE(bytesOf(store()), "le fichier");
}

void CarryOverTest::anOrphanedJournalIsKeptButNotPlayedBack()
{
    // The journal of another store lies where the new store is about to be made.
    const QString lost = m_documents->filePath(u"lost.store"_s);
    makeUnclosedStore(lost);
    QVERIFY(QFile::copy(lost + u"-wal"_s, store(u"-wal"_s)));
    const QByteArray journal = bytesOf(store(u"-wal"_s));
    {
        const auto opened = openStore(store());
        QVERIFY(opened);
        QCOMPARE(linesOf(opened.value()->context()), QStringList());
    }
    QCOMPARE(bytesOf(store(u"-wal.orphan1"_s)), journal);

    // And again, with an older store to be carried over.
    QVERIFY(QFile::remove(store()));
    QVERIFY(QFile::copy(lost + u"-wal"_s, store(u"-wal"_s)));
    makeSmallStore(older());
    carryOver();
    const auto opened = openStore(store());
    QVERIFY(opened);
    QCOMPARE(linesOf(opened.value()->context()), smallStoreLines());
    QCOMPARE(bytesOf(store(u"-wal.orphan2"_s)), journal);
}

void CarryOverTest::aCrashLeavesNoHalfCopy()
{
    writeBytes(older(), QByteArray("le fichier ").repeated(100000));
    writeBytes(older(u"-shm"_s), QByteArray("l'index ").repeated(4000));
    writeBytes(older(u"-wal"_s), QByteArray("le journal ").repeated(100000));
    const auto before = traceOf(olderFolder());
    for (int attempt = 0; attempt < 40; ++attempt) {
        OtherProcess other([&](const OtherProcess::Report& report) {
            report();
            carryOver();
        });
        other.waitForReport();
        QThread::usleep(500UL * static_cast<unsigned long>(attempt));
        other.kill();
        if (!QFileInfo::exists(store()))
            continue;
        QCOMPARE(bytesOf(store()), bytesOf(older()));
        QCOMPARE(bytesOf(store(u"-wal"_s)), bytesOf(older(u"-wal"_s)));
        QVERIFY(QFile::remove(store()));
    }
    QCOMPARE(traceOf(olderFolder()), before);
    // The last one is not disturbed.
    carryOver();
    QCOMPARE(bytesOf(store()), bytesOf(older()));
    QCOMPARE(bytesOf(store(u"-wal"_s)), bytesOf(older(u"-wal"_s)));
    QVERIFY(!copied().join(u' ').contains(u".copy"_s));
}

void CarryOverTest::theProviderOpensWhatWasCarriedOver()
{
    makeUnclosedStore(older());
    writeBytes(older(u"-shm"_s), "un index d'un autre temps");
    const auto before = traceOf(olderFolder());

    StoreProvider provider(*m_paths);
    QSignalSpy states(&provider, &StoreProvider::stateChanged);
    provider.loadIfNeeded();
    QVERIFY(states.wait());

    QVERIFY(provider.container());
    QVERIFY(!provider.usesMemoryStore());
    const QStringList expected{u"1|PLA"_s, u"1|Sunlu"_s,
        u"1|3|1|#E53935|Rouge|Éclat|1700000000123|PLA|Sunlu|-|-"_s,
        u"2|3|1|#E53935|Bleu|Dans le journal|1700000000123|PLA|Sunlu|-|-"_s};
    QCOMPARE(linesOf(provider.container()->context()), expected);
    QCOMPARE(traceOf(olderFolder()), before);
}

void CarryOverTest::theProviderPrefersTheNewStore()
{
    makeSmallStore(store());
    writeBytes(older(), "un vieux fichier illisible");

    StoreProvider provider(*m_paths);
    QSignalSpy states(&provider, &StoreProvider::stateChanged);
    provider.loadIfNeeded();
    QVERIFY(states.wait());

    QVERIFY(provider.container());
    QCOMPARE(linesOf(provider.container()->context()), smallStoreLines());
}

REELHOUSE_TEST(CarryOverTest)

#include "CarryOverTest.moc"
