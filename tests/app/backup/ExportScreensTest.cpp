#include "tests/app/backup/TransferFixture.h"
#include "tests/support/TestMain.h"

#include <QtWidgets/QMessageBox>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// Exports from the screens, as documents and as tables.
class ExportScreensTest final : public QObject {
    Q_OBJECT

private slots:
    void anExportWritesTheDocumentNewestFirst();
    void anEmptyStockIsExportedToo();
    void aCancelledExportWritesNothing();
    void anExportReplacesTheFile();
    void aFailedExportSaysWhy_data();
    void aFailedExportSaysWhy();
    void aNameGetsTheSuffixThatItLacks_data();
    void aNameGetsTheSuffixThatItLacks();
    void theQuestionIsAboutTheNameWithItsSuffix_data();
    void theQuestionIsAboutTheNameWithItsSuffix();
    void whileItWritesNothingElseBegins_data();
    void whileItWritesNothingElseBegins();
    void whatCannotBeEncodedIsToldBeforeThePanel_data();
    void whatCannotBeEncodedIsToldBeforeThePanel();
    void theCsvExportWritesTheTable();
};

void ExportScreensTest::anExportWritesTheDocumentNewestFirst()
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

void ExportScreensTest::anEmptyStockIsExportedToo()
{
    TransferFixture fixture;
    const QString path = fixture.folder.filePath(u"export.json"_s);

    choose(openedPanel(fixture.view, u"Exporter"_s), path);

    QCOMPARE(outcomeOf(fixture.view), u"Export réussi ! (0 filaments)"_s);
    QCOMPARE(BackupFixture::readFile(path).count("[\n\n  ]"), 5);
}

void ExportScreensTest::aCancelledExportWritesNothing()
{
    TransferFixture fixture;

    QPointer<QFileDialog> panel = openedPanel(fixture.view, u"Exporter"_s);
    panel->reject();

    QTRY_VERIFY(panel.isNull());
    QCOMPARE(fixture.view.statusText(), QString());
    QVERIFY(buttonOf(fixture.view, u"Exporter"_s)->isEnabled());
    QCOMPARE(QDir(fixture.folder.path()).entryList(QDir::Files), QStringList());
}

void ExportScreensTest::anExportReplacesTheFile()
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

void ExportScreensTest::aFailedExportSaysWhy_data()
{
    QTest::addColumn<bool>("isCsv");

    QTest::newRow("document") << false;
    QTest::newRow("table") << true;
}

void ExportScreensTest::aFailedExportSaysWhy()
{
    QFETCH(bool, isCsv);
    TransferFixture fixture;
    TransferScreen& screen = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;

    QFileDialog* panel = openedPanel(screen, u"Exporter"_s);
    panel->setOption(QFileDialog::DontConfirmOverwrite);
    const QString device = fixture.folder.filePath(isCsv ? u"lien.csv"_s : u"lien.json"_s);
    QVERIFY(QFile::link(u"/dev/full"_s, device));
    emit panel->fileSelected(device);

    QCOMPARE(outcomeOf(screen), u"Erreur d'écriture : Ce n'est pas un fichier ordinaire."_s);
    QVERIFY(buttonOf(screen, u"Exporter"_s)->isEnabled());
}

void ExportScreensTest::aNameGetsTheSuffixThatItLacks_data()
{
    QTest::addColumn<bool>("isCsv");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");

    QTest::newRow("a date") << false << u"Stock du 14.03"_s << u"Stock du 14.03.json"_s;
    QTest::newRow("another suffix") << false << u"stock.csv"_s << u"stock.csv.json"_s;
    QTest::newRow("no dot") << false << u"stock"_s << u"stock.json"_s;
    QTest::newRow("its own") << false << u"stock.json"_s << u"stock.json"_s;
    QTest::newRow("its own in capitals") << false << u"STOCK.JSON"_s << u"STOCK.JSON"_s;
    QTest::newRow("a table") << true << u"Stock du 14.03"_s << u"Stock du 14.03.csv"_s;
}

void ExportScreensTest::aNameGetsTheSuffixThatItLacks()
{
    QFETCH(bool, isCsv);
    QFETCH(QString, typed);
    TransferFixture fixture;
    TransferScreen& screen = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;

    choose(openedPanel(screen, u"Exporter"_s), fixture.folder.filePath(typed));

    QCOMPARE(outcomeOf(screen), u"Export réussi ! (0 filaments)"_s);
    QTEST(QDir(fixture.folder.path()).entryList(QDir::Files).join(u' '), "expected");
}

void ExportScreensTest::theQuestionIsAboutTheNameWithItsSuffix_data()
{
    QTest::addColumn<bool>("isNative");
    QTest::addColumn<bool>("replaces");

    QTest::newRow("Qt's panel, yes") << false << true;
    QTest::newRow("Qt's panel, no") << false << false;
    QTest::newRow("a panel of the desktop, yes") << true << true;
    QTest::newRow("a panel of the desktop, no") << true << false;
}

void ExportScreensTest::theQuestionIsAboutTheNameWithItsSuffix()
{
    QFETCH(bool, isNative);
    QFETCH(bool, replaces);
    TransferFixture fixture;
    const QString typed = fixture.folder.filePath(u"Stock du 14.03"_s);
    const QString written = typed + u".json"_s;
    BackupFixture::writeFile(typed, "un autre");
    BackupFixture::writeFile(written, "ancien");
    QPointer<QFileDialog> panel = openedPanel(fixture.view, u"Exporter"_s);
    QStringList asked;
    QTimer::singleShot(0, panel, [&] {
        auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!question)
            return;
        asked += question->text();
        question->button(replaces ? QMessageBox::Yes : QMessageBox::No)->click();
    });

    if (isNative) {
        emit panel->fileSelected(typed);
        Alert* alert = askedQuestion(fixture.view);
        QVERIFY(alert);
        asked += alert->accessibleDescription();
        buttonOf(*alert, replaces ? u"Remplacer"_s : u"Annuler"_s)->click();
    } else {
        panel->findChild<QLineEdit*>()->setText(typed);
        QMetaObject::invokeMethod(panel, "accept");
        QCOMPARE(panel && panel->isVisible(), !replaces);
    }

    QCOMPARE(asked.size(), 1);
    QVERIFY2(asked.first().contains(u"Stock du 14.03.json"_s), qPrintable(asked.first()));
    if (replaces)
        QCOMPARE(outcomeOf(fixture.view), u"Export réussi ! (0 filaments)"_s);
    else
        QCOMPARE(fixture.view.statusText(), QString());
    QCOMPARE(BackupFixture::readFile(typed), "un autre"_ba);
    QCOMPARE(BackupFixture::readFile(written) == "ancien", !replaces);
}

void ExportScreensTest::whileItWritesNothingElseBegins_data()
{
    QTest::addColumn<bool>("isCsv");

    QTest::newRow("document") << false;
    QTest::newRow("table") << true;
}

void ExportScreensTest::whileItWritesNothingElseBegins()
{
    QFETCH(bool, isCsv);
    TransferFixture fixture;
    TransferScreen& screen = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;
    QFileDialog* panel = openedPanel(screen, u"Exporter"_s);
    emit panel->fileSelected(fixture.folder.filePath(isCsv ? u"a.csv"_s : u"a.json"_s));
    delete panel;
    QVERIFY(screen.isBusy());
    QCOMPARE(screen.statusText(), u"Export en cours…"_s);

    for (QPushButton* button : screen.findChildren<QPushButton*>())
        button->click();

    QVERIFY(!screen.findChild<QFileDialog*>());
    QCOMPARE(outcomeOf(screen), u"Export réussi ! (0 filaments)"_s);
    QVERIFY(!screen.isBusy());
}

void ExportScreensTest::whatCannotBeEncodedIsToldBeforeThePanel_data()
{
    QTest::addColumn<bool>("isCsv");
    QTest::addColumn<QString>("expected");

    QTest::newRow("document") << false << u"Erreur lors de l'encodage des données."_s;
    QTest::newRow("table") << true << u"Erreur lors de la création du fichier."_s;
}

void ExportScreensTest::whatCannotBeEncodedIsToldBeforeThePanel()
{
    QFETCH(bool, isCsv);
    TransferFixture fixture;
    fixture.addFilament(QString(QChar(0xd83d)));
    TransferScreen& screen = isCsv ? static_cast<TransferScreen&>(fixture.csvView) : fixture.view;

    buttonOf(screen, u"Exporter"_s)->click();

    QTEST(screen.statusText(), "expected");
    QVERIFY(!screen.findChild<QFileDialog*>());
}

void ExportScreensTest::theCsvExportWritesTheTable()
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

REELHOUSE_TEST(ExportScreensTest)

#include "ExportScreensTest.moc"
