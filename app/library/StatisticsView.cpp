#include "app/library/StatisticsView.h"

#include "app/library/StatPanel.h"
#include "app/library/StatTile.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtGui/QPainter>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int statisticsMargin = 24;
constexpr int statisticsGap = 16;
constexpr int narrowestBeside = 760; ///< Below this width the panels stand one under the other.

/// The ground of the summary, with a line between the tiles.
class SummaryPanel final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Theme& theme = currentTheme();
        QPainter painter(this);
        paintRoundedPanel(painter, rect(), 12, theme.surface, theme.hairline);
        const auto tiles = findChildren<StatTile*>();
        for (qsizetype place = 1; place < tiles.size(); ++place)
            painter.fillRect(tiles.at(place)->x() - 22, 22, 1, height() - 44, theme.hairline);
    }
};

} // namespace

StatisticsView::StatisticsView(QWidget* parent)
    : QScrollArea(parent)
    , m_panelRow(nullptr)
{
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setBackgroundRole(roleOf(Ground::Canvas)); // The scroll bar takes its colour.
    auto* content = new QWidget;
    setGround(content, Ground::Canvas);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(statisticsMargin, 18, statisticsMargin, statisticsMargin);
    column->setSpacing(statisticsGap);
    column->addWidget(makeHeader(content));
    column->addWidget(makeSummary(content));
    m_panelRow = new QBoxLayout(QBoxLayout::LeftToRight);
    m_panelRow->setSpacing(statisticsGap);
    const std::pair<QString, ColorRole> panels[] = {{u"Par type"_s, &Theme::typeBar},
        {u"Par marque"_s, &Theme::brandBar}, {u"Par lieu"_s, &Theme::locationBar}};
    for (size_t place = 0; place < m_panels.size(); ++place) {
        const auto& [title, color] = panels[place];
        m_panels[place] = new StatPanel(title, color, content);
        connect(m_panels[place], &StatPanel::groupChosen, this, &StatisticsView::groupChosen);
        m_panelRow->addWidget(m_panels[place], 1, Qt::AlignTop);
    }
    column->addLayout(m_panelRow);
    column->addStretch();
    setWidget(content);
}

QWidget* StatisticsView::makeHeader(QWidget* parent)
{
    auto* header = new QWidget(parent);
    auto* title = new QLabel(u"Statistiques"_s, header);
    setTextStyle(title, TextStyle::Title);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    row->addWidget(new IconView(symbolIcon(u"chart.bar.xaxis"_s, &Theme::accentText), 20, header));
    row->addWidget(title, 1);
    return header;
}

QWidget* StatisticsView::makeSummary(QWidget* parent)
{
    auto* summary = new SummaryPanel(parent);
    using Colors = StatTile::Colors;
    m_tiles = {new StatTile(
                   u"books.vertical.fill"_s,
                   [](const Theme& theme) {
                       return Colors{theme.accentText, theme.accent};
                   },
                   u"Filaments"_s, summary),
        new StatTile(
            u"number.circle.fill"_s,
            [](const Theme& theme) {
                return Colors{theme.rangeTint.text, theme.rangeTint.base};
            },
            u"Bobines"_s, summary),
        new StatTile(
            u"scissors"_s,
            [](const Theme& theme) {
                return Colors{theme.orange, theme.orangeGraphic};
            },
            u"Entamées"_s, summary)};
    auto* row = new QGridLayout(summary);
    row->setContentsMargins(22, 22, 22, 22);
    row->setHorizontalSpacing(44);
    for (int place = 0; place < int(m_tiles.size()); ++place) {
        row->addWidget(m_tiles[size_t(place)], 0, place);
        row->setColumnStretch(place, 1);
    }
    // In the corner of the last tile, which is as wide as the others.
    m_tiles.back()->setCornerMark(
        new IconView(symbolIcon(u"chart.bar.fill"_s), 16, m_tiles.back()));
    return summary;
}

void StatisticsView::setStock(const StockTotals& totals, const StockDistribution& distribution)
{
    m_tiles[0]->setValue(totals.filaments);
    m_tiles[1]->setValue(totals.spools);
    m_tiles[2]->setValue(totals.opened);
    m_panels[0]->setGroups(distribution.byType, totals.filaments);
    m_panels[1]->setGroups(distribution.byBrand, totals.filaments);
    m_panels[2]->setGroups(distribution.byLocation, totals.filaments);
}

void StatisticsView::resizeEvent(QResizeEvent* event)
{
    const bool isNarrow = width() - 2 * statisticsMargin < narrowestBeside;
    m_panelRow->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    // The scroll bar lies in the margin: whether it is there changes nothing.
    QLayout* column = widget()->layout();
    QMargins margins = column->contentsMargins();
    margins.setRight(statisticsMargin - (width() - viewport()->width()));
    column->setContentsMargins(margins);
    QScrollArea::resizeEvent(event);
}

} // namespace reelhouse
