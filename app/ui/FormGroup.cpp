#include "app/ui/FormGroup.h"

#include "app/ui/RoundedPanel.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace reelhouse {

namespace {

constexpr qreal groupRadius = 10;
constexpr int leastRowHeight = 36;
constexpr int groupRowGap = 10;
constexpr QMargins groupRowMargins(14, 4, 12, 4);
constexpr QMargins tallRowMargins(14, 9, 12, 9);

/// Rows are higher where their texts are.
void addLeastHeight(QHBoxLayout& row)
{
    const QMargins margins = row.contentsMargins();
    row.addStrut(leastRowHeight - margins.top() - margins.bottom());
}

} // namespace

FormGroup::FormGroup(QWidget* parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
}

QLabel* FormGroup::addRow(const QString& label, QWidget* control)
{
    return addRow(label, nullptr, control);
}

QLabel* FormGroup::addRow(const QString& label, QWidget* note, QWidget* control)
{
    auto* front = new QLabel(label, this);
    addRowOf(front, note, control, Qt::AlignVCenter);
    return front;
}

void FormGroup::addRow(QLabel* label, QWidget* control)
{
    addRowOf(label, nullptr, control, Qt::AlignVCenter);
}

void FormGroup::addRow(QWidget* content, int ring)
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(groupRowMargins - QMargins(0, ring, ring, ring));
    addLeastHeight(*line);
    line->addWidget(content);
    m_column->addWidget(row);
}

QLabel* FormGroup::addTallRow(const QString& label, QWidget* control)
{
    auto* front = new QLabel(label, this);
    QWidget* row = addRowOf(front, nullptr, control, Qt::AlignTop);
    row->layout()->setContentsMargins(tallRowMargins);
    return front;
}

QWidget* FormGroup::addRowOf(
    QLabel* label, QWidget* note, QWidget* control, Qt::Alignment labelPlace)
{
    auto* row = new QWidget(this);
    auto* line = new QHBoxLayout(row);
    const QMargins ring = control->contentsMargins();
    line->setContentsMargins(groupRowMargins.left(),
        std::max(0, groupRowMargins.top() - ring.top()),
        std::max(0, groupRowMargins.right() - ring.right()),
        std::max(0, groupRowMargins.bottom() - ring.bottom()));
    addLeastHeight(*line);
    line->setSpacing(groupRowGap);
    line->addWidget(label, 0, labelPlace);
    line->addStretch();
    if (note)
        line->addWidget(note);
    line->addWidget(control);
    label->setBuddy(control);
    label->show();
    m_column->addWidget(row);
    return row;
}

void FormGroup::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), groupRadius, theme.surface, theme.hairline);
    for (int row = 1; row < m_column->count(); ++row)
        painter.fillRect(
            QRect(1, m_column->itemAt(row)->geometry().top(), width() - 2, 1), theme.hairline);
}

} // namespace reelhouse
