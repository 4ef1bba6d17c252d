#include "app/library/CardGrid.h"
#include "app/library/FilterBarView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/library/ListView.h"
#include "app/library/StatisticsView.h"
#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"
#include "app/ui/SearchField.h"
#include "app/ui/ThemeService.h"
#include "bench/BesideFloor.h"
#include "bench/StockFloors.h"
#include "core/preferences/Preferences.h"
#include "tests/support/StockGenerator.h"

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTableView>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

constexpr QSize windowSize(1080, 800);

/// The library over a stock in memory, on a screen that nobody sees.
class ShownLibrary final {
public:
    ShownLibrary(int filaments, ViewMode mode)
        : m_preferences(m_folder.filePath(u"preferences.ini"_s))
        , m_stock(makeStock(filaments))
        , m_library(*m_stock, m_preferences, m_favorites)
    {
        m_library.resize(windowSize);
        m_library.setViewMode(mode);
        m_library.show();
        QCoreApplication::processEvents();
    }

    StoreContext& context() { return m_stock->context(); }
    QAbstractScrollArea& body()
    {
        switch (m_library.viewMode()) {
        case ViewMode::List:
            return *m_library.findChild<ListView*>();
        case ViewMode::Cards:
            return *m_library.findChild<CardGrid*>();
        case ViewMode::Stats:
            return *m_library.findChild<StatisticsView*>();
        }
        Q_UNREACHABLE();
    }
    void search(const QString& text)
    {
        emit m_library.findChild<SearchField*>()->textEdited(text);
        QCoreApplication::processEvents(); // Lays out and paints what changed.
    }
    void choose(const FilterSelection& selection)
    {
        emit m_library.findChild<FilterBarView*>()->selectionEdited(selection);
        QCoreApplication::processEvents();
    }
    void edit()
    {
        Filament& filament = *context().fetchAll<Filament>().front();
        filament.setSpoolsCount(filament.spoolsCount() + 1);
        context().processPendingChanges();
        QCoreApplication::processEvents();
    }
    void scrollPage()
    {
        QScrollBar* bar = body().verticalScrollBar();
        bar->setValue(bar->value() + bar->pageStep());
        QCoreApplication::processEvents();
    }
    void resizeBy(int width)
    {
        m_library.resize(m_library.width() + width, m_library.height());
        QCoreApplication::processEvents();
    }

private:
    static std::unique_ptr<StoreContainer> makeStock(int filaments)
    {
        auto store = SqliteStore::openInMemory();
        auto stock = StoreContainer::load(std::move(store.value()), StoreKind::Memory, {});
        tests::generateStock(stock.value()->context(), filaments);
        stock.value()->context().save();
        return std::move(stock.value());
    }

    QTemporaryDir m_folder;
    Preferences m_preferences;
    FilterFavoritesStore m_favorites{m_preferences};
    std::unique_ptr<StoreContainer> m_stock;
    LibraryView m_library;
};

/// As many rows as wanted, and nothing in them.
class EmptyRows final : public QAbstractTableModel {
public:
    void setRows(int rows)
    {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 5; }
    QVariant data(const QModelIndex&, int) const override { return {}; }

private:
    int m_rows = 0;
};

/// What no library could do without: the search folds each text once, the result is counted into
/// order by ready ranks, and a table without content is reset and painted. Each function begins
/// with the whole stock on show and returns its seconds.
class LibraryFloor final {
public:
    LibraryFloor(StoreContext& context, const QString& query)
        : m_context(context)
        , m_ranks(context)
        , m_query(normalizedForSearch(query))
        , m_search(m_query)
    {
        m_table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        m_table.verticalHeader()->hide();
        m_table.setModel(&m_rows);
        m_table.resize(windowSize);
        m_table.show();
    }

    double search()
    {
        return secondsToShow([&](auto take) { bareSearch(m_context, m_search, take); });
    }
    /// In texts that were folded beforehand.
    double search(const ReadyKeys& keys)
    {
        return secondsToShow([&](auto take) { keys.search(m_context, m_query, take); });
    }
    /// Those of which no spool is opened.
    double chooseUnopened()
    {
        return secondsToShow([&](auto take) {
            for (const auto& filament : m_context.fetchAll<Filament>()) {
                if (filament->openedSpoolsCount() == 0)
                    take(*filament);
            }
        });
    }

private:
    /// Of what `find` takes.
    template <class Find>
    double secondsToShow(Find find)
    {
        show(size_t(m_context.count<Filament>()));
        return processorSecondsOf([&] {
            std::vector<RankedFilament> found;
            find([&](const Filament& filament) { found.push_back(m_ranks.of(filament)); });
            show(orderByReadyRanks(std::move(found), m_ranks).size());
        });
    }
    void show(size_t rows)
    {
        m_rows.setRows(int(rows));
        QCoreApplication::processEvents();
    }

    StoreContext& m_context;
    ReadyRanks m_ranks;
    QString m_query;
    BareSearch m_search;
    EmptyRows m_rows;
    QTableView m_table;
};

/// A letter that narrows the stock, typed into the empty search field.
void letter(benchmark::State& state, ViewMode mode)
{
    ShownLibrary library(int(state.range(0)), mode);
    LibraryFloor floor(library.context(), u"e"_s);
    const auto ours = [&] {
        library.search({});
        return processorSecondsOf([&] { library.search(u"e"_s); });
    };
    measureBesideFloor(state, ours, [&] { return floor.search(); });
}

/// For information, what the same letter costs in texts that were folded beforehand.
void readyKeys(benchmark::State& state, ViewMode mode)
{
    ShownLibrary library(int(state.range(0)), mode);
    LibraryFloor floor(library.context(), u"e"_s);
    const ReadyKeys keys(library.context());
    measureBesideFloor(
        state, [&] { return floor.search(keys); }, [&] { return floor.search(); });
}

/// The choice of a bucket in the filter bar. Returns its seconds.
double secondsOfChoice(ShownLibrary& library)
{
    library.choose({});
    return processorSecondsOf([&] { library.choose({.opened = 0}); });
}

/// Beside a search: a choice may cost no more than a letter.
void choice(benchmark::State& state, ViewMode mode)
{
    ShownLibrary library(int(state.range(0)), mode);
    LibraryFloor floor(library.context(), u"e"_s);
    measureBesideFloor(
        state, [&] { return secondsOfChoice(library); }, [&] { return floor.search(); });
}

/// For information, beside the same choice at its barest.
void choiceBesideItself(benchmark::State& state, ViewMode mode)
{
    ShownLibrary library(int(state.range(0)), mode);
    LibraryFloor floor(library.context(), {});
    measureBesideFloor(
        state, [&] { return secondsOfChoice(library); }, [&] { return floor.chooseUnopened(); });
}

/// One more spool of one filament, with the screen of `mode` refreshed and painted, and saved in
/// memory; beside a search, which the statistics are to keep up with.
void edit(benchmark::State& state, ViewMode mode)
{
    ShownLibrary library(int(state.range(0)), mode);
    LibraryFloor floor(library.context(), u"e"_s);
    measureBesideFloor(
        state, [&] { return processorSecondsOf([&] { library.edit(); }); },
        [&] { return floor.search(); });
}

void scroll(benchmark::State& state, ViewMode mode)
{
    ShownLibrary library(int(state.range(0)), mode);
    while (state.KeepRunning())
        library.scrollPage();
}

void resize(benchmark::State& state, ViewMode mode)
{
    ShownLibrary library(int(state.range(0)), mode);
    int step = 7;
    while (state.KeepRunning()) {
        library.resizeBy(step);
        step = -step;
    }
}

using LibraryMeasure = void (*)(benchmark::State&, ViewMode);

void registerMeasure(const QString& name, LibraryMeasure measure, ViewMode mode, bool besideFloor)
{
    const QByteArray title = (name + u'/' + viewModeTitle(mode)).toUtf8();
    for (const int filaments : {1'000, 100'000, 1'000'000}) {
        auto* entry = benchmark::RegisterBenchmark(
            title.constData(), [measure, mode](benchmark::State& state) { measure(state, mode); });
        entry->Arg(filaments)->Unit(benchmark::kMillisecond);
        if (besideFloor)
            entry->UseManualTime()->Iterations(filaments > 100'000 ? 11 : 41);
        else
            entry->Iterations(51);
    }
}

void registerMeasures()
{
    for (const ViewMode mode : {ViewMode::List, ViewMode::Cards}) {
        registerMeasure(u"letter"_s, letter, mode, true);
        registerMeasure(u"choice"_s, choice, mode, true);
        registerMeasure(u"choice-beside-itself"_s, choiceBesideItself, mode, true);
        registerMeasure(u"scroll"_s, scroll, mode, false);
        registerMeasure(u"resize"_s, resize, mode, false);
    }
    registerMeasure(u"ready-keys"_s, readyKeys, ViewMode::List, true);
    for (const ViewMode mode : {ViewMode::List, ViewMode::Cards, ViewMode::Stats})
        registerMeasure(u"edit"_s, edit, mode, true);
}

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const reelhouse::ThemeService theme;
    reelhouse::bench::registerMeasures();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
