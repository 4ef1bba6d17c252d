#include "app/library/CardGrid.h"

#include "app/library/CardDelegate.h"
#include "app/library/FilamentTableModel.h"
#include "app/library/SpoolActions.h"
#include "core/model/StoreContext.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// How many characters the two counts take, but for their words.
int countLength(const Filament& filament)
{
    const auto length = [](qint64 count) {
        int digits = count >= 2 ? 2 : 1; // With the "s" of a plural.
        for (; count >= 10; count /= 10)
            ++digits;
        return digits;
    };
    return length(filament.spoolsCount()) + length(filament.openedSpoolsCount());
}

} // namespace

CardGrid::CardGrid(StoreContext& context, SpoolActions& actions, QWidget* parent)
    : QListView(parent)
    , m_context(context)
    , m_actions(actions)
    , m_model(new FilamentTableModel(context, FilamentTableModel::Shape::Cards, this))
    , m_selected(nullptr)
{
    setAccessibleName(u"Stock de filaments"_s);
    setModel(m_model);
    m_selected = new SelectedFilament(*this, *m_model, actions);
    setItemDelegate(new CardDelegate(*this));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setBackgroundRole(QPalette::Window);
    viewport()->setBackgroundRole(QPalette::Window);
    addActions(m_actions.commands());
}

void CardGrid::showRows(std::vector<FilamentId> rows)
{
    m_selected->showRows(std::move(rows));
    updateGeometries(); // Now, and not with the next layout: the button after the cards goes along.
}

void CardGrid::setFoldedSearch(const QString& search)
{
    m_foldedSearch = search;
    viewport()->update();
}

void CardGrid::measureCounts()
{
    int longest = 0;
    m_widestCounts = {};
    for (const auto& filament : m_context.fetchAll<Filament>()) {
        if (filament->openedSpoolsCount() < 1)
            continue;
        const int length = countLength(*filament);
        if (length > longest) {
            longest = length;
            m_widestCounts = filament->id();
        }
    }
    decideCounts();
}

void CardGrid::decideCounts()
{
    const Filament* widest = m_context.find(m_widestCounts);
    const bool fits = !widest || CardLayout::countsFit(*widest, geometryOfCards().cardWidth());
    m_counts = fits ? CardLayout::Counts::Beside : CardLayout::Counts::OneUnderTheOther;
}

int CardGrid::cardCount() const
{
    return m_model->rowCount();
}

CardGeometry CardGrid::geometryOfCards() const
{
    // The scroll bar lies in the margin: whether it is there changes nothing.
    return {width(), CardLayout::height(m_counts)};
}

QRect CardGrid::placeAfterLast() const
{
    return geometryOfCards().rect(cardCount()).translated(0, -verticalOffset());
}

QRect CardGrid::visualRect(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    return geometryOfCards().rect(index.row()).translated(0, -verticalOffset());
}

QModelIndex CardGrid::indexAt(const QPoint& point) const
{
    const int place = geometryOfCards().placeAt(point + QPoint(0, verticalOffset()), cardCount());
    return place < 0 ? QModelIndex() : m_model->index(place, 0);
}

void CardGrid::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (!index.isValid())
        return;
    const QRect card = visualRect(index).adjusted(0, -CardGeometry::gap, 0, CardGeometry::gap);
    QScrollBar* bar = verticalScrollBar();
    const int above = card.top();
    const int below = card.bottom() + 1 - viewport()->height();
    if (hint == PositionAtTop || (hint == EnsureVisible && above < 0))
        bar->setValue(bar->value() + above);
    else if (hint == PositionAtBottom || (hint == EnsureVisible && below > 0))
        bar->setValue(bar->value() + below);
    else if (hint == PositionAtCenter)
        bar->setValue(bar->value() + (above + below) / 2);
}

QModelIndex CardGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int last = cardCount() - 1;
    if (last < 0)
        return {};
    if (!currentIndex().isValid())
        return m_model->index(0, 0);
    const CardGeometry cards = geometryOfCards();
    const int page = cards.columns() * std::max(1, viewport()->height() / cards.rowHeight());
    const int row = currentIndex().row();
    const auto atOrStay
        = [&](int place) { return m_model->index(place >= 0 && place <= last ? place : row, 0); };
    switch (action) {
    case MoveUp:
        return atOrStay(row - cards.columns());
    case MoveDown:
        return atOrStay(row + cards.columns());
    case MoveLeft:
    case MovePrevious:
        return atOrStay(row - 1);
    case MoveRight:
    case MoveNext:
        return atOrStay(row + 1);
    case MovePageUp:
        return m_model->index(row >= page ? row - page : row % cards.columns(), 0);
    case MovePageDown:
        return m_model->index(std::min(row + page, last), 0);
    case MoveHome:
        return m_model->index(0, 0);
    case MoveEnd:
        return m_model->index(last, 0);
    }
    return {};
}

int CardGrid::verticalOffset() const
{
    return verticalScrollBar()->value();
}

void CardGrid::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command)
{
    const QModelIndex index = indexAt(rect.center());
    selectionModel()->select(QItemSelection(index, index), command);
}

QRegion CardGrid::visualRegionForSelection(const QItemSelection& selection) const
{
    QRegion region;
    for (const QModelIndex& index : selection.indexes())
        region += visualRect(index).adjusted(-3, -3, 3, 3); // The outline lies outside.
    return region;
}

void CardGrid::doItemsLayout()
{
    QAbstractItemView::doItemsLayout(); // NOLINT(bugprone-parent-virtual-call): nothing to measure
}

void CardGrid::dataChanged(const QModelIndex&, const QModelIndex&, const QList<int>&)
{
    viewport()->update(); // The parent class would ask where each of the cards lies.
}

void CardGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): its parent would look for the laid out card
    QAbstractItemView::currentChanged(current, previous);
    announce(QAccessible::Focus, hasFocus() ? current : QModelIndex());
}

void CardGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): as above
    QAbstractItemView::selectionChanged(selected, deselected);
    announce(QAccessible::Selection, selected.indexes().value(0));
    announce(QAccessible::SelectionRemove, deselected.indexes().value(0));
}

/// Tells assistive technology of an event that befell one card.
void CardGrid::announce(QAccessible::Event what, const QModelIndex& index)
{
    if (!QAccessible::isActive() || !index.isValid())
        return;
    QAccessibleEvent event(this, what);
    event.setChild(index.row());
    QAccessible::updateAccessibility(&event);
}

void CardGrid::updateGeometries()
{
    const CardGeometry cards = geometryOfCards();
    const int height = viewport()->height();
    verticalScrollBar()->setSingleStep(cards.rowHeight() / 4);
    verticalScrollBar()->setPageStep(height);
    verticalScrollBar()->setRange(0, std::max(0, cards.heightOf(cardCount() + 1) - height));
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): its parent would measure the cards
    QAbstractItemView::updateGeometries();
    emit moved();
}

void CardGrid::scrollContentsBy(int, int dy)
{
    viewport()->scroll(0, dy);
    emit moved();
}

void CardGrid::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QStyle::State state = option.state;
    const CardGeometry cards = geometryOfCards();
    const QRect seen = event->rect().translated(0, verticalOffset());
    // Shadows and outlines reach into the gaps.
    const int firstLine = std::max(0, (seen.top() - CardGeometry::topMargin) / cards.rowHeight());
    const int lastLine
        = std::max(0, (seen.bottom() - CardGeometry::topMargin) / cards.rowHeight() + 1);
    const int end = std::min(cardCount(), (lastLine + 1) * cards.columns());
    for (int row = firstLine * cards.columns(); row < end; ++row) {
        const QModelIndex index = m_model->index(row, 0);
        option.rect = visualRect(index);
        option.state = state;
        option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
        option.state.setFlag(QStyle::State_MouseOver, row == m_hoveredRow);
        option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
        itemDelegate()->paint(&painter, option, index);
    }
}

void CardGrid::resizeEvent(QResizeEvent* event)
{
    decideCounts();
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): its parent would measure the cards
    QAbstractItemView::resizeEvent(event);
    updateGeometries();
    viewport()->update();
}

void CardGrid::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        decideCounts();
        updateGeometries();
    }
}

void CardGrid::contextMenuEvent(QContextMenuEvent* event)
{
    m_selected->openMenu(*event);
}

void CardGrid::keyPressEvent(QKeyEvent* event)
{
    // By the character, not by the key: it lies elsewhere on other keyboards and on the keypad.
    if (event->text() == u"+"_s)
        m_actions.addSpool(m_selected->shownId());
    else if (event->text() == u"-"_s)
        m_actions.removeSpool(m_selected->shownId());
    else
        QListView::keyPressEvent(event);
}

void CardGrid::leaveEvent(QEvent* event)
{
    hover(-1);
    QListView::leaveEvent(event);
}

void CardGrid::mouseMoveEvent(QMouseEvent* event)
{
    hover(indexAt(event->position().toPoint()).row());
    QListView::mouseMoveEvent(event);
}

void CardGrid::mousePressEvent(QMouseEvent* event)
{
    QListView::mousePressEvent(event);
    if (!indexAt(event->position().toPoint()).isValid())
        selectionModel()->clear();
}

void CardGrid::hover(int row)
{
    if (row == m_hoveredRow)
        return;
    for (const int changed : {m_hoveredRow, row}) {
        if (changed >= 0)
            viewport()->update(visualRect(m_model->index(changed, 0)).adjusted(-7, -7, 7, 9));
    }
    m_hoveredRow = row;
}

} // namespace reelhouse
