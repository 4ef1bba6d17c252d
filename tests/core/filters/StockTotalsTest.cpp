#include "core/filters/StockTotals.h"

#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <limits>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class StockTotalsTest final : public QObject {
    Q_OBJECT

private slots:
    void emptyStockAmountsToNothing();
    void filamentsSpoolsAndUsedTypesAreCounted();
    void sumsStayAtTheLargestInteger();
};

namespace {

constexpr qint64 largestCount = std::numeric_limits<qint64>::max();

void insertFilament(StoreContext& context, FilamentType* type, qint64 spools, qint64 opened)
{
    context.insert(std::make_unique<Filament>(
        type, nullptr, nullptr, nullptr, spools, opened, u"#000000"_s, u"Noir"_s, QString()));
}

} // namespace

void StockTotalsTest::emptyStockAmountsToNothing()
{
    tests::RecordingStore store;
    StoreContext context(store);
    context.insert(std::make_unique<FilamentType>(u"PLA"_s));

    QCOMPARE(stockTotals(context), StockTotals());
}

void StockTotalsTest::filamentsSpoolsAndUsedTypesAreCounted()
{
    tests::RecordingStore store;
    StoreContext context(store);
    auto& pla = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    auto& sameName = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    context.insert(std::make_unique<FilamentType>(u"Libre"_s));
    insertFilament(context, &pla, 2, 1);
    insertFilament(context, &pla, 0, 0);
    insertFilament(context, &sameName, 5, 2);
    insertFilament(context, nullptr, 1, 1);

    QCOMPARE(
        stockTotals(context), (StockTotals{.filaments = 4, .spools = 8, .opened = 4, .types = 2}));
}

void StockTotalsTest::sumsStayAtTheLargestInteger()
{
    tests::RecordingStore store;
    StoreContext context(store);
    insertFilament(context, nullptr, largestCount, largestCount);
    insertFilament(context, nullptr, 1, 0);
    insertFilament(context, nullptr, largestCount, largestCount);

    QCOMPARE(stockTotals(context),
        (StockTotals{.filaments = 3, .spools = largestCount, .opened = largestCount, .types = 0}));
}

REELHOUSE_TEST(StockTotalsTest)

#include "StockTotalsTest.moc"
