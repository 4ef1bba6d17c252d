#include "core/filters/FilteredStock.h"

#include "core/text/NameOrder.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <random>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilteredStockTest final : public QObject {
    Q_OBJECT

private slots:
    void emptyStockGivesNothing();
    void typeThenBrandNameDecideTheOrder();
    void composedAndDecomposedNamesShareAPlace();
    void selectedReferenceIsComparedByIdentity();
    void removedReferenceCountsAsNotSelected();
    void bucketsLetThroughTheirNumbers_data();
    void bucketsLetThroughTheirNumbers();
    void searchLooksIntoSevenTexts_data();
    void searchLooksIntoSevenTexts();
    void everyCriterionMustHold();
    void selectionIsActiveWhenAnythingIsSet_data();
    void selectionIsActiveWhenAnythingIsSet();
    void randomStocksAgreeWithThePlainRule();
};

Q_DECLARE_METATYPE(reelhouse::FilterSelection)

namespace {

struct Stock {
    tests::RecordingStore store;
    StoreContext context{store};

    FilamentType* type(const QString& name)
    {
        return &context.insert(std::make_unique<FilamentType>(name));
    }
    Brand* brand(const QString& name) { return &context.insert(std::make_unique<Brand>(name)); }
    /// Told apart by its notes.
    Filament& filament(const QString& notes, FilamentType* type = nullptr, Brand* brand = nullptr,
        qint64 spools = 1, qint64 opened = 0)
    {
        return context.insert(std::make_unique<Filament>(
            type, brand, nullptr, nullptr, spools, opened, u"#E53935"_s, u"Rouge"_s, notes));
    }

    QString shown(const FilterSelection& selection)
    {
        QStringList notes;
        for (const FilamentId id : filteredStock(context, selection))
            notes += context.find(id)->notes();
        return notes.join(u' ');
    }
};

} // namespace

void FilteredStockTest::emptyStockGivesNothing()
{
    Stock stock;
    QVERIFY(filteredStock(stock.context, {}).empty());
}

void FilteredStockTest::typeThenBrandNameDecideTheOrder()
{
    Stock stock;
    FilamentType* abs = stock.type(u"abs"_s);
    FilamentType* zeta = stock.type(u"Zeta"_s);
    Brand* sunlu = stock.brand(u"Sunlu"_s);
    Brand* elegoo = stock.brand(u"Elegoo"_s);
    Brand* unnamed = stock.brand(QString());
    stock.filament(u"1"_s, abs, elegoo);
    stock.filament(u"2"_s, zeta, sunlu);
    stock.filament(u"3"_s, nullptr, sunlu);
    stock.filament(u"4"_s, zeta, elegoo);
    stock.filament(u"5"_s, zeta, nullptr);
    stock.filament(u"6"_s);
    stock.filament(u"7"_s, zeta, elegoo);
    stock.filament(u"8"_s, nullptr, nullptr);
    stock.filament(u"9"_s, zeta, unnamed);

    QCOMPARE(stock.shown({}), u"6 8 3 5 9 4 7 2 1"_s);
}

void FilteredStockTest::composedAndDecomposedNamesShareAPlace()
{
    Stock stock;
    FilamentType* decomposed = stock.type(u"E\u0301"_s);
    FilamentType* composed = stock.type(u"É"_s);
    FilamentType* plain = stock.type(u"F"_s);
    stock.filament(u"1"_s, decomposed);
    stock.filament(u"2"_s, plain);
    stock.filament(u"3"_s, composed);
    stock.filament(u"4"_s, decomposed);

    QCOMPARE(stock.shown({}), u"2 1 3 4"_s);
}

void FilteredStockTest::selectedReferenceIsComparedByIdentity()
{
    Stock stock;
    FilamentType* first = stock.type(u"PLA"_s);
    FilamentType* second = stock.type(u"PLA"_s);
    stock.filament(u"1"_s, first);
    stock.filament(u"2"_s, second);
    stock.filament(u"3"_s);

    FilterSelection selection;
    selection.type = second->id();

    QCOMPARE(stock.shown(selection), u"2"_s);
}

void FilteredStockTest::removedReferenceCountsAsNotSelected()
{
    Stock stock;
    Brand* brand = stock.brand(u"Sunlu"_s);
    stock.filament(u"1"_s, nullptr, brand);
    stock.filament(u"2"_s);
    FilterSelection selection;
    selection.brand = brand->id();
    QCOMPARE(stock.shown(selection), u"1"_s);

    stock.context.remove(*brand);

    QCOMPARE(stock.shown(selection), u"1 2"_s);
}

void FilteredStockTest::bucketsLetThroughTheirNumbers_data()
{
    QTest::addColumn<qint64>("bucket");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << 0LL << u"0"_s;
    QTest::newRow("exactly one") << 1LL << u"1"_s;
    QTest::newRow("exactly three") << 3LL << u"3"_s;
    QTest::newRow("four is four, not more") << 4LL << u"4"_s;
    QTest::newRow("the last exact one") << 98LL << u"98"_s;
    QTest::newRow("four or more") << 99LL << u"4 5 98 99"_s;
    QTest::newRow("above counts the same") << 150LL << u"4 5 98 99"_s;
    QTest::newRow("negative") << -1LL << u""_s;
}

void FilteredStockTest::bucketsLetThroughTheirNumbers()
{
    QFETCH(qint64, bucket);
    QFETCH(QString, expected);

    Stock bySpools;
    Stock byOpened;
    for (const qint64 count : {0, 1, 2, 3, 4, 5, 98, 99}) {
        bySpools.filament(QString::number(count), nullptr, nullptr, count, 0);
        byOpened.filament(QString::number(count), nullptr, nullptr, 200, count);
    }
    FilterSelection spools;
    spools.spools = bucket;
    FilterSelection opened;
    opened.opened = bucket;

    QCOMPARE(bySpools.shown(spools), expected);
    QCOMPARE(byOpened.shown(opened), expected);
}

void FilteredStockTest::searchLooksIntoSevenTexts_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<bool>("expected");

    QTest::newRow("notes") << u"eclat"_s << true;
    QTest::newRow("colour name") << u"ROUGE"_s << true;
    QTest::newRow("colour code") << u"#e5"_s << true;
    QTest::newRow("type") << u"petg"_s << true;
    QTest::newRow("brand") << u"sunlu"_s << true;
    QTest::newRow("range") << u"mat"_s << true;
    QTest::newRow("location") << u"etagere a"_s << true;
    QTest::newRow("counts are not searched") << u"77"_s << false;
    QTest::newRow("two fields do not join") << u"petg sunlu"_s << false;
    QTest::newRow("elsewhere") << u"violet"_s << false;
    QTest::newRow("spaces find everything") << u"  "_s << true;
}

void FilteredStockTest::searchLooksIntoSevenTexts()
{
    QFETCH(QString, query);
    QFETCH(bool, expected);

    Stock stock;
    StoreContext& context = stock.context;
    FilamentType* type = stock.type(u"PETG"_s);
    Brand* brand = stock.brand(u"Sunlu"_s);
    auto* range = &context.insert(std::make_unique<FilamentRange>(u"Matte"_s));
    auto* location = &context.insert(std::make_unique<Location>(u"Étagère A"_s));
    const Filament& filament = context.insert(std::make_unique<Filament>(
        type, brand, range, location, 77, 7, u"#E53935"_s, u"Rouge"_s, u"Bel Éclat"_s));
    FilterSelection selection;
    selection.searchText = query;

    QCOMPARE(filteredStock(context, selection).size(), size_t(expected));
    QCOMPARE(filament.matchesSearch(query), expected);
}

void FilteredStockTest::everyCriterionMustHold()
{
    Stock stock;
    StoreContext& context = stock.context;
    FilamentType* type = stock.type(u"PLA"_s);
    Brand* brand = stock.brand(u"Sunlu"_s);
    auto* range = &context.insert(std::make_unique<FilamentRange>(u"Silk"_s));
    auto* location = &context.insert(std::make_unique<Location>(u"Armoire"_s));
    const FilterSelection whole{
        type->id(), brand->id(), range->id(), location->id(), 3, 1, u"rouge"_s};
    Filament& filament = context.insert(std::make_unique<Filament>(
        type, brand, range, location, 3, 1, u"#E53935"_s, u"Rouge"_s, u"x"_s));
    QCOMPARE(stock.shown(whole), u"x"_s);

    const auto isHeldBackBy
        = [&](const std::function<void()>& edit, const std::function<void()>& back) {
              edit();
              const bool isHeldBack = stock.shown(whole).isEmpty();
              back();
              return isHeldBack && stock.shown(whole) == u"x"_s;
          };
    QVERIFY(isHeldBackBy([&] { filament.setType(nullptr); }, [&] { filament.setType(type); }));
    QVERIFY(isHeldBackBy([&] { filament.setBrand(nullptr); }, [&] { filament.setBrand(brand); }));
    QVERIFY(isHeldBackBy([&] { filament.setRange(nullptr); }, [&] { filament.setRange(range); }));
    QVERIFY(isHeldBackBy(
        [&] { filament.setLocation(nullptr); }, [&] { filament.setLocation(location); }));
    QVERIFY(isHeldBackBy([&] { filament.setSpoolsCount(2); }, [&] { filament.setSpoolsCount(3); }));
    QVERIFY(isHeldBackBy(
        [&] { filament.setOpenedSpoolsCount(0); }, [&] { filament.setOpenedSpoolsCount(1); }));
    QVERIFY(isHeldBackBy(
        [&] { filament.setColorName(u"Vert"_s); }, [&] { filament.setColorName(u"Rouge"_s); }));
}

void FilteredStockTest::selectionIsActiveWhenAnythingIsSet_data()
{
    QTest::addColumn<FilterSelection>("selection");
    QTest::addColumn<bool>("expected");

    QTest::newRow("nothing") << FilterSelection() << false;
    QTest::newRow("type") << FilterSelection{.type = {1}} << true;
    QTest::newRow("brand") << FilterSelection{.brand = {1}} << true;
    QTest::newRow("range") << FilterSelection{.range = {1}} << true;
    QTest::newRow("location") << FilterSelection{.location = {1}} << true;
    QTest::newRow("spools, even 0") << FilterSelection{.spools = 0} << true;
    QTest::newRow("opened, even 0") << FilterSelection{.opened = 0} << true;
    QTest::newRow("search of spaces") << FilterSelection{.searchText = u"  "_s} << true;
    QTest::newRow("an empty search") << FilterSelection{.searchText = u""_s} << false;
}

void FilteredStockTest::selectionIsActiveWhenAnythingIsSet()
{
    QFETCH(FilterSelection, selection);
    QFETCH(bool, expected);

    QCOMPARE(selection.isActive(), expected);
}

void FilteredStockTest::randomStocksAgreeWithThePlainRule()
{
    std::mt19937 random(5);
    const auto below = [&](size_t limit) { return random() % limit; };
    const QStringList names{
        u""_s, u"a"_s, u"É"_s, u"E\u0301"_s, u"b"_s, u"B"_s, u"\uFB01"_s, u"😀"_s};
    for (int run = 0; run < 200; ++run) {
        Stock stock;
        std::vector<FilamentType*> types{nullptr};
        std::vector<Brand*> brands{nullptr};
        for (size_t entry = below(6); entry > 0; --entry) {
            types.push_back(stock.type(names[qsizetype(below(8))]));
            brands.push_back(stock.brand(names[qsizetype(below(8))]));
        }
        for (size_t filament = below(60); filament > 0; --filament) {
            stock.filament(names[qsizetype(below(8))], types[below(types.size())],
                brands[below(brands.size())], qint64(below(6)), qint64(below(3)));
        }
        FilterSelection selection;
        if (FilamentType* type = types[below(types.size())])
            selection.type = below(3) == 0 ? type->id() : FilamentTypeId();
        if (below(3) == 0)
            selection.spools = below(2) == 0 ? 99 : qint64(below(4));
        if (below(3) == 0)
            selection.searchText = names[qsizetype(below(8))];

        std::vector<const Filament*> expected;
        for (const auto& filament : stock.context.fetchAll<Filament>()) {
            const bool isOfType
                = !selection.type || (filament->type() && filament->type()->id() == selection.type);
            const qint64 spools = filament->spoolsCount();
            const bool isInBucket = !selection.spools
                || (*selection.spools == 99 ? spools >= 4 : spools == *selection.spools);
            if (isOfType && isInBucket && filament->matchesSearch(selection.searchText))
                expected.push_back(filament.get());
        }
        const auto nameOf
            = [](const FilamentContainer* entry) { return entry ? entry->name() : QString(); };
        std::ranges::stable_sort(expected, [&](const Filament* left, const Filament* right) {
            const auto byType = compareByCodePoints(nameOf(left->type()), nameOf(right->type()));
            const auto byBrand = compareByCodePoints(nameOf(left->brand()), nameOf(right->brand()));
            return std::is_lt(std::is_eq(byType) ? byBrand : byType);
        });
        std::vector<FilamentId> expectedIds;
        expectedIds.reserve(expected.size());
        for (const Filament* filament : expected)
            expectedIds.push_back(filament->id());
        QCOMPARE(filteredStock(stock.context, selection), expectedIds);
    }
}

REELHOUSE_TEST(FilteredStockTest)

#include "FilteredStockTest.moc"
