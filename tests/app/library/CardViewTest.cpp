#include "app/library/CardView.h"

#include "app/library/AddCardButton.h"
#include "app/library/FilamentTableModel.h"
#include "app/library/SpoolActions.h"
#include "app/ui/ColorMath.h"
#include "app/ui/Theme.h"
#include "core/text/Folding.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class CardViewTest final : public QObject {
    Q_OBJECT

private slots:
    void aCardSaysEverythingAtOnce_data();
    void aCardSaysEverythingAtOnce();
    void aClickSelectsAndBesideItClears();
    void doubleClickAndReturnOpenTheDetail();
    void arrowKeysMoveInTheGrid_data();
    void arrowKeysMoveInTheGrid();
    void typingFindsAType();
    void theMenuAndTheKeysActOnTheCard();
    void theSelectionGoesByIdentity();
    void theScrollPositionHoldsAcrossEdits();
    void theLastPlaceAddsAFilament();
    void aStockOfAnySizeIsLaidOutAtOnce();
    void longCountsStandUnderOneAnotherInEveryCard();
    void nothingFocusableIsWithoutAName();
    void whatIsSearchedForStandsOut();
};

namespace {

struct CardViewFixture {
    explicit CardViewFixture(int count, QSize size = {1080, 600})
    {
        StoreContext& context = stock->context();
        abs = &context.insert(std::make_unique<FilamentType>(u"ABS"_s));
        pla = &context.insert(std::make_unique<FilamentType>(u"PLA"_s));
        for (int number = 0; number < count; ++number) {
            ids.push_back(context
                              .insert(std::make_unique<Filament>(number < 7 ? abs : pla, nullptr,
                                  nullptr, nullptr, 5, 0, u"#43A047"_s, u"Vert"_s, QString()))
                              .id());
        }
        grid.showRows(ids);
        view.resize(size);
        view.show();
    }

    QRect card(int row) const { return grid.visualRect(grid.model()->index(row, 0)); }
    void click(QPoint position) const
    {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, position);
    }
    int selectedRow() const
    {
        const auto selected = grid.selectionModel()->selectedIndexes();
        return selected.isEmpty() ? -1 : selected.first().row();
    }
    Filament& filament(int row) { return *stock->context().find(ids[size_t(row)]); }

    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock();
    SpoolActions actions{stock->context(), nullptr};
    CardView view{stock->context(), actions};
    CardGrid& grid = view.grid();
    FilamentType* abs = nullptr;
    FilamentType* pla = nullptr;
    std::vector<FilamentId> ids;
};

} // namespace

void CardViewTest::aCardSaysEverythingAtOnce_data()
{
    QTest::addColumn<bool>("isFull");
    QTest::addColumn<QString>("expected");

    QTest::newRow("everything")
        << true
        << u"PLA, Bambu Lab, PLA Basic, Rouge #E53935, 2 bobines, 1 entamée, Étagère A, à sécher"_s;
    QTest::newRow("nothing") << false << u"Sans type, Sans marque, #E53935, 1 bobine, Sans lieu"_s;
}

void CardViewTest::aCardSaysEverythingAtOnce()
{
    QFETCH(bool, isFull);
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    auto* type = &context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    auto* brand = &context.insert(std::make_unique<Brand>(u"Bambu Lab"_s));
    auto* range = &context.insert(std::make_unique<FilamentRange>(u"PLA Basic"_s));
    auto* location = &context.insert(std::make_unique<Location>(u"Étagère A"_s));
    auto filament = isFull ? std::make_unique<Filament>(
                        type, brand, range, location, 2, 1, u"#E53935"_s, u"Rouge"_s, u"à sécher"_s)
                           : std::make_unique<Filament>(nullptr, nullptr, nullptr, nullptr, 1, 0,
                               u"#E53935"_s, QString(), QString());
    const FilamentId id = context.insert(std::move(filament)).id();
    FilamentTableModel model(context, FilamentTableModel::Shape::Cards, nullptr);
    const QAbstractItemModelTester tester(&model);
    model.setRows({id});

    QCOMPARE(model.columnCount(), 1);
    QTEST(model.index(0, 0).data(Qt::AccessibleTextRole).toString(), "expected");
}

void CardViewTest::aClickSelectsAndBesideItClears()
{
    const CardViewFixture fixture(3);
    QSignalSpy opened(&fixture.actions, &SpoolActions::detailRequested);

    fixture.click(fixture.card(1).center());
    QCOMPARE(fixture.selectedRow(), 1);
    QCOMPARE(fixture.actions.target(), fixture.ids[1]);
    QCOMPARE(opened.count(), 0);

    fixture.click(fixture.card(2).bottomLeft() + QPoint(0, 40));
    QCOMPARE(fixture.selectedRow(), -1);
    QCOMPARE(fixture.actions.target(), FilamentId());

    fixture.click(fixture.card(0).center());
    fixture.click(fixture.card(0).topRight() + QPoint(5, 10)); // In the gap.
    QCOMPARE(fixture.selectedRow(), -1);
}

void CardViewTest::doubleClickAndReturnOpenTheDetail()
{
    const CardViewFixture fixture(3);
    QSignalSpy opened(&fixture.actions, &SpoolActions::detailRequested);

    fixture.click(fixture.card(2).center());
    QTest::mouseDClick(fixture.grid.viewport(), Qt::LeftButton, {}, fixture.card(2).center());
    QCOMPARE(opened.count(), 1);
    QCOMPARE(opened.last().first().value<FilamentId>(), fixture.ids[2]);

    fixture.click(fixture.card(0).center());
    QTest::keyClick(&fixture.grid, Qt::Key_Return);
    QCOMPARE(opened.count(), 2);
    QCOMPARE(opened.last().first().value<FilamentId>(), fixture.ids[0]);
}

void CardViewTest::arrowKeysMoveInTheGrid_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("expected");

    // Twelve cards, five in a row.
    QTest::newRow("right") << 0 << Qt::Key_Right << 1;
    QTest::newRow("right into the next row") << 4 << Qt::Key_Right << 5;
    QTest::newRow("left") << 5 << Qt::Key_Left << 4;
    QTest::newRow("left at the start") << 0 << Qt::Key_Left << 0;
    QTest::newRow("down") << 2 << Qt::Key_Down << 7;
    QTest::newRow("down where there is none") << 8 << Qt::Key_Down << 8;
    QTest::newRow("up") << 11 << Qt::Key_Up << 6;
    QTest::newRow("up in the first row") << 3 << Qt::Key_Up << 3;
    QTest::newRow("right at the end") << 11 << Qt::Key_Right << 11;
    QTest::newRow("home") << 7 << Qt::Key_Home << 0;
    QTest::newRow("end") << 0 << Qt::Key_End << 11;
    QTest::newRow("page down") << 1 << Qt::Key_PageDown << 11;
    QTest::newRow("page up") << 11 << Qt::Key_PageUp << 1;
}

void CardViewTest::arrowKeysMoveInTheGrid()
{
    QFETCH(int, from);
    QFETCH(Qt::Key, key);
    const CardViewFixture fixture(12, {1080, 700});
    QCOMPARE(fixture.grid.geometryOfCards().columns(), 5);
    fixture.click(fixture.card(0).center());
    fixture.grid.setCurrentIndex(fixture.grid.model()->index(from, 0));

    QTest::keyClick(&fixture.grid, key);

    QTEST(fixture.grid.currentIndex().row(), "expected");
    QCOMPARE(fixture.selectedRow(), fixture.grid.currentIndex().row());
    QVERIFY(
        fixture.grid.viewport()->rect().contains(fixture.card(fixture.grid.currentIndex().row())));
}

void CardViewTest::typingFindsAType()
{
    const CardViewFixture fixture(12);
    fixture.grid.setFocus();

    QTest::keyClicks(&fixture.grid, u"pl"_s);

    QCOMPARE(fixture.selectedRow(), 7);
}

void CardViewTest::theMenuAndTheKeysActOnTheCard()
{
    CardViewFixture fixture(2);
    const QPoint place = fixture.card(1).center();
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, place, fixture.grid.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(fixture.grid.viewport(), &event);

    auto* menu = fixture.grid.findChild<QMenu*>();
    QVERIFY(menu);
    QStringList titles;
    for (const QAction* action : menu->actions())
        titles << (action->isSeparator() ? u"-"_s : action->text());
    QCOMPARE(titles,
        (QStringList{u"Ajouter un filament"_s, u"-"_s, u"Ajouter une bobine"_s,
            u"Retirer une bobine"_s, u"-"_s, u"Ajouter une bobine entamée"_s,
            u"Supprimer une bobine entamée"_s, u"-"_s, u"Dupliquer le filament"_s, u"-"_s,
            u"Supprimer"_s}));
    menu->actions().at(2)->trigger();
    QCOMPARE(fixture.filament(1).spoolsCount(), 6);
    menu->close();

    QTest::keyClicks(&fixture.grid, u"+-+"_s);
    QCOMPARE(fixture.filament(1).spoolsCount(), 7);
    QCOMPARE(fixture.filament(0).spoolsCount(), 5);
}

void CardViewTest::theSelectionGoesByIdentity()
{
    const CardViewFixture fixture(6);
    fixture.click(fixture.card(3).center());

    fixture.grid.showRows({fixture.ids[5], fixture.ids[3]});
    QCOMPARE(fixture.selectedRow(), 1);
    QCOMPARE(fixture.actions.target(), fixture.ids[3]);

    fixture.grid.showRows({fixture.ids[5]});
    QCOMPARE(fixture.selectedRow(), -1);
    QCOMPARE(fixture.actions.target(), FilamentId());

    fixture.grid.showRows(fixture.ids);
    QCOMPARE(fixture.selectedRow(), 3);
    QCOMPARE(fixture.actions.target(), fixture.ids[3]);
}

void CardViewTest::theScrollPositionHoldsAcrossEdits()
{
    CardViewFixture fixture(60);
    fixture.click(fixture.card(0).center());
    fixture.grid.verticalScrollBar()->setValue(700);

    fixture.filament(0).setSpoolsCount(9);
    fixture.grid.showRows(fixture.ids);
    QCOMPARE(fixture.grid.verticalScrollBar()->value(), 700);

    std::vector<FilamentId> fewer = fixture.ids;
    fewer.pop_back();
    fixture.grid.showRows(fewer);
    QCOMPARE(fixture.grid.verticalScrollBar()->value(), 700);
    QCOMPARE(fixture.selectedRow(), 0);
}

void CardViewTest::theLastPlaceAddsAFilament()
{
    CardViewFixture fixture(12, {1080, 600});
    fixture.view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.view));
    QSignalSpy added(&fixture.actions, &SpoolActions::additionRequested);
    auto* button = fixture.view.findChild<AddCardButton*>();
    const CardGeometry cards = fixture.grid.geometryOfCards();
    QCOMPARE(button->geometry(), cards.rect(12));

    button->setFocus(Qt::TabFocusReason); // Comes into view.
    QVERIFY(fixture.view.rect().contains(button->geometry()));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(added.count(), 1);
    QCOMPARE(button->text(), u"Ajouter un filament"_s);

    fixture.grid.showRows({fixture.ids[0]});
    QCOMPARE(button->geometry(), cards.rect(1));
}

void CardViewTest::aStockOfAnySizeIsLaidOutAtOnce()
{
    const CardViewFixture fixture(5000, {880, 600});

    fixture.grid.scrollTo(fixture.grid.model()->index(4999, 0));

    const QRect last = fixture.card(4999);
    QVERIFY(fixture.grid.viewport()->rect().contains(last));
    QCOMPARE(fixture.grid.indexAt(last.center()).row(), 4999);
    QCOMPARE(fixture.grid.geometryOfCards().columns(), 4);
}

void CardViewTest::longCountsStandUnderOneAnotherInEveryCard()
{
    CardViewFixture fixture(3);
    QCOMPARE(fixture.grid.counts(), CardLayout::Counts::Beside);
    const int height = fixture.card(0).height();

    fixture.filament(2).setSpoolsCount(123'456'789);
    fixture.grid.measureCounts();
    fixture.grid.showRows(fixture.ids); // Nothing opened: nothing beside it.
    QCOMPARE(fixture.grid.counts(), CardLayout::Counts::Beside);

    fixture.filament(2).setOpenedSpoolsCount(123'456'788);
    fixture.grid.measureCounts();
    fixture.grid.showRows(fixture.ids);
    QCOMPARE(fixture.grid.counts(), CardLayout::Counts::OneUnderTheOther);
    QVERIFY(fixture.card(0).height() > height);
    QCOMPARE(fixture.card(0).height(), fixture.card(2).height());
}

void CardViewTest::nothingFocusableIsWithoutAName()
{
    CardViewFixture fixture(3);

    QCOMPARE(tests::unnamedControls(&fixture.view), QStringList());
}

void CardViewTest::whatIsSearchedForStandsOut()
{
    const CardViewFixture fixture(8);
    const QColor ground = blended(faded(currentTheme().accent, 0.25), currentTheme().surface);
    const auto marked = [&] {
        const QImage picture = fixture.grid.viewport()->grab().toImage();
        QList<int> cards;
        for (int row = 0; row < 8; ++row) {
            if (tests::pixelsLike(picture, fixture.card(row), ground) > 0)
                cards << row;
        }
        return cards;
    };
    QCOMPARE(marked(), QList<int>());

    fixture.grid.setFoldedSearch(normalizedForSearch(u"Plà"_s));
    QCOMPARE(marked(), QList<int>{7}); // The only one of that type.

    fixture.grid.setFoldedSearch(normalizedForSearch(u"sans"_s));
    QCOMPARE(marked(), QList<int>()); // "Sans marque" is no name.

    // On the field of colour, in front of a dark ground, a light text gets a darker one.
    fixture.grid.setFoldedSearch(normalizedForSearch(u"vert"_s));
    const QRect field(fixture.card(0).topLeft(), QSize(fixture.card(0).width(), CardLayout::field));
    const QColor wash = blended(faded(Qt::white, 0.4), QColor(u"#43A047"_s));
    QVERIFY(tests::pixelsLike(fixture.grid.viewport()->grab().toImage(), field, wash) > 0);
}

REELHOUSE_TEST(CardViewTest)

#include "CardViewTest.moc"
