#include "app/shell/FileBrowser.h"

#include "tests/support/TestMain.h"

#include <QtCore/QUuid>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServer>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FileBrowserTest final : public QObject {
    Q_OBJECT

private slots:
    void theFileManagerIsAskedToShowTheFile();
    void whereNobodyAnswersTheFolderIsOpened();
    void withoutABusTheFolderIsOpened();
};

namespace {

const QString shownFile = u"/tmp/Mes documents/Spoolwright.store"_s;

} // namespace

/// The desktop's file manager, reached over a connection of its own instead of a bus.
class FakeFileManager final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    explicit FakeFileManager(bool answers)
        : m_answers(answers)
        , m_server(u"unix:tmpdir=/tmp"_s)
        , m_name(QUuid::createUuid().toString())
    {
        connect(&m_server, &QDBusServer::newConnection, this, &FakeFileManager::welcome);
        QDBusConnection::connectToPeer(m_server.address(), m_name);
    }
    ~FakeFileManager() override { QDBusConnection::disconnectFromPeer(m_name); }

    QDBusConnection bus() const { return QDBusConnection(m_name); }
    const QStringList& shown() const { return m_shown; }

public slots:
    void ShowItems(const QStringList& files, const QString& /*startupId*/) // NOLINT: its spelling
    {
        m_shown += files;
    }

private:
    void welcome(QDBusConnection connection)
    {
        if (m_answers)
            connection.registerObject(
                u"/org/freedesktop/FileManager1"_s, this, QDBusConnection::ExportAllSlots);
    }

    bool m_answers;
    QStringList m_shown;
    QDBusServer m_server;
    QString m_name;
};

void FileBrowserTest::theFileManagerIsAskedToShowTheFile()
{
    const FakeFileManager manager(true);
    QStringList opened;

    FileBrowser::showFile(
        shownFile, manager.bus(), [&](const QString& folder) { opened += folder; });

    QTRY_COMPARE(manager.shown(), QStringList{u"file:///tmp/Mes documents/Spoolwright.store"_s});
    QCOMPARE(opened, QStringList());
}

void FileBrowserTest::whereNobodyAnswersTheFolderIsOpened()
{
    const FakeFileManager manager(false);
    QStringList opened;

    FileBrowser::showFile(
        shownFile, manager.bus(), [&](const QString& folder) { opened += folder; });

    QTRY_COMPARE(opened, QStringList{u"/tmp/Mes documents"_s});
}

void FileBrowserTest::withoutABusTheFolderIsOpened()
{
    QStringList opened;

    FileBrowser::showFile(
        shownFile, QDBusConnection(u"none"_s), [&](const QString& folder) { opened += folder; });

    QCOMPARE(opened, QStringList{u"/tmp/Mes documents"_s});
}

REELHOUSE_TEST(FileBrowserTest)

#include "FileBrowserTest.moc"
