#include "app/shell/ContentView.h"

#include "app/backup/ExportImportView.h"
#include "app/editing/ReferenceManagementView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/shell/SidebarDelegate.h"
#include "app/shell/SidebarView.h"
#include "app/shell/TemporaryStoreNotice.h"
#include "app/ui/Alert.h"
#include "app/ui/SearchField.h"
#include "app/ui/Sheet.h"
#include "core/model/StoreContext.h"
#include "core/preferences/Preferences.h"
#include "tests/app/backup/BackupFixture.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtGui/QDesktopServices>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListView>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ContentViewTest final : public QObject {
    Q_OBJECT

public slots:
    /// Stands for the desktop's file browser.
    void openFolder(const QUrl& url) { m_openedFolders += url.toLocalFile(); }

private slots:
    void theLibraryIsShownFirst();
    void everyScreenShowsItsTitle();
    void theLibraryKeepsItsSearchWhileOthersAreShown();
    void theReferenceScreensAreMadeAnewAndGoWithTheirSheets();
    void theLaunchBackupComesBeforeTheSampleData();
    void theLaunchBackupIsWrittenWhenWanted_data();
    void theLaunchBackupIsWrittenWhenWanted();
    void aFavoriteIsAppliedFromAnotherScreen();
    void theSidebarKeepsUpWithTheFavorites();
    void aDroppedDocumentIsImported();
    void nothingIsDroppedOnAScreenAtWork();
    void otherDropsAreRefused_data();
    void otherDropsAreRefused();
    void aTemporaryStockSaysSo_data();
    void aTemporaryStockSaysSo();
    void itSaysWhereTheDataLies();
    void whatCouldNotBeSavedIsToldUntilItIs();

private:
    QStringList m_openedFolders;
};

namespace {

struct ContentViewFixture {
    explicit ContentViewFixture(StoreKind kind = StoreKind::Memory)
        : stock(tests::makeMemoryStock(kind))
    {
        content.resize(1300, 820);
        content.show();
    }

    bool showsLibrary() const { return content.findChild<LibraryView*>()->isVisible(); }
    bool showsTitle(const QString& title) const
    {
        const auto labels = content.findChildren<QLabel*>();
        return std::ranges::any_of(labels,
            [&](const QLabel* label) { return label->isVisible() && label->text() == title; });
    }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.conf"_s)};
    FilterFavoritesStore favorites{preferences};
    std::unique_ptr<StoreContainer> stock;
    ContentView content{*stock, preferences, favorites};
};

/// Drags files over the middle of the content and lets them go; false when it wants none of them.
bool drop(QWidget& content, const QList<QUrl>& urls)
{
    QMimeData files;
    files.setUrls(urls);
    QDragEnterEvent enter(
        content.rect().center(), Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(&content, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent event(
        content.rect().center(), Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&content, &event);
    return event.isAccepted() && event.dropAction() == Qt::CopyAction;
}

} // namespace

void ContentViewTest::theLibraryIsShownFirst()
{
    const ContentViewFixture fixture;

    QVERIFY(fixture.showsLibrary());
    QCOMPARE(fixture.content.selection(), NavItem::Library);
    QCOMPARE(fixture.content.findChild<SidebarView*>()->selection(), NavItem::Library);
}

void ContentViewTest::everyScreenShowsItsTitle()
{
    ContentViewFixture fixture;

    for (const NavItem item : allNavItems) {
        fixture.content.showScreen(item);
        const QString title
            = item == NavItem::ExportImport ? u"Export et Import"_s : navItemTitle(item);
        QVERIFY2(fixture.showsTitle(title), qPrintable(title));
        QCOMPARE(fixture.showsLibrary(), item == NavItem::Library);
        QCOMPARE(fixture.content.findChild<SidebarView*>()->selection(), item);
    }
}

void ContentViewTest::theLibraryKeepsItsSearchWhileOthersAreShown()
{
    ContentViewFixture fixture;
    auto* field = fixture.content.findChild<SearchField*>();
    QTest::keyClicks(field, u"rouge"_s);

    fixture.content.showScreen(NavItem::Brands);
    fixture.content.showScreen(NavItem::Library);

    QCOMPARE(fixture.content.findChild<SearchField*>(), field);
    QCOMPARE(field->text(), u"rouge"_s);
}

void ContentViewTest::theReferenceScreensAreMadeAnewAndGoWithTheirSheets()
{
    ContentViewFixture fixture;
    fixture.content.showScreen(NavItem::Types);
    QVERIFY(fixture.content.findChild<TypesManagementView*>());
    fixture.content.showScreen(NavItem::Brands);
    const QPointer<BrandsManagementView> brands(fixture.content.findChild<BrandsManagementView*>());
    QVERIFY(brands);
    brands->findChild<QPushButton*>()->click();
    const QPointer<Sheet> sheet(brands->findChild<Sheet*>());
    QVERIFY(sheet->isVisible());

    fixture.content.showScreen(NavItem::Ranges);
    QVERIFY(fixture.content.findChild<RangesManagementView*>());
    QTRY_VERIFY(brands.isNull() && sheet.isNull());

    fixture.content.showScreen(NavItem::Locations);
    QVERIFY(fixture.content.findChild<LocationsManagementView*>());
    QCOMPARE(fixture.content.findChild<QStackedWidget*>()->currentWidget(),
        fixture.content.findChild<LocationsManagementView*>());
}

void ContentViewTest::theLaunchBackupComesBeforeTheSampleData()
{
    const tests::BackupFixture files;
    Preferences preferences(files.folder.filePath(u"preferences.conf"_s));
    FilterFavoritesStore favorites(preferences);
    ContentView content(*files.stock, preferences, favorites);

    content.performStartupBackupIfNeeded();
    content.show();
    content.performStartupBackupIfNeeded();

    QVERIFY(files.stock->context().count<Filament>() > 0);
    QCOMPARE(files.entries().size(), 1);
    QVERIFY(tests::BackupFixture::readFile(files.backupPath(files.entries().first()))
                .contains("\"filaments\" : [\n\n  ]"));
}

void ContentViewTest::theLaunchBackupIsWrittenWhenWanted_data()
{
    QTest::addColumn<StoreKind>("kind");
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<int>("expected");

    QTest::newRow("wanted") << StoreKind::File << true << 1;
    QTest::newRow("not wanted") << StoreKind::File << false << 0;
    QTest::newRow("temporary") << StoreKind::Memory << true << 0;
}

void ContentViewTest::theLaunchBackupIsWrittenWhenWanted()
{
    QFETCH(StoreKind, kind);
    QFETCH(bool, wanted);
    const tests::BackupFixture files(kind);
    Preferences preferences(files.folder.filePath(u"preferences.conf"_s));
    preferences.setAutoBackupOnLaunch(wanted);
    FilterFavoritesStore favorites(preferences);
    ContentView content(*files.stock, preferences, favorites);

    content.performStartupBackupIfNeeded();

    QTEST(int(files.entries().size()), "expected");
}

void ContentViewTest::aFavoriteIsAppliedFromAnotherScreen()
{
    ContentViewFixture fixture;
    fixture.stock->context().insert(std::make_unique<FilamentType>(u"PLA"_s));
    const auto favorite = fixture.favorites.add(
        u"PLA rouges"_s, {.typeName = u"PLA"_s, .spools = 99, .searchText = u"rouge"_s});
    QVERIFY(favorite);
    fixture.content.showScreen(NavItem::Locations);

    emit fixture.content.findChild<SidebarView*>()->favoriteChosen(*favorite);

    QCOMPARE(fixture.content.selection(), NavItem::Library);
    QVERIFY(fixture.showsLibrary());
    QCOMPARE(fixture.content.findChild<LibraryView*>()->currentCriteria(), favorite->criteria);
}

void ContentViewTest::theSidebarKeepsUpWithTheFavorites()
{
    ContentViewFixture fixture;
    const auto* sidebar = fixture.content.findChild<SidebarView*>();
    const QAbstractItemModel* entries = sidebar->findChild<QListView*>()->model();
    QCOMPARE(entries->index(2, 0).data().toString(), u"Aucun favori"_s);

    const auto favorite = fixture.favorites.add(u"Noirs"_s, {.searchText = u"noir"_s});
    QCOMPARE(entries->index(2, 0).data().toString(), u"Noirs"_s);
    QVERIFY(!entries->index(2, 0).data(SidebarRole::isInUse).toBool());

    fixture.content.findChild<LibraryView*>()->applyFavorite(*favorite);
    QVERIFY(entries->index(2, 0).data(SidebarRole::isInUse).toBool());

    fixture.favorites.remove(favorite->id);
    QCOMPARE(entries->index(2, 0).data().toString(), u"Aucun favori"_s);
}

void ContentViewTest::aDroppedDocumentIsImported()
{
    ContentViewFixture fixture;
    const QString path = fixture.folder.filePath(u"Stock.JSON"_s);
    tests::BackupFixture::writeFile(
        path, R"({"brands":[],"filaments":[],"locations":[],"ranges":[],"types":[]})");

    QVERIFY(drop(fixture.content, {QUrl::fromLocalFile(path)}));

    QCOMPARE(fixture.content.selection(), NavItem::ExportImport);
    const auto* screen = fixture.content.findChild<ExportImportView*>();
    QVERIFY(screen);
    QTRY_VERIFY(screen->findChild<Alert*>());
    QVERIFY2(!drop(fixture.content, {QUrl::fromLocalFile(path)}), "While a question waits.");
}

void ContentViewTest::nothingIsDroppedOnAScreenAtWork()
{
    ContentViewFixture fixture;
    const QString path = fixture.folder.filePath(u"stock.json"_s);
    tests::BackupFixture::writeFile(path, "{");
    fixture.content.showScreen(NavItem::ExportImport);
    auto* screen = fixture.content.findChild<ExportImportView*>();
    screen->importFile(path);
    QVERIFY(screen->isBusy());

    QVERIFY(!drop(fixture.content, {QUrl::fromLocalFile(path)}));

    QTRY_VERIFY(!screen->isBusy());
    QVERIFY(drop(fixture.content, {QUrl::fromLocalFile(path)}));
}

void ContentViewTest::otherDropsAreRefused_data()
{
    QTest::addColumn<QList<QUrl>>("urls");

    QTest::newRow("nothing") << QList<QUrl>();
    QTest::newRow("another kind of file") << QList<QUrl>{QUrl(u"file:///tmp/a.csv"_s)};
    QTest::newRow("two documents")
        << QList<QUrl>{QUrl(u"file:///tmp/a.json"_s), QUrl(u"file:///tmp/b.json"_s)};
    QTest::newRow("one of the net") << QList<QUrl>{QUrl(u"https://example.org/a.json"_s)};
}

void ContentViewTest::otherDropsAreRefused()
{
    QFETCH(QList<QUrl>, urls);
    ContentViewFixture fixture;

    QVERIFY(!drop(fixture.content, urls));

    QCOMPARE(fixture.content.selection(), NavItem::Library);
}

void ContentViewTest::aTemporaryStockSaysSo_data()
{
    QTest::addColumn<StoreKind>("kind");
    QTest::addColumn<bool>("isTold");

    QTest::newRow("temporary") << StoreKind::Memory << true;
    QTest::newRow("file") << StoreKind::File << false;
}

void ContentViewTest::aTemporaryStockSaysSo()
{
    QFETCH(StoreKind, kind);
    const ContentViewFixture fixture(kind);

    QTEST(fixture.showsTitle(u"Spoolwright fonctionne en mode temporaire : les modifications ne "
                             "seront pas conservées après la fermeture."_s),
        "isTold");
}

void ContentViewTest::itSaysWhereTheDataLies()
{
    const QString folder = u"/home/ada/Documents/Spoolwright"_s;
    const TemporaryStoreNotice notice(folder);
    m_openedFolders.clear();
    QDesktopServices::setUrlHandler(u"file"_s, this, "openFolder");

    notice.findChild<QPushButton*>()->click();

    QDesktopServices::unsetUrlHandler(u"file"_s);
    QCOMPARE(m_openedFolders, QStringList{folder});
    const auto texts = notice.findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(texts, [&](const QLabel* label) {
        return label->text() == u"Aucune sauvegarde n'est créée. Dossier des données : "_s + folder;
    }));
}

void ContentViewTest::whatCouldNotBeSavedIsToldUntilItIs()
{
    const ContentViewFixture fixture(StoreKind::File);
    StoreContext& context = fixture.stock->context();
    const QString told = u"Les dernières modifications ne sont pas enregistrées : Le disque est "
                         "plein. Spoolwright continue d'essayer."_s;
    QVERIFY(!fixture.showsTitle(told));

    emit context.committed(u"Le disque est plein."_s);
    QVERIFY(fixture.showsTitle(told));

    emit context.committed({});
    QVERIFY(!fixture.showsTitle(told));
}

REELHOUSE_TEST(ContentViewTest)

#include "ContentViewTest.moc"
