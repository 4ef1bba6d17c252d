#include "app/library/StatisticsView.h"

#include "app/library/StatBar.h"
#include "app/library/StatPanel.h"
#include "app/library/StatTile.h"
#include "app/ui/ThemeService.h"
#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class StatisticsViewTest final : public QObject {
    Q_OBJECT

private slots:
    void anEmptyStockSaysSoThreeTimes();
    void totalsAndGroupsAreShownInOrder();
    void barsComeAndGoWithTheirGroups();
    void aBarIsFilledByItsShare_data();
    void aBarIsFilledByItsShare();
    void theFocusRingHasRoomAroundTheBar();
    void markupInANameIsText();
    void assistiveTechnologyHearsTheShare();
    void onlyNamedGroupsCanBeChosen();
    void panelsStackWhereTheyWouldBeNarrow();
    void theTilesShareTheWidth();
    void aScrollBarLiesInTheMargin();
};

Q_DECLARE_METATYPE(reelhouse::FilterSelection)

namespace {

const FilterSelection plaOnly{.type = FilamentTypeId{4}};

StockDistribution someDistribution()
{
    return {{{u"PLA"_s, 3, u"leaf.fill"_s, plaOnly}, {u"Sans type"_s, 1, u"cube.fill"_s, {}}},
        {{u"Sans marque"_s, 4, {}, {}}}, {{u"Armoire"_s, 4, {}, {.location = LocationId{2}}}}};
}

struct StatisticsFixture {
    StatisticsFixture()
    {
        view.resize(1080, 700);
        view.show();
    }

    void showSome() { view.setStock({4, 9, 2, 1}, someDistribution()); }
    QStringList labels() const
    {
        QStringList texts;
        for (const QLabel* label : view.findChildren<QLabel*>()) {
            if (label->isVisible())
                texts << label->text();
        }
        return texts;
    }
    QStringList bars() const
    {
        QStringList texts;
        for (const StatBar* bar : view.findChildren<StatBar*>())
            texts << bar->accessibleName() + u' ' + bar->text();
        return texts;
    }

    StatisticsView view;
};

} // namespace

void StatisticsViewTest::anEmptyStockSaysSoThreeTimes()
{
    StatisticsFixture fixture;

    fixture.view.setStock({}, {});

    QCOMPARE(fixture.labels(),
        (QStringList{u"Statistiques"_s, u"0 Filaments"_s, u"0 Bobines"_s, u"0 Entamées"_s,
            u"Aucune donnée"_s, u"Par type"_s, u"Aucune donnée"_s, u"Par marque"_s,
            u"Aucune donnée"_s, u"Par lieu"_s}));
    QCOMPARE(fixture.bars(), QStringList());
}

void StatisticsViewTest::totalsAndGroupsAreShownInOrder()
{
    StatisticsFixture fixture;

    fixture.showSome();

    QCOMPARE(fixture.labels(),
        (QStringList{u"Statistiques"_s, u"4 Filaments"_s, u"9 Bobines"_s, u"2 Entamées"_s,
            u"Par type"_s, u"Par marque"_s, u"Par lieu"_s}));
    QCOMPARE(fixture.bars(),
        (QStringList{u"PLA 3 sur 4"_s, u"Sans type 1 sur 4"_s, u"Sans marque 4 sur 4"_s,
            u"Armoire 4 sur 4"_s}));
}

void StatisticsViewTest::barsComeAndGoWithTheirGroups()
{
    StatisticsFixture fixture;
    fixture.showSome();

    StockDistribution fewer = someDistribution();
    fewer.byType.erase(fewer.byType.begin());
    fewer.byLocation.clear();
    fixture.view.setStock({1, 1, 0, 0}, fewer);

    QCOMPARE(fixture.bars(), (QStringList{u"Sans type 1 sur 1"_s, u"Sans marque 4 sur 1"_s}));
    QCOMPARE(fixture.labels().count(u"Aucune donnée"_s), 1);
}

void StatisticsViewTest::aBarIsFilledByItsShare_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("total");
    QTest::addColumn<double>("expected");

    QTest::newRow("all") << 28 << 28 << 200.0;
    QTest::newRow("some") << 7 << 28 << 50.0;
    QTest::newRow("a tiny share") << 1 << 100'000 << 0.002;
    QTest::newRow("none") << 0 << 28 << 0.0;
    QTest::newRow("of nothing") << 0 << 0 << 0.0;
}

void StatisticsViewTest::aBarIsFilledByItsShare()
{
    QFETCH(int, value);
    QFETCH(int, total);
    QFETCH(double, expected);

    QCOMPARE(StatBar::filledWidth(200, value, total), expected);

    StatBar bar(&Theme::accent, nullptr);
    bar.setGroup({u"PLA"_s, value}, total);
    bar.resize(200 + 2 * StatBar::margin, bar.sizeHint().height());
    const QImage picture = bar.grab().toImage().convertToFormat(QImage::Format_RGB32);
    int filled = 0;
    for (int x = 0; x < picture.width(); ++x)
        filled += picture.pixelColor(x, picture.height() - 8) == lightTheme().accent ? 1 : 0;
    QVERIFY(std::abs(filled - expected) <= 2); // The ends are round.
}

void StatisticsViewTest::theFocusRingHasRoomAroundTheBar()
{
    StatBar bar(&Theme::accent, nullptr);
    bar.setGroup({QString(50, u'W'), 1, u"cube.fill"_s}, 1);
    bar.resize(200, bar.sizeHint().height());

    const QImage picture = bar.grab().toImage();

    QImage room = picture;
    room.fill(picture.pixelColor(0, 0));
    const QRect inside = bar.rect().adjusted(4, 4, -4, -4);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (inside.contains(x, y))
                room.setPixelColor(x, y, picture.pixelColor(x, y));
        }
    }
    QCOMPARE(picture, room);
}

void StatisticsViewTest::markupInANameIsText()
{
    StatBar bar(&Theme::accent, nullptr);

    bar.setGroup({u"<b>PLA</b>"_s, 1}, 1);

    QCOMPARE(bar.toolTip(), u"<p>&lt;b&gt;PLA&lt;/b&gt;</p>"_s);
}

void StatisticsViewTest::assistiveTechnologyHearsTheShare()
{
    StatisticsFixture fixture;
    fixture.showSome();
    auto* bar = fixture.view.findChild<StatBar*>();

    QCOMPARE(tests::spokenRole(bar), QAccessible::ProgressBar);
    QCOMPARE(tests::spokenName(bar), u"PLA"_s);
    QCOMPARE(bar->text(), u"3 sur 4"_s);
    QCOMPARE(
        QAccessible::queryAccessibleInterface(bar)->valueInterface()->currentValue().toInt(), 3);
    QCOMPARE(tests::unnamedControls(&fixture.view), QStringList());
}

void StatisticsViewTest::onlyNamedGroupsCanBeChosen()
{
    StatisticsFixture fixture;
    fixture.showSome();
    const auto bars = fixture.view.findChildren<StatBar*>();
    QSignalSpy chosen(&fixture.view, &StatisticsView::groupChosen);

    QTest::mouseClick(bars.at(1), Qt::LeftButton);
    QTest::keyClick(bars.at(2), Qt::Key_Return);
    QCOMPARE(chosen.count(), 0);
    QCOMPARE(bars.at(1)->focusPolicy(), Qt::NoFocus);
    QTest::mouseClick(bars.at(0), Qt::LeftButton);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.last().first().value<FilterSelection>(), plaOnly);
    QTest::keyClick(bars.at(3), Qt::Key_Space);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(
        chosen.last().first().value<FilterSelection>(), FilterSelection{.location = LocationId{2}});
}

void StatisticsViewTest::panelsStackWhereTheyWouldBeNarrow()
{
    StatisticsFixture fixture;
    fixture.showSome();
    QCoreApplication::processEvents();
    const auto panels = fixture.view.findChildren<StatPanel*>();
    QCOMPARE(panels.at(1)->y(), panels.at(0)->y());
    QCOMPARE(panels.at(2)->width(), panels.at(0)->width());

    fixture.view.resize(700, 700);
    QCoreApplication::processEvents();

    QVERIFY(panels.at(1)->y() > panels.at(0)->geometry().bottom());
    QCOMPARE(panels.at(1)->x(), panels.at(0)->x());
    QVERIFY(panels.at(0)->width() <= 700);
}

void StatisticsViewTest::theTilesShareTheWidth()
{
    StatisticsFixture fixture;
    fixture.showSome();
    QCoreApplication::processEvents();

    const auto tiles = fixture.view.findChildren<StatTile*>();
    QCOMPARE(tiles.size(), 3);
    for (const StatTile* tile : tiles)
        QVERIFY(std::abs(tile->width() - tiles.first()->width()) <= 1);
}

void StatisticsViewTest::aScrollBarLiesInTheMargin()
{
    const ThemeService theme;
    StatisticsFixture fixture;
    fixture.showSome();
    QCoreApplication::processEvents();
    const auto places = [&fixture] {
        QList<QRect> rects;
        for (const StatPanel* panel : fixture.view.findChildren<StatPanel*>())
            rects << panel->geometry();
        return rects;
    };
    const QList<QRect> tall = places();
    QCOMPARE(tall.last().right() + 1, 1080 - 24);

    fixture.view.resize(1080, 200);
    QCoreApplication::processEvents();

    QVERIFY(fixture.view.verticalScrollBar()->isVisible());
    QCOMPARE(places(), tall);
    fixture.view.verticalScrollBar()->setValue(0);
    const QImage picture = fixture.view.grab().toImage();
    QCOMPARE(picture.pixelColor(1079, 198), currentTheme().canvas);
}

REELHOUSE_TEST(StatisticsViewTest)

#include "StatisticsViewTest.moc"
