#include "app/store/DurableFiles.h"

#include "app/store/UserFiles.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/app/store/SmallDisk.h"
#include "tests/app/store/StoreFixtures.h"
#include "tests/support/LittleMemory.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class DurableFilesTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void aFileIsWrittenWhole_data();
    void aFileIsWrittenWhole();
    void whatHasTheNameStays();
    void whatACrashLeftIsReplaced();
    void aFolderThatCannotBeListedIsWrittenInto();
    void aFreeNameIsGivenAndATakenOneIsKept();
    void whatCannotBeLookedAtCountsAsTaken();
    void onAFullDiskTheFormerFileStays_data();
    void onAFullDiskTheFormerFileStays();
    void aFolderThatMayNotBeWrittenIsLeftAlone_data();
    void aFolderThatMayNotBeWrittenIsLeftAlone();
    void aKilledWriterLeavesWholeFiles();
    void foldersAreMadeWithThoseAbove();
    void whatIsNoFolderIsSaid();
    void aFileOfTheUserIsOverwrittenInPlace();
    void anOverwrittenFileThatDoesNotFitIsAFailure();
    void aFileForWhichMemoryLacksIsRefused();

private:
    QString path() const { return m_folder->filePath(u"stock.json"_s); }
    /// Writes "stock.json", or else "stock-1.json", or else …
    Result<QString, SystemError> write(const QByteArray& bytes) const
    {
        const auto nameOf = [](int attempt) {
            return attempt == 0 ? u"stock.json"_s : u"stock-%1.json"_s.arg(attempt);
        };
        return DurableFiles::write(m_folder->path(), nameOf, bytes);
    }
    QStringList names() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

QByteArray pattern(qsizetype size, char letter)
{
    return QByteArray(size, letter);
}

QStringList hiddenNames(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

} // namespace

void DurableFilesTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void DurableFilesTest::aFileIsWrittenWhole_data()
{
    QTest::addColumn<qsizetype>("size");

    QTest::newRow("empty") << qsizetype(0);
    QTest::newRow("small") << qsizetype(17);
    QTest::newRow("large") << qsizetype(20'000'000);
}

void DurableFilesTest::aFileIsWrittenWhole()
{
    QFETCH(qsizetype, size);

    const auto written = write(pattern(size, 'n'));

    QVERIFY(written);
    QCOMPARE(written.value(), path());

    QVERIFY(bytesOf(path()) == pattern(size, 'n'));
}

void DurableFilesTest::whatHasTheNameStays()
{
    writeBytes(path(), "a");
    QCOMPARE(::symlink("nulle-part", QFile::encodeName(m_folder->filePath(u"stock-1.json"_s))), 0);
    QVERIFY(QDir(m_folder->path()).mkdir(u"stock-2.json"_s));

    const auto written = write("b");

    QVERIFY(written);
    QCOMPARE(written.value(), m_folder->filePath(u"stock-3.json"_s));
    QCOMPARE(bytesOf(path()), "a"_ba);
    QCOMPARE(bytesOf(written.value()), "b"_ba);
    QCOMPARE(names(),
        (QStringList{u"stock-1.json"_s, u"stock-2.json"_s, u"stock-3.json"_s, u"stock.json"_s}));
}

void DurableFilesTest::whatACrashLeftIsReplaced()
{
    const QString leftOver = m_folder->filePath(u".Spoolwright.new"_s);
    writeBytes(m_folder->filePath(u"ailleurs"_s), "à moi");
    QCOMPARE(::symlink("ailleurs", QFile::encodeName(leftOver)), 0);

    QVERIFY(write("neuf"));

    QCOMPARE(bytesOf(path()), "neuf"_ba);
    QCOMPARE(bytesOf(m_folder->filePath(u"ailleurs"_s)), "à moi"_ba);
    QCOMPARE(names(), (QStringList{u"ailleurs"_s, u"stock.json"_s}));
}

void DurableFilesTest::aFolderThatCannotBeListedIsWrittenInto()
{
    const OrdinaryUser user(QFile::encodeName(m_folder->path()));
    QFile folder(m_folder->path());
    QVERIFY(folder.setPermissions(QFile::WriteOwner | QFile::ExeOwner));

    const auto written = write("neuf");
    QVERIFY(folder.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    QVERIFY(written);
    QCOMPARE(bytesOf(path()), "neuf"_ba);
}

void DurableFilesTest::aFreeNameIsGivenAndATakenOneIsKept()
{
    const QString draft = m_folder->filePath(u"draft"_s);
    writeBytes(draft, "neuf");
    QCOMPARE(DurableFiles::renameToFreeName(draft, path()), std::nullopt);
    QCOMPARE(bytesOf(path()), "neuf"_ba);

    writeBytes(draft, "autre");
    QCOMPARE(DurableFiles::renameToFreeName(draft, path()), std::optional(SystemError{EEXIST}));
    QCOMPARE(bytesOf(path()), "neuf"_ba);
    QCOMPARE(bytesOf(draft), "autre"_ba);
}

void DurableFilesTest::whatCannotBeLookedAtCountsAsTaken()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"fermé"_s));
    const QString closed = m_folder->filePath(u"fermé"_s);
    const QString inside = closed + u"/stock"_s;
    QVERIFY(!DurableFiles::isTaken(inside));
    const OrdinaryUser user(QFile::encodeName(m_folder->path()));
    QVERIFY(QFile(closed).setPermissions({}));

    const bool isTaken = DurableFiles::isTaken(inside);
    QVERIFY(QFile(closed).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    QVERIFY(isTaken);
    QVERIFY(!DurableFiles::isTaken(path() + u"/below a file that is not there"_s));
}

void DurableFilesTest::onAFullDiskTheFormerFileStays_data()
{
    QTest::addColumn<int>("kilobytes");

    for (const int kilobytes : {12, 16, 64, 128, 292, 296, 300})
        QTest::addRow("%d KiB", kilobytes) << kilobytes;
}

void DurableFilesTest::onAFullDiskTheFormerFileStays()
{
    QFETCH(int, kilobytes);
    const auto answer = onSmallDisk(m_folder->path(), kilobytes, [&] {
        write(pattern(5000, 'o'));
        const auto written = write(pattern(qsizetype{300} * 1024, 'n'));
        const bool isFormer = bytesOf(path()) == pattern(5000, 'o');
        const bool fitsAgain = write("petit").has_value();
        return QStringList{QString::number(written ? 0 : written.error().code),
            isFormer ? u"former"_s : u"changed"_s, fitsAgain ? u"fits"_s : u"does not fit"_s,
            hiddenNames(m_folder->path()).join(u' ')};
    });
    if (!answer)
        QSKIP("This system does not let the user mount a disk.");

    QCOMPARE(*answer,
        (QStringList{
            QString::number(ENOSPC), u"former"_s, u"fits"_s, u"stock-1.json stock.json"_s}));
}

void DurableFilesTest::aFolderThatMayNotBeWrittenIsLeftAlone_data()
{
    QTest::addColumn<QFile::Permissions>("permissions");

    QTest::newRow("read-only") << (QFile::ReadOwner | QFile::ExeOwner);
    QTest::newRow("not to be searched") << (QFile::ReadOwner | QFile::WriteOwner);
    QTest::newRow("closed") << QFile::Permissions();
}

void DurableFilesTest::aFolderThatMayNotBeWrittenIsLeftAlone()
{
    QFETCH(QFile::Permissions, permissions);
    writeBytes(path(), "ancien");
    const OrdinaryUser user(QFile::encodeName(m_folder->path()));
    QFile folder(m_folder->path());
    QVERIFY(folder.setPermissions(permissions));

    const auto written = write("neuf");

    QVERIFY(folder.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(!written);
    QCOMPARE(written.error(), SystemError{EACCES});
    QCOMPARE(bytesOf(path()), "ancien"_ba);
    QCOMPARE(names(), QStringList{u"stock.json"_s});
}

void DurableFilesTest::aKilledWriterLeavesWholeFiles()
{
    constexpr qsizetype size = 3'000'000;
    const int wanted = qEnvironmentVariableIntValue("KILL_ROUNDS");
    for (int round = 0; round < std::max(wanted, 12); ++round) {
        OtherProcess other([&](const OtherProcess::Report& report) {
            write(pattern(size, 'z'));
            report();
            for (char letter = 'a'; true; letter = letter == 'z' ? 'a' : char(letter + 1))
                DurableFiles::remove(write(pattern(size, letter)).value());
        });
        other.waitForReport();
        ::usleep(unsigned(round) * 1700);
        other.kill();

        const QStringList found = names().filter(u"stock"_s);
        QVERIFY(!found.isEmpty());
        for (const QString& name : found) {
            const QByteArray bytes = bytesOf(m_folder->filePath(name));
            QCOMPARE(bytes.size(), size);
            QCOMPARE(bytes.count(bytes[0]), size);
            QVERIFY(QFile::remove(m_folder->filePath(name)));
        }
        QVERIFY2(names().size() <= 1, qPrintable(names().join(u' ')));
    }
}

void DurableFilesTest::foldersAreMadeWithThoseAbove()
{
    const QString deep = m_folder->filePath(u"a/b/c"_s);

    QCOMPARE(DurableFiles::makeFolder(deep), std::nullopt);
    QCOMPARE(DurableFiles::makeFolder(deep), std::nullopt);

    QVERIFY(QFileInfo(deep).isDir());
}

void DurableFilesTest::whatIsNoFolderIsSaid()
{
    writeBytes(path(), "un fichier");
    QCOMPARE(::symlink("nulle-part", QFile::encodeName(m_folder->filePath(u"lien"_s))), 0);

    QCOMPARE(DurableFiles::makeFolder(path()), std::optional(SystemError{ENOTDIR}));
    QCOMPARE(DurableFiles::makeFolder(path() + u"/dedans"_s), std::optional(SystemError{ENOTDIR}));
    QCOMPARE(DurableFiles::makeFolder(m_folder->filePath(u"lien"_s)),
        std::optional(SystemError{ENOTDIR}));
}

void DurableFilesTest::aFileOfTheUserIsOverwrittenInPlace()
{
    writeBytes(m_folder->filePath(u"cible"_s), pattern(5000, 'o'));
    QCOMPARE(::symlink("cible", QFile::encodeName(path())), 0);

    QCOMPARE(UserFiles::overwrite(path(), "neuf"), std::nullopt);

    QVERIFY(QFileInfo(path()).isSymLink());
    QCOMPARE(bytesOf(m_folder->filePath(u"cible"_s)), "neuf"_ba);
}

void DurableFilesTest::anOverwrittenFileThatDoesNotFitIsAFailure()
{
    const auto answer = onSmallDisk(m_folder->path(), 64, [&] {
        const auto error = UserFiles::overwrite(path(), pattern(qsizetype{300} * 1024, 'n'));
        return QStringList{error ? error->description() : u"success"_s};
    });
    if (!answer)
        QSKIP("This system does not let the user mount a disk.");

    QCOMPARE(*answer, QStringList{u"Le disque est plein."_s});
}

void DurableFilesTest::aFileForWhichMemoryLacksIsRefused()
{
    if (!canLimitMemory)
        QSKIP("memory cannot be limited under the sanitizer");
    constexpr qint64 megabyte = qint64{1024} * 1024;
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(200 * megabyte));
    file.close();

    const int outcome = inLittleMemory(50 * megabyte, [&] {
        const auto read = UserFiles::read(path(), 1024 * megabyte);
        return read ? 0 : read.error().code;
    });

    QCOMPARE(outcome, ENOMEM);
}

REELHOUSE_TEST(DurableFilesTest)

#include "DurableFilesTest.moc"
