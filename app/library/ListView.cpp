#include "app/library/ListView.h"

#include "app/library/FilamentRowDelegate.h"
#include "app/library/FilamentTableModel.h"
#include "app/library/ListHeader.h"
#include "app/library/RowLayout.h"
#include "app/library/SpoolActions.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

struct ColumnShare {
    int share;
    int minimum;
};

constexpr std::array<ColumnShare, 5> columnShares{
    {{21, 150}, {16, 130}, {12, 90}, {13, 110}, {19, 120}}};

/// As wide as the margin beside the rows, which are as wide without it.
class RowsScrollBar final : public QScrollBar {
public:
    using QScrollBar::QScrollBar;

    QSize sizeHint() const override { return {RowLayout::margin, QScrollBar::sizeHint().height()}; }
};

/// What the columns without a width have between them.
struct Remainder {
    int width;
    int shares = 0;
};

Remainder remainderOf(int available, const std::vector<int>& widths)
{
    Remainder remainder{available};
    for (size_t column = 0; column < widths.size(); ++column) {
        if (widths[column] > 0)
            remainder.width -= widths[column];
        else
            remainder.shares += columnShares[column].share;
    }
    return remainder;
}

} // namespace

std::vector<int> listColumnWidths(int available, const std::vector<int>& needed)
{
    std::vector<int> widths(columnShares.size(), 0);
    // A column whose share is too small takes its minimum; the others share what is left anew.
    for (bool isSettled = false; !isSettled;) {
        isSettled = true;
        const Remainder remainder = remainderOf(available, widths);
        for (size_t column = 0; column < widths.size(); ++column) {
            const int share = columnShares[column].share;
            const int minimum = std::max(
                columnShares[column].minimum, column < needed.size() ? needed[column] : 0);
            if (widths[column] == 0 && remainder.width * share < minimum * remainder.shares) {
                widths[column] = minimum;
                isSettled = false;
            }
        }
    }
    for (size_t column = 0; column < widths.size(); ++column) {
        const Remainder remainder = remainderOf(available, widths);
        if (widths[column] == 0 && remainder.shares > 0)
            widths[column] = remainder.width * columnShares[column].share / remainder.shares;
    }
    return widths;
}

ListView::ListView(StoreContext& context, SpoolActions& actions, QWidget* parent)
    : QTableView(parent)
    , m_actions(actions)
    , m_model(new FilamentTableModel(context, FilamentTableModel::Shape::Table, this))
    , m_selected(nullptr)
    , m_besideHeader(new HeaderEnd(this))
{
    setAccessibleName(u"Stock de filaments"_s);
    setModel(m_model);
    m_selected = new SelectedFilament(*this, *m_model, actions);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setFrameShape(NoFrame);
    setWordWrap(false);
    setMouseTracking(true);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setBackgroundRole(QPalette::AlternateBase);
    viewport()->setBackgroundRole(QPalette::AlternateBase);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setHorizontalHeader(new ListHeader(this));
    setVerticalScrollBar(new RowsScrollBar(this));
    addScrollBarWidget(m_besideHeader, Qt::AlignTop);

    auto* delegate = new FilamentRowDelegate(*this);
    setItemDelegate(delegate);
    connect(delegate, &FilamentRowDelegate::addSpoolRequested, this,
        [this](const QModelIndex& index) { m_actions.addSpool(m_model->idAt(index.row())); });
    connect(delegate, &FilamentRowDelegate::removeSpoolRequested, this,
        [this](const QModelIndex& index) { m_actions.removeSpool(m_model->idAt(index.row())); });
    addActions(m_actions.commands());
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
        [this] { m_hasOwnWidths = m_hasOwnWidths || !m_isSharingColumns; });
    updateMetrics();
}

void ListView::setFoldedSearch(const QString& search)
{
    m_foldedSearch = search;
    viewport()->update();
}

void ListView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::ApplicationFontChange)
        updateMetrics();
}

void ListView::updateMetrics()
{
    verticalHeader()->setDefaultSectionSize(FilamentRowDelegate::rowHeight());
    horizontalHeader()->updateGeometry();
    m_besideHeader->setFixedHeight(horizontalHeader()->sizeHint().height());
    if (!m_hasOwnWidths)
        shareColumns();
}

int ListView::rowsEnd() const
{
    return width() - RowLayout::margin;
}

void ListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    if (!m_hasOwnWidths)
        shareColumns();
}

void ListView::shareColumns()
{
    const QScopedValueRollback sharing(m_isSharingColumns, true);
    std::vector<int> needed;
    int left = rowsEnd();
    for (int column = 0; column < m_model->columnCount(); ++column) {
        needed.push_back(std::max(
            columnShares[size_t(column)].minimum, horizontalHeader()->sectionSizeHint(column)));
        left -= needed.back();
    }
    // What is not to be cut gets what it takes, unless the list would have to scroll for it.
    for (int column = 0; column < m_model->columnCount(); ++column) {
        int& width = needed[size_t(column)];
        const int more = std::clamp(RowLayout::wholeWidth(column) - width, 0, std::max(left, 0));
        width += more;
        left -= more;
    }
    const std::vector<int> widths = listColumnWidths(rowsEnd(), needed);
    for (size_t column = 0; column < widths.size(); ++column)
        setColumnWidth(int(column), widths[column]);
}

void ListView::mouseMoveEvent(QMouseEvent* event)
{
    followPointer(event->position().toPoint());
    QTableView::mouseMoveEvent(event);
}

void ListView::mousePressEvent(QMouseEvent* event)
{
    QTableView::mousePressEvent(event);
    if (!indexAt(event->position().toPoint()).isValid())
        setCurrentIndex({});
}

void ListView::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    // Who comes by Tab sees on which row the keys will act.
    const bool isByTab
        = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (isByTab && currentIndex().isValid() && !selectedFilament())
        selectRow(currentIndex().row());
}

void ListView::keyPressEvent(QKeyEvent* event)
{
    // By the character, not by the key: it lies elsewhere on other keyboards and on the keypad.
    if (event->text() == u"+"_s)
        m_actions.addSpool(selectedFilament());
    else if (event->text() == u"-"_s)
        m_actions.removeSpool(selectedFilament());
    else
        QTableView::keyPressEvent(event);
}

void ListView::leaveEvent(QEvent* event)
{
    followPointer({-1, -1});
    QTableView::leaveEvent(event);
}

void ListView::followPointer(QPoint position)
{
    const auto updateRow = [this](int row) {
        viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
    };
    m_pointerPosition = position;
    if (m_hoveredRow >= 0)
        updateRow(m_hoveredRow);
    m_hoveredRow = rect().contains(position) ? rowAt(position.y()) : -1;
    if (m_hoveredRow >= 0)
        updateRow(m_hoveredRow);
}

void ListView::contextMenuEvent(QContextMenuEvent* event)
{
    m_selected->openMenu(*event);
}

} // namespace reelhouse
