#include "app/store/SystemErrors.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <sqlite3.h>
#include <system_error>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SystemErrorsTest final : public QObject {
    Q_OBJECT

private slots:
    void systemErrorsAreToldInFrench_data();
    void systemErrorsAreToldInFrench();
    void sqliteErrorsAreToldInFrench_data();
    void sqliteErrorsAreToldInFrench();
};

void SystemErrorsTest::systemErrorsAreToldInFrench_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no room") << ENOSPC << u"Le disque est plein."_s;
    QTest::newRow("no right") << EACCES << u"L'accès est refusé."_s;
    QTest::newRow("no such file") << ENOENT << u"Le fichier ou le dossier n'existe pas."_s;
    // Only the system can say what this is.
    const QString itsWords = QString::fromStdString(std::generic_category().message(EXDEV));
    QTest::newRow("rare") << EXDEV << u"Le système a signalé une erreur (%1)."_s.arg(itsWords);
}

void SystemErrorsTest::systemErrorsAreToldInFrench()
{
    QFETCH(int, code);
    QTEST(SystemError{code}.description(), "expected");
}

void SystemErrorsTest::sqliteErrorsAreToldInFrench_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no room") << SQLITE_FULL << u"Le disque est plein."_s;
    QTest::newRow("an extended code")
        << SQLITE_IOERR_WRITE << u"La base de données ne peut pas être lue ou écrite."_s;
    QTest::newRow("damage is described")
        << SQLITE_CORRUPT << u"La base de données est endommagée (what was met)."_s;
    QTest::newRow("rare") << SQLITE_INTERNAL
                          << u"La base de données a signalé une erreur (what was met)."_s;
}

void SystemErrorsTest::sqliteErrorsAreToldInFrench()
{
    QFETCH(int, code);
    QTEST(describeSqliteError(code, u"what was met"_s).description(), "expected");
}

REELHOUSE_TEST(SystemErrorsTest)

#include "SystemErrorsTest.moc"
