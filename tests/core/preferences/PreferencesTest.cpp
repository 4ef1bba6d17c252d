#include "core/preferences/Preferences.h"

#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class PreferencesTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void absentFileGivesTheDefaults();
    void onlyTheTwoWordsAreBooleans_data();
    void onlyTheTwoWordsAreBooleans();
    void everySwitchHasItsOwnKey();
    void maxBackupsIsHeldInItsRange_data();
    void maxBackupsIsHeldInItsRange();
    void windowSizeNeedsTwoNumbers_data();
    void windowSizeNeedsTwoNumbers();
    void writtenValuesAreOnDiskAtOnce();
    void writtenValuesAreReadAgain();
    void favoritesAreKeptByteForByte_data();
    void favoritesAreKeptByteForByte();
    void damagedFileIsSetAsideBeforeWriting_data();
    void damagedFileIsSetAsideBeforeWriting();
    void whatStandsInPlaceOfTheFileIsSetAside_data();
    void whatStandsInPlaceOfTheFileIsSetAside();
    void readingAloneTouchesNothing();
    void damageDuringTheRunLosesNoValue();
    void twoDamagedFilesAreBothKept();
    void valueThatCannotBeWrittenStillCounts();
    void linkedFileStaysALink();
    void userFileIsNamedAfterTheProgram();

private:
    void writeFile(const QByteArray& content) const;
    QByteArray readFile(const QString& path) const;
    QStringList filesSetAside() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void PreferencesTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"Spoolwright/Spoolwright.ini"_s);
}

void PreferencesTest::writeFile(const QByteArray& content) const
{
    QVERIFY(QDir().mkpath(QFileInfo(m_path).path()));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray PreferencesTest::readFile(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "unreadable";
}

/// What lies beside the file, without a lock that would be a mistake of its own.
QStringList PreferencesTest::filesSetAside() const
{
    QStringList names
        = QDir(QFileInfo(m_path).path())
              .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    names.removeOne(QFileInfo(m_path).fileName());
    return names;
}

void PreferencesTest::absentFileGivesTheDefaults()
{
    const Preferences preferences(m_path);

    QVERIFY(preferences.confirmOnQuit());
    QVERIFY(preferences.autoBackupOnLaunch());
    QVERIFY(preferences.autoBackupOnQuit());
    QVERIFY(preferences.rememberWindowState());
    QVERIFY(!preferences.didSeedSampleData());
    QCOMPARE(preferences.maxBackups(), 20);
    QVERIFY(!preferences.windowSize());
    QCOMPARE(preferences.viewMode(), QString());
    QCOMPARE(preferences.filterFavorites(), QByteArray());
    QVERIFY(!QFile::exists(m_path));
}

void PreferencesTest::onlyTheTwoWordsAreBooleans_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<bool>("expectedConfirm"); // Whose default is true.
    QTest::addColumn<bool>("expectedSeeded"); // Whose default is false.

    QTest::newRow("true") << QByteArray("true") << true << true;
    QTest::newRow("false") << QByteArray("false") << false << false;
    QTest::newRow("one") << QByteArray("1") << true << false;
    QTest::newRow("zero") << QByteArray("0") << true << false;
    QTest::newRow("a word") << QByteArray("yes") << true << false;
    QTest::newRow("another case") << QByteArray("False") << true << false;
    QTest::newRow("nothing") << QByteArray("") << true << false;
    QTest::newRow("a list") << QByteArray("false, false") << true << false;
    QTest::newRow("bytes") << QByteArray("@ByteArray(false)") << true << false;
    QTest::newRow("invalid") << QByteArray("@Invalid()") << true << false;
}

void PreferencesTest::onlyTheTwoWordsAreBooleans()
{
    QFETCH(QByteArray, stored);
    QFETCH(bool, expectedConfirm);
    QFETCH(bool, expectedSeeded);
    writeFile("[General]\nconfirmOnQuit=" + stored + "\ndidSeedSampleData=" + stored + "\n");

    const Preferences preferences(m_path);

    QCOMPARE(preferences.confirmOnQuit(), expectedConfirm);
    QCOMPARE(preferences.didSeedSampleData(), expectedSeeded);
}

void PreferencesTest::everySwitchHasItsOwnKey()
{
    const auto content
        = [](const char* key) { return QByteArray("[General]\n") + key + "=false\n"; };
    writeFile(content("confirmOnQuit"));
    QVERIFY(!Preferences(m_path).confirmOnQuit());
    writeFile(content("autoBackupOnLaunch"));
    QVERIFY(!Preferences(m_path).autoBackupOnLaunch());
    writeFile(content("autoBackupOnQuit"));
    QVERIFY(!Preferences(m_path).autoBackupOnQuit());
    writeFile(content("rememberWindowState"));
    QVERIFY(!Preferences(m_path).rememberWindowState());
    QVERIFY(Preferences(m_path).confirmOnQuit());
}

void PreferencesTest::maxBackupsIsHeldInItsRange_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<int>("expected");

    QTest::newRow("within") << QByteArray("7") << 7;
    QTest::newRow("least") << QByteArray("1") << 1;
    QTest::newRow("most") << QByteArray("100") << 100;
    QTest::newRow("zero") << QByteArray("0") << 1;
    QTest::newRow("negative") << QByteArray("-5") << 1;
    QTest::newRow("too many") << QByteArray("250") << 100;
    QTest::newRow("beyond 64 bits") << QByteArray("99999999999999999999") << 100;
    QTest::newRow("with a fraction") << QByteArray("12.9") << 12;
    QTest::newRow("no number") << QByteArray("beaucoup") << 1;
    QTest::newRow("nan") << QByteArray("nan") << 1;
    QTest::newRow("inf") << QByteArray("inf") << 1;
    QTest::newRow("nothing") << QByteArray("") << 1;
    QTest::newRow("a list") << QByteArray("7, 8") << 1;
}

void PreferencesTest::maxBackupsIsHeldInItsRange()
{
    QFETCH(QByteArray, stored);
    QFETCH(int, expected);
    writeFile("[General]\nmaxBackups=" + stored + "\n");

    QCOMPARE(Preferences(m_path).maxBackups(), expected);
}

void PreferencesTest::windowSizeNeedsTwoNumbers_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QSizeF>("expected"); // Invalid for none.

    QTest::newRow("both") << QByteArray("windowWidth=1400.5\nwindowHeight=900\n")
                          << QSizeF(1400.5, 900);
    QTest::newRow("beyond every window")
        << QByteArray("windowWidth=1e300\nwindowHeight=900\n") << QSizeF(16777215, 900);
    QTest::newRow("width alone") << QByteArray("windowWidth=1400\n") << QSizeF();
    QTest::newRow("height alone") << QByteArray("windowHeight=900\n") << QSizeF();
    QTest::newRow("nan") << QByteArray("windowWidth=nan\nwindowHeight=900\n") << QSizeF();
    QTest::newRow("inf") << QByteArray("windowWidth=1400\nwindowHeight=inf\n") << QSizeF();
    QTest::newRow("a word") << QByteArray("windowWidth=large\nwindowHeight=900\n") << QSizeF();
    QTest::newRow("a unit") << QByteArray("windowWidth=1400px\nwindowHeight=900\n") << QSizeF();
    QTest::newRow("a decimal comma")
        << QByteArray("windowWidth=\"1400,5\"\nwindowHeight=900\n") << QSizeF();
    QTest::newRow("nothing") << QByteArray("windowWidth=\nwindowHeight=900\n") << QSizeF();
    QTest::newRow("zero") << QByteArray("windowWidth=0\nwindowHeight=900\n") << QSizeF();
    QTest::newRow("negative") << QByteArray("windowWidth=1400\nwindowHeight=-9\n") << QSizeF();
}

void PreferencesTest::windowSizeNeedsTwoNumbers()
{
    QFETCH(QByteArray, stored);
    QFETCH(QSizeF, expected);
    writeFile("[General]\n" + stored);

    QCOMPARE(Preferences(m_path).windowSize().value_or(QSizeF()), expected);
}

void PreferencesTest::writtenValuesAreOnDiskAtOnce()
{
    Preferences preferences(m_path);

    preferences.setConfirmOnQuit(false);
    QCOMPARE(readFile(m_path), QByteArray("[General]\nconfirmOnQuit=false\n"));

    preferences.setAutoBackupOnLaunch(false);
    preferences.setAutoBackupOnQuit(true);
    preferences.setRememberWindowState(true);
    preferences.setDidSeedSampleData(true);
    preferences.setMaxBackups(30);
    preferences.setWindowSize({1300, 850.5});
    preferences.setViewMode(u"Cartes"_s);
    preferences.setFilterFavorites("[{\"name\":\"\xC3\x89t\xC3\xA9\"}]");
    QCOMPARE(readFile(m_path),
        QByteArray("[General]\n"
                   "autoBackupOnLaunch=false\n"
                   "autoBackupOnQuit=true\n"
                   "confirmOnQuit=false\n"
                   "didSeedSampleData=true\n"
                   "filterFavorites=@ByteArray([{\\\"name\\\":\\\"\\xc3\\x89t\\xc3\\xa9\\\"}])\n"
                   "maxBackups=30\n"
                   "rememberWindowState=true\n"
                   "viewMode=Cartes\n"
                   "windowHeight=850.5\n"
                   "windowWidth=1300\n"));
    QCOMPARE(filesSetAside(), QStringList());
}

void PreferencesTest::writtenValuesAreReadAgain()
{
    Preferences writer(m_path);
    writer.setConfirmOnQuit(false);
    writer.setDidSeedSampleData(true);
    writer.setMaxBackups(3);
    writer.setWindowSize({1100, 800});
    writer.setViewMode(u"Stats"_s);
    QVERIFY(!writer.confirmOnQuit());
    QCOMPARE(writer.maxBackups(), 3);
    QCOMPARE(writer.windowSize(), QSizeF(1100, 800));

    const Preferences reader(m_path);

    QVERIFY(!reader.confirmOnQuit());
    QVERIFY(reader.didSeedSampleData());
    QCOMPARE(reader.maxBackups(), 3);
    QCOMPARE(reader.windowSize(), QSizeF(1100, 800));
    QCOMPARE(reader.viewMode(), u"Stats"_s);
}

void PreferencesTest::favoritesAreKeptByteForByte_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("a document") << QByteArray(R"([{"name":"PLA, rouge; 100 %","n":1}])");
    QTest::newRow("every byte") << [] {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte)
            bytes += char(byte);
        return bytes;
    }();
    QTest::newRow("looks like a type") << QByteArray("@ByteArray(x)");
    QTest::newRow("line breaks and brackets") << QByteArray("[General]\r\nmaxBackups=1\n)");
    QTest::newRow("empty") << QByteArray("");
}

void PreferencesTest::favoritesAreKeptByteForByte()
{
    QFETCH(QByteArray, bytes);
    Preferences(m_path).setFilterFavorites(bytes);

    Preferences again(m_path);
    QCOMPARE(again.filterFavorites(), bytes);
    again.setMaxBackups(5);

    QCOMPARE(Preferences(m_path).filterFavorites(), bytes);
    QCOMPARE(filesSetAside(), QStringList());
}

void PreferencesTest::damagedFileIsSetAsideBeforeWriting_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("a line that is no value")
        << QByteArray("[General]\nconfirmOnQuit=false\noops\n");
    QTest::newRow("binary") << QByteArray("\x7F\x45LF\x02\x01=\x00\x00\xFF\xFE", 12);
    QTest::newRow("nulls, as after a power cut") << QByteArray(64, '\0');
    QTest::newRow("not UTF-8") << QByteArray("[General]\nviewMode=\xE9\n");
    QTest::newRow("another kind of document") << QByteArray("{\"confirmOnQuit\": false}\n");
}

void PreferencesTest::damagedFileIsSetAsideBeforeWriting()
{
    QFETCH(QByteArray, content);
    writeFile(content);

    Preferences preferences(m_path);
    QVERIFY(preferences.confirmOnQuit());
    QCOMPARE(preferences.viewMode(), QString());
    QCOMPARE(readFile(m_path), content);
    preferences.setMaxBackups(7);

    QCOMPARE(readFile(m_path), QByteArray("[General]\nmaxBackups=7\n"));
    QCOMPARE(filesSetAside().size(), 1);
    const QString name = filesSetAside().constFirst();
    QVERIFY2(QRegularExpression(u"^Spoolwright\\.ini\\.damaged-20[0-9]{6}-[0-9]{6}-[0-9]{3}$"_s)
                 .match(name)
                 .hasMatch(),
        qPrintable(name));
    QCOMPARE(readFile(QFileInfo(m_path).dir().filePath(name)), content);
}

void PreferencesTest::whatStandsInPlaceOfTheFileIsSetAside_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("a folder") << u"folder"_s;
    QTest::newRow("a pipe") << u"pipe"_s;
    QTest::newRow("a file that must not be read") << u"unreadable"_s;
}

void PreferencesTest::whatStandsInPlaceOfTheFileIsSetAside()
{
    QFETCH(QString, kind);
    if (kind == u"folder") {
        QVERIFY(QDir().mkpath(m_path + u"/inside"_s));
    } else if (kind == u"pipe") {
        QVERIFY(QDir().mkpath(QFileInfo(m_path).path()));
        QCOMPARE(::mkfifo(qPrintable(m_path), 0600), 0);
    } else {
        if (::geteuid() == 0)
            QSKIP("Root reads every file.");
        writeFile("[General]\nmaxBackups=3\n");
        QVERIFY(QFile::setPermissions(m_path, QFile::Permissions()));
    }

    Preferences preferences(m_path);
    QCOMPARE(preferences.maxBackups(), 20);
    preferences.setMaxBackups(7);

    QCOMPARE(readFile(m_path), QByteArray("[General]\nmaxBackups=7\n"));
    QCOMPARE(filesSetAside().size(), 1);
}

void PreferencesTest::readingAloneTouchesNothing()
{
    const QByteArray content = "; mine\n[General]\nviewMode=Liste\nunknown=1\n";
    writeFile(content);

    QCOMPARE(Preferences(m_path).viewMode(), u"Liste"_s);

    QCOMPARE(readFile(m_path), content);
    QCOMPARE(filesSetAside(), QStringList());
}

void PreferencesTest::damageDuringTheRunLosesNoValue()
{
    Preferences preferences(m_path);
    preferences.setViewMode(u"Stats"_s);
    writeFile("garbage");

    preferences.setMaxBackups(7);

    QCOMPARE(readFile(m_path), QByteArray("[General]\nmaxBackups=7\nviewMode=Stats\n"));
    QCOMPARE(filesSetAside().size(), 1);
}

void PreferencesTest::twoDamagedFilesAreBothKept()
{
    for (const int count : {1, 2, 3}) {
        writeFile("garbage");
        Preferences(m_path).setMaxBackups(count);
    }

    QCOMPARE(filesSetAside().size(), 3);
}

void PreferencesTest::valueThatCannotBeWrittenStillCounts()
{
    // A file stands where the folder should be.
    QFile obstacle(QFileInfo(m_path).path());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    Preferences preferences(m_path);

    preferences.setDidSeedSampleData(true);
    QVERIFY(preferences.didSeedSampleData());
    QVERIFY(obstacle.remove());
    preferences.setMaxBackups(7);

    QCOMPARE(readFile(m_path), QByteArray("[General]\ndidSeedSampleData=true\nmaxBackups=7\n"));
}

void PreferencesTest::linkedFileStaysALink()
{
    const QString target = m_folder->filePath(u"elsewhere.ini"_s);
    QVERIFY(QDir().mkpath(QFileInfo(m_path).path()));
    QVERIFY(QFile::link(target, m_path));

    Preferences(m_path).setMaxBackups(7);

    QVERIFY(QFileInfo(m_path).isSymLink());
    QCOMPARE(readFile(target), QByteArray("[General]\nmaxBackups=7\n"));
}

void PreferencesTest::userFileIsNamedAfterTheProgram()
{
    QStandardPaths::setTestModeEnabled(true);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QCOMPARE(Preferences::userFilePath(), folder + u"/Spoolwright/Spoolwright.ini"_s);
    QStandardPaths::setTestModeEnabled(false);
}

REELHOUSE_TEST(PreferencesTest)

#include "PreferencesTest.moc"
