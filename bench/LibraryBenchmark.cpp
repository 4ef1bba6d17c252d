#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/library/ListView.h"
#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"
#include "app/ui/SearchField.h"
#include "app/ui/ThemeService.h"
#include "core/preferences/Preferences.h"
#include "tests/support/StockGenerator.h"

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

/// The library over a stock in memory, on a screen that nobody sees.
class ShownLibrary final {
public:
    explicit ShownLibrary(int filaments)
        : m_preferences(m_folder.filePath(u"preferences.ini"_s))
        , m_stock(makeStock(filaments))
        , m_library(*m_stock, m_preferences, m_favorites)
    {
        m_library.resize(1080, 800);
        m_library.show();
        QCoreApplication::processEvents();
    }

    StoreContext& context() { return m_stock->context(); }
    SearchField& searchField() { return *m_library.findChild<SearchField*>(); }
    void paint() { m_library.findChild<ListView*>()->viewport()->repaint(); }

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

/// One more spool of one filament: setter, refreshed screens, saved in memory, list painted.
void editToPaintedList(benchmark::State& state)
{
    ShownLibrary library(int(state.range(0)));
    Filament& filament = *library.context().fetchAll<Filament>().front();
    while (state.KeepRunning()) {
        filament.setSpoolsCount(filament.spoolsCount() + 1);
        library.context().processPendingChanges();
        library.paint();
    }
}

/// A letter that narrows the list, and its removal, each with the list painted.
void twoKeysToPaintedList(benchmark::State& state)
{
    ShownLibrary library(int(state.range(0)));
    while (state.KeepRunning()) {
        emit library.searchField().textEdited(u"e"_s);
        library.paint();
        emit library.searchField().textEdited({});
        library.paint();
    }
}

BENCHMARK(editToPaintedList)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(twoKeysToPaintedList)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const reelhouse::ThemeService theme;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
