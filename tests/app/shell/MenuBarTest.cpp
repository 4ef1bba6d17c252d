#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/library/SpoolActions.h"
#include "app/shell/ContentView.h"
#include "app/shell/EditCommands.h"
#include "app/shell/KeysView.h"
#include "app/shell/MainWindow.h"
#include "app/shell/MenuCommands.h"
#include "core/preferences/Preferences.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class MenuBarTest final : public QObject {
    Q_OBJECT

private slots:
    void withoutAStockOnlyTheProgramsOwnCommandsAreThere();
    void theMenuBarStaysAsItIsWhenTheStockIsOpened();
    void everyCommandHasItsPlace();
    void noTwoCommandsShareAKey();
    void everyEntryHasALetterOfItsOwn();
    void theMenuBarIsWalkedThroughByLetters();
    void filesAreExportedAndImportedFromTheMenu_data();
    void filesAreExportedAndImportedFromTheMenu();
    void screensAreChosenInTheMenu();
    void theViewModeIsTicked();
    void theLibrarysCommandsRestWhileItIsHidden();
    void theProgramsCommandsAreAskedFor();
    void theSheetOfKeysNamesEveryKeyOfTheMenus();
    void theSheetOfKeysFitsIntoTheWindow_data();
    void theSheetOfKeysFitsIntoTheWindow();
};

namespace {

QStringList offeredMenus(const MainWindow& window)
{
    QStringList titles;
    for (const QAction* action : window.menuBar()->actions()) {
        if (action->isVisible() && action->isEnabled())
            titles += action->iconText();
    }
    return titles;
}

QList<QMenu*> menusOf(const MainWindow& window)
{
    QList<QMenu*> menus;
    for (const QAction* action : window.menuBar()->actions())
        menus += action->menu();
    return menus;
}

/// The letter that chooses an entry, in lower case; empty without one.
QString mnemonicOf(const QAction& entry)
{
    return QKeySequence::mnemonic(entry.text()).toString().section(u'+', 1).toLower();
}

QStringList entriesOf(const QMenu& menu)
{
    QStringList entries;
    for (const QAction* action : menu.actions()) {
        if (!action->isSeparator())
            entries += action->iconText();
    }
    return entries;
}

QAction& entryNamed(const MainWindow& window, const QString& text)
{
    for (const QAction* menu : window.menuBar()->actions()) {
        for (QAction* action : menu->menu()->actions()) {
            if (action->iconText() == text)
                return *action;
        }
    }
    qFatal("No such entry.");
}

struct MenuBarFixture {
    MenuBarFixture()
    {
        window.setSettingsEnabled(true);
        new EditCommands(stock->context(), window.editMenu(), content);
        new MenuCommands(*content, window);
        window.showScreen(content);
        window.resize(1300, 850);
        window.show();
    }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.ini"_s)};
    FilterFavoritesStore favorites{preferences};
    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock(StoreKind::File);
    MainWindow window;
    ContentView* content = new ContentView(*stock, preferences, favorites);
};

} // namespace

void MenuBarTest::withoutAStockOnlyTheProgramsOwnCommandsAreThere()
{
    const MainWindow window;

    QCOMPARE(offeredMenus(window),
        QStringList({u"Spoolwright"_s, u"Édition"_s, u"Fenêtre"_s, u"Aide"_s}));
    QVERIFY(!entryNamed(window, u"Réglages…"_s).isEnabled());
}

void MenuBarTest::theMenuBarStaysAsItIsWhenTheStockIsOpened()
{
    const auto places = [](const MainWindow& window) {
        QList<QRect> menus;
        for (QAction* action : window.menuBar()->actions())
            menus << window.menuBar()->actionGeometry(action);
        return menus;
    };
    MainWindow window;
    window.resize(1300, 850);
    window.show();
    const MenuBarFixture fixture;

    QCOMPARE(places(window), places(fixture.window));
    QCOMPARE(places(window).size(), 7);
}

void MenuBarTest::everyCommandHasItsPlace()
{
    MenuBarFixture fixture;
    const QList<QMenu*> menus = menusOf(fixture.window);
    const QMenu* application = menus.first();
    const QList<QMenu*> lastMenus = menus.last(2);

    QCOMPARE(offeredMenus(fixture.window),
        QStringList({u"Spoolwright"_s, u"Fichier"_s, u"Édition"_s, u"Présentation"_s, u"Stock"_s,
            u"Fenêtre"_s, u"Aide"_s}));
    QCOMPARE(entriesOf(*application),
        QStringList({u"À propos de Reelhouse"_s, u"Réglages…"_s, u"Quitter"_s}));
    QCOMPARE(entriesOf(fixture.window.fileMenu()),
        QStringList({u"Exporter…"_s, u"Importer…"_s, u"Exporter en CSV…"_s, u"Imprimer…"_s}));
    QCOMPARE(entriesOf(fixture.window.editMenu()),
        QStringList({u"Annuler"_s, u"Rétablir"_s, u"Couper"_s, u"Copier"_s, u"Coller"_s,
            u"Tout sélectionner"_s, u"Rechercher"_s}));
    QCOMPARE(entriesOf(fixture.window.viewMenu()),
        QStringList(
            {u"Liste"_s, u"Cartes"_s, u"Stats"_s, u"Stock de filaments"_s, u"Types de filament"_s,
                u"Marques"_s, u"Gammes"_s, u"Lieux"_s, u"Export / Import"_s, u"Export CSV"_s}));
    QCOMPARE(entriesOf(fixture.window.stockMenu()),
        QStringList({u"Ajouter un filament"_s, u"Ajouter une bobine"_s, u"Retirer une bobine"_s,
            u"Ajouter une bobine entamée"_s, u"Supprimer une bobine entamée"_s,
            u"Dupliquer le filament"_s, u"Supprimer"_s}));
    QCOMPARE(entriesOf(*lastMenus.at(0)), QStringList({u"Réduire"_s, u"Fermer"_s}));
    QCOMPARE(entriesOf(*lastMenus.at(1)), QStringList{u"Raccourcis clavier"_s});
    QCOMPARE(entryNamed(fixture.window, u"Réglages…"_s).shortcut(),
        QKeySequence(Qt::CTRL | Qt::Key_Comma));
    QCOMPARE(
        entryNamed(fixture.window, u"Quitter"_s).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    QCOMPARE(
        entryNamed(fixture.window, u"Raccourcis clavier"_s).shortcut(), QKeySequence(Qt::Key_F1));
}

void MenuBarTest::noTwoCommandsShareAKey()
{
    MenuBarFixture fixture;

    QStringList keys;
    for (const QAction* menu : fixture.window.menuBar()->actions()) {
        for (const QAction* action : menu->menu()->actions()) {
            if (!action->shortcut().isEmpty())
                keys += action->shortcut().toString();
        }
    }
    QVERIFY(keys.size() >= 12);
    QCOMPARE(keys.removeDuplicates(), 0);
}

void MenuBarTest::everyEntryHasALetterOfItsOwn()
{
    MenuBarFixture fixture;
    fixture.stock->context().perform(u"Ajouter une marque"_s,
        [&] { fixture.stock->context().insert(std::make_unique<Brand>(u"Sunlu"_s)); });
    fixture.stock->context().processPendingChanges();

    QStringList titleLetters;
    for (const QMenu* menu : menusOf(fixture.window)) {
        titleLetters += mnemonicOf(*menu->menuAction());
        QStringList letters;
        for (const QAction* action : menu->actions()) {
            if (action->isSeparator())
                continue;
            QVERIFY2(!mnemonicOf(*action).isEmpty(), qPrintable(action->text()));
            letters += mnemonicOf(*action);
        }
        QVERIFY2(letters.removeDuplicates() == 0, qPrintable(menu->title()));
    }
    QVERIFY(!titleLetters.contains(QString()));
    QCOMPARE(titleLetters.removeDuplicates(), 0);
}

void MenuBarTest::theMenuBarIsWalkedThroughByLetters()
{
    MenuBarFixture fixture;
    QVERIFY(QTest::qWaitForWindowActive(&fixture.window));

    QTest::keyClick(&fixture.window, Qt::Key_P, Qt::AltModifier);
    QTRY_COMPARE(QApplication::activePopupWidget(), &fixture.window.viewMenu());
    QTest::keyClick(&fixture.window.viewMenu(), Qt::Key_G);

    QCOMPARE(fixture.content->selection(), NavItem::Ranges);
}

void MenuBarTest::filesAreExportedAndImportedFromTheMenu_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<NavItem>("screen");
    QTest::addColumn<QString>("panel");

    QTest::newRow("export") << u"Exporter…"_s << NavItem::ExportImport << u"Exporter le stock"_s;
    QTest::newRow("import") << u"Importer…"_s << NavItem::ExportImport << u"Importer le stock"_s;
    QTest::newRow("table") << u"Exporter en CSV…"_s << NavItem::CsvExport
                           << u"Exporter le stock en CSV"_s;
}

void MenuBarTest::filesAreExportedAndImportedFromTheMenu()
{
    QFETCH(QString, entry);
    QFETCH(NavItem, screen);
    QFETCH(QString, panel);
    const MenuBarFixture fixture;

    entryNamed(fixture.window, entry).trigger();

    QCOMPARE(fixture.content->selection(), screen);
    QTRY_VERIFY(QApplication::activeModalWidget());
    QCOMPARE(QApplication::activeModalWidget()->windowTitle(), panel);
    QApplication::activeModalWidget()->close();
}

void MenuBarTest::screensAreChosenInTheMenu()
{
    MenuBarFixture fixture;
    QVERIFY(entryNamed(fixture.window, u"Stock de filaments"_s).isChecked());

    entryNamed(fixture.window, u"Gammes"_s).trigger();
    QCOMPARE(fixture.content->selection(), NavItem::Ranges);
    QVERIFY(entryNamed(fixture.window, u"Gammes"_s).isChecked());

    fixture.content->showScreen(NavItem::CsvExport);
    QVERIFY(entryNamed(fixture.window, u"Export CSV"_s).isChecked());
    QVERIFY(!entryNamed(fixture.window, u"Gammes"_s).isChecked());
}

void MenuBarTest::theViewModeIsTicked()
{
    MenuBarFixture fixture;
    fixture.content->library().setViewMode(ViewMode::Cards);

    emit fixture.window.viewMenu().aboutToShow();
    QVERIFY(entryNamed(fixture.window, u"Cartes"_s).isChecked());
    QVERIFY(!entryNamed(fixture.window, u"Liste"_s).isChecked());

    entryNamed(fixture.window, u"Stats"_s).trigger();
    QCOMPARE(fixture.content->library().viewMode(), ViewMode::Stats);
}

void MenuBarTest::theLibrarysCommandsRestWhileItIsHidden()
{
    MenuBarFixture fixture;
    QVERIFY(QTest::qWaitForWindowActive(&fixture.window));
    QSignalSpy additions(
        &fixture.content->library().spoolActions(), &SpoolActions::additionRequested);

    fixture.content->showScreen(NavItem::Brands);
    QTest::keyClick(&fixture.window, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(additions.count(), 0);
    QVERIFY(!entryNamed(fixture.window, u"Imprimer…"_s).isEnabled());
    QVERIFY(!fixture.window.stockMenu().menuAction()->isEnabled());

    fixture.content->showScreen(NavItem::Library);
    QTest::keyClick(&fixture.window, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(additions.count(), 1);
    QVERIFY(entryNamed(fixture.window, u"Imprimer…"_s).isEnabled());
}

void MenuBarTest::theProgramsCommandsAreAskedFor()
{
    MenuBarFixture fixture;
    QSignalSpy about(&fixture.window, &MainWindow::aboutRequested);
    QSignalSpy settings(&fixture.window, &MainWindow::settingsRequested);
    QSignalSpy keys(&fixture.window, &MainWindow::keysRequested);
    QSignalSpy quit(&fixture.window, &MainWindow::quitRequested);

    for (const QString& entry :
        {u"À propos de Reelhouse"_s, u"Réglages…"_s, u"Raccourcis clavier"_s, u"Quitter"_s})
        entryNamed(fixture.window, entry).trigger();

    QCOMPARE(about.count(), 1);
    QCOMPARE(settings.count(), 1);
    QCOMPARE(keys.count(), 1);
    QCOMPARE(quit.count(), 1);
}

void MenuBarTest::theSheetOfKeysNamesEveryKeyOfTheMenus()
{
    MenuBarFixture fixture;
    const QList<KeySection> sections = keySections(*fixture.window.menuBar());
    KeysView sheet(sections, &fixture.window);
    sheet.open();

    QStringList texts;
    for (const QLabel* label : sheet.findChildren<QLabel*>())
        texts += label->text();
    QVERIFY(texts.contains(u"Dupliquer le filament"_s));
    for (const QAction* menu : fixture.window.menuBar()->actions()) {
        for (const QAction* action : menu->menu()->actions()) {
            const QString key = action->shortcut().toString(QKeySequence::NativeText);
            QVERIFY2(key.isEmpty() || (texts.contains(key) && texts.contains(action->iconText())),
                qPrintable(key));
        }
    }
    QCOMPARE(sections.last().title, u"Fiches et questions"_s);
    QCOMPARE(tests::unnamedControls(&sheet), QStringList());
}

void MenuBarTest::theSheetOfKeysFitsIntoTheWindow_data()
{
    QTest::addColumn<QSize>("window");
    QTest::addColumn<bool>("mayScroll");

    QTest::newRow("at first") << QSize(1300, 850) << false;
    QTest::newRow("at its smallest") << QSize(1100, 823) << true;
}

void MenuBarTest::theSheetOfKeysFitsIntoTheWindow()
{
    QFETCH(QSize, window);
    QFETCH(bool, mayScroll);
    MenuBarFixture fixture;
    fixture.window.setFixedSize(window);
    KeysView sheet(keySections(*fixture.window.menuBar()), &fixture.window);
    sheet.open();

    const auto* area = sheet.findChild<QScrollArea*>();
    QVERIFY(mayScroll || area->verticalScrollBar()->maximum() == 0);
    QVERIFY(area->widget()->minimumSizeHint().width() <= area->viewport()->width());
    QVERIFY(sheet.width() <= window.width() - 48);
}

REELHOUSE_TEST(MenuBarTest)

#include "MenuBarTest.moc"
