#include "app/store/SqliteStore.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/app/store/StoreFixtures.h"
#include "tests/support/TestMain.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtTest/QTest>

#include <csignal>
#include <sys/resource.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// The store in a process that is killed, as by a power cut.
class StoreCrashTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aKilledProgramLosesNothingItHadSaved();
    void aKilledCreationLeavesAUsableName();
    void aHalfMadeFileOfAnEarlierCreationIsReplaced();
    void aFailedSaveWritesNothingAndTheNextOneTakesItAlong();

private:
    QString path() const { return m_folder->filePath(u"Spoolwright.store"_s); }

    QStringList linesAfterAPowerCut() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

/// Makes the system refuse to write any file beyond `size` bytes, as on a full disk.
class NoFileGrows final {
public:
    explicit NoFileGrows(qint64 size)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{rlim_t(size), m_former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    NoFileGrows(const NoFileGrows&) = delete;
    NoFileGrows& operator=(const NoFileGrows&) = delete;
    ~NoFileGrows() { ::setrlimit(RLIMIT_FSIZE, &m_former); }

private:
    rlimit m_former{};
};

} // namespace

void StoreCrashTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

QStringList StoreCrashTest::linesAfterAPowerCut() const
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"Spoolwright.store"_s);
    QFile::copy(path(), copy);
    QFile::copy(path() + u"-wal"_s, copy + u"-wal"_s);
    const auto opened = openStore(copy);
    return opened ? linesOf(opened.value()->context()) : QStringList{opened.error().description()};
}

void StoreCrashTest::aKilledProgramLosesNothingItHadSaved()
{
    makeSmallStore(path());
    qint64 acknowledged = 3;
    for (int round = 0; round < 15; ++round) {
        OtherProcess other([&](const OtherProcess::Report& report) {
            const auto opened = openStore(path());
            StoreContext& context = opened.value()->context();
            Filament& filament = *context.find(FilamentId{1});
            report(); // Opened: from here on every report is one more spool.
            while (true) {
                filament.setSpoolsCount(filament.spoolsCount() + 1);
                filament.setNotes(QString::number(filament.spoolsCount()));
                if (context.save())
                    ::raise(SIGKILL);
                if (filament.spoolsCount() % 7 == 0)
                    opened.value()->tidyUp();
                report();
            }
        });
        other.waitForReport();
        QThread::usleep(static_cast<unsigned long>(round) * 3000);
        acknowledged += other.kill();

        const auto opened = openStore(path());
        QVERIFY2(opened, qPrintable(opened ? QString() : opened.error().description()));
        const Filament& filament = *opened.value()->context().find(FilamentId{1});
        // A save that was on disk before it could be reported counts too, and a save is whole.
        QVERIFY(
            filament.spoolsCount() == acknowledged || filament.spoolsCount() == acknowledged + 1);
        if (filament.spoolsCount() > 3)
            QCOMPARE(filament.notes(), QString::number(filament.spoolsCount()));
        acknowledged = filament.spoolsCount();
    }
    QVERIFY2(acknowledged > 3, "Nothing was ever saved.");
}

void StoreCrashTest::aKilledCreationLeavesAUsableName()
{
    for (int attempt = 0; attempt < 30; ++attempt) {
        OtherProcess other([&](const OtherProcess::Report& report) {
            report();
            const auto opened = openStore(path());
        });
        other.waitForReport();
        QThread::usleep(static_cast<unsigned long>(attempt) * 500);
        other.kill();

        QCOMPARE(refusal(path()), QString());
        QVERIFY(QFile::remove(path()));
    }
}

void StoreCrashTest::aHalfMadeFileOfAnEarlierCreationIsReplaced()
{
    writeBytes(path() + u".new"_s, "SQLite form");
    writeBytes(path() + u".new-journal"_s, "à moitié");
    writeBytes(path() + u".new-wal"_s, "à moitié");
    QCOMPARE(refusal(path()), QString());
    QCOMPARE(snapshotOf(m_folder->path()).keys(), QStringList{u"Spoolwright.store"_s});
}

void StoreCrashTest::aFailedSaveWritesNothingAndTheNextOneTakesItAlong()
{
    makeSmallStore(path());
    auto opened = openStore(path());
    QVERIFY(opened);
    StoreContext& context = opened.value()->context();
    context.find(FilamentId{1})->setSpoolsCount(50);
    context.find(FilamentId{2})->setNotes(QString(100000, u'é'));
    {
        const NoFileGrows limit(QFileInfo(path() + u"-wal"_s).size() + 5000);
        const auto error = context.save();
        QVERIFY(error);
        QCOMPARE(error->description(), u"La base de données ne peut pas être lue ou écrite."_s);
    }
    QVERIFY(context.hasUnsavedChanges());
    QCOMPARE(linesAfterAPowerCut(), smallStoreLines());

    QVERIFY(!context.save());
    QVERIFY(!context.hasUnsavedChanges());
    const QStringList lines = linesAfterAPowerCut();
    QCOMPARE(lines[2], u"1|50|1|#E53935|Rouge|Éclat|1700000000123|PLA|Sunlu|-|-"_s);
    QVERIFY(lines[3].contains(QString(100000, u'é')));
}

REELHOUSE_TEST(StoreCrashTest)

#include "StoreCrashTest.moc"
