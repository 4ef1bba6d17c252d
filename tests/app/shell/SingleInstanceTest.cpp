#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <array>
#include <csignal>
#include <memory>

using namespace Qt::StringLiterals;

namespace reelhouse {

/// Starts small programs that do nothing but hold a data folder.
class SingleInstanceTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theFirstCreatesTheFolderAndHoldsIt();
    void aLaterOneEndsAndHandsItsTokenOver_data();
    void aLaterOneEndsAndHandsItsTokenOver();
    void aLaterOneWritesNothing();
    void afterAKillTheNextOneIsTheFirst();
    void afterAnEndTheNextOneIsTheFirst();
    void ofManyStartedAtOnceOneStays();
    void foldersAreIndependent();
    void aStalledFirstIsNotWaitedForForever();
    void aFolderThatCannotExistStopsNobody();
    void whatLiesInPlaceOfTheFilesStopsNobody();

private:
    using Program = std::unique_ptr<QProcess>;

    static Program start(const QString& folder, const QStringList& environment = {});
    static QByteArray readLine(QProcess& program);
    static QMap<QString, QDateTime> filesIn(const QString& folder);

    std::unique_ptr<QTemporaryDir> m_home;
    QString m_folder;
};

void SingleInstanceTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    m_folder = m_home->filePath(u"Documents/Spoolwright"_s);
}

SingleInstanceTest::Program SingleInstanceTest::start(
    const QString& folder, const QStringList& environment)
{
    // Killed when a test fails in the middle: nothing is left running.
    auto program = std::make_unique<QProcess>();
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.remove(u"XDG_ACTIVATION_TOKEN"_s);
    variables.remove(u"DESKTOP_STARTUP_ID"_s);
    for (const QString& variable : environment)
        variables.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    program->setProcessEnvironment(variables);
    program->start(QCoreApplication::applicationDirPath() + u"/instance-program"_s, {folder});
    return program;
}

/// Waits for the next line of what the program says; empty when it ends without saying more.
QByteArray SingleInstanceTest::readLine(QProcess& program)
{
    while (!program.canReadLine()) {
        if (!program.waitForReadyRead(20000))
            return {};
    }
    return program.readLine().trimmed();
}

QMap<QString, QDateTime> SingleInstanceTest::filesIn(const QString& folder)
{
    QMap<QString, QDateTime> files;
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo& file : QDir(folder).entryInfoList(everything))
        files.insert(file.fileName(), file.lastModified());
    return files;
}

void SingleInstanceTest::theFirstCreatesTheFolderAndHoldsIt()
{
    const Program first = start(m_folder);

    QCOMPARE(readLine(*first), "first");
    QVERIFY(QDir(m_folder).exists());
    QCOMPARE(first->state(), QProcess::Running);
}

void SingleInstanceTest::aLaterOneEndsAndHandsItsTokenOver_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<QByteArray>("heard");

    const QString plain = u"Documents/Spoolwright"_s;
    QTest::newRow("no token") << plain << QStringList() << QByteArray("raise");
    QTest::newRow("a Wayland token")
        << plain << QStringList{u"XDG_ACTIVATION_TOKEN=abc-1"_s} << QByteArray("raise abc-1");
    QTest::newRow("an X11 start-up identity")
        << plain << QStringList{u"DESKTOP_STARTUP_ID=panel_TIME42"_s}
        << QByteArray("raise panel_TIME42");
    QTest::newRow("both: the Wayland one counts")
        << plain
        << QStringList{u"XDG_ACTIVATION_TOKEN=abc-1"_s, u"DESKTOP_STARTUP_ID=panel_TIME42"_s}
        << QByteArray("raise abc-1");
    QTest::newRow("a path longer than the address of a socket")
        << QString(u"é"_s.repeated(100) + u"/"_s + u"d"_s.repeated(200)) << QStringList()
        << QByteArray("raise");
}

void SingleInstanceTest::aLaterOneEndsAndHandsItsTokenOver()
{
    QFETCH(QString, folder);
    QFETCH(QStringList, environment);
    QFETCH(QByteArray, heard);
    const Program first = start(m_home->filePath(folder));
    QCOMPARE(readLine(*first), "first");

    const Program later = start(m_home->filePath(folder), environment);

    QCOMPARE(readLine(*later), "later");
    QVERIFY(later->waitForFinished());
    QCOMPARE(later->exitCode(), 0);
    QCOMPARE(readLine(*first), heard);
    QCOMPARE(first->state(), QProcess::Running);
}

void SingleInstanceTest::aLaterOneWritesNothing()
{
    const Program first = start(m_folder);
    QCOMPARE(readLine(*first), "first");
    const auto before = filesIn(m_folder);

    const Program later = start(m_folder);
    QVERIFY(later->waitForFinished());

    QCOMPARE(filesIn(m_folder), before);
    QCOMPARE(QDir(m_home->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList{u"Documents"_s});
}

void SingleInstanceTest::afterAKillTheNextOneIsTheFirst()
{
    for (int round = 0; round < 3; ++round) {
        const Program killed = start(m_folder);
        QCOMPARE(readLine(*killed), "first");
        killed->kill();
        QVERIFY(killed->waitForFinished());
    }

    const Program next = start(m_folder);
    QCOMPARE(readLine(*next), "first");
    const Program later = start(m_folder);
    QCOMPARE(readLine(*later), "later");
    QCOMPARE(readLine(*next), "raise");
}

void SingleInstanceTest::afterAnEndTheNextOneIsTheFirst()
{
    const Program ended = start(m_folder);
    QCOMPARE(readLine(*ended), "first");
    // While it no longer answers, a later one waits and then takes its place.
    kill(static_cast<pid_t>(ended->processId()), SIGSTOP);
    const Program next = start(m_folder);
    QVERIFY(!next->waitForReadyRead(300));
    ended->kill();

    QCOMPARE(readLine(*next), "first");
}

void SingleInstanceTest::ofManyStartedAtOnceOneStays()
{
    for (int round = 0; round < 5; ++round) {
        std::array<Program, 4> programs;
        for (Program& program : programs)
            program = start(m_folder);

        QList<QByteArray> said;
        for (const Program& program : programs)
            said.append(readLine(*program));

        QCOMPARE(said.count("first"), 1);
        QCOMPARE(said.count("later"), 3);
        const auto stays = std::size_t(said.indexOf("first"));
        for (int index = 0; index < 3; ++index)
            QCOMPARE(readLine(*programs[stays]), "raise");
    }
}

void SingleInstanceTest::foldersAreIndependent()
{
    const Program one = start(m_folder);
    QCOMPARE(readLine(*one), "first");

    const Program other = start(m_home->filePath(u"Elsewhere"_s));

    QCOMPARE(readLine(*other), "first");
}

void SingleInstanceTest::aStalledFirstIsNotWaitedForForever()
{
    const Program stalled = start(m_folder);
    QCOMPARE(readLine(*stalled), "first");
    kill(static_cast<pid_t>(stalled->processId()), SIGSTOP);

    const Program later = start(m_folder);

    QCOMPARE(readLine(*later), "later");
    QVERIFY(later->waitForFinished());
    QCOMPARE(later->exitCode(), 0);
}

void SingleInstanceTest::aFolderThatCannotExistStopsNobody()
{
    QFile file(m_home->filePath(u"Documents"_s));
    QVERIFY(file.open(QFile::WriteOnly));

    const Program one = start(m_folder);
    const Program other = start(m_folder);

    QCOMPARE(readLine(*one), "first");
    QCOMPARE(readLine(*other), "first");
}

void SingleInstanceTest::whatLiesInPlaceOfTheFilesStopsNobody()
{
    QVERIFY(QDir().mkpath(m_folder + u"/.Spoolwright.lock"_s));
    QVERIFY(QDir().mkpath(m_folder + u"/.Spoolwright.socket"_s));

    const Program one = start(m_folder);

    QCOMPARE(readLine(*one), "first");
}

} // namespace reelhouse

using reelhouse::SingleInstanceTest;
REELHOUSE_TEST(SingleInstanceTest)

#include "SingleInstanceTest.moc"
