#include "app/backup/StockDocument.h"
#include "app/store/DurableFiles.h"
#include "bench/BesideFloor.h"
#include "bench/Memory.h"
#include "bench/PlainStore.h"
#include "bench/StockFloors.h"
#include "bench/StoreWorkplace.h"
#include "bench/TransferFloors.h"
#include "core/csv/CsvExporter.h"
#include "core/interchange/DocumentReader.h"
#include "core/model/NewestFirst.h"

#include <fcntl.h>
#include <simdjson.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

/// Like measureBesideFloor, with the memory that ours needs at once, for each filament.
template <class Ours, class Floor>
void measureWithMemory(benchmark::State& state, Ours ours, Floor floor)
{
    const double bytes = peakBytesOf(ours);
    measureBesideFloor(state, ours, floor);
    state.counters["peak_MiB"] = bytes / 1048576;
}

QByteArray documentOf(StoreContext& context)
{
    return StockDocument::encode(context, StockDocument::FilamentOrder::Store).value();
}

ExportData dataOf(const QByteArray& document)
{
    auto data = decodeDocument(document);
    if (!data || data.value().validate())
        qFatal("The document of the stock is refused.");
    return std::move(data.value());
}

void encode(benchmark::State& state, StoreWorkplace& workplace)
{
    const auto stock = openStock(workplace.stockOf(int(state.range())));
    const auto ours = [&] {
        return processorSecondsOf([&] { benchmark::DoNotOptimize(documentOf(stock->context())); });
    };
    const auto floor = [&] {
        return processorSecondsOf(
            [&] { benchmark::DoNotOptimize(plainDocument(stock->context())); });
    };
    measureWithMemory(state, ours, floor);
    state.counters["document_MB"] = double(documentOf(stock->context()).size()) / 1e6;
}

/// Writes, syncs and renames, all through the system's own calls.
void writePlainly(const QByteArray& bytes, const QByteArray& temporary, const QByteArray& path)
{
    const int file = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (::write(file, bytes.constData(), size_t(bytes.size())) != bytes.size() || ::fsync(file) != 0
        || ::close(file) != 0 || ::rename(temporary.constData(), path.constData()) != 0)
        qFatal("The floor cannot be written.");
}

void encodeAndWrite(benchmark::State& state, StoreWorkplace& workplace)
{
    const auto stock = openStock(workplace.stockOf(int(state.range())));
    const auto nameOf = [](int) { return u"document.json"_s; };
    const QString path = workplace.filePath(nameOf(0));
    const QString folder = QFileInfo(path).path();
    const auto ours = [&] {
        DurableFiles::remove(path);
        return secondsOf([&] {
            if (!DurableFiles::write(folder, nameOf, documentOf(stock->context())))
                qFatal("The document cannot be written.");
        });
    };
    const auto floor = [&] {
        DurableFiles::remove(path);
        return secondsOf([&] {
            writePlainly(plainDocument(stock->context()),
                QFile::encodeName(workplace.filePath(u"plain.new"_s)), QFile::encodeName(path));
        });
    };
    measureWithMemory(state, ours, floor);
}

void decodeAndValidate(benchmark::State& state, StoreWorkplace& workplace)
{
    const QByteArray document
        = documentOf(openStock(workplace.stockOf(int(state.range())))->context());
    const auto ours = [&] {
        // Bytes of its own, as those that were read from a file.
        QByteArray bytes(document.constData(), document.size());
        std::optional<ExportData> data;
        return processorSecondsOf([&] {
            auto read = decodeDocument(std::move(bytes));
            if (!read || read.value().validate())
                qFatal("The document is refused.");
            data = std::move(read.value());
        });
    };
    const simdjson::padded_string padded(document.constData(), size_t(document.size()));
    const auto floor = [&] {
        simdjson::dom::parser parser;
        simdjson::error_code code = simdjson::SUCCESS;
        const double seconds = processorSecondsOf([&] { code = parser.parse(padded).error(); });
        if (code != simdjson::SUCCESS)
            qFatal("The floor does not read the document.");
        return seconds;
    };
    measureWithMemory(state, ours, floor);
}

/// `former` filaments are in the store that is replaced.
void rebuildAndSave(benchmark::State& state, StoreWorkplace& workplace, int former)
{
    const auto stock = openStock(workplace.stockOf(int(state.range())));
    const ExportData data = dataOf(documentOf(stock->context()));
    const std::vector<PlainRow> rows = plainRowsOf(stock->context());
    const auto ours = [&] {
        const auto replaced
            = openStock(workplace.copyOf(workplace.stockOf(former), u"ours.store"_s));
        return secondsOf([&] {
            if (StockDocument::replaceStock(replaced->context(), data))
                qFatal("The stock cannot be replaced.");
        });
    };
    const auto floor = [&] {
        const QString path = workplace.filePath(u"floor.store"_s);
        makeShelves(path);
        PlainStore plain(path.toStdString());
        return secondsOf([&] { plain.insert(rows); });
    };
    measureWithMemory(state, ours, floor);
}

void importIntoEmpty(benchmark::State& state, StoreWorkplace& workplace)
{
    rebuildAndSave(state, workplace, 0);
}

void importOverTheSame(benchmark::State& state, StoreWorkplace& workplace)
{
    rebuildAndSave(state, workplace, int(state.range()));
}

void table(benchmark::State& state, StoreWorkplace& workplace)
{
    const auto stock = openStock(workplace.stockOf(int(state.range())));
    const auto filaments = newestFirst(stock->context());
    const auto ours = [&] {
        return processorSecondsOf([&] {
            benchmark::DoNotOptimize(CsvExporter::encoded(CsvExporter::stockCSV(filaments)));
        });
    };
    const auto floor = [&] {
        return processorSecondsOf([&] { benchmark::DoNotOptimize(plainTable(filaments)); });
    };
    measureWithMemory(state, ours, floor);
}

void registerFor(int filaments, StoreWorkplace& workplace)
{
    using Function = void (*)(benchmark::State&, StoreWorkplace&);
    const bool isLarge = filaments > 100000;
    const auto add = [&](const char* name, Function function, int iterations) {
        benchmark::RegisterBenchmark(
            name, [function, &workplace](benchmark::State& state) { function(state, workplace); })
            ->Arg(filaments)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(isLarge ? 3 : iterations);
    };
    add("encode", encode, 31);
    add("encodeAndWrite", encodeAndWrite, 15);
    add("decodeAndValidate", decodeAndValidate, 31);
    add("importIntoEmpty", importIntoEmpty, 7);
    add("importOverTheSame", importOverTheSame, 7);
    add("table", table, 31);
}

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    reelhouse::bench::StoreWorkplace workplace(argv[0]);
    for (const int filaments : {100000, 1000000})
        reelhouse::bench::registerFor(filaments, workplace);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
