#include "app/library/CardView.h"

#include "app/library/AddCardButton.h"
#include "app/library/SpoolActions.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QScrollBar>

namespace reelhouse {

CardView::CardView(StoreContext& context, SpoolActions& actions, QWidget* parent)
    : QWidget(parent)
    , m_grid(new CardGrid(context, actions, this))
    , m_addButton(new AddCardButton(this))
{
    setFocusProxy(m_grid);
    connect(m_grid, &CardGrid::moved, this, &CardView::placeButton);
    connect(m_addButton, &AddCardButton::focused, this, [this] {
        QScrollBar* bar = m_grid->verticalScrollBar();
        bar->setValue(bar->maximum());
    });
    connect(m_addButton, &QPushButton::clicked, &actions, &SpoolActions::additionRequested);
}

void CardView::placeButton()
{
    m_addButton->setGeometry(
        m_grid->placeAfterLast().translated(m_grid->viewport()->mapTo(this, QPoint())));
}

void CardView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_grid->setGeometry(rect());
    placeButton();
}

void CardView::wheelEvent(QWheelEvent* event)
{
    // Only the button lets a turn of the wheel through to here.
    QCoreApplication::sendEvent(m_grid->verticalScrollBar(), event);
}

} // namespace reelhouse
