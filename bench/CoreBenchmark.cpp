#include "bench/BesideFloor.h"
#include "bench/StockFloors.h"
#include "core/filters/FilteredStock.h"
#include "tests/support/StockGenerator.h"

#include <map>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

/// Where nothing is kept: these measurements are about the stock in memory.
class NoStore final : public PersistentStore {
public:
    std::optional<StoreError> load(StoreContext& /*context*/) override { return std::nullopt; }
    std::optional<StoreError> commit(const StockChanges& /*changes*/) override
    {
        return std::nullopt;
    }
};

/// Stocks of each size, made once.
class Workplace final {
public:
    StoreContext& stockOf(int filaments)
    {
        std::unique_ptr<StoreContext>& stock = m_stocks[filaments];
        if (!stock) {
            stock = std::make_unique<StoreContext>(m_store);
            tests::generateStock(*stock, filaments);
            stock->save();
        }
        return *stock;
    }

private:
    NoStore m_store;
    std::map<int, std::unique_ptr<StoreContext>> m_stocks;
};

void searchWithoutResult(benchmark::State& state, Workplace& workplace, const QString& query)
{
    StoreContext& context = workplace.stockOf(int(state.range()));
    FilterSelection selection;
    selection.searchText = query;
    const BareSearch search(normalizedForSearch(selection.searchText));
    const auto ours = [&] {
        return processorSecondsOf([&] {
            if (!filteredStock(context, selection).empty())
                qFatal("The query was to be found nowhere.");
        });
    };
    const auto floor = [&] {
        return processorSecondsOf([&] {
            size_t found = 0;
            bareSearch(context, search, [&](const Filament&) { ++found; });
            benchmark::DoNotOptimize(found);
        });
    };
    measureBesideFloor(state, ours, floor);
}

void search(benchmark::State& state, Workplace& workplace)
{
    searchWithoutResult(state, workplace, u"Séchage rapide"_s);
}

void searchOfCommonLetters(benchmark::State& state, Workplace& workplace)
{
    searchWithoutResult(state, workplace, u"sereine"_s);
}

void order(benchmark::State& state, Workplace& workplace)
{
    StoreContext& context = workplace.stockOf(int(state.range()));
    const ReadyRanks ranks(context);
    if (filteredStock(context, {}) != orderByReadyRanks(context, ranks))
        qFatal("The two orders differ.");
    const auto ours = [&] {
        return processorSecondsOf([&] { benchmark::DoNotOptimize(filteredStock(context, {})); });
    };
    const auto floor = [&] {
        return processorSecondsOf(
            [&] { benchmark::DoNotOptimize(orderByReadyRanks(context, ranks)); });
    };
    measureBesideFloor(state, ours, floor);
}

void registerFor(int filaments, Workplace& workplace)
{
    using Function = void (*)(benchmark::State&, Workplace&);
    const auto add = [&](const char* name, Function function) {
        benchmark::RegisterBenchmark(
            name, [function, &workplace](benchmark::State& state) { function(state, workplace); })
            ->Arg(filaments)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(filaments > 100000 ? 15 : 101);
    };
    add("search", search);
    add("searchOfCommonLetters", searchOfCommonLetters);
    add("order", order);
}

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    reelhouse::bench::Workplace workplace;
    for (const int filaments : {1000, 100000, 1000000})
        reelhouse::bench::registerFor(filaments, workplace);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
