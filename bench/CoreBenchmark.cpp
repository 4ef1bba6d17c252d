#include "bench/BesideFloor.h"
#include "core/filters/FilteredStock.h"
#include "core/text/Folding.h"
#include "core/text/NameOrder.h"
#include "tests/support/StockGenerator.h"

#include <ctime>
#include <map>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

/// The seconds that the processor works on `work`, which waits for nothing: other programs may run.
template <class Work>
double processorSecondsOf(Work work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
    };
    const double start = now();
    work();
    return now() - start;
}

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

/// The least that a search can do: each unit of European text is folded through a table once and
/// compared at once, without trimming, letters that fold to several, or any other script.
class BareSearch final {
public:
    explicit BareSearch(QString foldedQuery)
        : m_query(std::move(foldedQuery))
    {
        for (size_t unit = 0; unit < m_table.size(); ++unit) {
            const QString folded = normalizedForSearch(QString(QChar(char16_t(unit))));
            m_table[unit] = folded.size() == 1 ? folded[0].unicode() : char16_t(unit);
        }
    }

    /// Good enough for a query in which no beginning comes again.
    bool isFoundIn(QStringView text) const
    {
        qsizetype matched = 0;
        for (const QChar unit : text) {
            const char16_t folded
                = unit.unicode() < m_table.size() ? m_table[unit.unicode()] : unit.unicode();
            if (folded == m_query[matched]) {
                if (++matched == m_query.size())
                    return true;
            } else {
                matched = folded == m_query[0] ? 1 : 0;
            }
        }
        return false;
    }

    template <class T>
    std::vector<char> isFoundInNames(StoreContext& context) const
    {
        std::vector<char> found;
        for (const auto& entry : context.fetchAll<T>())
            found.push_back(isFoundIn(entry->name()) ? 1 : 0);
        return found;
    }

private:
    QString m_query;
    std::array<char16_t, 0x250> m_table;
};

/// How many filaments the query is found in.
size_t bareSearch(StoreContext& context, const BareSearch& search)
{
    const std::array<std::vector<char>, referenceKindCount> isFoundInName{
        search.isFoundInNames<FilamentType>(context), search.isFoundInNames<Brand>(context),
        search.isFoundInNames<FilamentRange>(context), search.isFoundInNames<Location>(context)};
    size_t found = 0;
    for (const auto& filament : context.fetchAll<Filament>()) {
        bool isFound = search.isFoundIn(filament->notes())
            || search.isFoundIn(filament->colorName()) || search.isFoundIn(filament->colorHex());
        for (size_t kind = 0; kind < isFoundInName.size() && !isFound; ++kind) {
            const FilamentContainer* entry = filament->reference(ReferenceKind(kind));
            isFound = entry && isFoundInName[kind][entry->row()] != 0;
        }
        found += size_t(isFound);
    }
    return found;
}

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
        return processorSecondsOf([&] { benchmark::DoNotOptimize(bareSearch(context, search)); });
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

template <class T>
std::vector<quint32> ranksByRow(StoreContext& context)
{
    std::vector<QString> names;
    for (const auto& entry : context.fetchAll<T>())
        names.push_back(entry->name());
    return nameRanks(names);
}

struct RankedFilament {
    quint32 type;
    quint32 brand;
    FilamentId id;
};

void sortByRank(std::vector<RankedFilament>& filaments, quint32 RankedFilament::*rank, size_t ranks)
{
    std::vector<size_t> places(ranks + 2, 0);
    for (const RankedFilament& filament : filaments)
        ++places[filament.*rank + 1];
    for (size_t value = 1; value < places.size(); ++value)
        places[value] += places[value - 1];
    std::vector<RankedFilament> sorted(filaments.size());
    for (const RankedFilament& filament : filaments)
        sorted[places[filament.*rank]++] = filament;
    filaments.swap(sorted);
}

/// The whole stock in order, when the ranks of the names are known.
std::vector<FilamentId> orderByReadyRanks(StoreContext& context,
    const std::vector<quint32>& typeRanks, const std::vector<quint32>& brandRanks)
{
    std::vector<RankedFilament> filaments;
    for (const auto& filament : context.fetchAll<Filament>())
        filaments.push_back({filament->type() ? typeRanks[filament->type()->row()] : 0,
            filament->brand() ? brandRanks[filament->brand()->row()] : 0, filament->id()});
    sortByRank(filaments, &RankedFilament::brand, brandRanks.size());
    sortByRank(filaments, &RankedFilament::type, typeRanks.size());
    std::vector<FilamentId> ids;
    ids.reserve(filaments.size());
    for (const RankedFilament& filament : filaments)
        ids.push_back(filament.id);
    return ids;
}

void order(benchmark::State& state, Workplace& workplace)
{
    StoreContext& context = workplace.stockOf(int(state.range()));
    const std::vector<quint32> typeRanks = ranksByRow<FilamentType>(context);
    const std::vector<quint32> brandRanks = ranksByRow<Brand>(context);
    if (filteredStock(context, {}) != orderByReadyRanks(context, typeRanks, brandRanks))
        qFatal("The two orders differ.");
    const auto ours = [&] {
        return processorSecondsOf([&] { benchmark::DoNotOptimize(filteredStock(context, {})); });
    };
    const auto floor = [&] {
        return processorSecondsOf(
            [&] { benchmark::DoNotOptimize(orderByReadyRanks(context, typeRanks, brandRanks)); });
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
