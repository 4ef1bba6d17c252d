#include "app/shell/ContentView.h"

#include "app/backup/BackupService.h"
#include "app/backup/CsvExportView.h"
#include "app/backup/ExportImportView.h"
#include "app/editing/ReferenceManagementView.h"
#include "app/library/FilterFavoritesManagementView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/LibraryView.h"
#include "app/shell/SidebarView.h"
#include "app/shell/TemporaryStoreNotice.h"
#include "app/shell/UnsavedNotice.h"
#include "app/store/StoreContainer.h"
#include "core/preferences/Preferences.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// The path of the one document that is being dropped on `screen`; empty for anything else, while a
/// sheet or an alert waits for an answer, and while the screen exports or imports.
QString droppedDocument(const QDropEvent& event, const QWidget* screen)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    const auto* transfer = qobject_cast<const TransferScreen*>(screen);
    if (urls.size() != 1 || QApplication::activeModalWidget() || (transfer && transfer->isBusy()))
        return {};
    const QString path = urls.first().toLocalFile();
    return path.endsWith(u".json"_s, Qt::CaseInsensitive) ? path : QString();
}

} // namespace

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
    setAcceptDrops(true);
    setChildrenCollapsible(false);
    setHandleWidth(1);
    m_screens->addWidget(m_library);

    auto* column = new QWidget;
    auto* columnLayout = new QVBoxLayout(column);
    columnLayout->setContentsMargins(0, 0, 0, 0);
    columnLayout->setSpacing(0);
    if (container.usesMemoryStore()) {
        const QString dataFolder = QFileInfo(container.storeFile()).path();
        columnLayout->addWidget(new TemporaryStoreNotice(dataFolder, column));
    }
    columnLayout->addWidget(new UnsavedNotice(container.context(), column));
    columnLayout->addWidget(m_screens);
    addWidget(m_sidebar);
    addWidget(column);
    m_sidebar->lower(); // the first child in reading order
    setStretchFactor(1, 1);
    m_sidebar->setSelection(m_selection);
    connect(m_sidebar, &SidebarView::selectionEdited, this, &ContentView::showScreen);
    connect(m_sidebar, &SidebarView::favoriteChosen, this, &ContentView::applyFavorite);
    connect(
        m_sidebar, &SidebarView::manageFavoritesRequested, this, [this] { manageFavorites(this); });
    connect(
        m_library, &LibraryView::manageFavoritesRequested, this, [this] { manageFavorites(this); });
    connect(m_library, &LibraryView::settingsRequested, this, &ContentView::settingsRequested);
    connect(m_library, &LibraryView::aboutRequested, this, &ContentView::aboutRequested);
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

void ContentView::manageFavorites(QWidget* front)
{
    if (findChild<FilterFavoritesManagementView*>())
        return;
    auto* sheet = new FilterFavoritesManagementView(m_favorites, front);
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
    emit screenShown(item);
}

template <typename Screen>
Screen& ContentView::shown(NavItem item)
{
    showScreen(item);
    return *static_cast<Screen*>(m_screens->currentWidget());
}

void ContentView::exportStock()
{
    shown<ExportImportView>(NavItem::ExportImport).exportStock();
}

void ContentView::importStock()
{
    shown<ExportImportView>(NavItem::ExportImport).chooseDocument();
}

void ContentView::exportTable()
{
    shown<CsvExportView>(NavItem::CsvExport).exportStock();
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
    case NavItem::ExportImport:
        return new ExportImportView(m_container, m_preferences);
    case NavItem::CsvExport:
        return new CsvExportView(m_container);
    case NavItem::Library:
        break;
    }
    Q_UNREACHABLE();
}

void ContentView::dragEnterEvent(QDragEnterEvent* event)
{
    if (droppedDocument(*event, m_screens->currentWidget()).isEmpty())
        return;
    event->setDropAction(Qt::CopyAction); // A move would take the file away from its folder.
    event->accept();
}

void ContentView::dropEvent(QDropEvent* event)
{
    const QString path = droppedDocument(*event, m_screens->currentWidget());
    if (path.isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    shown<ExportImportView>(NavItem::ExportImport).importFile(path);
}

} // namespace reelhouse
