#include "app/library/ViewMode.h"

#include "app/library/CardView.h"
#include "app/library/FilterBarView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/library/ListView.h"
#include "app/library/StatBar.h"
#include "app/library/StatisticsView.h"
#include "app/ui/SearchField.h"
#include "app/ui/SegmentedPicker.h"
#include "core/preferences/Preferences.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

/// The library's three ways of showing the stock, and the passage from one to another.
class ViewModeTest final : public QObject {
    Q_OBJECT

private slots:
    void titlesAreReadExactly_data();
    void titlesAreReadExactly();
    void thePickerAndTheKeysChooseTheMode();
    void theModeIsRestoredOnlyWithTheWindowState_data();
    void theModeIsRestoredOnlyWithTheWindowState();
    void theModeIsWrittenOnlyWithTheWindowState_data();
    void theModeIsWrittenOnlyWithTheWindowState();
    void theSelectionGoesAlongFromListToCards();
    void aFavoriteLeavesTheStatisticsOnly_data();
    void aFavoriteLeavesTheStatisticsOnly();
    void aBarShowsItsGroup();
    void everyModeFollowsTheStock();
    void controlFLeavesTheStatistics();
    void everyModeIsNamedThroughout_data();
    void everyModeIsNamedThroughout();
};

Q_DECLARE_METATYPE(std::optional<reelhouse::ViewMode>)

namespace {

struct ViewModeFixture {
    explicit ViewModeFixture(const QString& savedMode = {}, bool remembers = true)
    {
        if (!savedMode.isEmpty())
            preferences.setViewMode(savedMode);
        preferences.setRememberWindowState(remembers);
        library.resize(1080, 800);
        library.show();
        QCoreApplication::processEvents();
    }

    bool shows(const QWidget* widget) const { return widget->isVisible(); }
    ListView& list() const { return *library.findChild<ListView*>(); }
    CardGrid& cards() const { return *library.findChild<CardGrid*>(); }
    StatisticsView& statistics() const { return *library.findChild<StatisticsView*>(); }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.ini"_s)};
    FilterFavoritesStore favorites{preferences};
    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock(StoreKind::File);
    LibraryView library{*stock, preferences, favorites};
};

} // namespace

void ViewModeTest::titlesAreReadExactly_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<std::optional<ViewMode>>("expected");

    QTest::newRow("list") << u"Liste"_s << std::optional(ViewMode::List);
    QTest::newRow("cards") << u"Cartes"_s << std::optional(ViewMode::Cards);
    QTest::newRow("statistics") << u"Stats"_s << std::optional(ViewMode::Stats);
    QTest::newRow("other case") << u"liste"_s << std::optional<ViewMode>();
    QTest::newRow("nothing") << QString() << std::optional<ViewMode>();
    QTest::newRow("unknown") << u"Grille"_s << std::optional<ViewMode>();
}

void ViewModeTest::titlesAreReadExactly()
{
    QFETCH(QString, title);
    QFETCH(std::optional<ViewMode>, expected);

    QCOMPARE(viewModeFrom(title) == expected, true);
    if (expected)
        QCOMPARE(viewModeTitle(*expected), title);
}

void ViewModeTest::thePickerAndTheKeysChooseTheMode()
{
    ViewModeFixture fixture;
    fixture.library.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.library));
    const auto segments = fixture.library.findChildren<SegmentButton*>();
    QCOMPARE(segments.size(), 3);
    QVERIFY(fixture.shows(&fixture.list()));

    QTest::mouseClick(segments.at(1), Qt::LeftButton);
    QVERIFY(fixture.shows(&fixture.cards()));
    QVERIFY(fixture.library.findChild<FilterBarView*>()->isVisible());
    QTest::mouseClick(segments.at(2), Qt::LeftButton);
    QVERIFY(fixture.shows(&fixture.statistics()));
    QVERIFY(!fixture.library.findChild<FilterBarView*>()->isVisible());

    QTest::keyClick(&fixture.library, Qt::Key_1, Qt::ControlModifier);
    QVERIFY(fixture.shows(&fixture.list()));
    QVERIFY(segments.at(0)->isChecked());
    QTest::keyClick(&fixture.library, Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(fixture.library.viewMode(), ViewMode::Cards);
    QTest::keyClick(&fixture.library, Qt::Key_3, Qt::ControlModifier);
    QCOMPARE(fixture.library.viewMode(), ViewMode::Stats);
    QVERIFY(segments.at(2)->isChecked());
}

void ViewModeTest::theModeIsRestoredOnlyWithTheWindowState_data()
{
    QTest::addColumn<QString>("saved");
    QTest::addColumn<bool>("remembers");
    QTest::addColumn<ViewMode>("expected");

    QTest::newRow("cards") << u"Cartes"_s << true << ViewMode::Cards;
    QTest::newRow("statistics") << u"Stats"_s << true << ViewMode::Stats;
    QTest::newRow("not remembered") << u"Cartes"_s << false << ViewMode::List;
    QTest::newRow("unknown") << u"cartes"_s << true << ViewMode::List;
    QTest::newRow("nothing saved") << QString() << true << ViewMode::List;
}

void ViewModeTest::theModeIsRestoredOnlyWithTheWindowState()
{
    QFETCH(QString, saved);
    QFETCH(bool, remembers);
    const ViewModeFixture fixture(saved, remembers);

    QTEST(fixture.library.viewMode(), "expected");
}

void ViewModeTest::theModeIsWrittenOnlyWithTheWindowState_data()
{
    QTest::addColumn<bool>("remembers");
    QTest::addColumn<QString>("expected");

    QTest::newRow("remembered") << true << u"Cartes"_s;
    QTest::newRow("not remembered") << false << QString();
}

void ViewModeTest::theModeIsWrittenOnlyWithTheWindowState()
{
    QFETCH(bool, remembers);
    ViewModeFixture fixture({}, remembers);

    fixture.library.setViewMode(ViewMode::Stats);
    fixture.library.setViewMode(ViewMode::Cards);

    QTEST(Preferences(fixture.folder.filePath(u"preferences.ini"_s)).viewMode(), "expected");
}

void ViewModeTest::theSelectionGoesAlongFromListToCards()
{
    ViewModeFixture fixture;
    fixture.list().selectRow(2);
    const FilamentId selected = fixture.list().selectedFilament();
    QVERIFY(selected);

    fixture.library.setViewMode(ViewMode::Cards);
    QCOMPARE(fixture.cards().selection().shownId(), selected);

    fixture.cards().setCurrentIndex(fixture.cards().model()->index(5, 0));
    const FilamentId other = fixture.cards().selection().shownId();
    QVERIFY(other != selected);
    fixture.library.setViewMode(ViewMode::Stats);
    fixture.library.setViewMode(ViewMode::List);
    QCOMPARE(fixture.list().selectedFilament(), other);
}

void ViewModeTest::aFavoriteLeavesTheStatisticsOnly_data()
{
    QTest::addColumn<ViewMode>("mode");
    QTest::addColumn<ViewMode>("expected");

    QTest::newRow("statistics") << ViewMode::Stats << ViewMode::List;
    QTest::newRow("cards") << ViewMode::Cards << ViewMode::Cards;
    QTest::newRow("list") << ViewMode::List << ViewMode::List;
}

void ViewModeTest::aFavoriteLeavesTheStatisticsOnly()
{
    QFETCH(ViewMode, mode);
    ViewModeFixture fixture;
    fixture.library.setViewMode(mode);

    fixture.library.applyFavorite({QUuid(), QString(), {.typeName = u"PLA"_s, .searchText = {}}});

    QTEST(fixture.library.viewMode(), "expected");
    QCOMPARE(fixture.library.currentCriteria().typeName, u"PLA"_s);
}

void ViewModeTest::aBarShowsItsGroup()
{
    ViewModeFixture fixture;
    fixture.library.applyFavorite({QUuid(), QString(), {.searchText = u"rouge"_s}});
    fixture.library.setViewMode(ViewMode::Stats);
    auto* bar = fixture.library.findChild<StatBar*>();
    QCOMPARE(bar->accessibleName(), u"PLA"_s);
    QCOMPARE(bar->value(), 4); // Of the whole stock, whatever is searched for.

    QCoreApplication::processEvents(); // Lays the bars out.
    QTest::mouseClick(bar, Qt::LeftButton);

    QCOMPARE(fixture.library.viewMode(), ViewMode::List);
    QCOMPARE(fixture.library.currentCriteria(),
        (FilterCriteria{.typeName = u"PLA"_s, .searchText = {}}));
    QCOMPARE(fixture.list().model()->rowCount(), 4);
}

void ViewModeTest::everyModeFollowsTheStock()
{
    ViewModeFixture fixture;
    StoreContext& context = fixture.stock->context();
    const auto removeOne = [&] {
        context.remove(*context.fetchAll<Filament>().back());
        QCoreApplication::processEvents();
    };

    fixture.library.setViewMode(ViewMode::Cards);
    removeOne();
    QCOMPARE(fixture.cards().model()->rowCount(), 7);
    fixture.library.setViewMode(ViewMode::Stats);
    removeOne();
    QCOMPARE(fixture.library.findChild<StatBar*>()->maximum(), 6);
    fixture.library.setViewMode(ViewMode::List);
    QCOMPARE(fixture.list().model()->rowCount(), 6);
}

void ViewModeTest::controlFLeavesTheStatistics()
{
    ViewModeFixture fixture;
    fixture.library.setViewMode(ViewMode::Stats);
    fixture.library.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.library));

    QTest::keyClick(&fixture.library, Qt::Key_F, Qt::ControlModifier);

    QCOMPARE(fixture.library.viewMode(), ViewMode::List);
    QVERIFY(fixture.library.findChild<SearchField*>()->hasFocus());
}

void ViewModeTest::everyModeIsNamedThroughout_data()
{
    QTest::addColumn<ViewMode>("mode");
    QTest::newRow("list") << ViewMode::List;
    QTest::newRow("cards") << ViewMode::Cards;
    QTest::newRow("statistics") << ViewMode::Stats;
}

void ViewModeTest::everyModeIsNamedThroughout()
{
    QFETCH(ViewMode, mode);
    ViewModeFixture fixture;

    fixture.library.setViewMode(mode);

    QCOMPARE(tests::unnamedControls(&fixture.library), QStringList());
}

REELHOUSE_TEST(ViewModeTest)

#include "ViewModeTest.moc"
