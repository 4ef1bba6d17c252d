#include "app/shell/ContentView.h"

#include "app/backup/BackupService.h"
#include "app/editing/ReferenceManagementView.h"
#include "app/library/FilterFavoritesManagementView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/shell/SidebarView.h"
#include "app/shell/TemporaryStoreNotice.h"
#include "app/store/StoreContainer.h"
#include "app/ui/TextStyle.h"
#include "core/preferences/Preferences.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

namespace reelhouse {

ContentView::ContentView(StoreContainer& container, Preferences& preferences,
    FilterFavoritesStore& favorites, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
    , m_container(container)
    , m_preferences(preferences)
    , m_favorites(favorites)
    , m_sidebar(new SidebarView)
    , m_screens(new QStackedWidget)
    , m_library(new LibraryView(container, preferences, favorites))
{
    setChildrenCollapsible(false);
    setHandleWidth(1);
    m_screens->addWidget(m_library);

    auto* column = new QWidget;
    auto* columnLayout = new QVBoxLayout(column);
    columnLayout->setContentsMargins(0, 0, 0, 0);
    columnLayout->setSpacing(0);
    if (container.usesMemoryStore())
        columnLayout->addWidget(new TemporaryStoreNotice(column));
    columnLayout->addWidget(m_screens);
    addWidget(m_sidebar);
    addWidget(column);
    setStretchFactor(1, 1);
    m_sidebar->setSelection(m_selection);
    connect(m_sidebar, &SidebarView::selectionEdited, this, &ContentView::showScreen);
    connect(m_sidebar, &SidebarView::favoriteChosen, this, &ContentView::applyFavorite);
    connect(m_sidebar, &SidebarView::manageFavoritesRequested, this, &ContentView::manageFavorites);
    connect(m_library, &LibraryView::manageFavoritesRequested, this, &ContentView::manageFavorites);
    connect(m_library, &LibraryView::criteriaChanged, this, &ContentView::showFavorites);
    connect(&favorites, &FilterFavoritesStore::changed, this, &ContentView::showFavorites);
    showFavorites();
}

void ContentView::showFavorites()
{
    m_sidebar->setFavorites(
        m_favorites.favorites(), m_favorites.matching(m_library->currentCriteria()));
}

void ContentView::applyFavorite(const FilterFavorite& favorite)
{
    m_library->setPendingFavorite(favorite);
    showScreen(NavItem::Library);
}

void ContentView::manageFavorites()
{
    if (findChild<FilterFavoritesManagementView*>())
        return;
    auto* sheet = new FilterFavoritesManagementView(m_favorites, this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void ContentView::performStartupBackupIfNeeded()
{
    if (std::exchange(m_didBackup, true) || !m_preferences.autoBackupOnLaunch())
        return;
    BackupService::performBackup(m_container, m_preferences.maxBackups());
}

void ContentView::showScreen(NavItem item)
{
    if (item == m_selection)
        return;
    m_selection = item;
    m_sidebar->setSelection(item);
    QWidget* former = m_screens->currentWidget();
    QWidget* screen = item == NavItem::Library ? m_library : makeScreen(item);
    m_screens->addWidget(screen);
    m_screens->setCurrentWidget(screen);
    if (former != m_library)
        former->deleteLater(); // and with it what it had opened
}

QWidget* ContentView::makeScreen(NavItem item)
{
    StoreContext& context = m_container.context();
    switch (item) {
    case NavItem::Types:
        return new TypesManagementView(context);
    case NavItem::Brands:
        return new BrandsManagementView(context);
    case NavItem::Ranges:
        return new RangesManagementView(context);
    case NavItem::Locations:
        return new LocationsManagementView(context);
    case NavItem::Library:
    case NavItem::ExportImport:
    case NavItem::CsvExport:
        break;
    }
    auto* screen = new QWidget;
    auto* title = new QLabel(navItemTitle(item), screen);
    setTextStyle(title, TextStyle::ScreenTitle);
    auto* column = new QVBoxLayout(screen);
    column->setContentsMargins(16, 10, 16, 10);
    column->addWidget(title);
    column->addStretch();
    return screen;
}

} // namespace reelhouse
