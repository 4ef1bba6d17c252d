#include "app/backup/CsvExportView.h"
#include "app/backup/ExportImportView.h"
#include "app/backup/TransferTexts.h"
#include "app/ui/Alert.h"
#include "core/preferences/Preferences.h"
#include "tests/app/backup/BackupFixture.h"
#include "tests/app/store/OtherProcess.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTimer>
#include <QtGui/QFileSystemModel>
#include <QtTest/QTest>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <fcntl.h>
#include <unistd.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class TransferScreensTest final : public QObject {
    Q_OBJECT

private slots:
    void theScreensSayWhatTheyAre_data();
    void theScreensSayWhatTheyAre();
    void theFileNameIsTheMoment();
    void anExportWritesTheDocumentNewestFirst();
    void anEmptyStockIsExportedToo();
    void aCancelledExportWritesNothing();
    void anExportReplacesTheFile();
    void aFailedExportSaysWhy_data();
    void aFailedExportSaysWhy();
    void theStoreItselfIsNeitherReadNorWritten_data();
    void theStoreItselfIsNeitherReadNorWritten();
    void aPanelOverTheStoreLeavesItsLock();
    void whatCannotBeEncodedIsToldBeforeThePanel_data();
    void whatCannotBeEncodedIsToldBeforeThePanel();
    void theImportBeginsInTheBackupFolder();
    void anImportAsksAndReplaces();
    void theTemporaryStockIsImportedWithoutABackup();
    void aCancelledImportChangesNothing();
    void aRefusedDocumentNeverAsks();
    void aFailedSafetyBackupIsToldAndNothingIsLost();
    void theCsvExportWritesTheTable();
    void theScreenMayGoWhileItReads();
};

namespace {

struct TransferFixture : BackupFixture {
    explicit TransferFixture(StoreKind kind = StoreKind::File)
        : BackupFixture(kind)
    {
    }

    Preferences preferences{folder.filePath(u"preferences.conf"_s)};
    ExportImportView view{*stock, preferences};
    CsvExportView csvView{*stock};
};

QPushButton* buttonOf(const QWidget& screen, const QString& text)
{
    for (auto* button : screen.findChildren<QPushButton*>()) {
        if (button->text() == text)
            return button;
    }
    qFatal("There is no button '%s'.", qPrintable(text));
}

/// The panel that a button opens.
QFileDialog* openedPanel(const QWidget& screen, const QString& button)
{
    buttonOf(screen, button)->click();
    auto* panel = screen.findChild<QFileDialog*>();
    if (!panel)
        qFatal("No panel was opened.");
    return panel;
}

/// Chooses a path as the user does and answers yes when asked about a file that exists.
void choose(QFileDialog* panel, const QString& path)
{
    panel->findChild<QLineEdit*>()->setText(path);
    QTimer::singleShot(0, panel, [] {
        if (auto* question = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            question && !qobject_cast<QFileDialog*>(question))
            QTest::keyClick(question, Qt::Key_O, Qt::AltModifier);
    });
    QMetaObject::invokeMethod(panel, "accept");
}

/// Waits for the line to say how it ended.
QString outcomeOf(const TransferScreen& screen)
{
    const bool ended = QTest::qWaitFor(
        [&] { return !screen.statusText().isEmpty() && !screen.statusText().endsWith(u'…'); });
    return ended ? screen.statusText() : u"(nothing)"_s;
}

Alert* askedQuestion(const QWidget& screen)
{
    if (!QTest::qWaitFor([&] { return screen.findChild<Alert*>() != nullptr; }))
        return nullptr;
    return screen.findChild<Alert*>();
}

QByteArray smallDocument()
{
    return R"({"brands":[],"filaments":[{"colorHex":"#00F","colorName":"Bleu",)"
           R"("dateAdded":"2025-03-14T09:26:53Z","notes":"","spoolsCount":1}],)"
           R"("locations":[],"ranges":[],"types":[]})";
}

} // namespace

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

void TransferScreensTest::anExportWritesTheDocumentNewestFirst()
{
    TransferFixture fixture;
    fixture.addFilament(u"Ancien"_s);
    fixture.addFilament(u"Récent"_s)
        .setDateAdded(QDateTime::fromMSecsSinceEpoch(1750000000000, Qt::UTC));
    const QString path = fixture.folder.filePath(u"export"_s);

    QFileDialog* panel = openedPanel(fixture.view, u"Exporter"_s);
    QCOMPARE(panel->windowTitle(), u"Exporter le stock"_s);
    QCOMPARE(panel->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(panel->nameFilters(), QStringList{u"Documents JSON (*.json)"_s});
    QCOMPARE(panel->windowModality(), Qt::WindowModal);
    const QString proposed = QFileInfo(panel->selectedFiles().value(0)).fileName();
    QVERIFY2(proposed.startsWith(u"stock_filaments_"_s) && proposed.endsWith(u".json"_s),
        qPrintable(proposed));
    choose(panel, path);

    QCOMPARE(outcomeOf(fixture.view), u"Export réussi ! (2 filaments)"_s);
    const QByteArray written = BackupFixture::readFile(path + u".json"_s);
    QVERIFY(written.startsWith("{\n  \"brands\" : [\n\n  ],\n  \"filaments\" : ["));
    QVERIFY(written.indexOf("Récent") < written.indexOf("Ancien"));
    QVERIFY(written.indexOf("Récent") > 0);
}

void TransferScreensTest::anEmptyStockIsExportedToo()
{
    TransferFixture fixture;
    const QString path = fixture.folder.filePath(u"export.json"_s);

    choose(openedPanel(fixture.view, u"Exporter"_s), path);

    QCOMPARE(outcomeOf(fixture.view), u"Export réussi ! (0 filaments)"_s);
    QCOMPARE(BackupFixture::readFile(path).count("[\n\n  ]"), 5);
}

void TransferScreensTest::aCancelledExportWritesNothing()
{
    TransferFixture fixture;

    QPointer<QFileDialog> panel = openedPanel(fixture.view, u"Exporter"_s);
    panel->reject();

    QTRY_VERIFY(panel.isNull());
    QCOMPARE(fixture.view.statusText(), QString());
    QVERIFY(buttonOf(fixture.view, u"Exporter"_s)->isEnabled());
    QCOMPARE(QDir(fixture.folder.path()).entryList(QDir::Files), QStringList());
}

void TransferScreensTest::anExportReplacesTheFile()
{
    TransferFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    const QString path = fixture.folder.filePath(u"export.csv"_s);
    BackupFixture::writeFile(path, QByteArray(100000, 'x'));

    QFileDialog* panel = openedPanel(fixture.csvView, u"Exporter"_s);
    panel->setOption(QFileDialog::DontConfirmOverwrite);
    choose(panel, path);

    QCOMPARE(outcomeOf(fixture.csvView), u"Export réussi ! (1 filaments)"_s);
    QVERIFY(!BackupFixture::readFile(path).contains('x'));
}

void TransferScreensTest::aFailedExportSaysWhy_data()
{
    QTest::addColumn<bool>("isCsv");

    QTest::newRow("document") << false;
    QTest::newRow("table") << true;
}

void TransferScreensTest::aFailedExportSaysWhy()
{
    QFETCH(bool, isCsv);
    TransferFixture fixture;
    TransferScreen& screen = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;

    QFileDialog* panel = openedPanel(screen, u"Exporter"_s);
    panel->setOption(QFileDialog::DontConfirmOverwrite);
    emit panel->fileSelected(u"/dev/full"_s);

    QCOMPARE(outcomeOf(screen), u"Erreur d'écriture : Ce n'est pas un fichier ordinaire."_s);
    QVERIFY(buttonOf(screen, u"Exporter"_s)->isEnabled());
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
    const QString path = folder + u'/' + name;

    for (TransferScreen* screen : {static_cast<TransferScreen*>(&fixture.view),
             static_cast<TransferScreen*>(&fixture.csvView)}) {
        emit openedPanel(*screen, u"Exporter"_s)->fileSelected(path);
        QCOMPARE(outcomeOf(*screen),
            u"Erreur d'écriture : Ce fichier appartient à la base de données de Spoolwright."_s);
    }
    fixture.view.importFile(path);
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

void TransferScreensTest::whatCannotBeEncodedIsToldBeforeThePanel_data()
{
    QTest::addColumn<bool>("isCsv");
    QTest::addColumn<QString>("expected");

    QTest::newRow("document") << false << u"Erreur lors de l'encodage des données."_s;
    QTest::newRow("table") << true << u"Erreur lors de la création du fichier."_s;
}

void TransferScreensTest::whatCannotBeEncodedIsToldBeforeThePanel()
{
    QFETCH(bool, isCsv);
    TransferFixture fixture;
    fixture.addFilament(QString(QChar(0xd83d)));
    TransferScreen& screen = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;

    buttonOf(screen, u"Exporter"_s)->click();

    QTEST(screen.statusText(), "expected");
    QVERIFY(!screen.findChild<QFileDialog*>());
}

void TransferScreensTest::theImportBeginsInTheBackupFolder()
{
    TransferFixture fixture;
    QDir().mkpath(fixture.backupFolder());

    const QFileDialog* panel = openedPanel(fixture.view, u"Importer"_s);

    QCOMPARE(panel->windowTitle(), u"Importer le stock"_s);
    QCOMPARE(panel->acceptMode(), QFileDialog::AcceptOpen);
    QCOMPARE(panel->fileMode(), QFileDialog::ExistingFile);
    QCOMPARE(panel->nameFilters(), QStringList{u"Documents JSON (*.json)"_s});
    QCOMPARE(panel->directory().absolutePath(), fixture.backupFolder());
}

void TransferScreensTest::anImportAsksAndReplaces()
{
    TransferFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    fixture.addFilament(u"Vert"_s);
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());

    choose(openedPanel(fixture.view, u"Importer"_s), path);
    Alert* alert = askedQuestion(fixture.view);
    QVERIFY(alert);
    QStringList texts;
    for (const QLabel* label : alert->findChildren<QLabel*>())
        texts << label->text();
    QVERIFY(texts.contains(u"Effacer les données existantes ?"_s));
    QVERIFY(texts.contains(
        u"L'import va effacer toutes les données actuelles (types, marques, gammes, lieux et "
        "filaments) et les remplacer par celles du fichier. Cette action est irréversible."_s));
    QCOMPARE(fixture.context().count<Filament>(), 2);
    buttonOf(*alert, u"Importer et tout remplacer"_s)->click();

    QCOMPARE(outcomeOf(fixture.view),
        u"Import réussi ! (1 filaments) — une sauvegarde de sécurité a été créée avant le "
        "remplacement."_s);
    QCOMPARE(fixture.context().count<Filament>(), 1);
    QCOMPARE(fixture.context().fetchAll<Filament>().front()->colorName(), u"Bleu"_s);
    QCOMPARE(fixture.entries().size(), 1);
}

void TransferScreensTest::theTemporaryStockIsImportedWithoutABackup()
{
    TransferFixture fixture(StoreKind::Memory);
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());

    fixture.view.importFile(path);
    Alert* alert = askedQuestion(fixture.view);
    QVERIFY(alert);
    buttonOf(*alert, u"Importer et tout remplacer"_s)->click();

    QCOMPARE(outcomeOf(fixture.view),
        u"Import réussi ! (1 filaments) — aucune sauvegarde n'a été créée (mode base temporaire)."_s);
    QCOMPARE(fixture.context().count<Filament>(), 1);
}

void TransferScreensTest::aCancelledImportChangesNothing()
{
    TransferFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    fixture.view.importFile(fixture.folder.filePath(u"absent.json"_s));
    const QString former = outcomeOf(fixture.view);
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());

    fixture.view.importFile(path);
    QPointer<Alert> alert = askedQuestion(fixture.view);
    QVERIFY(alert);
    QTest::keyClick(alert, Qt::Key_Escape);

    QTRY_VERIFY(alert.isNull());
    QCOMPARE(fixture.view.statusText(), former);
    QCOMPARE(fixture.context().fetchAll<Filament>().front()->colorName(), u"Rouge"_s);
    QCOMPARE(fixture.entries(), QStringList());
    QVERIFY(buttonOf(fixture.view, u"Importer"_s)->isEnabled());
}

void TransferScreensTest::aRefusedDocumentNeverAsks()
{
    TransferFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(
        path, smallDocument().replace("{\"brands", R"({"schemaVersion":2,"brands)"));

    fixture.view.importFile(path);

    QCOMPARE(outcomeOf(fixture.view),
        u"Erreur d'import : Ce fichier utilise un format plus récent (version 2) que cette version "
        "de l'application."_s);
    QVERIFY(!fixture.view.findChild<Alert*>());
    QCOMPARE(fixture.context().count<Filament>(), 1);
}

void TransferScreensTest::aFailedSafetyBackupIsToldAndNothingIsLost()
{
    TransferFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());
    BackupFixture::writeFile(fixture.folder.filePath(u"Spoolwright"_s), "pas un dossier");

    fixture.view.importFile(path);
    Alert* alert = askedQuestion(fixture.view);
    QVERIFY(alert);
    buttonOf(*alert, u"Importer et tout remplacer"_s)->click();

    const QString outcome = outcomeOf(fixture.view);
    QVERIFY2(outcome.startsWith(u"Erreur d'import : La sauvegarde n'a pas pu être écrite : "_s),
        qPrintable(outcome));
    QCOMPARE(fixture.context().fetchAll<Filament>().front()->colorName(), u"Rouge"_s);
}

void TransferScreensTest::theCsvExportWritesTheTable()
{
    TransferFixture fixture;
    fixture.addFilament(u"Ancien"_s);
    fixture.addFilament(u"Récent; neuf"_s)
        .setDateAdded(QDateTime::fromMSecsSinceEpoch(1750000000000, Qt::UTC));
    const QString path = fixture.folder.filePath(u"table"_s);

    QFileDialog* panel = openedPanel(fixture.csvView, u"Exporter"_s);
    QCOMPARE(panel->windowTitle(), u"Exporter le stock en CSV"_s);
    QCOMPARE(panel->nameFilters(), QStringList{u"Tableaux CSV (*.csv)"_s});
    choose(panel, path);

    QCOMPARE(outcomeOf(fixture.csvView), u"Export réussi ! (2 filaments)"_s);
    QCOMPARE(BackupFixture::readFile(path + u".csv"_s),
        QByteArray("\xef\xbb\xbf"
                   "Couleur;Nom couleur;Type;Marque;Gamme;Bobines;Entamées;Lieu;Notes\n"
                   "#E53935;\"Récent; neuf\";;;;2;1;;\n"
                   "#E53935;Ancien;;;;2;1;;\n"));
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

REELHOUSE_TEST(TransferScreensTest)

#include "TransferScreensTest.moc"
