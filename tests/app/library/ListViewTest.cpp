#include "app/library/ListView.h"

#include "app/library/FilamentRowDelegate.h"
#include "app/library/FilamentTableModel.h"
#include "app/library/RowLayout.h"
#include "app/library/SpoolActions.h"
#include "app/ui/ColorMath.h"
#include "app/ui/Theme.h"
#include "core/text/Folding.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ListViewTest final : public QObject {
    Q_OBJECT

private slots:
    void columnsShareTheWidth_data();
    void columnsShareTheWidth();
    void noTitleIsCut();
    void countsAndPlacesAreWholeInLargeFonts();
    void theTwoLinesOfACellStandApart();
    void aScrollBarMovesNoRow();
    void aDraggedColumnKeepsItsWidth();
    void plusAndMinusChangeTheCount();
    void twoQuickClicksCountTwiceAndOpenNothing();
    void stepButtonsHideWhereTheyWouldCoverText();
    void theContextMenuActsOnTheRow();
    void tabIntoTheListSelectsARow();
    void keysChangeTheCountsOfTheSelection();
    void selectionAndScrollPositionHoldAcrossRefreshes();
    void aClickBesideTheRowsClearsTheSelection();
    void tabLeavesTheTable();
    void whatIsSearchedForStandsOut_data();
    void whatIsSearchedForStandsOut();
};

namespace {

/// A list of `count` filaments in a window of its own.
struct ListViewFixture {
    explicit ListViewFixture(int count)
    {
        for (int number = 0; number < count; ++number) {
            ids.push_back(stock->context()
                              .insert(std::make_unique<Filament>(nullptr, nullptr, nullptr, nullptr,
                                  5, 0, u"#43A047"_s, u"Vert"_s, QString()))
                              .id());
        }
        list.showRows(ids);
        list.resize(1080, 600);
        list.show();
    }

    QRect cell(int row, int column) const
    {
        return list.visualRect(list.model()->index(row, column));
    }
    Filament& filament(int row) { return *stock->context().find(ids[size_t(row)]); }
    void click(QPoint position)
    {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, position);
    }

    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock();
    SpoolActions actions{stock->context(), nullptr};
    ListView list{stock->context(), actions};
    std::vector<FilamentId> ids;
};

} // namespace

void ListViewTest::columnsShareTheWidth_data()
{
    QTest::addColumn<int>("available");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("by their shares") << 810 << QList<int>{210, 160, 120, 130, 190};
    QTest::newRow("the remainder is not lost") << 811 << QList<int>{210, 160, 120, 130, 191};
    QTest::newRow("never below the minima") << 600 << QList<int>{150, 130, 90, 110, 120};
    QTest::newRow("wider than the view when it must be")
        << 300 << QList<int>{150, 130, 90, 110, 120};
    QTest::newRow("a narrow column takes from the others")
        << 650 << QList<int>{165, 130, 94, 110, 151};
}

void ListViewTest::columnsShareTheWidth()
{
    QFETCH(int, available);

    const std::vector<int> widths = listColumnWidths(available);

    QTEST(QList<int>(widths.begin(), widths.end()), "expected");
}

void ListViewTest::noTitleIsCut()
{
    const std::vector<int> widths = listColumnWidths(700, {300, 0, 0, 140, 0});
    QCOMPARE(widths.at(0), 300);
    QCOMPARE(widths.at(3), 140);

    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(20);
    QApplication::setFont(large);
    {
        const ListViewFixture fixture(1);
        const QHeaderView& header = *fixture.list.horizontalHeader();
        QFont font = large;
        font.setPointSizeF(large.pointSizeF() * 0.85);
        font.setWeight(QFont::DemiBold);
        for (int column = 0; column < header.count(); ++column) {
            const QString title = header.model()->headerData(column, Qt::Horizontal).toString();
            QVERIFY(header.sectionSize(column) > QFontMetrics(font).horizontalAdvance(title));
        }
    }
    QApplication::setFont(usual);
}

void ListViewTest::countsAndPlacesAreWholeInLargeFonts()
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(20);
    QApplication::setFont(large);
    {
        ListViewFixture fixture(1);
        fixture.list.resize(1200, 600);
        fixture.filament(0).setOpenedSpoolsCount(1);
        Location& location
            = fixture.stock->context().insert(std::make_unique<Location>(u"Étagère A"_s));
        fixture.filament(0).setLocation(&location);
        for (const int column : {FilamentTableModel::Spools, FilamentTableModel::Place}) {
            for (const CellPiece& piece :
                RowLayout::pieces(fixture.filament(0), column, fixture.cell(0, column), false))
                QVERIFY2(!RowLayout::isCut(piece), qPrintable(piece.text));
        }
    }
    QApplication::setFont(usual);
}

void ListViewTest::theTwoLinesOfACellStandApart()
{
    ListViewFixture fixture(1);
    const QRect cell = fixture.cell(0, 0);
    const auto linesOf = [&](FilamentTableModel::Column column) {
        QList<QRect> lines;
        for (const CellPiece& piece : RowLayout::pieces(fixture.filament(0), column, cell, false)) {
            if (!piece.text.isEmpty())
                lines << piece.rect;
        }
        return lines;
    };
    const std::pair<FilamentTableModel::Column, int> gaps[]
        = {{FilamentTableModel::Product, 2}, {FilamentTableModel::ColorName, 3}};
    for (const auto& [column, gap] : gaps) {
        const QList<QRect> lines = linesOf(column);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines.at(1).top() - (lines.at(0).bottom() + 1), gap);
        // Both together stand in the middle of the row.
        const int above = lines.at(0).top() - cell.top();
        const int below = cell.bottom() - lines.at(1).bottom();
        QVERIFY(std::abs(above - below) <= 1);
    }
}

void ListViewTest::aScrollBarMovesNoRow()
{
    const ListViewFixture few(3);
    const ListViewFixture many(40);
    const QScrollBar& bar = *many.list.verticalScrollBar();
    QVERIFY(bar.isVisible());
    QVERIFY(!few.list.verticalScrollBar()->isVisible());
    QVERIFY(!many.list.horizontalScrollBar()->isVisible());

    for (int column = 0; column < 5; ++column)
        QCOMPARE(many.cell(0, column), few.cell(0, column));
    QCOMPARE(many.cell(0, 4).right() + 1, 1080 - 8);

    // It stands in the margin, beside the rows and not beside the titles.
    const QRect place(bar.mapTo(&many.list, QPoint()), bar.size());
    const int headerHeight = many.list.horizontalHeader()->height();
    QCOMPARE(place, QRect(1080 - 8, headerHeight, 8, 600 - headerHeight));
    const QImage picture = const_cast<ListView&>(many.list).grab().toImage();
    QCOMPARE(picture.pixelColor(1079, headerHeight - 1), currentTheme().hairline);
    QCOMPARE(picture.pixelColor(1079, headerHeight / 2), currentTheme().list);
}

void ListViewTest::aDraggedColumnKeepsItsWidth()
{
    ListViewFixture fixture(3);
    const int shared = fixture.list.columnWidth(2);
    fixture.list.resize(1200, 600);
    QVERIFY(fixture.list.columnWidth(2) > shared);

    const int dragged = 321;
    fixture.list.horizontalHeader()->resizeSection(2, dragged); // As the mouse does.

    fixture.list.resize(900, 600);
    fixture.list.showRows({fixture.ids[0]});
    QCOMPARE(fixture.list.columnWidth(2), dragged);
}

void ListViewTest::plusAndMinusChangeTheCount()
{
    ListViewFixture fixture(3);

    fixture.click(RowLayout::plusRect(fixture.cell(1, 1)).center());
    QCOMPARE(fixture.filament(1).spoolsCount(), 6);

    fixture.click(RowLayout::minusRect(fixture.cell(1, 1)).center());
    fixture.click(RowLayout::minusRect(fixture.cell(2, 1)).center());
    QCOMPARE(fixture.filament(1).spoolsCount(), 5);
    QCOMPARE(fixture.filament(2).spoolsCount(), 4);
    QCOMPARE(fixture.filament(0).spoolsCount(), 5);
}

void ListViewTest::twoQuickClicksCountTwiceAndOpenNothing()
{
    ListViewFixture fixture(2);
    QSignalSpy activated(&fixture.list, &QAbstractItemView::activated);
    const QPoint plus = RowLayout::plusRect(fixture.cell(0, 1)).center();

    fixture.click(plus);
    QTest::mouseDClick(fixture.list.viewport(), Qt::LeftButton, {}, plus);
    QTest::mouseRelease(fixture.list.viewport(), Qt::LeftButton, {}, plus);

    QCOMPARE(fixture.filament(0).spoolsCount(), 7);
    QCOMPARE(activated.count(), 0);
}

void ListViewTest::stepButtonsHideWhereTheyWouldCoverText()
{
    ListViewFixture fixture(1);
    fixture.filament(0).setSpoolsCount(123456789012345678);
    fixture.filament(0).setOpenedSpoolsCount(123456789012345678);

    fixture.click(RowLayout::plusRect(fixture.cell(0, 1)).center());

    QCOMPARE(fixture.filament(0).spoolsCount(), 123456789012345678);
}

void ListViewTest::theContextMenuActsOnTheRow()
{
    ListViewFixture fixture(3);
    const QPoint position = fixture.cell(2, 0).center();

    QContextMenuEvent event(
        QContextMenuEvent::Mouse, position, fixture.list.viewport()->mapToGlobal(position));
    QCoreApplication::sendEvent(fixture.list.viewport(), &event);

    auto* menu = fixture.list.findChild<QMenu*>();
    QVERIFY(menu);
    QCOMPARE(menu->actions().at(2)->text(), u"Ajouter une bobine"_s);
    menu->actions().at(2)->trigger();
    QCOMPARE(fixture.filament(2).spoolsCount(), 6);
    menu->close();
}

void ListViewTest::tabIntoTheListSelectsARow()
{
    ListViewFixture fixture(3);
    fixture.list.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.list));
    fixture.list.clearFocus();
    QVERIFY(!fixture.list.selectedFilament());

    fixture.list.setFocus(Qt::TabFocusReason);

    QCOMPARE(fixture.list.selectedFilament(), fixture.filament(0).id());
    QTest::keyClick(&fixture.list, Qt::Key_Plus);
    QCOMPARE(fixture.filament(0).spoolsCount(), 6);
}

void ListViewTest::keysChangeTheCountsOfTheSelection()
{
    ListViewFixture fixture(3);
    fixture.list.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.list));
    fixture.list.setFocus();
    fixture.list.selectRow(1);
    const Filament& filament = fixture.filament(1);

    QTest::keyClick(&fixture.list, Qt::Key_Plus);
    QTest::keyClick(&fixture.list, Qt::Key_Plus, Qt::KeypadModifier);
    QCOMPARE(filament.spoolsCount(), 7);
    QTest::keyClick(&fixture.list, Qt::Key_Minus);
    QCOMPARE(filament.spoolsCount(), 6);
    QTest::keyClick(&fixture.list, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(filament.spoolsCount(), 7);
    QTest::keyClick(&fixture.list, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(filament.spoolsCount(), 6);
    QTest::keyClick(&fixture.list, Qt::Key_Up, Qt::AltModifier | Qt::ShiftModifier);
    QTest::keyClick(&fixture.list, Qt::Key_Up, Qt::AltModifier | Qt::ShiftModifier);
    QTest::keyClick(&fixture.list, Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    QCOMPARE(filament.openedSpoolsCount(), 1);
    QCOMPARE(fixture.list.currentIndex().row(), 1);
    QCOMPARE(fixture.filament(0).spoolsCount(), 5);
}

void ListViewTest::selectionAndScrollPositionHoldAcrossRefreshes()
{
    ListViewFixture fixture(100);
    fixture.click(fixture.cell(3, 0).center());
    const FilamentId selected = fixture.ids[3];
    QCOMPARE(fixture.list.selectedFilament(), selected);
    fixture.list.verticalScrollBar()->setValue(700);

    std::vector<FilamentId> withoutFirst(fixture.ids.begin() + 1, fixture.ids.end());
    fixture.list.showRows(withoutFirst);
    QCOMPARE(fixture.list.selectedFilament(), selected);
    QCOMPARE(fixture.list.currentIndex().row(), 2);
    QCOMPARE(fixture.list.verticalScrollBar()->value(), 700);

    fixture.list.showRows({fixture.ids[0]});
    QCOMPARE(fixture.list.selectedFilament(), FilamentId{});
}

void ListViewTest::aClickBesideTheRowsClearsTheSelection()
{
    ListViewFixture fixture(2);
    fixture.click(fixture.cell(0, 0).center());

    fixture.click({400, fixture.cell(1, 0).bottom() + 100});

    QCOMPARE(fixture.list.selectedFilament(), FilamentId{});
}

void ListViewTest::tabLeavesTheTable()
{
    const ListViewFixture fixture(2);

    QVERIFY(!fixture.list.tabKeyNavigation());
    QVERIFY(!fixture.list.accessibleName().isEmpty());
}

void ListViewTest::whatIsSearchedForStandsOut_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QList<int>>("expectedColumns");

    QTest::newRow("nothing") << QString() << QList<int>{};
    QTest::newRow("in the name of the colour") << u"VÉRT"_s << QList<int>{3};
    QTest::newRow("in the code of the colour") << u"#43a"_s << QList<int>{3};
    QTest::newRow("in several texts") << u"e"_s << QList<int>{3, 4};
    QTest::newRow("in the second part of a text") << u"basic"_s << QList<int>{0};
    QTest::newRow("not in what only says that there is none") << u"sans"_s << QList<int>{};
    QTest::newRow("nowhere") << u"violet"_s << QList<int>{};
}

void ListViewTest::whatIsSearchedForStandsOut()
{
    QFETCH(QString, search);
    ListViewFixture fixture(1);
    StoreContext& context = fixture.stock->context();
    fixture.filament(0).setRange(&context.insert(std::make_unique<FilamentRange>(u"Basic"_s)));
    fixture.filament(0).setNotes(u"Reste"_s);

    fixture.list.setFoldedSearch(normalizedForSearch(search));

    const QImage picture = fixture.list.viewport()->grab().toImage();
    const QColor bare = picture.pixelColor(picture.rect().bottomRight());
    const QColor ground = blended(faded(currentTheme().accent, 0.25), bare);
    QList<int> columns;
    for (int column = 0; column < 5; ++column) {
        if (tests::pixelsLike(picture, fixture.cell(0, column), ground) > 0)
            columns << column;
    }
    QTEST(columns, "expectedColumns");
}

REELHOUSE_TEST(ListViewTest)

#include "ListViewTest.moc"
