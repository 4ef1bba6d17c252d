#include "app/editing/FilamentDetailView.h"
#include "app/ui/Picker.h"
#include "app/ui/ThemeService.h"
#include "bench/BesideFloor.h"
#include "bench/NoStore.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;

namespace reelhouse::bench {

namespace {

/// What every list of a user holds at the least.
constexpr int fewEntries = 5;

/// One filament in a stock with so many brands, under a window that nobody sees.
class OpenedSheets final {
public:
    explicit OpenedSheets(int brands)
    {
        m_context.insert(std::make_unique<FilamentType>(u"PLA"_s));
        for (int number = brands; number > 0; --number)
            m_context.insert(std::make_unique<Brand>(u"Marque %1"_s.arg(number)));
        m_filament
            = m_context
                  .insert(std::make_unique<Filament>(m_context.fetchAll<FilamentType>()[0].get(),
                      m_context.fetchAll<Brand>()[0].get(), nullptr, nullptr, 2, 1, u"#1E88E5"_s,
                      QString(), QString()))
                  .id();
        m_context.processPendingChanges();
        m_window.resize(1300, 850);
        m_window.show();
        QCoreApplication::processEvents();
    }

    /// The seconds from the click to the painted sheet.
    double open()
    {
        std::unique_ptr<FilamentDetailView> sheet;
        return secondsOf([&] {
            sheet = std::make_unique<FilamentDetailView>(m_context, m_filament, &m_window);
            sheet->open();
            sheet->repaint();
        });
    }

private:
    NoStore m_store;
    StoreContext m_context{m_store};
    FilamentId m_filament;
    QWidget m_window;
};

/// A picker with so many entries.
class OpenedPicker final {
public:
    explicit OpenedPicker(int count)
    {
        std::vector<PickerEntry> entries;
        for (int number = 1; number <= count; ++number)
            entries.push_back({number, u"Marque %1"_s.arg(number), {}});
        m_picker.setEntries(std::move(entries));
        m_picker.resize(300, 28);
        m_picker.show();
        QCoreApplication::processEvents();
    }

    /// The seconds from the click to the painted list.
    double open()
    {
        const double seconds = secondsOf([this] {
            m_picker.showPopup();
            m_picker.view()->repaint();
        });
        m_picker.hidePopup();
        QCoreApplication::processEvents();
        return seconds;
    }

private:
    Picker m_picker{u"Aucune"_s};
};

/// Beside the same with a list of a few entries.
template <class Opened>
void openBesideFew(benchmark::State& state)
{
    Opened many{int(state.range())};
    Opened few{fewEntries};
    many.open();
    few.open();
    measureBesideFloor(
        state, [&] { return many.open(); }, [&] { return few.open(); });
}

} // namespace

} // namespace reelhouse::bench

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const reelhouse::ThemeService theme;
    benchmark::Initialize(&argc, argv);
    using namespace reelhouse::bench;
    const auto add = [](const char* name, void (*function)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, function)
            ->Arg(100)
            ->Arg(5000)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(51);
    };
    add("openDetailSheet", openBesideFew<OpenedSheets>);
    add("openPicker", openBesideFew<OpenedPicker>);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
