#include "app/printing/OptionPanel.h"

#include "app/ui/Palette.h"
#include "app/ui/RoundedPanel.h"

#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

namespace reelhouse {

namespace {

constexpr qreal optionPanelRadius = 10;

} // namespace

OptionPanel::OptionPanel(QWidget* parent)
    : QWidget(parent)
    , m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
}

void OptionPanel::addRow(QLayout* row, const QMargins& margins)
{
    row->setContentsMargins(margins);
    m_rows->addLayout(row);
}

void OptionPanel::paintEvent(QPaintEvent* /*event*/)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), optionPanelRadius, theme.surface, theme.hairline);
    for (int row = 1; row < m_rows->count(); ++row)
        painter.fillRect(
            QRect(1, m_rows->itemAt(row)->geometry().top(), width() - 2, 1), theme.hairline);
}

} // namespace reelhouse
