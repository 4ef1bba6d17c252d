#include "app/editing/IconPicker.h"

#include "app/ui/ThemeService.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class IconPickerTest final : public QObject {
    Q_OBJECT

private slots:
    void symbolsStandInTheirOrder();
    void asManyColumnsAsFit_data();
    void asManyColumnsAsFit();
    void aClickChooses();
    void arrowKeysChooseAndScroll();
    void anUnknownSymbolIsKeptUntilOneIsChosen();
    void cellsAreFilledAndOutlined();
    void theScrollBarLeavesTheBorderWhole();
};

namespace {

struct IconPickerFixture {
    explicit IconPickerFixture(const QString& selection, int width = 348)
        : picker(selection)
    {
        picker.resize(width, 130);
        picker.show();
    }

    QList<IconCell*> cells() const { return picker.findChildren<IconCell*>(); }
    QStringList chosen() const
    {
        QStringList symbols;
        for (const IconCell* cell : cells()) {
            if (cell->isChecked())
                symbols += cell->symbol();
        }
        return symbols;
    }

    IconPicker picker;
};

} // namespace

void IconPickerTest::symbolsStandInTheirOrder()
{
    const IconPickerFixture fixture(u"cube.fill"_s);

    QStringList symbols;
    for (const IconCell* cell : fixture.cells())
        symbols += cell->symbol();
    QCOMPARE(symbols.size(), 20);
    QCOMPARE(
        symbols.mid(0, 3), QStringList({u"cube.fill"_s, u"cylinder.fill"_s, u"circle.fill"_s}));
    QCOMPARE(symbols.last(), u"arrow.trianglehead.swap"_s);
    QCOMPARE(fixture.cells().first()->accessibleName(), u"Cube"_s);
    QCOMPARE(fixture.picker.height(), 130);
}

void IconPickerTest::asManyColumnsAsFit_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("columns");

    // The border takes 2 pixels, the scroll bar 12, the padding 16.
    QTest::newRow("the sheet") << 348 << 7;
    QTest::newRow("seven just fit") << 2 + 12 + 16 + 7 * 38 + 6 * 8 << 7;
    QTest::newRow("seven do not fit") << 2 + 12 + 16 + 7 * 38 + 6 * 8 - 1 << 6;
    QTest::newRow("narrow") << 60 << 1;
}

void IconPickerTest::asManyColumnsAsFit()
{
    QFETCH(int, width);
    QFETCH(int, columns);
    const ThemeService theme;
    const IconPickerFixture fixture(u"cube.fill"_s, width);

    const QList<IconCell*> cells = fixture.cells();
    int inFirstRow = 0;
    for (const IconCell* cell : cells) {
        if (cell->y() == cells.first()->y())
            ++inFirstRow;
        QCOMPARE(cell->size(), QSize(38, 38));
    }
    QCOMPARE(inFirstRow, columns);
    QCOMPARE(cells.first()->pos(), QPoint(8, 8));
    QCOMPARE(cells.at(columns)->pos(), QPoint(8, 8 + 38 + 8));
}

void IconPickerTest::aClickChooses()
{
    IconPickerFixture fixture(u"cube.fill"_s);

    QTest::mouseClick(fixture.cells().at(6), Qt::LeftButton);

    QCOMPARE(fixture.picker.selection(), u"drop.fill"_s);
    QCOMPARE(fixture.chosen(), QStringList{u"drop.fill"_s});
}

void IconPickerTest::arrowKeysChooseAndScroll()
{
    IconPickerFixture fixture(u"drop.fill"_s);
    QVERIFY(QTest::qWaitForWindowActive(&fixture.picker));
    fixture.cells().at(6)->setFocus();
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };

    press(Qt::Key_Left);
    QCOMPARE(fixture.picker.selection(), u"diamond.fill"_s);
    press(Qt::Key_Down);
    QCOMPARE(fixture.picker.selection(), u"star.fill"_s);
    press(Qt::Key_Down);
    QCOMPARE(fixture.picker.selection(), u"arrow.trianglehead.swap"_s);
    const auto* bar = fixture.picker.findChild<QScrollArea*>()->verticalScrollBar();
    QCOMPARE(bar->value(), bar->maximum());
    QVERIFY(bar->maximum() > 0);
    press(Qt::Key_Up);
    press(Qt::Key_Right);
    QCOMPARE(fixture.picker.selection(), u"moon.fill"_s);
}

void IconPickerTest::anUnknownSymbolIsKeptUntilOneIsChosen()
{
    const IconPickerFixture fixture(u"made.up"_s);

    QCOMPARE(fixture.chosen(), QStringList());
    QCOMPARE(fixture.picker.selection(), u"made.up"_s);
}

void IconPickerTest::cellsAreFilledAndOutlined()
{
    const IconPickerFixture fixture(u"cube.fill"_s);
    const auto cornerless = [](IconCell& cell) {
        QImage image(cell.size(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        cell.render(&image, {}, {}, {});
        return image;
    };

    const QImage chosen = cornerless(*fixture.cells().at(0));
    const QImage other = cornerless(*fixture.cells().at(1));

    // The accent at full strength around, 18 % of it inside; gray at 15 % over 8 %, and 8 %.
    QCOMPARE(chosen.pixelColor(19, 0), QColor(0x66, 0x7e, 0xea));
    QCOMPARE(chosen.pixelColor(19, 4), QColor(0xe3, 0xe8, 0xfb));
    QCOMPARE(other.pixelColor(19, 4), QColor(0xf5, 0xf5, 0xf5));
    QVERIFY(other.pixelColor(19, 0).red() < 0xf0);
}

void IconPickerTest::theScrollBarLeavesTheBorderWhole()
{
    const ThemeService theme;
    IconPickerFixture fixture(u"cube.fill"_s);
    QImage picture(fixture.picker.size(), QImage::Format_ARGB32);
    picture.fill(Qt::magenta);
    fixture.picker.render(&picture, {}, {}, QWidget::DrawChildren);

    // Its corners are round on both sides, and nothing else shines through beside the bar.
    const int right = picture.width() - 1;
    for (const int y : {0, 1, 128, 129})
        QCOMPARE(picture.pixelColor(right - 1, y), picture.pixelColor(1, y));
    for (const int y : {20, 65, 110}) {
        QCOMPARE(picture.pixelColor(right, y), currentTheme().hairline);
        QCOMPARE(picture.pixelColor(right - 2, y), currentTheme().surface);
    }
}

REELHOUSE_TEST(IconPickerTest)

#include "IconPickerTest.moc"
