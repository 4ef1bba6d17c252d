#include "app/library/LibraryView.h"

#include "app/library/FilamentSheets.h"
#include "app/library/LibraryToolbar.h"
#include "app/library/ListView.h"
#include "app/library/SpoolActions.h"
#include "app/library/StatusBarView.h"
#include "app/store/StoreContainer.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/EmptyState.h"
#include "app/ui/Palette.h"
#include "app/ui/SearchField.h"
#include "app/ui/Separator.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "core/filters/FilteredStock.h"
#include "core/filters/StockTotals.h"
#include "core/model/StoreContext.h"
#include "core/sample/SampleData.h"
#include "core/text/Plural.h"

#include <QtGui/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

LibraryView::LibraryView(StoreContainer& container, Preferences& preferences, QWidget* parent)
    : QWidget(parent)
    , m_container(container)
    , m_preferences(preferences)
    , m_actions(new SpoolActions(container.context(), this))
    , m_searchField(new SearchField)
    , m_resultCount(new QLabel)
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
    column->addWidget(makeFilterBar());
    column->addWidget(new Separator(this));
    column->addWidget(m_body, 1);
    column->addWidget(new Separator(this));
    column->addWidget(m_statusBar);

    auto* focusSearch = new QAction(this);
    focusSearch->setShortcut(QKeySequence::Find);
    addAction(focusSearch);
    connect(focusSearch, &QAction::triggered, this,
        [this] { m_searchField->setFocus(Qt::ShortcutFocusReason); });
    connect(m_searchField, &QLineEdit::textEdited, this, &LibraryView::search);
    connect(clear, &QPushButton::clicked, this, &LibraryView::clearSearch);
    connect(
        toolbar, &LibraryToolbar::additionRequested, m_actions, &SpoolActions::additionRequested);
    addAction(m_actions->additionCommand());
    new FilamentSheets(container.context(), *m_actions, this);
    connect(&container.context(), &StoreContext::changed, this, &LibraryView::refreshWhenShown);
}

QWidget* LibraryView::makeFilterBar()
{
    auto* bar = new QWidget;
    setTextStyle(m_resultCount, TextStyle::Callout);
    setTextTone(m_resultCount, TextTone::Secondary);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(16, 9, 16, 9);
    row->setSpacing(12);
    row->addWidget(m_searchField, 1);
    row->addWidget(m_resultCount);
    return bar;
}

void LibraryView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    seedOnce();
    if (m_isStale)
        refresh();
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
    if (isVisible())
        refresh();
}

void LibraryView::refresh()
{
    m_isStale = false;
    StoreContext& context = m_container.context();
    std::vector<FilamentId> filaments = filteredStock(context, m_selection);
    m_resultCount->setText(counted(qint64(filaments.size()), u"résultat"_s));
    if (!filaments.empty())
        m_body->setCurrentWidget(m_list);
    else
        m_body->setCurrentWidget(context.count<Filament>() == 0 ? m_emptyStock : m_noResult);
    m_list->showRows(std::move(filaments));
    m_statusBar->setTotals(stockTotals(context));
}

void LibraryView::search(const QString& text)
{
    m_selection.searchText = text;
    refresh();
}

void LibraryView::clearSearch()
{
    m_searchField->clear();
    m_searchField->setFocus();
    search({});
}

} // namespace reelhouse
