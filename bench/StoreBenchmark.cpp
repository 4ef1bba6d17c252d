#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"
#include "bench/BesideFloor.h"
#include "bench/PlainStore.h"
#include "tests/support/StockGenerator.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <malloc.h>
#include <map>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

std::unique_ptr<StoreContainer> openStock(const QString& path)
{
    auto store = SqliteStore::openFile(path);
    if (!store)
        qFatal("%s", qPrintable(store.error().description()));
    auto container = StoreContainer::load(std::move(store.value()), StoreKind::File, path);
    if (!container)
        qFatal("%s", qPrintable(container.error().description()));
    return std::move(container.value());
}

void save(StoreContext& context)
{
    if (const auto error = context.save())
        qFatal("%s", qPrintable(error->description()));
}

/// A folder for stores beside this program: on a disk, as the temporary folder may not be.
class Workplace final {
public:
    explicit Workplace(const char* program)
        : m_folder(QFileInfo(QFile::decodeName(program)).dir().filePath(u"stocks-XXXXXX"_s))
    {
    }

    QString filePath(const QString& name) const { return m_folder.filePath(name); }

    /// The path of a store with so many filaments, made once.
    QString stockOf(int filaments)
    {
        QString& path = m_stocks[filaments];
        if (path.isEmpty()) {
            path = filePath(QString::number(filaments) + u".store"_s);
            const auto container = openStock(path);
            tests::generateStock(container->context(), filaments);
            save(container->context());
        }
        return path;
    }

    QString copyOf(const QString& path, const QString& name) const
    {
        QString copy = filePath(name);
        QFile::remove(copy);
        QFile::copy(path, copy);
        return copy;
    }

private:
    QTemporaryDir m_folder;
    std::map<int, QString> m_stocks;
};

void open(benchmark::State& state, Workplace& workplace)
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

void saveOneCount(benchmark::State& state, Workplace& workplace)
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

/// Makes a store at `path` that has the generator's reference entries and no filament.
void makeShelves(const QString& path)
{
    QFile::remove(path);
    const auto container = openStock(path);
    tests::generateStock(container->context(), 0);
    save(container->context());
}

void saveNewFilaments(benchmark::State& state, Workplace& workplace)
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

/// The memory of this process that is in RAM, in bytes.
qint64 residentBytes()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The system does not tell how much memory is used.");
    return file.readAll().split(' ').at(1).toLongLong() * 4096;
}

void residentMemory(benchmark::State& state, Workplace& workplace)
{
    const QString path = workplace.stockOf(int(state.range()));
    double bytes = 0;
    while (state.KeepRunning()) {
        malloc_trim(0); // What earlier measurements freed would be used again unseen.
        const qint64 before = residentBytes();
        const auto container = openStock(path);
        bytes = double(residentBytes() - before);
    }
    state.counters["bytes_per_filament"] = bytes / double(state.range());
}

void registerFor(int filaments, Workplace& workplace)
{
    using Function = void (*)(benchmark::State&, Workplace&);
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
    add("saveNewFilaments", saveNewFilaments)->UseManualTime()->Iterations(isLarge ? 3 : 9);
}

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    reelhouse::bench::Workplace workplace(argv[0]);
    for (const int filaments : {1000, 100000, 1000000})
        reelhouse::bench::registerFor(filaments, workplace);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
