#include "app/backup/BackupService.h"
#include "app/backup/StockDocument.h"
#include "tests/app/backup/BackupFixture.h"
#include "tests/app/backup/OneStock.h"
#include "tests/support/TestMain.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QThread>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// Kills a program just before one of the system calls with which it writes a backup or an import:
/// before the first of a kind, the second, and so on until it comes to its end.
class KilledTransferTest final : public QObject {
    Q_OBJECT

public:
    enum class Transfer { Backup, Import, ImportOfOldestBackup };

private slots:
    void initTestCase();
    void aTransferKilledAtAWriteLeavesOldOrNew_data();
    void aTransferKilledAtAWriteLeavesOldOrNew();

private:
    enum class Ending { Killed, Done, Other };

    /// Puts everything back to how it was before the transfer.
    void prepare() const;
    Ending runKilledAt(const QString& call, int time) const;
    QString document() const;
    QString backupFolder() const { return m_folder.filePath(u"Backups"_s); }
    QString storeFile() const { return m_folder.filePath(u"Spoolwright.store"_s); }

    QTemporaryDir m_folder;
    Transfer m_transfer = Transfer::Backup;
};

namespace {

constexpr int keptTransfers = 3;
constexpr int formerFilaments = 200;
constexpr int importedFilaments = 300;

/// A quick run leaves out ever more of the later ones.
int nextTime(int time)
{
    return qEnvironmentVariableIsSet("KILL_ROUNDS") ? time + 1 : 2 * time;
}

} // namespace

void KilledTransferTest::initTestCase()
{
    if (QStandardPaths::findExecutable(u"strace"_s).isEmpty())
        QSKIP("strace is not installed: scripts/check --full installs it.");
}

void KilledTransferTest::prepare() const
{
    for (const QString& name : QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden))
        QFile::remove(m_folder.filePath(name));
    QDir(backupFolder()).removeRecursively();
    if (m_transfer != Transfer::Backup) {
        QDir().mkpath(backupFolder());
        BackupFixture::writeFile(
            document(), stockOf(u"Bleu"_s, importedFilaments).encodeJSON().value());
        QThread::msleep(12); // File systems tell moments apart by the kernel's ticks.
    }
    const auto stock = openStock(storeFile());
    if (StockDocument::replaceStock(stock->context(), stockOf(u"Rouge"_s, formerFilaments)))
        qFatal("No stock to begin with.");
    while (BackupService::storedBackupCount(*stock) < keptTransfers)
        QVERIFY(BackupService::performBackup(*stock, keptTransfers));
}

QString KilledTransferTest::document() const
{
    return m_transfer == Transfer::ImportOfOldestBackup ? backupFolder() + u"/ancien.json"_s
                                                        : m_folder.filePath(u"import.json"_s);
}

KilledTransferTest::Ending KilledTransferTest::runKilledAt(const QString& call, int time) const
{
    QStringList arguments{u"-f"_s, u"-qq"_s, u"-o"_s, u"/dev/null"_s, u"-e"_s, u"trace="_s + call,
        u"-e"_s, u"inject=%1:signal=KILL:when=%2"_s.arg(call).arg(time),
        QCoreApplication::applicationDirPath() + u"/transfer-program"_s, storeFile()};
    if (m_transfer != Transfer::Backup)
        arguments << document();
    QProcess strace;
    // Under the sanitizers: leaks cannot be looked for in a process that is traced.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s);
    strace.setProcessEnvironment(environment);
    strace.setProcessChannelMode(QProcess::ForwardedChannels);
    strace.start(u"strace"_s, arguments);
    if (!strace.waitForFinished())
        return Ending::Other;
    // strace ends as the program did.
    if (strace.exitStatus() == QProcess::CrashExit)
        return Ending::Killed;
    return strace.exitCode() == 0 ? Ending::Done : Ending::Other;
}

void KilledTransferTest::aTransferKilledAtAWriteLeavesOldOrNew_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<Transfer>("transfer");

    for (const char* call :
        {"write", "fsync", "renameat2", "unlink", "pwrite64", "fdatasync", "ftruncate"}) {
        const QString name = QLatin1StringView(call);
        QTest::addRow("a backup at %s", call) << name << Transfer::Backup;
        QTest::addRow("an import at %s", call) << name << Transfer::Import;
    }
    QTest::newRow("an import of the oldest backup")
        << u"pwrite64"_s << Transfer::ImportOfOldestBackup;
}

void KilledTransferTest::aTransferKilledAtAWriteLeavesOldOrNew()
{
    QFETCH(QString, call);
    QFETCH(Transfer, transfer);
    m_transfer = transfer;
    const bool imports = transfer != Transfer::Backup;

    int kills = 0;
    for (int time = 1; true; time = nextTime(time)) {
        prepare();
        const Ending ending = runKilledAt(call, time);
        QVERIFY(ending != Ending::Other);

        const QString found = pictureOfOneStock(openStock(storeFile()).get());
        const QString former = u"Rouge %1"_s.arg(formerFilaments);
        const QString imported = u"Bleu %1"_s.arg(importedFilaments);
        QVERIFY2(found == former || (imports && found == imported),
            qPrintable(u"%1 %2: %3"_s.arg(call).arg(time).arg(found)));
        QVERIFY2(!imports || found == imported || QFile::exists(document()),
            qPrintable(u"%1 %2: what was to be imported is nowhere"_s.arg(call).arg(time)));
        QCOMPARE(unreadableBackups(backupFolder()), QStringList());
        // The new one may be there beside all those that were.
        const auto stock = openStock(storeFile());
        const int backups = BackupService::storedBackupCount(*stock);
        QVERIFY2(backups == keptTransfers || backups == keptTransfers + 1,
            qPrintable(u"%1 %2: %3 backups"_s.arg(call).arg(time).arg(backups)));
        // What was left half-way does not stay.
        QVERIFY(BackupService::performBackup(*stock, keptTransfers));
        QCOMPARE(QDir(backupFolder())
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                     .size(),
            keptTransfers);
        if (ending == Ending::Done) {
            QCOMPARE(found, imports ? imported : former);
            break;
        }
        ++kills;
    }
    qInfo("killed %d times", kills);
    QVERIFY(kills > 0);
}

REELHOUSE_TEST(KilledTransferTest)

#include "KilledTransferTest.moc"
