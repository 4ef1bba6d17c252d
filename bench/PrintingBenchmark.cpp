#include "app/printing/PrintService.h"
#include "bench/BesideFloor.h"
#include "core/csv/CsvExporter.h"
#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/StockGenerator.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

/// A stock to print, and where to print it.
class PrintedWorkplace final {
public:
    explicit PrintedWorkplace(int filaments)
    {
        tests::generateStock(m_context, filaments);
        for (const auto& filament : m_context.fetchAll<Filament>())
            m_filaments.push_back(&*filament);
    }

    const std::vector<const Filament*>& filaments() const { return m_filaments; }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    ReportTextView makeView() const
    {
        PrintService::ReportChoice choice;
        for (const PrintColumn& column : PrintColumn::allDefault())
            choice.columns << column.kind;
        return PrintService::makeReportView(
            m_filaments, choice, Product::ofThisBuild(), QDate(2026, 11, 15));
    }

private:
    QTemporaryDir m_folder;
    tests::RecordingStore m_store;
    StoreContext m_context{m_store};
    std::vector<const Filament*> m_filaments;
};

double secondsOfReport(const PrintedWorkplace& workplace)
{
    return secondsOf([&workplace] {
        const auto error = PrintService::exportPDF(
            workplace.makeView(), Product::ofThisBuild(), workplace.path(u"report.pdf"_s));
        if (error)
            qFatal("%s", qPrintable(error->description));
    });
}

/// The lines of the report, ready to be drawn one under the other.
struct ReadyLines {
    explicit ReadyLines(const StockReport& report)
        : columns({0})
    {
        columns += report.tabStops();
        for (qsizetype line = 0; line < report.lineCount(); ++line)
            lines.push_back(report.line(line).cells);
    }

    QList<qreal> columns;
    std::vector<QStringList> lines;
};

/// Nothing but drawing the same texts at the same places, line by line, page by page.
void drawBareText(const ReadyLines& ready, const QString& path)
{
    constexpr int linesOnAPage = 52;
    constexpr qreal lineHeight = 14;
    QPdfWriter writer(path);
    writer.setResolution(72);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins({});
    QPainter painter(&writer);
    QFont font = QGuiApplication::font();
    font.setPointSizeF(10);
    font.setHintingPreference(QFont::PreferNoHinting);
    painter.setFont(font);
    int onPage = 0;
    for (const QStringList& cells : ready.lines) {
        if (++onPage > linesOnAPage) {
            writer.newPage();
            onPage = 1;
        }
        for (qsizetype cell = 0; cell < cells.size(); ++cell)
            painter.drawText(
                QPointF(30 + ready.columns[cell], 60 + onPage * lineHeight), cells[cell]);
    }
}

/// The most that this process has ever had in memory, in MiB.
double peakMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ')[1].toDouble() / 1024;
    }
    return 0;
}

void printPdf(benchmark::State& state)
{
    const PrintedWorkplace workplace(int(state.range()));
    const ReportTextView view = workplace.makeView();
    const ReadyLines ready(view.report());
    measureBesideFloor(
        state, [&workplace] { return secondsOfReport(workplace); },
        [&] { return secondsOf([&] { drawBareText(ready, workplace.path(u"bare.pdf"_s)); }); });
    state.counters["pages"] = view.pageCount();
    state.counters["pages_per_s"] = view.pageCount() * 1000 / state.counters["ours_ms"];
    state.counters["peak_MiB"] = peakMemory();
}

/// What an office program takes to make a PDF of the same stock, its start included.
void printPdfBesideOffice(benchmark::State& state)
{
    const QString office = QStandardPaths::findExecutable(u"soffice"_s);
    if (office.isEmpty())
        return state.SkipWithError("soffice is not installed");
    const PrintedWorkplace workplace(int(state.range()));
    QFile csv(workplace.path(u"stock.csv"_s));
    if (!csv.open(QIODevice::WriteOnly))
        qFatal("%s", qPrintable(csv.errorString()));
    csv.write(CsvExporter::encoded(CsvExporter::stockCSV(workplace.filaments())).value());
    csv.close();

    const QStringList arguments{u"-env:UserInstallation=file://"_s + workplace.path(u"profile"_s),
        u"--headless"_s, u"--infilter=CSV:59,34,76"_s, u"--convert-to"_s, u"pdf"_s, u"--outdir"_s,
        workplace.path(u"office"_s), csv.fileName()};
    const auto convert = [&] { QProcess::execute(office, arguments); };
    convert(); // The first start makes its profile.
    if (!QFile::exists(workplace.path(u"office/stock.pdf"_s)))
        return state.SkipWithError("soffice made no PDF");
    measureBesideFloor(
        state, [&workplace] { return secondsOfReport(workplace); },
        [&] { return secondsOf(convert); });
}

BENCHMARK(printPdf)->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(printPdfBesideOffice)
    ->Arg(1'000)
    ->Arg(10'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QGuiApplication::setFont(QFont(u"Inter"_s));
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
