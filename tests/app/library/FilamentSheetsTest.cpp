#include "app/library/FilamentSheets.h"

#include "app/editing/AddFilamentView.h"
#include "app/editing/FilamentDetailView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/library/ListView.h"
#include "app/ui/Alert.h"
#include "core/preferences/Preferences.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/ShownButton.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

using namespace reelhouse;
using namespace Qt::StringLiterals;
using reelhouse::tests::shownButton;

/// What opens over the library, by mouse and by keyboard.
class FilamentSheetsTest final : public QObject {
    Q_OBJECT

private slots:
    void additionOpens_data();
    void additionOpens();
    void theEmptyStockOffersToAdd();
    void theDetailOfTheRowOpens_data();
    void theDetailOfTheRowOpens();
    void aDoubleClickBesideTheRowsOpensNothing();
    void aCopyOpensItsOwnDetail();
    void theLastSpoolAsksToDelete();
};

namespace {

struct SheetsFixture {
    explicit SheetsFixture(StoreKind kind = StoreKind::File)
        : stock(tests::makeMemoryStock(kind))
        , library(*stock, preferences, favorites)
    {
        library.resize(1080, 800);
        library.show();
        QCoreApplication::processEvents();
        list = library.findChild<ListView*>();
        isActive = QTest::qWaitForWindowActive(&library);
    }

    QPoint middleOf(int row) const
    {
        return list->visualRect(list->model()->index(row, 3)).center();
    }
    template <class T>
    T* opened() const
    {
        T* sheet = library.findChild<T*>();
        return sheet && sheet->isVisible() ? sheet : nullptr;
    }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.conf"_s)};
    FilterFavoritesStore favorites{preferences};
    std::unique_ptr<StoreContainer> stock;
    LibraryView library;
    ListView* list = nullptr;
    bool isActive = false;
};

} // namespace

void FilamentSheetsTest::additionOpens_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("by its button") << u"button"_s;
    QTest::newRow("by its key") << u"key"_s;
    QTest::newRow("by the menu of a row") << u"menu"_s;
}

void FilamentSheetsTest::additionOpens()
{
    QFETCH(QString, way);
    SheetsFixture fixture;
    QVERIFY(fixture.isActive);
    QVERIFY(!fixture.opened<AddFilamentView>());

    if (way == u"button"_s) {
        QTest::mouseClick(shownButton(fixture.library, u"Ajouter"_s), Qt::LeftButton);
    } else if (way == u"key"_s) {
        QTest::keyClick(&fixture.library, Qt::Key_N, Qt::ControlModifier);
    } else {
        fixture.list->selectRow(1);
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(fixture.list, &asked);
        auto* menu = fixture.list->findChild<QMenu*>();
        QVERIFY(menu);
        QCOMPARE(menu->actions().first()->text(), u"Ajouter un filament"_s);
        QVERIFY(!menu->actions().first()->icon().isNull());
        menu->actions().first()->trigger();
        menu->close();
    }

    QVERIFY(fixture.opened<AddFilamentView>());
    QCOMPARE(fixture.opened<AddFilamentView>()->windowModality(), Qt::WindowModal);
}

void FilamentSheetsTest::theEmptyStockOffersToAdd()
{
    const SheetsFixture fixture(StoreKind::Memory);

    QTest::mouseClick(shownButton(fixture.library, u"Ajouter un filament"_s), Qt::LeftButton);

    QVERIFY(fixture.opened<AddFilamentView>());
}

void FilamentSheetsTest::theDetailOfTheRowOpens_data()
{
    QTest::addColumn<Qt::Key>("key");

    QTest::newRow("by a double click") << Qt::Key_unknown;
    QTest::newRow("by Return") << Qt::Key_Return;
    QTest::newRow("by Enter on the keypad") << Qt::Key_Enter;
}

void FilamentSheetsTest::theDetailOfTheRowOpens()
{
    QFETCH(Qt::Key, key);
    SheetsFixture fixture;
    QVERIFY(fixture.isActive);
    fixture.list->setFocus();
    fixture.list->selectRow(2);
    const Filament* filament = fixture.stock->context().find(fixture.list->selectedFilament());

    if (key == Qt::Key_unknown) {
        const QPoint row = fixture.middleOf(2);
        QTest::mouseClick(fixture.list->viewport(), Qt::LeftButton, {}, row);
        QTest::mouseDClick(fixture.list->viewport(), Qt::LeftButton, {}, row);
    } else {
        QTest::keyClick(fixture.list, key);
    }

    auto* sheet = fixture.opened<FilamentDetailView>();
    QVERIFY(sheet);
    QCOMPARE(sheet->windowTitle(), filament->colorName());
    QCOMPARE(fixture.library.findChildren<FilamentDetailView*>().size(), 1);
}

void FilamentSheetsTest::aDoubleClickBesideTheRowsOpensNothing()
{
    const SheetsFixture fixture;
    const QPoint below(100, fixture.list->viewport()->height() - 3);
    QVERIFY(!fixture.list->indexAt(below).isValid());

    QTest::mouseDClick(fixture.list->viewport(), Qt::LeftButton, {}, below);

    QVERIFY(!fixture.opened<FilamentDetailView>());
}

void FilamentSheetsTest::aCopyOpensItsOwnDetail()
{
    SheetsFixture fixture;
    QVERIFY(fixture.isActive);
    fixture.list->setFocus();
    fixture.list->selectRow(0);

    QTest::keyClick(fixture.list, Qt::Key_D, Qt::ControlModifier);

    QCOMPARE(fixture.stock->context().count<Filament>(), 9);
    auto* sheet = fixture.opened<FilamentDetailView>();
    QVERIFY(sheet);
    QTest::mouseClick(shownButton(*sheet, u"Annuler"_s), Qt::LeftButton);
    QVERIFY(!fixture.opened<FilamentDetailView>());
    QCOMPARE(fixture.stock->context().count<Filament>(), 9);
}

void FilamentSheetsTest::theLastSpoolAsksToDelete()
{
    SheetsFixture fixture;
    QVERIFY(fixture.isActive);
    StoreContext& context = fixture.stock->context();
    fixture.list->setFocus();
    fixture.list->selectRow(0);
    const FilamentId id = fixture.list->selectedFilament();
    context.find(id)->setSpoolsCount(1);
    context.processPendingChanges();

    QTest::keyClick(fixture.list, Qt::Key_Down, Qt::AltModifier);

    auto* alert = fixture.opened<Alert>();
    QVERIFY(alert);
    QCOMPARE(context.find(id)->spoolsCount(), 1);
    QTest::mouseClick(shownButton(*alert, u"Supprimer"_s), Qt::LeftButton);
    QVERIFY(!context.find(id));
    QCOMPARE(context.undoActionName(), u"Supprimer"_s);
    context.undo();
    QVERIFY(context.find(id));
}

REELHOUSE_TEST(FilamentSheetsTest)

#include "FilamentSheetsTest.moc"
