#include "app/backup/TransferTexts.h"
#include "tests/app/backup/TransferFixture.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/support/TestMain.h"

#include <QtCore/QThreadPool>
#include <QtGui/QFileSystemModel>
#include <QtWidgets/QLabel>

#include <fcntl.h>
#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// What the screens for exports and imports have in common.
class TransferScreensTest final : public QObject {
    Q_OBJECT

private slots:
    void theScreensSayWhatTheyAre_data();
    void theScreensSayWhatTheyAre();
    void theFileNameIsTheMoment();
    void theStoreItselfIsNeitherReadNorWritten_data();
    void theStoreItselfIsNeitherReadNorWritten();
    void aPanelOverTheStoreLeavesItsLock();
    void tabGoesFromTheButtonsToTheStatus();
    void theScreenMayGoWhileItReads();
    void whoLeftTheScreenIsToldOfAFailedExport_data();
    void whoLeftTheScreenIsToldOfAFailedExport();
};

void TransferScreensTest::theScreensSayWhatTheyAre_data()
{
    QTest::addColumn<bool>("isCsv");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("buttons");

    QTest::newRow("documents")
        << false
        << QStringList{u"Export et Import"_s,
               u"Sauvegardez ou restaurez l'intégralité\nde votre stock de filaments au format JSON."_s}
        << QStringList{u"Exporter"_s, u"Importer"_s};
    QTest::newRow("tables")
        << true
        << QStringList{u"Export CSV"_s,
               u"Exportez votre stock de filaments\nau format CSV, compatible tableurs (Excel, Numbers…)."_s}
        << QStringList{u"Exporter"_s};
}

void TransferScreensTest::theScreensSayWhatTheyAre()
{
    QFETCH(bool, isCsv);
    TransferFixture fixture;
    TransferScreen& screen = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;
    screen.show();

    QStringList texts;
    for (const QLabel* label : screen.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
        texts << label->text();
    QStringList buttons;
    for (const QPushButton* button : screen.findChildren<QPushButton*>()) {
        buttons << button->text();
        QVERIFY(!button->icon().isNull());
        QVERIFY(button->focusPolicy() & Qt::TabFocus);
    }

    texts.removeAll({});
    QTEST(texts, "texts");
    QTEST(buttons, "buttons");
    QCOMPARE(screen.statusText(), QString());
}

void TransferScreensTest::theFileNameIsTheMoment()
{
    const QDateTime moment(QDate(2025, 3, 14), QTime(9, 26, 53, 750));

    QCOMPARE(TransferTexts::proposedFileName(u"json"_s, moment),
        u"stock_filaments_2025-03-14_092653.json"_s);
    QCOMPARE(TransferTexts::proposedFileName(u"csv"_s, moment),
        u"stock_filaments_2025-03-14_092653.csv"_s);
}

void TransferScreensTest::theStoreItselfIsNeitherReadNorWritten_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("the store") << u"Spoolwright.store"_s;
    QTest::newRow("its journal, not there yet") << u"Spoolwright.store-journal"_s;
    QTest::newRow("by a link") << u"lien.json"_s;
}

void TransferScreensTest::theStoreItselfIsNeitherReadNorWritten()
{
    QFETCH(QString, name);
    TransferFixture fixture;
    const QString store = fixture.stock->storeFile();
    const QString folder = QFileInfo(store).path();
    QVERIFY(QDir().mkpath(QFileInfo(store).path()));
    BackupFixture::writeFile(store, "le stock");
    QVERIFY(QFile::link(store, folder + u"/lien.json"_s));
    QVERIFY(QFile::link(store, folder + u"/lien.csv"_s));

    const QString refused
        = u"Erreur d'écriture : Ce fichier appartient à la base de données de Spoolwright."_s;
    emit openedPanel(fixture.view, u"Exporter"_s)->fileSelected(folder + u"/lien.json"_s);
    QCOMPARE(outcomeOf(fixture.view), refused);
    emit openedPanel(fixture.csvView, u"Exporter"_s)->fileSelected(folder + u"/lien.csv"_s);
    QCOMPARE(outcomeOf(fixture.csvView), refused);
    fixture.view.importFile(folder + u'/' + name);
    QCOMPARE(outcomeOf(fixture.view),
        u"Erreur d'import : Ce fichier appartient à la base de données de Spoolwright."_s);

    QFile kept(store);
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), "le stock"_ba);
}

void TransferScreensTest::aPanelOverTheStoreLeavesItsLock()
{
    TransferFixture fixture;
    const QString store = fixture.stock->storeFile();
    QVERIFY(QDir().mkpath(QFileInfo(store).path()));
    BackupFixture::writeFile(store, "le stock");
    QFile held(store);
    QVERIFY(held.open(QIODevice::ReadWrite));
    struct flock lock {};
    lock.l_type = F_WRLCK;
    QCOMPARE(::fcntl(held.handle(), F_SETLK, &lock), 0);

    QFileDialog* panel = openedPanel(fixture.view, u"Importer"_s);
    panel->setNameFilter(u"(*)"_s);
    panel->setDirectory(QFileInfo(store).path());
    const auto* files = panel->findChild<QFileSystemModel*>();
    QTRY_COMPARE(files->type(files->index(store)), u"Fichier STORE"_s);

    // Whoever opened and closed the file in this process would have given the lock up.
    OtherProcess other([&](const OtherProcess::Report& report) {
        QFile file(store);
        struct flock wanted {};
        wanted.l_type = F_WRLCK;
        if (file.open(QIODevice::ReadWrite) && ::fcntl(file.handle(), F_SETLK, &wanted) != 0)
            report();
        else
            ::_exit(1);
    });
    other.waitForReport();
}

void TransferScreensTest::tabGoesFromTheButtonsToTheStatus()
{
    TransferFixture fixture;
    QWidget window;
    auto* outside = new QPushButton(u"Ailleurs"_s, &window);
    fixture.view.setParent(&window);
    window.show();
    QTRY_COMPARE(QApplication::activeWindow(), &window);
    fixture.view.importFile(fixture.folder.filePath(u"absent.json"_s));
    QVERIFY(outcomeOf(fixture.view).startsWith(u"Erreur d'import : "_s));
    outside->setFocus();

    QList<QWidget*> stops;
    for (int press = 0; press < 4; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        stops << QApplication::focusWidget();
    }

    QWidget* status = fixture.view.findChild<StatusLine*>()->findChild<QLabel*>();
    fixture.view.setParent(nullptr);
    QCOMPARE(stops,
        QList<QWidget*>({buttonOf(fixture.view, u"Exporter"_s),
            buttonOf(fixture.view, u"Importer"_s), status, outside}));
}

void TransferScreensTest::theScreenMayGoWhileItReads()
{
    BackupFixture fixture;
    const Preferences preferences(fixture.folder.filePath(u"preferences.conf"_s));
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());
    {
        ExportImportView view(*fixture.stock, preferences);
        view.importFile(path);
    }
    QTest::qWait(50);
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void TransferScreensTest::whoLeftTheScreenIsToldOfAFailedExport_data()
{
    QTest::addColumn<QString>("target"); // Of the link that is written to.
    QTest::addColumn<bool>("isGone"); // Or hidden, about to go.
    QTest::addColumn<QStringList>("told");

    const QStringList failure{u"L'export vers « lien.csv » a échoué"_s,
        u"Erreur d'écriture : Ce n'est pas un fichier ordinaire."_s};
    QTest::newRow("failed, gone") << u"/dev/full"_s << true << failure;
    QTest::newRow("failed, hidden") << u"/dev/full"_s << false << failure;
    QTest::newRow("written, gone") << u"table"_s << true << QStringList();
    QTest::newRow("written, hidden") << u"table"_s << false << QStringList();
}

void TransferScreensTest::whoLeftTheScreenIsToldOfAFailedExport()
{
    QFETCH(QString, target);
    QFETCH(bool, isGone);
    BackupFixture fixture;
    const QString path = fixture.folder.filePath(u"lien.csv"_s);
    QVERIFY(QFile::link(target, path));
    QWidget window;
    auto* screen = new CsvExportView(*fixture.stock, &window);
    window.show();

    emit openedPanel(*screen, u"Exporter"_s)->fileSelected(path);
    if (isGone)
        delete screen;
    else
        screen->hide();
    QThreadPool::globalInstance()->waitForDone();
    QTest::qWait(20);

    QStringList told;
    if (const auto* alert = window.findChild<Alert*>()) {
        QVERIFY(alert->isVisible());
        told = {alert->windowTitle(), alert->accessibleDescription()};
    }
    QTEST(told, "told");
}

REELHOUSE_TEST(TransferScreensTest)

#include "TransferScreensTest.moc"
