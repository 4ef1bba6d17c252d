#include "bench/BesideFloor.h"
#include "bench/Memory.h"
#include "bench/PlainStore.h"
#include "bench/StoreWorkplace.h"

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

void open(benchmark::State& state, StoreWorkplace& workplace)
{
    const QString path = workplace.stockOf(int(state.range()));
    const auto ours = [&] {
        std::unique_ptr<StoreContainer> container;
        return secondsOf([&] { container = openStock(path); });
    };
    const auto floor = [&] {
        std::unique_ptr<PlainStore> store;
        PlainStock stock;
        return secondsOf([&] {
            store = std::make_unique<PlainStore>(path.toStdString());
            store->quickCheck();
            stock = store->read();
        });
    };
    measureBesideFloor(state, ours, floor);
}

void saveOneCount(benchmark::State& state, StoreWorkplace& workplace)
{
    const QString path = workplace.stockOf(int(state.range()));
    const auto container = openStock(workplace.copyOf(path, u"ours.store"_s));
    PlainStore plain(workplace.copyOf(path, u"floor.store"_s).toStdString());
    StoreContext& context = container->context();
    const auto id = FilamentId{state.range() / 2};
    qint64 count = 100;
    const auto ours = [&] {
        ++count;
        return secondsOf([&] {
            context.find(id)->setSpoolsCount(count);
            save(context);
        });
    };
    const auto floor = [&] { return secondsOf([&] { plain.writeCount(id.value, count); }); };
    measureBesideFloor(state, ours, floor);
}

void saveNewFilaments(benchmark::State& state, StoreWorkplace& workplace)
{
    const int filaments = int(state.range());
    std::vector<PlainRow> rows;
    const auto ours = [&] {
        const QString path = workplace.filePath(u"ours.store"_s);
        QFile::remove(path);
        const auto container = openStock(path);
        tests::generateStock(container->context(), filaments);
        if (rows.empty())
            rows = plainRowsOf(container->context());
        return secondsOf([&] { save(container->context()); });
    };
    const auto floor = [&] {
        const QString path = workplace.filePath(u"floor.store"_s);
        makeShelves(path);
        PlainStore plain(path.toStdString());
        return secondsOf([&] { plain.insert(rows); });
    };
    ours();
    measureBesideFloor(state, ours, floor);
}

/// A type that a tenth of the filaments use: with its deletion each of them loses it.
void removeUsedType(benchmark::State& state, StoreWorkplace& workplace)
{
    const QString path = workplace.stockOf(int(state.range()));
    constexpr FilamentTypeId type{1};
    const auto ours = [&] {
        const auto container = openStock(workplace.copyOf(path, u"ours.store"_s));
        StoreContext& context = container->context();
        return secondsOf([&] {
            context.perform(u"Supprimer le type"_s, [&] { context.remove(*context.find(type)); });
            save(context);
        });
    };
    const auto floor = [&] {
        PlainStore plain(workplace.copyOf(path, u"floor.store"_s).toStdString());
        return secondsOf([&] { plain.removeType(type.value); });
    };
    measureBesideFloor(state, ours, floor);
}

void residentMemory(benchmark::State& state, StoreWorkplace& workplace)
{
    const QString path = workplace.stockOf(int(state.range()));
    double bytes = 0;
    while (state.KeepRunning()) {
        malloc_trim(0); // What earlier measurements freed would be used again unseen.
        const qint64 before = processBytes("VmRSS");
        const auto container = openStock(path);
        bytes = double(processBytes("VmRSS") - before);
    }
    state.counters["bytes_per_filament"] = bytes / double(state.range());
}

void registerFor(int filaments, StoreWorkplace& workplace)
{
    using Function = void (*)(benchmark::State&, StoreWorkplace&);
    const auto add = [&](const char* name, Function function) {
        return benchmark::RegisterBenchmark(
            name, [function, &workplace](benchmark::State& state) { function(state, workplace); })
            ->Arg(filaments)
            ->Unit(benchmark::kMillisecond);
    };
    const bool isLarge = filaments > 100000;
    add("residentMemory", residentMemory)->Iterations(1);
    add("open", open)->UseManualTime()->Iterations(isLarge ? 5 : 15);
    add("saveOneCount", saveOneCount)->UseManualTime()->Iterations(200);
    add("removeUsedType", removeUsedType)->UseManualTime()->Iterations(isLarge ? 3 : 9);
    add("saveNewFilaments", saveNewFilaments)->UseManualTime()->Iterations(isLarge ? 3 : 9);
}

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    reelhouse::bench::StoreWorkplace workplace(argv[0]);
    for (const int filaments : {1000, 100000, 1000000})
        reelhouse::bench::registerFor(filaments, workplace);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
