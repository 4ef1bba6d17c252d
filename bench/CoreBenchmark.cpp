#include "bench/BesideFloor.h"
#include "bench/NoStore.h"
#include "bench/StockFloors.h"
#include "core/filters/FilteredStock.h"
#include "tests/support/StockGenerator.h"

#include <map>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

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

/// One deletion undone, until the stock can be read in its order. The floor puts one number back
/// among as many, and numbers those behind it.
void undoDeletion(benchmark::State& state, Workplace& workplace)
{
    StoreContext& context = workplace.stockOf(int(state.range()));
    const FilamentId middle = context.fetchAll<Filament>()[size_t(state.range()) / 2]->id();
    std::vector<std::pair<qint64, quint32>> rows(size_t(state.range()) - 1);
    const auto ours = [&] {
        context.perform(u"Supprimer"_s, [&] { context.remove(*context.find(middle)); });
        context.save();
        const double seconds = processorSecondsOf([&] {
            context.undo();
            benchmark::DoNotOptimize(context.fetchAll<Filament>().data());
        });
        context.save();
        return seconds;
    };
    const auto floor = [&] {
        const double seconds = processorSecondsOf([&] {
            const auto place = rows.insert(rows.begin() + state.range() / 2, {middle.value, 0});
            for (auto row = place; row != rows.end(); ++row)
                row->second = quint32(row - rows.begin());
            benchmark::DoNotOptimize(rows.data());
        });
        rows.pop_back();
        return seconds;
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
    add("undoDeletion", undoDeletion);
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
