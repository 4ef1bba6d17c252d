#include "app/library/StatusBarView.h"

#include "app/library/StatusItem.h"
#include "app/ui/Palette.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtWidgets/QHBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

StatusBarView::StatusBarView(QWidget* parent)
    : QWidget(parent)
    , m_empty(new QLabel(u"Stock vide"_s, this))
    , m_note(new QLabel(this))
    , m_items{new StatusItem(u"cube.fill"_s, QColor(0x4F8FF7), this),
          new StatusItem(u"circle.grid.2x2.fill"_s, QColor(0xF6A25C), this),
          new StatusItem(u"scissors"_s, QColor(0x2EC4B6), this),
          new StatusItem(u"square.stack.3d.up.fill"_s, lightTheme().typesMark, this)}
{
    setTextStyle(m_empty, TextStyle::Caption);
    setTextTone(m_empty, TextTone::Secondary);
    setGround(this, Ground::Window);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(18, 7, 18, 7);
    row->setSpacing(22);
    row->addWidget(m_empty);
    for (StatusItem* item : m_items)
        row->addWidget(item);
    row->addStretch();
    row->addWidget(m_note, 1);
    m_note->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_note->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // It widens no window.
    setTextStyle(m_note, TextStyle::Caption);
    setTextTone(m_note, TextTone::Secondary);
    m_note->hide();
    setMinimumHeight(30);
    setTotals({});
}

void StatusBarView::setNote(const QString& note)
{
    m_note->setText(note);
    placeNote();
}

void StatusBarView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeNote();
}

void StatusBarView::placeNote()
{
    const int room = width() - layout()->sizeHint().width() - layout()->spacing();
    m_note->setVisible(!m_note->text().isEmpty() && m_note->sizeHint().width() <= room);
}

void StatusBarView::setTotals(const StockTotals& totals)
{
    const bool isEmpty = totals.filaments == 0;
    m_empty->setVisible(isEmpty);
    for (StatusItem* item : m_items)
        item->setVisible(!isEmpty);
    m_items[0]->setCount(totals.filaments, u"filament"_s);
    m_items[1]->setCount(totals.spools, u"bobine"_s);
    m_items[2]->setCount(totals.opened, u"entamée"_s);
    m_items[3]->setCount(totals.types, u"type"_s);
    placeNote();
}

} // namespace reelhouse
