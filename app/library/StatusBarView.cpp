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
    setMinimumHeight(30);
    setTotals({});
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
}

} // namespace reelhouse
