#include "tests/app/backup/TransferFixture.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtWidgets/QLabel>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// Imports from the screen.
class ImportScreenTest final : public QObject {
    Q_OBJECT

private slots:
    void theImportBeginsInTheBackupFolder();
    void anImportAsksAndReplaces();
    void theTemporaryStockIsImportedWithoutABackup();
    void aCancelledImportChangesNothing();
    void aRefusedDocumentNeverAsks();
    void aFailedSafetyBackupIsToldAndNothingIsLost();
    void aFailedSaveIsTold();
    void anImportKeepsAsManyBackupsAsTheUserWants();
    void theWorkIsToldBeforeItBegins();
    void whileItReadsNothingElseBegins();
};

void ImportScreenTest::theImportBeginsInTheBackupFolder()
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

void ImportScreenTest::anImportAsksAndReplaces()
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

void ImportScreenTest::theTemporaryStockIsImportedWithoutABackup()
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

void ImportScreenTest::aCancelledImportChangesNothing()
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

void ImportScreenTest::aRefusedDocumentNeverAsks()
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

void ImportScreenTest::aFailedSafetyBackupIsToldAndNothingIsLost()
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

void ImportScreenTest::aFailedSaveIsTold()
{
    BackupFixture fixture;
    auto recording = std::make_unique<RecordingStore>();
    RecordingStore& store = *recording;
    fixture.stock = std::move(
        StoreContainer::load(std::move(recording), StoreKind::File, fixture.stock->storeFile())
            .value());
    const Preferences preferences(fixture.folder.filePath(u"preferences.conf"_s));
    ExportImportView view(*fixture.stock, preferences);
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());
    store.error = StoreError{u"Le disque est plein."_s};

    view.importFile(path);
    confirmImport(view);

    QCOMPARE(outcomeOf(view), u"Erreur d'import : Le disque est plein."_s);
    QCOMPARE(fixture.entries().size(), 1);
}

void ImportScreenTest::anImportKeepsAsManyBackupsAsTheUserWants()
{
    TransferFixture fixture;
    fixture.preferences.setMaxBackups(2);
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());
    fixture.makeBackups(BackupFixture::numberedNames(2));

    for (int import = 1; import <= 2; ++import) {
        fixture.view.importFile(path);
        confirmImport(fixture.view);
        QTRY_COMPARE(fixture.entries().filter(u"sauvegarde_"_s).size(), import);
        QCOMPARE(fixture.entries().size(), 2);
        delete fixture.view.findChild<Alert*>();
    }
}

namespace {

/// What a label shows each time that it is painted, and how many filaments there are then.
class PaintedTexts final : public QObject {
public:
    PaintedTexts(QLabel& label, StoreContext& context)
        : m_label(label)
        , m_context(context)
    {
        label.installEventFilter(this);
    }

    const QStringList& texts() const { return m_texts; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_texts += m_label.text() + u' ' + QString::number(m_context.count<Filament>());
        return false;
    }

private:
    QLabel& m_label;
    StoreContext& m_context;
    QStringList m_texts;
};

} // namespace

void ImportScreenTest::theWorkIsToldBeforeItBegins()
{
    TransferFixture fixture;
    fixture.addFilament(u"Rouge"_s);
    fixture.addFilament(u"Vert"_s);
    fixture.view.show();
    auto& line = *fixture.view.findChild<StatusLine*>()->findChild<QLabel*>();
    PaintedTexts painted(line, fixture.context());
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());

    fixture.view.importFile(path);
    QCOMPARE(fixture.view.statusText(), u"Lecture du fichier…"_s);
    confirmImport(fixture.view);
    QCOMPARE(fixture.view.statusText(), u"Import en cours…"_s);
    outcomeOf(fixture.view);

    QVERIFY2(
        painted.texts().contains(u"Import en cours… 2"_s), qPrintable(painted.texts().join(u'\n')));
    QCOMPARE(fixture.context().count<Filament>(), 1);
}

void ImportScreenTest::whileItReadsNothingElseBegins()
{
    TransferFixture fixture;
    const QString path = fixture.folder.filePath(u"import.json"_s);
    BackupFixture::writeFile(path, smallDocument());
    fixture.view.importFile(path);
    QVERIFY(fixture.view.isBusy());

    fixture.view.importFile(fixture.folder.filePath(u"absent.json"_s));
    buttonOf(fixture.view, u"Exporter"_s)->click();
    buttonOf(fixture.view, u"Importer"_s)->click();

    QVERIFY(!fixture.view.findChild<QFileDialog*>());
    QVERIFY(askedQuestion(fixture.view));
    QTest::qWait(50); // A second reading would have ended with its own outcome.
    QCOMPARE(fixture.view.findChildren<Alert*>().size(), 1);
    QCOMPARE(fixture.view.statusText(), QString());
    QVERIFY(!fixture.view.isBusy());
}

REELHOUSE_TEST(ImportScreenTest)

#include "ImportScreenTest.moc"
