#include "app/library/StatPanel.h"

#include "app/library/StatBar.h"
#include "app/ui/Palette.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Separator.h"
#include "app/ui/TextStyle.h"

#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int statPanelPadding = 18;
constexpr int statHeadingGap = 15;
constexpr int statGap = 12;
constexpr qreal statPanelRadius = 12;

} // namespace

StatPanel::StatPanel(const QString& title, ColorRole barColor, QWidget* parent)
    : QWidget(parent)
    , m_barColor(barColor)
    , m_column(new QVBoxLayout)
    , m_noData(new QLabel(u"Aucune donnée"_s, this))
{
    auto* heading = new QLabel(title, this);
    setTextStyle(heading, TextStyle::Headline);
    auto* headingRow = new QVBoxLayout;
    headingRow->setContentsMargins(
        statPanelPadding, statHeadingGap, statPanelPadding, statHeadingGap);
    headingRow->addWidget(heading);
    setTextTone(m_noData, TextTone::Secondary);
    constexpr int margin = StatBar::margin; // Each bar has it around itself.
    constexpr int side = statPanelPadding - margin;
    m_column->setContentsMargins(side, statGap - margin, side, side);
    m_column->setSpacing(statGap - 2 * margin);
    m_noData->setContentsMargins(margin, margin, margin, margin);
    m_column->addWidget(m_noData);
    auto* panel = new QVBoxLayout(this);
    panel->setContentsMargins(1, 1, 1, 1);
    panel->setSpacing(0);
    panel->addLayout(headingRow);
    panel->addWidget(new Separator(this));
    panel->addLayout(m_column);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

void StatPanel::setGroups(const std::vector<StockGroup>& groups, qint64 total)
{
    while (m_bars.size() > qsizetype(groups.size()))
        delete m_bars.takeLast(); // Before the layout counts it again.
    while (m_bars.size() < qsizetype(groups.size())) {
        auto* bar = new StatBar(m_barColor, this);
        connect(bar, &StatBar::groupChosen, this, &StatPanel::groupChosen);
        m_column->addWidget(bar);
        m_bars << bar;
    }
    for (qsizetype place = 0; place < m_bars.size(); ++place)
        m_bars.at(place)->setGroup(groups[size_t(place)], total);
    m_noData->setVisible(groups.empty());
}

void StatPanel::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), statPanelRadius, theme.surface, theme.hairline);
}

} // namespace reelhouse
