#include "app/printing/PrintOptionsView.h"

#include "app/printing/OrientationPicker.h"
#include "app/ui/StatusLine.h"
#include "core/model/StoreContext.h"
#include "tests/app/printing/PdfReading.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/StockGenerator.h"
#include "tests/support/TestMain.h"

#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QAction>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrintPreviewWidget>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class PrintOptionsViewTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void itBeginsWithEverythingInPortrait();
    void withoutFiltersNothingIsSaidOfThem();
    void theCountFollowsTheExtent();
    void withoutAColumnNothingCanBePrinted();
    void escapeAndAnnulerCloseIt_data();
    void escapeAndAnnulerCloseIt();
    void everyControlIsReachedByTab();
    void thePanelProposesAName();
    void aCancelledPanelDoesNothing();
    void thePdfHasWhatWasChosen();
    void theWholeStockHasNoFilterLine();
    void aDeletedFilamentIsNotPrinted();
    void aPdfThatCannotBeWrittenIsToldInTheSheet();
    void filesOfTheProgramAreNotWrittenOver();
    void longWorkShowsItsProgressAndIsCancelled();
    void aCancelledPrintDialogDoesNothing();
    void printingWithoutAPrinterWorksToAFile();
    void filesOfTheProgramAreNotPrintedInto();
    void theFileToPrintIntoIsChosenInOurOwnPanel();
    void thePreviewShowsThePages_data();
    void thePreviewShowsThePages();
    void thePreviewPrintsAsTheSheetDoes();
    void thePreviewPrintsIntoNoFileOfTheProgram();
    void aCancelledPrintDialogLeavesThePreviewOpen();

private:
    QTemporaryDir m_folder;
};

namespace {

/// The sheet over a window, for a stock of ten filaments of which three are shown.
class OpenPrintSheet final {
public:
    explicit OpenPrintSheet(const QString& filter = u"Type : PLA"_s, int stock = 10, int shown = 3)
    {
        m_window.resize(1300, 850);
        m_window.show();
        generateStock(m_context, stock);
        PrintRequest request{
            {}, filter, {.version = u"1.0.0"_s, .build = u"7"_s}, [](const QString& path) {
                return path.endsWith(u"réservé.pdf"_s) ? u"Réservé."_s : QString();
            }};
        for (const auto& filament : m_context.fetchAll<Filament>()) {
            if (int(request.shown.size()) < shown)
                request.shown.push_back(filament->id());
        }
        m_sheet = new PrintOptionsView(m_context, std::move(request), &m_window);
        m_sheet->open();
    }

    StoreContext& context() { return m_context; }
    PrintOptionsView& sheet() { return *m_sheet; }
    QList<QCheckBox*> boxes() { return m_sheet->findChildren<QCheckBox*>(); }
    QPushButton& button(const QString& text)
    {
        for (auto* button : m_sheet->findChildren<QPushButton*>()) {
            if (button->text() == text)
                return *button;
        }
        qFatal("no button %s", qPrintable(text));
    }
    /// What the labels of the sheet say, as far as they are shown.
    QStringList texts()
    {
        QStringList texts;
        for (const auto* label : m_sheet->findChildren<QLabel*>()) {
            if (label->isVisible() && !label->text().isEmpty())
                texts << label->text();
        }
        return texts;
    }
    void exportTo(const QString& path)
    {
        button(u"Exporter en PDF"_s).click();
        auto* panel = m_sheet->findChild<QFileDialog*>();
        emit panel->fileSelected(path);
        delete panel;
    }
    QPrintPreviewDialog& openPreview()
    {
        button(u"Aperçu…"_s).click();
        return *m_sheet->findChild<QPrintPreviewDialog*>();
    }

private:
    RecordingStore m_store;
    StoreContext m_context{m_store};
    QWidget m_window;
    PrintOptionsView* m_sheet;
};

/// The dialog that the preview's own command to print opens; null when a printer is installed.
QPrintDialog* printFrom(const QPrintPreviewDialog& preview)
{
    for (QAction* action : preview.findChildren<QAction*>()) {
        if (action->text() == u"Print"_s)
            action->trigger();
    }
    auto* dialog = preview.findChild<QPrintDialog*>();
    return dialog->printer()->outputFormat() == QPrinter::PdfFormat ? dialog : nullptr;
}

void printTo(QPrintDialog& dialog, const QString& path)
{
    dialog.findChild<QLineEdit*>(u"filename"_s)->setText(path);
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
}

} // namespace

void PrintOptionsViewTest::initTestCase()
{
    QApplication::setFont(QFont(u"Inter"_s, 10));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void PrintOptionsViewTest::itBeginsWithEverythingInPortrait()
{
    OpenPrintSheet opened;

    QStringList boxes;
    for (const QCheckBox* box : opened.boxes()) {
        boxes << box->text();
        QCOMPARE(box->isChecked(), boxes.size() <= 7);
    }
    QCOMPARE(boxes,
        QStringList({u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Bobines"_s, u"Nom de la couleur"_s,
            u"Lieu"_s, u"Notes"_s, u"Imprimer tout le stock (sans filtres)"_s}));
    QVERIFY(opened.button(u"Portrait"_s).isChecked());
    QVERIFY(!opened.button(u"Paysage"_s).isChecked());
    QCOMPARE(opened.texts(),
        QStringList(
            {u"Options d'impression"_s, u"Colonnes à imprimer"_s, u"Orientation de la page"_s,
                u"Filtres actifs"_s, u"Type : PLA"_s, u"3 filament(s) à imprimer"_s}));
    for (const QString& text : {u"Annuler"_s, u"Aperçu…"_s, u"Exporter en PDF"_s, u"Imprimer"_s})
        QVERIFY2(opened.button(text).isEnabled(), qPrintable(text));
    QVERIFY(opened.button(u"Imprimer"_s).isDefault());
    QCOMPARE(opened.sheet().windowTitle(), u"Options d'impression"_s);
}

void PrintOptionsViewTest::withoutFiltersNothingIsSaidOfThem()
{
    OpenPrintSheet opened(QString(), 10, 10);
    QCOMPARE(opened.boxes().size(), 7);
    QCOMPARE(opened.texts(),
        QStringList({u"Options d'impression"_s, u"Colonnes à imprimer"_s,
            u"Orientation de la page"_s, u"10 filament(s) à imprimer"_s}));
}

void PrintOptionsViewTest::theCountFollowsTheExtent()
{
    OpenPrintSheet opened;
    QCheckBox* wholeStock = opened.boxes().last();
    wholeStock->click();
    QVERIFY(opened.texts().contains(u"10 filament(s) à imprimer"_s));
    wholeStock->click();
    QVERIFY(opened.texts().contains(u"3 filament(s) à imprimer"_s));
}

void PrintOptionsViewTest::withoutAColumnNothingCanBePrinted()
{
    OpenPrintSheet opened;
    const QString message = u"Sélectionnez au moins une colonne à imprimer."_s;
    const QList<QCheckBox*> boxes = opened.boxes().mid(0, 7);
    for (QCheckBox* box : boxes) {
        QVERIFY(!opened.texts().contains(message));
        box->click();
    }

    QVERIFY(opened.texts().contains(message));
    QVERIFY(!opened.button(u"Exporter en PDF"_s).isEnabled());
    QVERIFY(!opened.button(u"Imprimer"_s).isEnabled());
    QVERIFY(!opened.button(u"Aperçu…"_s).isEnabled());
    QVERIFY(opened.button(u"Annuler"_s).isEnabled());

    boxes[3]->click();
    QVERIFY(!opened.texts().contains(message));
    QVERIFY(opened.button(u"Exporter en PDF"_s).isEnabled());
    QVERIFY(opened.button(u"Imprimer"_s).isEnabled());
}

void PrintOptionsViewTest::escapeAndAnnulerCloseIt_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Escape") << true;
    QTest::newRow("Annuler") << false;
}

void PrintOptionsViewTest::escapeAndAnnulerCloseIt()
{
    QFETCH(bool, byKey);
    OpenPrintSheet opened;
    const QSignalSpy rejected(&opened.sheet(), &QDialog::rejected);
    if (byKey)
        QTest::keyClick(&opened.sheet(), Qt::Key_Escape);
    else
        opened.button(u"Annuler"_s).click();
    QCOMPARE(rejected.size(), 1);
    QVERIFY(!opened.sheet().isVisible());
}

void PrintOptionsViewTest::everyControlIsReachedByTab()
{
    OpenPrintSheet opened;
    QVERIFY(QTest::qWaitForWindowActive(&opened.sheet()));
    opened.boxes().first()->setFocus();
    QStringList reached;
    for (int control = 0; control < 13; ++control) {
        const auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        QVERIFY(button);
        reached << button->text();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(reached,
        QStringList({u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Bobines"_s, u"Nom de la couleur"_s,
            u"Lieu"_s, u"Notes"_s, u"Portrait"_s, u"Imprimer tout le stock (sans filtres)"_s,
            u"Aperçu…"_s, u"Annuler"_s, u"Exporter en PDF"_s, u"Imprimer"_s}));
}

void PrintOptionsViewTest::thePanelProposesAName()
{
    OpenPrintSheet opened;
    opened.button(u"Exporter en PDF"_s).click();

    const auto* panel = opened.sheet().findChild<QFileDialog*>();
    QVERIFY(panel);
    QVERIFY(panel->isVisible());
    QCOMPARE(panel->windowTitle(), u"Exporter le stock en PDF"_s);
    QCOMPARE(panel->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(panel->nameFilters(), QStringList(u"Documents PDF (*.pdf)"_s));
    const QString name = QFileInfo(panel->selectedFiles().value(0)).fileName();
    static const QRegularExpression expected(
        u"^stock_filaments_\\d{4}-\\d{2}-\\d{2}_\\d{6}\\.pdf$"_s);
    QVERIFY2(expected.match(name).hasMatch(), qPrintable(name));
}

void PrintOptionsViewTest::aCancelledPanelDoesNothing()
{
    OpenPrintSheet opened;
    opened.button(u"Exporter en PDF"_s).click();
    opened.sheet().findChild<QFileDialog*>()->reject();
    QTest::qWait(50);
    QVERIFY(opened.sheet().isVisible());
    QVERIFY(opened.button(u"Imprimer"_s).isEnabled());
}

void PrintOptionsViewTest::thePdfHasWhatWasChosen()
{
    OpenPrintSheet opened;
    for (const qsizetype column : {1, 2, 3, 5, 6})
        opened.boxes()[column]->click();
    opened.button(u"Paysage"_s).click();
    const QString pdf = m_folder.filePath(u"chosen.pdf"_s);
    const QSignalSpy accepted(&opened.sheet(), &QDialog::accepted);

    opened.exportTo(pdf);

    QTRY_COMPARE(accepted.size(), 1);
    QCOMPARE(documentFact(pdf, u"Page size"_s), u"842 x 595 pts (A4)"_s);
    const QStringList lines = readingOrder(pdf).split(u'\n');
    QCOMPARE(lines[0], u"Stock de filaments"_s);
    QCOMPARE(lines[2], u"Filtres actifs : Type : PLA"_s);
    QCOMPARE(lines[3], u"Type Nom de la couleur"_s);
    QVERIFY2(lines[7].startsWith(u"Total : 3 filament(s) — "_s), qPrintable(lines[7]));
    QVERIFY2(
        lines[8].startsWith(u"Spoolwright v1.0.0 (build 7) Page 1 sur 1 "_s), qPrintable(lines[8]));
}

void PrintOptionsViewTest::theWholeStockHasNoFilterLine()
{
    OpenPrintSheet opened;
    opened.boxes().last()->click();
    const QString pdf = m_folder.filePath(u"whole.pdf"_s);
    const QSignalSpy accepted(&opened.sheet(), &QDialog::accepted);

    opened.exportTo(pdf);

    QTRY_COMPARE(accepted.size(), 1);
    const QString text = readingOrder(pdf);
    QVERIFY(!text.contains(u"Filtres actifs"_s));
    QVERIFY(text.contains(u"Total : 10 filament(s) — "_s));
}

void PrintOptionsViewTest::aDeletedFilamentIsNotPrinted()
{
    OpenPrintSheet opened;
    opened.context().remove(*opened.context().fetchAll<Filament>()[0]);
    opened.context().processPendingChanges();
    QVERIFY(opened.texts().contains(u"2 filament(s) à imprimer"_s));
}

void PrintOptionsViewTest::filesOfTheProgramAreNotWrittenOver()
{
    OpenPrintSheet opened;
    const QString path = m_folder.filePath(u"réservé.pdf"_s);

    opened.exportTo(path);

    QCOMPARE(opened.sheet().findChild<StatusLine*>()->text(), u"Erreur d'écriture : Réservé."_s);
    QVERIFY(!QFile::exists(path));
    QVERIFY(opened.button(u"Exporter en PDF"_s).isEnabled());
}

void PrintOptionsViewTest::aPdfThatCannotBeWrittenIsToldInTheSheet()
{
    OpenPrintSheet opened;
    const int height = opened.sheet().height();

    opened.exportTo(m_folder.filePath(u"nowhere/report.pdf"_s));

    auto* status = opened.sheet().findChild<StatusLine*>();
    QTRY_COMPARE(status->text(), u"Erreur d'écriture : Le dossier n'existe pas."_s);
    QVERIFY(status->isVisible());
    QVERIFY2(opened.sheet().height() > height, "it is shown whole");
    QVERIFY(opened.sheet().isVisible());
    QVERIFY(opened.button(u"Exporter en PDF"_s).isEnabled());

    opened.exportTo(m_folder.filePath(u"afterwards.pdf"_s));
    QVERIFY(status->text().isEmpty());
    QTRY_VERIFY(!opened.sheet().isVisible());
    QVERIFY(QFileInfo::exists(m_folder.filePath(u"afterwards.pdf"_s)));
}

void PrintOptionsViewTest::longWorkShowsItsProgressAndIsCancelled()
{
    OpenPrintSheet opened(QString(), 20000, 20000);
    const QString pdf = m_folder.filePath(u"long.pdf"_s);
    auto* progress = opened.sheet().findChild<QProgressBar*>();
    QVERIFY(!progress->isVisible());

    opened.exportTo(pdf);
    QTRY_VERIFY(progress->value() > 0);
    QVERIFY(progress->isVisible());
    QVERIFY(progress->maximum() > 300);
    static const QRegularExpression page(u"^Page \\d+ sur \\d+$"_s);
    QVERIFY(!opened.texts().filter(page).isEmpty());
    QVERIFY(!opened.button(u"Imprimer"_s).isEnabled());
    QVERIFY(!opened.boxes().first()->isEnabled());

    opened.button(u"Annuler"_s).click();
    QVERIFY(opened.sheet().isVisible());
    QVERIFY(!progress->isVisible());
    QVERIFY(opened.button(u"Imprimer"_s).isEnabled());
    QVERIFY(opened.boxes().first()->isEnabled());
    QVERIFY(opened.texts().contains(u"20000 filament(s) à imprimer"_s));
    QTest::qWait(100);
    QCOMPARE(QDir(m_folder.path()).entryList({u"long*"_s}), QStringList());

    opened.button(u"Annuler"_s).click();
    QVERIFY(!opened.sheet().isVisible());
}

void PrintOptionsViewTest::aCancelledPrintDialogDoesNothing()
{
    OpenPrintSheet opened;
    opened.button(u"Imprimer"_s).click();
    auto* dialog = opened.sheet().findChild<QPrintDialog*>();
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
    dialog->reject();
    QTest::qWait(50);
    QVERIFY(opened.sheet().isVisible());
    QVERIFY(opened.button(u"Imprimer"_s).isEnabled());
}

void PrintOptionsViewTest::printingWithoutAPrinterWorksToAFile()
{
    OpenPrintSheet opened;
    opened.button(u"Paysage"_s).click();
    opened.button(u"Imprimer"_s).click();
    auto* dialog = opened.sheet().findChild<QPrintDialog*>();
    QVERIFY(dialog);
    if (dialog->printer()->outputFormat() != QPrinter::PdfFormat)
        QSKIP("a printer is installed");
    const QString pdf = m_folder.filePath(u"printed.pdf"_s);
    const QSignalSpy accepted(&opened.sheet(), &QDialog::accepted);

    printTo(*dialog, pdf);

    QTRY_COMPARE(accepted.size(), 1);
    QCOMPARE(documentFact(pdf, u"Page size"_s), u"842 x 595 pts (A4)"_s);
    const QString text = readingOrder(pdf);
    QVERIFY(text.contains(u"Total : 3 filament(s) — "_s));
    QVERIFY(text.contains(u"(build 7) Page 1 Tous"_s));
}

void PrintOptionsViewTest::filesOfTheProgramAreNotPrintedInto()
{
    OpenPrintSheet opened;
    opened.button(u"Imprimer"_s).click();
    auto* dialog = opened.sheet().findChild<QPrintDialog*>();
    QVERIFY(dialog);
    if (dialog->printer()->outputFormat() != QPrinter::PdfFormat)
        QSKIP("a printer is installed");
    QFile reserved(m_folder.filePath(u"réservé.pdf"_s));
    QVERIFY(reserved.open(QIODevice::WriteOnly));
    reserved.close();

    bool isAsked = false; // The toolkit, having looked at the file, asks whether to write over it.
    QTimer::singleShot(0, &opened.sheet(), [&isAsked] {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            isAsked = true;
            question->reject();
        }
    });
    printTo(*dialog, reserved.fileName());

    QVERIFY(!isAsked);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(dialog->result(), int(QDialog::Rejected));
    QCOMPARE(opened.sheet().findChild<StatusLine*>()->text(), u"Erreur d'écriture : Réservé."_s);
}

void PrintOptionsViewTest::theFileToPrintIntoIsChosenInOurOwnPanel()
{
    OpenPrintSheet opened;
    opened.button(u"Imprimer"_s).click();
    auto* dialog = opened.sheet().findChild<QPrintDialog*>();
    QVERIFY(dialog);
    auto* browse = dialog->findChild<QToolButton*>(u"fileBrowser"_s);
    QVERIFY(browse);

    browse->click();

    const auto panels = dialog->findChildren<QFileDialog*>();
    QCOMPARE(panels.size(), 1);
    QCOMPARE(panels[0]->windowTitle(), u"Imprimer dans un fichier"_s);
    const QString pdf = m_folder.filePath(u"chosen.pdf"_s);
    emit panels[0]->fileSelected(pdf);
    QCOMPARE(dialog->findChild<QLineEdit*>(u"filename"_s)->text(), pdf);
    panels[0]->reject();
    dialog->reject();
}

void PrintOptionsViewTest::thePreviewShowsThePages_data()
{
    QTest::addColumn<int>("filaments");
    QTest::addColumn<int>("expectedPages");
    QTest::addColumn<QString>("expectedTitle");

    QTest::newRow("a few pages") << 200 << 4 << u"Print Preview"_s;
    QTest::newRow("many pages") << 6000 << 100 << u"Aperçu des 100 premières pages"_s;
}

void PrintOptionsViewTest::thePreviewShowsThePages()
{
    QFETCH(int, filaments);
    QFETCH(int, expectedPages);
    QFETCH(QString, expectedTitle);

    OpenPrintSheet opened(QString(), filaments, filaments);
    QPrintPreviewDialog& dialog = opened.openPreview();
    auto* pages = dialog.findChild<QPrintPreviewWidget*>();
    QTRY_COMPARE(pages->pageCount(), expectedPages);
    QCOMPARE(dialog.windowTitle(), expectedTitle);
    QCOMPARE(pages->orientation(), QPageLayout::Portrait);
    dialog.reject();
    QVERIFY(opened.sheet().isVisible());
}

void PrintOptionsViewTest::thePreviewPrintsAsTheSheetDoes()
{
    OpenPrintSheet opened(QString(), 6000, 6000);
    QPointer<QPrintPreviewDialog> preview = &opened.openPreview();
    QPrintDialog* dialog = printFrom(*preview);
    if (!dialog)
        QSKIP("a printer is installed");
    const QString pdf = m_folder.filePath(u"previewed.pdf"_s);
    const QSignalSpy accepted(&opened.sheet(), &QDialog::accepted);

    printTo(*dialog, pdf);

    QVERIFY(!preview->isVisible());
    QVERIFY(opened.sheet().findChild<QProgressBar*>()->isVisible());
    QTRY_COMPARE(accepted.size(), 1);
    QVERIFY(!preview);
    QCOMPARE(documentFact(pdf, u"Title"_s), u"Stock de filaments"_s);
    QVERIFY2(documentFact(pdf, u"Pages"_s).toInt() > 100, "also those that were not shown");
}

void PrintOptionsViewTest::thePreviewPrintsIntoNoFileOfTheProgram()
{
    OpenPrintSheet opened;
    QPrintPreviewDialog& preview = opened.openPreview();
    QPrintDialog* dialog = printFrom(preview);
    if (!dialog)
        QSKIP("a printer is installed");

    printTo(*dialog, m_folder.filePath(u"autre/réservé.pdf"_s));

    QVERIFY(!preview.isVisible());
    auto* status = opened.sheet().findChild<StatusLine*>();
    QCOMPARE(status->text(), u"Erreur d'écriture : Réservé."_s);
    QVERIFY(status->isVisible());
}

void PrintOptionsViewTest::aCancelledPrintDialogLeavesThePreviewOpen()
{
    OpenPrintSheet opened;
    QPrintPreviewDialog& preview = opened.openPreview();
    QPrintDialog* dialog = printFrom(preview);
    if (!dialog)
        QSKIP("a printer is installed");

    dialog->reject();

    QVERIFY(preview.isVisible());
    QVERIFY(opened.sheet().isVisible());
}

REELHOUSE_TEST(PrintOptionsViewTest)
#include "PrintOptionsViewTest.moc"
