#include "core/filters/StockDistribution.h"

#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class StockDistributionTest final : public QObject {
    Q_OBJECT

private slots:
    void anEmptyStockHasNoGroups();
    void theLargestGroupComesFirstAndTiesGoByName();
    void filamentsWithoutReferenceHaveGroupsOfTheirOwn();
    void typesOfOneNameMakeOneGroupUnderTheFirstIcon();
    void aTypeNamedAsThoseWithoutJoinsThem();
};

namespace {

struct DividedStock {
    tests::RecordingStore store;
    StoreContext context{store};

    void add(
        FilamentType* type, Brand* brand = nullptr, Location* location = nullptr, int times = 1)
    {
        for (int time = 0; time < times; ++time)
            context.insert(std::make_unique<Filament>(
                type, brand, nullptr, location, 3, 1, QString(), QString(), QString()));
    }
    template <class T>
    T* entry(const QString& name)
    {
        return &context.insert(std::make_unique<T>(name));
    }
};

QString pictureOf(const std::vector<StockGroup>& groups)
{
    QStringList texts;
    for (const StockGroup& group : groups)
        texts << group.name + u' ' + QString::number(group.count);
    return texts.join(u", "_s);
}

} // namespace

void StockDistributionTest::anEmptyStockHasNoGroups()
{
    DividedStock stock;
    stock.entry<FilamentType>(u"PLA"_s);

    const StockDistribution distribution = stockDistribution(stock.context);

    QVERIFY(distribution.byType.empty());
    QVERIFY(distribution.byBrand.empty());
    QVERIFY(distribution.byLocation.empty());
}

void StockDistributionTest::theLargestGroupComesFirstAndTiesGoByName()
{
    DividedStock stock;
    auto* tenth = stock.entry<Location>(u"Tiroir 10"_s);
    auto* second = stock.entry<Location>(u"tiroir 2"_s);
    auto* shelf = stock.entry<Location>(u"Étagère"_s);
    stock.entry<Location>(u"Armoire"_s); // Used by none.
    auto* most = stock.entry<Location>(u"Zone"_s);
    stock.add(nullptr, nullptr, tenth, 2);
    stock.add(nullptr, nullptr, most, 3);
    stock.add(nullptr, nullptr, second, 2);
    stock.add(nullptr, nullptr, shelf, 2);

    const auto groups = stockDistribution(stock.context).byLocation;

    QCOMPARE(pictureOf(groups), u"Zone 3, Étagère 2, tiroir 2 2, Tiroir 10 2"_s);
    QCOMPARE(groups[0].selection, FilterSelection{.location = most->id()});
    QCOMPARE(groups[0].icon, QString());
}

void StockDistributionTest::filamentsWithoutReferenceHaveGroupsOfTheirOwn()
{
    DividedStock stock;
    auto* brand = stock.entry<Brand>(u"Acme"_s);
    stock.add(nullptr, brand);
    stock.add(nullptr, nullptr, nullptr, 2);

    const StockDistribution distribution = stockDistribution(stock.context);

    QCOMPARE(pictureOf(distribution.byType), u"Sans type 3"_s);
    QCOMPARE(distribution.byType[0].icon, filamentTypeDefaultIcon());
    QVERIFY(!distribution.byType[0].selection.isActive());
    QCOMPARE(pictureOf(distribution.byBrand), u"Sans marque 2, Acme 1"_s);
    QCOMPARE(pictureOf(distribution.byLocation), u"Sans lieu 3"_s);
}

void StockDistributionTest::typesOfOneNameMakeOneGroupUnderTheFirstIcon()
{
    DividedStock stock;
    auto* first = &stock.context.insert(std::make_unique<FilamentType>(u"PLA"_s, u"leaf.fill"_s));
    auto* second = &stock.context.insert(std::make_unique<FilamentType>(u"PLA"_s, u"bolt.fill"_s));
    stock.add(second, nullptr, nullptr, 2);
    stock.add(first);

    const auto groups = stockDistribution(stock.context).byType;

    QCOMPARE(pictureOf(groups), u"PLA 3"_s);
    QCOMPARE(groups[0].icon, u"leaf.fill"_s);
    QCOMPARE(groups[0].selection, FilterSelection{.type = first->id()});
}

void StockDistributionTest::aTypeNamedAsThoseWithoutJoinsThem()
{
    DividedStock stock;
    auto* type
        = &stock.context.insert(std::make_unique<FilamentType>(u"Sans type"_s, u"leaf.fill"_s));
    stock.add(type);
    stock.add(nullptr);

    const auto groups = stockDistribution(stock.context).byType;

    QCOMPARE(pictureOf(groups), u"Sans type 2"_s);
    QCOMPARE(groups[0].icon, u"leaf.fill"_s);
}

REELHOUSE_TEST(StockDistributionTest)

#include "StockDistributionTest.moc"
