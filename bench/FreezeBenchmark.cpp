#include "app/backup/BackupService.h"
#include "app/backup/CsvExportView.h"
#include "app/backup/ExportImportView.h"
#include "app/ui/Alert.h"
#include "app/ui/ThemeService.h"
#include "bench/StoreWorkplace.h"
#include "core/preferences/Preferences.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QPushButton>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

/// Runs the event loop and notes for how long at most it stood still.
class Pulse final {
public:
    Pulse()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_timer.start(1);
        m_sinceBeat.start();
    }

    template <class Condition>
    void runUntil(Condition condition)
    {
        while (!condition())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        beat();
    }

    double longestStop() const { return double(m_longest) / 1e9; }

private:
    void beat()
    {
        m_longest = std::max(m_longest, m_sinceBeat.nsecsElapsed()), m_sinceBeat.start();
    }

    QTimer m_timer;
    QElapsedTimer m_sinceBeat;
    qint64 m_longest = 0;
};

/// The screens over a stock in a file, in a window that nobody sees.
class ShownScreens final {
public:
    ShownScreens(int filaments, StoreWorkplace& workplace)
        : m_folder(workplace.filePath(u"screens"_s))
        , m_stock(openCopy(filaments, workplace))
        , m_preferences(workplace.filePath(u"preferences.ini"_s))
        , m_documents(*m_stock, m_preferences)
        , m_tables(*m_stock)
    {
        m_documents.show();
        m_tables.show();
        QCoreApplication::processEvents();
    }

    StoreContainer& stock() { return *m_stock; }
    ExportImportView& documents() { return m_documents; }
    CsvExportView& tables() { return m_tables; }
    QString path(const QString& name) const { return m_folder + u'/' + name; }

private:
    std::unique_ptr<StoreContainer> openCopy(int filaments, StoreWorkplace& workplace) const
    {
        QDir(m_folder).removeRecursively();
        QDir().mkpath(m_folder);
        const QString store = path(u"Spoolwright.store"_s);
        QFile::copy(workplace.stockOf(filaments), store);
        return openStock(store);
    }

    QString m_folder;
    std::unique_ptr<StoreContainer> m_stock;
    Preferences m_preferences;
    ExportImportView m_documents;
    CsvExportView m_tables;
};

bool hasEnded(const TransferScreen& screen)
{
    const QString text = screen.statusText();
    if (text.startsWith(u"Erreur"))
        qFatal("%s", qPrintable(text));
    return text.contains(u"réussi");
}

/// Presses the first button and saves at `path`: what stops before the panel and after it.
void exportTo(TransferScreen& screen, const QString& path)
{
    screen.findChild<QPushButton*>()->click();
    auto* panel = screen.findChild<QFileDialog*>();
    panel->close();
    emit panel->fileSelected(path);
}

void exportDocument(ShownScreens& screens, Pulse& pulse)
{
    exportTo(screens.documents(), screens.path(u"export.json"_s));
    pulse.runUntil([&] { return hasEnded(screens.documents()); });
}

void exportTable(ShownScreens& screens, Pulse& pulse)
{
    exportTo(screens.tables(), screens.path(u"export.csv"_s));
    pulse.runUntil([&] { return hasEnded(screens.tables()); });
}

void backup(ShownScreens& screens, Pulse& pulse)
{
    if (!BackupService::performBackup(screens.stock(), 20))
        qFatal("No backup was written.");
    pulse.runUntil([] { return true; });
}

/// Until the question whether to replace.
void readDocument(ShownScreens& screens, Pulse& pulse)
{
    const auto question = [&] { return screens.documents().findChild<Alert*>(); };
    screens.documents().importFile(screens.path(u"export.json"_s));
    pulse.runUntil([&] { return question() != nullptr; });
}

void replaceStock(ShownScreens& screens, Pulse& pulse)
{
    emit screens.documents().findChild<Alert*>()->finished(0);
    pulse.runUntil([&] { return hasEnded(screens.documents()); });
}

using Step = void (*)(ShownScreens& screens, Pulse& pulse);

/// Runs `steps` before, unmeasured.
void measureStop(
    benchmark::State& state, StoreWorkplace& workplace, const std::vector<Step>& before, Step step)
{
    double longest = 0;
    while (state.KeepRunning()) {
        ShownScreens screens(int(state.range()), workplace);
        Pulse prepared;
        for (const Step former : before)
            former(screens, prepared);
        Pulse pulse;
        step(screens, pulse);
        longest = std::max(longest, pulse.longestStop());
        state.SetIterationTime(pulse.longestStop());
    }
    state.counters["longest_ms"] = longest * 1000;
}

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    using namespace reelhouse::bench;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    const reelhouse::ThemeService themes;
    StoreWorkplace workplace(argv[0]);
    const auto add = [&](const char* name, const std::vector<Step>& before, Step step) {
        benchmark::RegisterBenchmark(name,
            [&workplace, before, step](
                benchmark::State& state) { measureStop(state, workplace, before, step); })
            ->Arg(100000)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(5);
    };
    add("exportDocument", {}, exportDocument);
    add("exportTable", {}, exportTable);
    add("backup", {}, backup);
    add("readDocument", {exportDocument}, readDocument);
    add("replaceStock", {exportDocument, readDocument}, replaceStock);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
