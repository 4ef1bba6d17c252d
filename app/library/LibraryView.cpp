#include "app/library/LibraryView.h"

#include "app/editing/CommandTexts.h"
#include "app/library/CardView.h"
#include "app/library/FilamentSheets.h"
#include "app/library/FilterBarView.h"
#include "app/library/FilterFavoriteSaveView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryToolbar.h"
#include "app/library/ListView.h"
#include "app/library/SpoolActions.h"
#include "app/library/StatisticsView.h"
#include "app/library/StatusBarView.h"
#include "app/printing/PrintOptionsView.h"
#include "app/store/StoreCompanions.h"
#include "app/store/StoreContainer.h"
#include "app/store/StoreTexts.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/EmptyState.h"
#include "app/ui/Palette.h"
#include "app/ui/Separator.h"
#include "app/ui/Symbol.h"
#include "core/filters/FilteredStock.h"
#include "core/filters/SelectionCriteria.h"
#include "core/filters/StockDistribution.h"
#include "core/filters/StockTotals.h"
#include "core/model/StoreContext.h"
#include "core/preferences/Preferences.h"
#include "core/product/Product.h"
#include "core/sample/SampleData.h"
#include "core/text/Folding.h"
#include "core/text/Plural.h"

#include <QtGui/QAction>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

QString sampleNote()
{
    return u"Stock d'exemple, à essayer ou à effacer dans les réglages"_s;
}

} // namespace

LibraryView::LibraryView(StoreContainer& container, Preferences& preferences,
    FilterFavoritesStore& favorites, QWidget* parent)
    : QWidget(parent)
    , m_container(container)
    , m_preferences(preferences)
    , m_favorites(favorites)
    , m_actions(new SpoolActions(container.context(), this))
    , m_toolbar(new LibraryToolbar(this)) // In reading order, which assistive technology keeps.
    , m_filterBar(new FilterBarView(container.context(), favorites, this))
    , m_filterBarLine(new Separator(this))
    , m_body(new QStackedWidget(this))
    , m_list(new ListView(container.context(), *m_actions))
    , m_cards(new CardView(container.context(), *m_actions))
    , m_statistics(new StatisticsView)
    , m_emptyStock(nullptr)
    , m_noResult(nullptr)
    , m_statusBar(new StatusBarView(this))
{
    makeEmptyStates();
    setGround(m_body, Ground::List);
    for (QWidget* body :
        std::initializer_list<QWidget*>{m_list, m_cards, m_statistics, m_emptyStock, m_noResult})
        m_body->addWidget(body);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_toolbar);
    column->addWidget(new Separator(this));
    column->addWidget(m_filterBar);
    column->addWidget(m_filterBarLine);
    column->addWidget(m_body, 1);
    column->addWidget(new Separator(this));
    column->addWidget(m_statusBar);

    listenToFilterBar();
    addKeys();
    connect(m_toolbar, &LibraryToolbar::viewModeChosen, this, &LibraryView::setViewMode);
    connect(
        m_toolbar, &LibraryToolbar::additionRequested, m_actions, &SpoolActions::additionRequested);
    connect(m_toolbar, &LibraryToolbar::settingsRequested, this, &LibraryView::settingsRequested);
    connect(m_toolbar, &LibraryToolbar::aboutRequested, this, &LibraryView::aboutRequested);
    connect(m_toolbar, &LibraryToolbar::printRequested, this, &LibraryView::showPrintOptions);
    connect(m_statistics, &StatisticsView::groupChosen, this, &LibraryView::showGroup);
    new FilamentSheets(container.context(), *m_actions, this);
    connect(&container.context(), &StoreContext::changed, this, &LibraryView::refreshWhenShown);
}

void LibraryView::makeEmptyStates()
{
    auto* addFirst = new QPushButton(symbolIcon(u"plus"_s), addFilamentText());
    connect(addFirst, &QPushButton::clicked, m_actions, &SpoolActions::additionRequested);
    auto* emptyStock = new EmptyState(u"spool"_s, u"Stock vide"_s);
    emptyStock->setButton(addFirst);
    m_emptyStock = emptyStock;

    auto* clear = new QPushButton(u"Effacer"_s);
    setButtonLook(clear, ButtonLook::Link);
    connect(clear, &QPushButton::clicked, this, [this] {
        m_filterBar->focusSearch();
        resetFilters();
    });
    auto* noResult = new EmptyState(u"magnifyingglass"_s, counted(0, u"résultat"_s));
    noResult->setButton(clear);
    m_noResult = noResult;
}

void LibraryView::addKeys()
{
    addAction(m_actions->additionCommand());
    m_searchCommand
        = addCommand(u"Rechercher"_s, QKeySequence(QKeySequence::Find), [this] { focusSearch(); });
    m_printCommand = addCommand(
        u"Imprimer…"_s, QKeySequence(QKeySequence::Print), [this] { showPrintOptions(); });
    const std::pair<ViewMode, Qt::Key> modes[]
        = {{ViewMode::List, Qt::Key_1}, {ViewMode::Cards, Qt::Key_2}, {ViewMode::Stats, Qt::Key_3}};
    for (const auto& [mode, key] : modes) {
        m_modeCommands += addCommand(viewModeTitle(mode), QKeySequence(Qt::CTRL | key),
            [this, mode = mode] { setViewMode(mode); });
    }
}

QAction* LibraryView::addCommand(
    const QString& text, const QKeySequence& key, const std::function<void()>& action)
{
    auto* command = new QAction(text, this);
    command->setShortcut(key);
    addAction(command);
    connect(command, &QAction::triggered, this, action);
    return command;
}

void LibraryView::listenToFilterBar()
{
    connect(m_filterBar, &FilterBarView::selectionEdited, this, &LibraryView::setSelection);
    connect(m_filterBar, &FilterBarView::resetRequested, this, &LibraryView::resetFilters);
    connect(m_filterBar, &FilterBarView::resultsRequested, this, [this] {
        if (m_hasResult)
            selectedFilament()->takeKeyboard();
    });
    connect(m_filterBar, &FilterBarView::favoriteChosen, this, &LibraryView::applyFavorite);
    connect(m_filterBar, &FilterBarView::favoriteUpdateRequested, this,
        [this](const FilterFavorite& favorite) {
            m_favorites.update(favorite.id, currentCriteria());
        });
    connect(m_filterBar, &FilterBarView::saveFavoriteRequested, this, &LibraryView::saveFavorite);
    connect(m_filterBar, &FilterBarView::manageFavoritesRequested, this,
        &LibraryView::manageFavoritesRequested);
}

void LibraryView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous()) // Else only the window came back.
        restoreViewMode();
    applyPendingFavoriteIfNeeded();
    seedOnce();
    if (m_isStale)
        refresh();
}

void LibraryView::applyPendingFavoriteIfNeeded()
{
    if (const auto favorite = std::exchange(m_pendingFavorite, std::nullopt))
        applyFavorite(*favorite);
}

void LibraryView::seedOnce()
{
    if (std::exchange(m_didSeed, true) || m_container.usesMemoryStore())
        return;
    StoreContext& context = m_container.context();
    const bool wasEmpty = context.count<Filament>() == 0;
    SampleData::seed(context, m_preferences);
    if (!wasEmpty)
        return;
    for (const auto& filament : context.fetchAll<Filament>())
        m_sample.push_back(filament->id());
    m_isStale = true;
}

bool LibraryView::hasSampleFilament() const
{
    return std::ranges::any_of(
        m_sample, [this](FilamentId id) { return m_container.context().find(id) != nullptr; });
}

void LibraryView::refreshWhenShown()
{
    m_isStale = true;
    // At once: an entry that comes back later does not bring its filter back.
    m_selection = withoutDeleted(m_container.context(), m_selection);
    if (isVisible())
        refresh();
}

void LibraryView::refresh()
{
    m_isStale = false;
    StoreContext& context = m_container.context();
    const StockTotals totals = stockTotals(context);
    m_statusBar->setTotals(totals);
    m_statusBar->setNote(hasSampleFilament() ? sampleNote() : QString());
    if (m_viewMode == ViewMode::Stats)
        m_statistics->setStock(totals, stockDistribution(context));
    else if (m_viewMode == ViewMode::Cards)
        m_cards->grid().measureCounts();
    showSelection();
}

void LibraryView::showSelection()
{
    if (m_viewMode != ViewMode::Stats)
        showFiltered();
    showBody();
    emit criteriaChanged();
}

void LibraryView::showFiltered()
{
    std::vector<FilamentId> filaments = filteredStock(m_container.context(), m_selection);
    m_filterBar->setSelection(m_selection);
    m_filterBar->setResultCount(qsizetype(filaments.size()));
    m_hasResult = !filaments.empty();
    const QString search = normalizedForSearch(m_selection.searchText);
    if (m_viewMode == ViewMode::Cards) {
        m_cards->grid().setFoldedSearch(search);
        m_cards->grid().showRows(std::move(filaments));
    } else {
        m_list->setFoldedSearch(search);
        m_list->showRows(std::move(filaments));
    }
}

void LibraryView::showBody()
{
    const bool isFiltered = m_viewMode != ViewMode::Stats;
    m_filterBar->setVisible(isFiltered);
    m_filterBarLine->setVisible(isFiltered);
    if (!isFiltered)
        m_body->setCurrentWidget(m_statistics);
    else if (!m_hasResult)
        m_body->setCurrentWidget(
            m_container.context().count<Filament>() == 0 ? m_emptyStock : m_noResult);
    else if (m_viewMode == ViewMode::Cards)
        m_body->setCurrentWidget(m_cards);
    else
        m_body->setCurrentWidget(m_list);
}

SelectedFilament* LibraryView::selectedFilament() const
{
    switch (m_viewMode) {
    case ViewMode::List:
        return &m_list->selection();
    case ViewMode::Cards:
        return &m_cards->grid().selection();
    case ViewMode::Stats:
        return nullptr;
    }
    Q_UNREACHABLE();
}

void LibraryView::restoreViewMode()
{
    if (!m_preferences.rememberWindowState())
        return;
    if (const auto mode = viewModeFrom(m_preferences.viewMode()))
        setViewMode(*mode);
}

void LibraryView::setViewMode(ViewMode mode)
{
    m_toolbar->setViewMode(mode);
    if (mode == m_viewMode)
        return;
    if (const SelectedFilament* former = selectedFilament())
        m_selectedFilament = former->id();
    m_viewMode = mode;
    if (m_preferences.rememberWindowState() && m_preferences.viewMode() != viewModeTitle(mode))
        m_preferences.setViewMode(viewModeTitle(mode));
    m_actions->setTarget({});
    refresh();
    if (SelectedFilament* selected = selectedFilament())
        selected->select(m_selectedFilament);
}

FilterCriteria LibraryView::currentCriteria() const
{
    return criteriaOf(m_container.context(), m_selection);
}

void LibraryView::setSelection(const FilterSelection& selection)
{
    m_selection = selection;
    if (m_isStale)
        refresh();
    else
        showSelection();
}

void LibraryView::resetFilters()
{
    setSelection({});
}

void LibraryView::applyFavorite(const FilterFavorite& favorite)
{
    if (m_viewMode == ViewMode::Stats)
        setViewMode(ViewMode::List);
    setSelection(selectionOf(m_container.context(), favorite.criteria));
}

void LibraryView::setPendingFavorite(const FilterFavorite& favorite)
{
    m_pendingFavorite = favorite;
    if (isVisible())
        applyPendingFavoriteIfNeeded();
}

void LibraryView::showGroup(const FilterSelection& selection)
{
    setViewMode(ViewMode::List);
    setSelection(selection);
}

void LibraryView::focusSearch()
{
    if (m_viewMode == ViewMode::Stats)
        setViewMode(ViewMode::List);
    m_filterBar->focusSearch();
}

void LibraryView::saveFavorite()
{
    auto* sheet = new FilterFavoriteSaveView(m_favorites, currentCriteria(), this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void LibraryView::showPrintOptions()
{
    StoreContext& context = m_container.context();
    auto* sheet = new PrintOptionsView(context,
        {filteredStock(context, m_selection), currentCriteria().summary().value_or(QString()),
            Product::ofThisBuild(),
            [this](const QString& path) {
                return belongsToStore(path, m_container.storeFile()) ? belongsToStoreText()
                                                                     : QString();
            }},
        this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

} // namespace reelhouse
