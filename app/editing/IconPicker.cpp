#include "app/editing/IconPicker.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/Palette.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"
#include "app/ui/Theme.h"
#include "core/model/FilamentType.h"

#include <QtGui/QPainter>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int pickerHeight = 130;
constexpr qreal pickerRadius = 10;
constexpr int cellSide = 38;
constexpr int cellGap = 8;
constexpr int gridPadding = 8;
constexpr qreal cellRadius = 8;
constexpr int cellSymbolSide = 20;
constexpr QColor cellAccent(0x66, 0x7e, 0xea);
constexpr QColor cellGray(0x80, 0x80, 0x80);

/// Keeps the scroll bar off a rounded corner of the panel.
QWidget* roundedEnd()
{
    auto* end = new QWidget;
    end->setFixedHeight(int(pickerRadius) - 1);
    return end;
}

} // namespace

IconCell::IconCell(const QString& symbol, QWidget* parent)
    : QPushButton(parent)
    , m_symbol(symbol)
{
    setFixedSize(cellSide, cellSide);
    setCheckable(true);
    setAutoExclusive(true);
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(typeIconAccessibleName(symbol));
    setToolTip(typeIconAccessibleName(symbol));
}

void IconCell::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QStyleOptionButton option;
    initStyleOption(&option);
    QPainter painter(this);
    if (isChecked())
        paintRoundedPanel(painter, rect(), cellRadius, faded(cellAccent, 0.18), cellAccent);
    else
        paintRoundedPanel(
            painter, rect(), cellRadius, faded(cellGray, 0.08), faded(cellGray, 0.15));
    if (option.state.testFlag(QStyle::State_MouseOver))
        paintRoundedPanel(painter, rect(), cellRadius, theme.hover);
    QRect symbolRect(0, 0, cellSymbolSide, cellSymbolSide);
    symbolRect.moveCenter(rect().center());
    paintSymbol(painter, symbolRect, m_symbol, isChecked() ? theme.accentText : theme.textPrimary);
    if (showsFocusRing(option))
        paintFocusRing(painter, rect(), cellRadius, theme);
}

/// Lays the cells out in rows, the space that is left shared between them.
class IconPicker::Grid final : public QWidget {
public:
    using QWidget::QWidget;

    int heightForWidth(int width) const override
    {
        const int columns = columnsIn(width);
        const int rows = (int(cells().size()) + columns - 1) / columns;
        return 2 * gridPadding + rows * cellSide + (rows - 1) * cellGap;
    }

protected:
    void resizeEvent(QResizeEvent*) override
    {
        const int columns = columnsIn(width());
        const int free = width() - 2 * gridPadding - columns * cellSide;
        const QList<IconCell*> all = cells();
        for (int index = 0; index < int(all.size()); ++index) {
            const int column = index % columns;
            const int shared = columns > 1 ? free * column / (columns - 1) : 0;
            all.at(index)->move(gridPadding + column * cellSide + shared,
                gridPadding + index / columns * (cellSide + cellGap));
        }
        setMinimumHeight(heightForWidth(width()));
    }

private:
    QList<IconCell*> cells() const { return findChildren<IconCell*>(); }
    static int columnsIn(int width)
    {
        return std::max(1, (width - 2 * gridPadding + cellGap) / (cellSide + cellGap));
    }
};

IconPicker::IconPicker(const QString& selection, QWidget* parent)
    : QWidget(parent)
    , m_selection(selection)
    , m_scrollArea(new QScrollArea(this))
{
    setFixedHeight(pickerHeight);
    setAccessibleName(u"Icône"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    column->addWidget(m_scrollArea);
    auto* grid = new Grid;
    for (const QString& symbol : typeIconOptions()) {
        auto* cell = new IconCell(symbol, grid);
        cell->setChecked(symbol == selection);
        connect(cell, &QPushButton::clicked, this, [this, cell] { choose(*cell); });
    }
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setWidget(grid);
    grid->setAutoFillBackground(false);
    QWidget* viewport = m_scrollArea->viewport();
    viewport->setAutoFillBackground(false);
    viewport->setBackgroundRole(roleOf(Ground::Surface)); // The scroll bar takes its colour.
    for (const Qt::Alignment end : {Qt::AlignTop, Qt::AlignBottom})
        m_scrollArea->addScrollBarWidget(roundedEnd(), end);
}

void IconPicker::choose(const IconCell& cell)
{
    m_scrollArea->ensureWidgetVisible(const_cast<IconCell*>(&cell), 0, gridPadding);
    m_selection = cell.symbol();
}

void IconPicker::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), pickerRadius, theme.surface, theme.hairline);
}

} // namespace reelhouse
