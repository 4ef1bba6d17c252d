#include "app/store/SqliteStore.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/app/store/StoreFixtures.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sqlite3.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// Every file that cannot be the store is refused with a French sentence, and everything in its
/// folder stays as it was.
class RefusedStoreTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void filesOfOtherKinds_data();
    void filesOfOtherKinds();
    void damagedFiles_data();
    void damagedFiles();
    void unexpectedStructures_data();
    void unexpectedStructures();
    void otherHeaders_data();
    void otherHeaders();
    void aPendingJournalIsKept_data();
    void aPendingJournalIsKept();
    void aRollbackJournalIsKeptWithADamagedFile();
    void aRollbackJournalIsPlayedBackIntoAHealthyFile();
    void companionsThatAreNoFiles_data();
    void companionsThatAreNoFiles();
    void aReadOnlyFile();
    void aReadOnlyFolder();
    void aFileHeldByAnotherProcess_data();
    void aFileHeldByAnotherProcess();

private:
    QString path() const { return m_folder->filePath(u"Spoolwright.store"_s); }
    void expectRefusal(const QString& sentence);

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

constexpr qint64 page = 4096; // bytes, SQLite's own default

using Preparation = std::function<void(const QString& path)>;

QByteArray name(const QString& path)
{
    return QFile::encodeName(path);
}

void makeSocket(const QString& path)
{
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, name(path).constData(), sizeof(address.sun_path));
    QVERIFY(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0);
    ::close(descriptor);
}

void makePipe(const QString& path)
{
    QVERIFY(::mkfifo(name(path).constData(), 0600) == 0);
}

/// A store with enough filaments for a tree of several pages.
void makeManyPages(const QString& path)
{
    makeSmallStore(path);
    runSql(path,
        u"WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)"
        " INSERT INTO Filament SELECT i, 1, 1, NULL, NULL, 1, 0, 5, '#123456', 'Gris',"
        " 'Une note assez longue pour remplir les pages' FROM n"_s);
}

void overwrite(const QString& path, qint64 offset, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(offset));
    QCOMPARE(file.write(bytes), bytes.size());
}

void cut(const QString& path, qint64 size)
{
    QVERIFY(QFile::resize(path, size));
}

/// Runs SQL on the store without closing it properly, so that it stays in the journal.
void leaveInJournal(const QString& path, const QString& sql)
{
    OtherProcess other([&](const OtherProcess::Report& report) {
        sqlite3* database = nullptr;
        sqlite3_open(name(path).constData(), &database);
        sqlite3_exec(database, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
        report();
    });
    other.waitForReport();
    other.kill();
    QVERIFY(QFileInfo(path + u"-wal"_s).size() > 0 || QFileInfo(path + u"-journal"_s).size() > 0);
}

/// Leaves the store in the middle of a transaction that keeps a rollback journal: the file holds
/// what the transaction wrote, and the journal what was there before.
void leaveRollbackJournal(const QString& path)
{
    leaveInJournal(path,
        u"PRAGMA journal_mode = DELETE; PRAGMA cache_size = 1; BEGIN;"
        " UPDATE Filament SET notes = 'Écrit par la transaction inachevée, elle aussi'"_s);
    QVERIFY(bytesOf(path).contains("inachev"));
}

} // namespace

Q_DECLARE_METATYPE(Preparation)

void RefusedStoreTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void RefusedStoreTest::expectRefusal(const QString& sentence)
{
    const auto before = snapshotOf(m_folder->path());
    const QString description = refusal(path());
    QVERIFY2(description.startsWith(sentence), qPrintable(description));
    QVERIFY2(description.endsWith(u'.'), qPrintable(description));
    QCOMPARE(snapshotOf(m_folder->path()), before);
}

void RefusedStoreTest::filesOfOtherKinds_data()
{
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<QString>("sentence");

    const QString noFile
        = u"Ce qui se trouve à la place de la base de données n'est pas un fichier."_s;
    const QString noDatabase = u"Le fichier n'est pas une base de données."_s;
    const auto row = [](const char* title, const Preparation& prepare, const QString& sentence) {
        QTest::newRow(title) << prepare << sentence;
    };
    row(
        "folder", [](const QString& path) { QDir().mkpath(path + u"/inside"_s); },
        u"Un dossier se trouve à la place du fichier de la base de données."_s);
    row("pipe", makePipe, noFile);
    row("socket", makeSocket, noFile);
    row(
        "link to nothing", [](const QString& path) { QFile::link(u"nowhere"_s, path); },
        u"Le lien symbolique de la base de données ne mène à aucun fichier."_s);
    row(
        "link to itself", [](const QString& path) { QFile::link(path, path); },
        u"Le lien symbolique tourne en rond"_s);
    row(
        "zero bytes", [](const QString& path) { writeBytes(path, {}); },
        u"Le fichier de la base de données est vide."_s);
    row(
        "one byte", [](const QString& path) { writeBytes(path, "S"); }, noDatabase);
    row(
        "text", [](const QString& path) { writeBytes(path, QByteArray("Bonjour ").repeated(999)); },
        noDatabase);
    row(
        "zeros", [](const QString& path) { writeBytes(path, QByteArray(8192, '\0')); }, noDatabase);
    row(
        "SQLite's first word alone",
        [](const QString& path) { writeBytes(path, QByteArray("SQLite format 3\0", 16)); },
        noDatabase);
}

void RefusedStoreTest::filesOfOtherKinds()
{
    QFETCH(Preparation, prepare);
    QFETCH(QString, sentence);

    prepare(path());
    expectRefusal(sentence);
}

void RefusedStoreTest::damagedFiles_data()
{
    QTest::addColumn<Preparation>("damage");

    const auto row
        = [](const char* title, const Preparation& damage) { QTest::newRow(title) << damage; };
    row("cut within the header page", [](const QString& path) { cut(path, 2000); });
    row("only the header", [](const QString& path) { cut(path, 100); });
    row("cut at a page", [](const QString& path) { cut(path, 8 * page); });
    row("cut within a page", [](const QString& path) { cut(path, 4096 * 8 + 17); });
    row("one page of zeros",
        [](const QString& path) { overwrite(path, 9 * page, QByteArray(4096, '\0')); });
    row("one page of noise",
        [](const QString& path) { overwrite(path, 12 * page, QByteArray(4096, '\xa7')); });
    row("noise after the first hundred bytes",
        [](const QString& path) { overwrite(path, 100, QByteArray(3996, '\xa7')); });
    row("one page of noise and a page count that SQLite would correct", [](const QString& path) {
        overwrite(path, 12 * page, QByteArray(4096, '\xa7'));
        overwrite(path, 24, QByteArray("\0\0\1\0\0\0\0\7", 8));
    });
    row("a page size that does not exist",
        [](const QString& path) { overwrite(path, 16, QByteArray("\x30\x39", 2)); });
}

void RefusedStoreTest::damagedFiles()
{
    QFETCH(Preparation, damage);

    makeManyPages(path());
    damage(path());
    const auto before = snapshotOf(m_folder->path());
    const QString description = refusal(path());
    QVERIFY2(description.startsWith(u"La base de données est endommagée ("_s)
            || description.startsWith(u"Le fichier n'est pas une base de données."_s),
        qPrintable(description));
    QCOMPARE(snapshotOf(m_folder->path()), before);
}

void RefusedStoreTest::unexpectedStructures_data()
{
    QTest::addColumn<QString>("sql");

    QTest::newRow("a table is missing") << u"DROP TABLE Location"_s;
    QTest::newRow("every table is missing")
        << u"DROP TABLE Filament; DROP TABLE FilamentType; DROP TABLE Brand;"
           " DROP TABLE FilamentRange; DROP TABLE Location"_s;
    QTest::newRow("a column is missing") << u"ALTER TABLE Filament DROP COLUMN notes"_s;
    QTest::newRow("a column has another name")
        << u"ALTER TABLE Filament RENAME COLUMN colorHex TO color"_s;
    QTest::newRow("a view in place of a table")
        << u"ALTER TABLE Brand RENAME TO Old; CREATE VIEW Brand AS SELECT * FROM Old"_s;
    QTest::newRow("a table is named that does not exist")
        << u"ALTER TABLE Filament ADD COLUMN other INTEGER REFERENCES Nowhere (id)"_s;
    QTest::newRow("a version of the past with today's columns") << u"PRAGMA user_version = 1"_s;
    QTest::newRow("an identity of zero") << u"INSERT INTO Brand VALUES (0, 'Zéro')"_s;
    QTest::newRow("a negative identity") << u"INSERT INTO Location VALUES (-1, 'Ailleurs')"_s;
    QTest::newRow("the largest identity")
        << u"INSERT INTO Brand VALUES (9223372036854775807, 'Dernière')"_s;
}

void RefusedStoreTest::unexpectedStructures()
{
    QFETCH(QString, sql);

    makeSmallStore(path());
    runSql(path(), sql);
    expectRefusal(u"La "_s);
}

void RefusedStoreTest::otherHeaders_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("sentence");

    const QString foreign = u"Ce fichier est la base de données d'une autre application."_s;
    const QString newer
        = u"La base de données vient d'une version plus récente de Spoolwright (user_version "_s;
    const QString unknown = u"La version de la base de données est inconnue (user_version "_s;
    QTest::newRow("no application") << u"PRAGMA application_id = 0"_s << foreign;
    QTest::newRow("another application") << u"PRAGMA application_id = 252006673"_s << foreign;
    QTest::newRow("the next version") << u"PRAGMA user_version = 3"_s << newer + u"3)."_s;
    QTest::newRow("the last version")
        << u"PRAGMA user_version = 2147483647"_s << newer + u"2147483647)."_s;
    QTest::newRow("no version") << u"PRAGMA user_version = 0"_s << unknown + u"0)."_s;
    QTest::newRow("a negative version") << u"PRAGMA user_version = -7"_s << unknown + u"-7)."_s;
}

void RefusedStoreTest::otherHeaders()
{
    QFETCH(QString, sql);
    QFETCH(QString, sentence);

    makeSmallStore(path());
    runSql(path(), sql);
    expectRefusal(sentence);
}

void RefusedStoreTest::aPendingJournalIsKept_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("sentence");

    QTest::newRow("a newer version in the journal")
        << u"PRAGMA user_version = 3"_s << u"La base de données vient d'une version plus récente"_s;
    QTest::newRow("another application in the journal")
        << u"PRAGMA application_id = 5"_s
        << u"Ce fichier est la base de données d'une autre application."_s;
    QTest::newRow("a table dropped in the journal")
        << u"DROP TABLE Location"_s << u"La structure de la base de données n'est pas celle"_s;
}

void RefusedStoreTest::aPendingJournalIsKept()
{
    QFETCH(QString, sql);
    QFETCH(QString, sentence);

    makeSmallStore(path());
    leaveInJournal(path(), sql);
    expectRefusal(sentence);
    QVERIFY(QFileInfo(path() + u"-wal"_s).size() > 0);
}

void RefusedStoreTest::aRollbackJournalIsKeptWithADamagedFile()
{
    makeManyPages(path());
    overwrite(path(), 2 * page, QByteArray(4096, '\xa7'));
    leaveRollbackJournal(path());
    expectRefusal(u"La base de données est endommagée"_s);
}

void RefusedStoreTest::aRollbackJournalIsPlayedBackIntoAHealthyFile()
{
    makeManyPages(path());
    leaveRollbackJournal(path());

    const auto opened = openStore(path());

    QVERIFY(opened);
    StoreContext& context = opened.value()->context();
    QCOMPARE(context.count<Filament>(), 2000);
    QCOMPARE(context.find(FilamentId{1})->notes(), u"Éclat"_s);
    QCOMPARE(
        context.find(FilamentId{2000})->notes(), u"Une note assez longue pour remplir les pages"_s);
}

void RefusedStoreTest::companionsThatAreNoFiles_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<Preparation>("prepare");

    for (const QString& suffix : {u"-wal"_s, u"-shm"_s, u"-journal"_s}) {
        QTest::addRow("%s as a pipe", qPrintable(suffix)) << suffix << Preparation(makePipe);
        QTest::addRow("%s as a folder", qPrintable(suffix))
            << suffix << Preparation([](const QString& path) { QDir().mkpath(path); });
        QTest::addRow("%s as a link", qPrintable(suffix))
            << suffix << Preparation([](const QString& path) { QFile::link(u"nowhere"_s, path); });
    }
}

void RefusedStoreTest::companionsThatAreNoFiles()
{
    QFETCH(QString, suffix);
    QFETCH(Preparation, prepare);

    makeSmallStore(path());
    prepare(path() + suffix);
    expectRefusal(u"Ce qui accompagne la base de données n'est pas un fichier (Spoolwright.store"_s
        + suffix + u")."_s);
}

void RefusedStoreTest::aReadOnlyFile()
{
    makeSmallStore(path());
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner));
    const OrdinaryUser user(qPrintable(m_folder->path()));
    expectRefusal(u"Le fichier de la base de données est en lecture seule."_s);
}

void RefusedStoreTest::aReadOnlyFolder()
{
    makeSmallStore(path());
    QVERIFY(QFile::setPermissions(m_folder->path(), QFile::ReadOwner | QFile::ExeOwner));
    {
        const OrdinaryUser user(qPrintable(m_folder->path()));
        expectRefusal(u"Le dossier de la base de données est en lecture seule."_s);
    }
    QVERIFY(QFile::setPermissions(
        m_folder->path(), QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
}

void RefusedStoreTest::aFileHeldByAnotherProcess_data()
{
    QTest::addColumn<QString>("sql");

    QTest::newRow("it reads") << u"BEGIN; SELECT count(*) FROM Filament"_s;
    QTest::newRow("it holds everything")
        << u"PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; SELECT count(*) FROM Brand"_s;
}

void RefusedStoreTest::aFileHeldByAnotherProcess()
{
    QFETCH(QString, sql);

    makeSmallStore(path());
    OtherProcess other([&](const OtherProcess::Report& report) {
        sqlite3* database = nullptr;
        sqlite3_open(name(path()).constData(), &database);
        sqlite3_exec(database, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
        report();
    });
    other.waitForReport();
    expectRefusal(u"La base de données est utilisée par une autre application."_s);
}

REELHOUSE_TEST(RefusedStoreTest)

#include "RefusedStoreTest.moc"
