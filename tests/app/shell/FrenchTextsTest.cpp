#include "app/shell/FrenchTexts.h"

#include "app/ui/FilePanels.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtPrintSupport/QPageSetupDialog>
#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTreeView>

#include <functional>
#include <memory>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FrenchTextsTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void standardDialogsSpeakFrench_data();
    void standardDialogsSpeakFrench();
    void filePanelsSpeakFrench_data();
    void filePanelsSpeakFrench();
    void theDesktopsOwnDialogsAreForAFrenchSession();
    void theTextsGoWithTheObject();
};

namespace {

using MakeWidget = std::function<std::unique_ptr<QWidget>()>;

template <typename Dialog>
MakeWidget dialogMaker()
{
    return [] { return std::make_unique<Dialog>(); };
}

MakeWidget fileDialogMaker(QFileDialog::AcceptMode mode)
{
    return [mode] {
        auto dialog = std::make_unique<QFileDialog>();
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        dialog->setAcceptMode(mode);
        return dialog;
    };
}

/// The print dialog of a user who was asked for the properties of the printer too.
std::unique_ptr<QWidget> makeAcceptedPrintDialog()
{
    auto dialog = std::make_unique<QPrintDialog>();
    dialog->open();
    dialog->accept();
    return dialog;
}

MakeWidget textMenuMaker(const std::function<QMenu*()>& makeMenu)
{
    return [makeMenu] { return std::unique_ptr<QWidget>(makeMenu()); };
}

/// The menu without the field that it belongs to.
QMenu* standalone(QMenu* menu)
{
    menu->setParent(nullptr);
    return menu;
}

/// What heads the columns of a list.
QStringList headingsOf(const QAbstractItemModel* model)
{
    QStringList headings;
    for (int column = 0; model && column < model->columnCount(); ++column)
        headings << model->headerData(column, Qt::Horizontal).toString();
    return headings;
}

/// What the rows directly below `root` say, with all of their columns.
QStringList cellsOf(const QAbstractItemModel& model, const QModelIndex& root = {})
{
    QStringList cells;
    for (int row = 0; row < model.rowCount(root); ++row) {
        for (int column = 0; column < model.columnCount(root); ++column)
            cells << model.index(row, column, root).data().toString();
    }
    return cells;
}

/// Every text that a user can read in the widget, in a fixed order: what does not show yet too.
/// Without the files of a panel, which come when they come.
QStringList textsIn(const QWidget& root)
{
    QStringList texts;
    const bool isFilePanel = qobject_cast<const QFileDialog*>(&root) != nullptr;
    const auto add = [&texts](const QString& text) {
        if (!text.isEmpty())
            texts.append(text);
    };
    add(root.windowTitle());
    for (const QAction* action : root.actions())
        add(action->text());
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        add(widget->toolTip());
        if (widget->isWindow())
            add(widget->windowTitle());
        if (const auto* list = qobject_cast<const QAbstractItemView*>(widget)) {
            texts += headingsOf(list->model());
            // A picker's own list is read below.
            if (list->model() && !isFilePanel && !list->inherits("QComboBoxListView"))
                texts += cellsOf(*list->model());
        }
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            add(label->text());
        else if (const auto* field = qobject_cast<const QLineEdit*>(widget))
            add(field->placeholderText());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            add(button->text());
        else if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            add(group->title());
        else if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
            for (int tab = 0; tab < tabs->count(); ++tab)
                add(tabs->tabText(tab));
        else if (const auto* list = qobject_cast<const QComboBox*>(widget);
                 list && list->objectName() != u"pageSizeCombo"_s) // Papers have names.
            for (int entry = 0; entry < list->count(); ++entry)
                add(list->itemText(entry));
        for (const QAction* action : widget->actions())
            add(action->text());
    }
    return texts;
}

/// Texts that are the same in both languages.
bool isSharedByBoth(const QString& text)
{
    static const QStringList shared{u"OK"_s, u"Copies"_s, u"Portrait"_s, u"Options"_s,
        u"&Options >>"_s, u"Pages"_s, u"Type"_s, u"Page"_s, u"Orientation"_s, u"Standard"_s,
        u"Secret"_s, u"Pica (P̸)"_s, u"Didot (DD)"_s};
    static const QRegularExpression pagesPerSheet(u"^\\d+ \\(\\dx\\d\\)$"_s);
    const bool hasLetters = std::any_of(
        text.cbegin(), text.cend(), [](QChar character) { return character.isLetter(); });
    return !hasLetters || text.startsWith(u'/') || shared.contains(text)
        || pagesPerSheet.match(text).hasMatch();
}

} // namespace

void FrenchTextsTest::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France)); // As the program does.
}

void FrenchTextsTest::standardDialogsSpeakFrench_data()
{
    QTest::addColumn<MakeWidget>("makeWidget");
    QTest::addColumn<QString>("expected");

    QTest::newRow("opening a file") << fileDialogMaker(QFileDialog::AcceptOpen) << u"&Ouvrir"_s;
    QTest::newRow("saving a file") << fileDialogMaker(QFileDialog::AcceptSave) << u"&Enregistrer"_s;
    QTest::newRow("colour") << dialogMaker<QColorDialog>() << u"Sélectionner une couleur"_s;
    QTest::newRow("printing") << dialogMaker<QPrintDialog>() << u"Imprimer"_s;
    QTest::newRow("properties of the printer")
        << MakeWidget(makeAcceptedPrintDialog) << u"Propriétés de l'imprimante"_s;
    QTest::newRow("page set-up") << dialogMaker<QPageSetupDialog>() << u"Mise en page"_s;
    QTest::newRow("preview") << dialogMaker<QPrintPreviewDialog>() << u"Aperçu avant impression"_s;
    QTest::newRow("menu of a field") << textMenuMaker([] {
        QLineEdit field(u"PLA"_s);
        return standalone(field.createStandardContextMenu());
    }) << u"&Annuler"_s;
    QTest::newRow("menu of the notes") << textMenuMaker([] {
        QPlainTextEdit notes(u"PLA"_s);
        return standalone(notes.createStandardContextMenu());
    }) << u"&Annuler"_s;
}

void FrenchTextsTest::standardDialogsSpeakFrench()
{
    QFETCH(MakeWidget, makeWidget);
    QFETCH(QString, expected);
    const QStringList english = textsIn(*makeWidget());

    const FrenchTexts texts;
    const QStringList french = textsIn(*makeWidget());

    QCOMPARE(french.size(), english.size());
    QStringList untranslated;
    for (qsizetype i = 0; i < french.size(); ++i) {
        if (french[i] == english[i] && !isSharedByBoth(french[i]))
            untranslated.append(french[i]);
    }
    QVERIFY2(untranslated.isEmpty(), qPrintable(untranslated.join(u" | "_s)));
    const bool saysIt = std::any_of(french.cbegin(), french.cend(),
        [&](const QString& text) { return text.startsWith(expected); });
    QVERIFY2(saysIt, qPrintable(french.join(u'\n')));
}

void FrenchTextsTest::filePanelsSpeakFrench_data()
{
    QTest::addColumn<bool>("isSaving");
    QTest::newRow("opening") << false;
    QTest::newRow("saving") << true;
}

void FrenchTextsTest::filePanelsSpeakFrench()
{
    QFETCH(bool, isSaving);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"dossier"_s));
    const QDateTime date({2026, 11, 21}, {17, 5, 34});
    const auto write = [&](const QString& name, qint64 size) {
        QFile file(folder.filePath(name));
        return file.open(QFile::WriteOnly) && file.resize(size)
            && file.setFileTime(date, QFileDevice::FileModificationTime);
    };
    QVERIFY(write(u"petit.json"_s, 135) && write(u"grand.json"_s, 1572864));
    const FrenchTexts texts;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QWidget window;
    const FilePanels::FileKind kind{u"Documents JSON"_s, u"json"_s};
    if (isSaving)
        FilePanels::openSavePanel(&window, u"Exporter"_s, kind, u"stock"_s, [](const QString&) {});
    else
        FilePanels::openOpenPanel(&window, u"Importer"_s, kind, {}, [](const QString&) {});
    auto* panel = window.findChild<QFileDialog*>();
    QVERIFY(panel);

    panel->setDirectory(folder.path());

    const auto* list = panel->findChild<QTreeView*>();
    QVERIFY(list);
    list->header()->setSortIndicator(0, Qt::AscendingOrder); // The toolkit remembers another.
    QCOMPARE(headingsOf(list->model()),
        QStringList({u"Nom"_s, u"Taille"_s, u"Type"_s, u"Dernière modification"_s}));
    const auto files = [&] { return cellsOf(*list->model(), list->rootIndex()); };
    QTRY_COMPARE(files().size(), 12);
    QTRY_COMPARE(files().mid(4),
        QStringList({u"grand.json"_s, u"1,50 Mio"_s, u"Fichier JSON"_s, u"21/11/2026 17:05"_s,
            u"petit.json"_s, u"135 octets"_s, u"Fichier JSON"_s, u"21/11/2026 17:05"_s}));
    QCOMPARE(files().mid(0, 3), QStringList({u"dossier"_s, QString(), u"Dossier"_s}));
    static const QRegularExpression frenchDate(u"^\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d$"_s);
    QVERIFY2(frenchDate.match(files()[3]).hasMatch(), qPrintable(files()[3]));

    // Nothing but a name is cut.
    for (int column = 1; column < 4; ++column)
        QVERIFY(list->columnWidth(column)
            >= list->sizeHintForIndex(list->model()->index(1, column, list->rootIndex())).width());

    // Still by number, not by what is written there.
    list->header()->setSortIndicator(1, Qt::AscendingOrder);
    QTRY_COMPARE(files()[4], u"petit.json"_s);
    list->header()->setSortIndicator(1, Qt::DescendingOrder);
    QTRY_COMPARE(files()[0], u"grand.json"_s);
}

void FrenchTextsTest::theDesktopsOwnDialogsAreForAFrenchSession()
{
    const bool isFrench = qgetenv("LC_ALL").startsWith("fr");

    const FrenchTexts texts;

    QCOMPARE(QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs), !isFrench);
}

void FrenchTextsTest::theTextsGoWithTheObject()
{
    const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
    {
        const FrenchTexts texts;
        QCOMPARE(cancel(), u"Annuler"_s);
    }
    QCOMPARE(cancel(), u"Cancel"_s);
}

REELHOUSE_TEST(FrenchTextsTest)
#include "FrenchTextsTest.moc"
