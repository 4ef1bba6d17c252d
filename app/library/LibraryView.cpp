#include "app/library/LibraryView.h"

#include "app/library/FilamentSheets.h"
#include "app/library/FilterBarView.h"
#include "app/library/FilterFavoriteSaveView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryToolbar.h"
#include "app/library/ListView.h"
#include "app/library/SpoolActions.h"
#include "app/library/StatusBarView.h"
#include "app/printing/PrintOptionsView.h"
#include "app/store/StoreContainer.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/EmptyState.h"
#include "app/ui/Palette.h"
#include "app/ui/Separator.h"
#include "app/ui/Symbol.h"
#include "core/filters/FilteredStock.h"
#include "core/filters/SelectionCriteria.h"
#include "core/filters/StockTotals.h"
#include "core/model/StoreContext.h"
#include "core/sample/SampleData.h"
#include "core/text/Plural.h"

#include <QtGui/QAction>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

LibraryView::LibraryView(StoreContainer& container, Preferences& preferences,
    FilterFavoritesStore& favorites, QWidget* parent)
    : QWidget(parent)
    , m_container(container)
    , m_preferences(preferences)
    , m_favorites(favorites)
    , m_actions(new SpoolActions(container.context(), this))
    , m_filterBar(new FilterBarView(container.context(), favorites))
    , m_body(new QStackedWidget)
    , m_list(new ListView(container.context(), *m_actions))
    , m_statusBar(new StatusBarView)
{
    auto* addFirst = new QPushButton(symbolIcon(u"plus"_s), u"Ajouter un filament"_s);
    connect(addFirst, &QPushButton::clicked, m_actions, &SpoolActions::additionRequested);
    auto* emptyStock = new EmptyState(u"spool"_s, u"Stock vide"_s);
    emptyStock->setButton(addFirst);
    m_emptyStock = emptyStock;

    auto* clear = new QPushButton(u"Effacer"_s);
    setButtonLook(clear, ButtonLook::Link);
    auto* noResult = new EmptyState(u"magnifyingglass"_s, counted(0, u"résultat"_s));
    noResult->setButton(clear);
    m_noResult = noResult;

    setGround(m_body, Ground::List);
    m_body->addWidget(m_list);
    m_body->addWidget(m_emptyStock);
    m_body->addWidget(m_noResult);

    // Children come into being in reading order: that is the order assistive technology reads.
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* toolbar = new LibraryToolbar(this);
    column->addWidget(toolbar);
    column->addWidget(new Separator(this));
    column->addWidget(m_filterBar);
    column->addWidget(new Separator(this));
    column->addWidget(m_body, 1);
    column->addWidget(new Separator(this));
    column->addWidget(m_statusBar);

    auto* focusSearch = new QAction(this);
    focusSearch->setShortcut(QKeySequence::Find);
    addAction(focusSearch);
    connect(focusSearch, &QAction::triggered, m_filterBar, &FilterBarView::focusSearch);
    connect(clear, &QPushButton::clicked, this, [this] {
        m_filterBar->focusSearch();
        resetFilters();
    });
    listenToFilterBar();
    connect(
        toolbar, &LibraryToolbar::additionRequested, m_actions, &SpoolActions::additionRequested);
    connect(toolbar, &LibraryToolbar::settingsRequested, this, &LibraryView::settingsRequested);
    connect(toolbar, &LibraryToolbar::aboutRequested, this, &LibraryView::aboutRequested);
    addAction(m_actions->additionCommand());
    auto* print = new QAction(this);
    print->setShortcut(QKeySequence::Print);
    addAction(print);
    connect(print, &QAction::triggered, this, &LibraryView::showPrintOptions);
    connect(toolbar, &LibraryToolbar::printRequested, this, &LibraryView::showPrintOptions);
    new FilamentSheets(container.context(), *m_actions, this);
    connect(&container.context(), &StoreContext::changed, this, &LibraryView::refreshWhenShown);
}

void LibraryView::listenToFilterBar()
{
    connect(m_filterBar, &FilterBarView::selectionEdited, this, &LibraryView::setSelection);
    connect(m_filterBar, &FilterBarView::resetRequested, this, &LibraryView::resetFilters);
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
    SampleData::seed(m_container.context(), m_preferences);
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
    std::vector<FilamentId> filaments = filteredStock(context, m_selection);
    m_filterBar->setSelection(m_selection);
    m_filterBar->setResultCount(qsizetype(filaments.size()));
    if (!filaments.empty())
        m_body->setCurrentWidget(m_list);
    else
        m_body->setCurrentWidget(context.count<Filament>() == 0 ? m_emptyStock : m_noResult);
    m_list->showRows(std::move(filaments));
    m_statusBar->setTotals(stockTotals(context));
    emit criteriaChanged();
}

FilterCriteria LibraryView::currentCriteria() const
{
    return criteriaOf(m_container.context(), m_selection);
}

void LibraryView::setSelection(const FilterSelection& selection)
{
    m_selection = selection;
    refresh();
}

void LibraryView::resetFilters()
{
    setSelection({});
}

void LibraryView::applyFavorite(const FilterFavorite& favorite)
{
    setSelection(selectionOf(m_container.context(), favorite.criteria));
}

void LibraryView::setPendingFavorite(const FilterFavorite& favorite)
{
    m_pendingFavorite = favorite;
    if (isVisible())
        applyPendingFavoriteIfNeeded();
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
            {u"Spoolwright"_s, {}, {}, {}, {}}},
        this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

} // namespace reelhouse
