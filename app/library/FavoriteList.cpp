#include "app/library/FavoriteList.h"

#include "app/library/FavoriteRow.h"
#include "app/library/FavoriteTexts.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Theme.h"
#include "core/text/Folding.h"

#include <QtGui/QPainter>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qreal favoritesPanelRadius = 10;
constexpr int dropLineWidth = 2;

} // namespace

FavoriteList::FavoriteList(FilterFavoritesStore& favorites, QWidget* parent)
    : QWidget(parent)
    , m_favorites(favorites)
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(1, 1, 1, 1);
    m_column->setSpacing(1);
    connect(&favorites, &FilterFavoritesStore::changed, this, &FavoriteList::refresh);
    refresh();
}

void FavoriteList::refresh()
{
    // Rows stay the same widgets, so that a moved one keeps the focus.
    QList<FavoriteRow*> former = std::exchange(m_rows, {});
    for (qsizetype place = 0; place < m_favorites.favorites().size(); ++place) {
        const FilterFavorite& favorite = m_favorites.favorites().at(place);
        const auto known = std::ranges::find(former, favorite.id, &FavoriteRow::favoriteId);
        FavoriteRow* row = known == former.end() ? makeRow(place) : *known;
        former.removeOne(row);
        row->setFavorite(favorite);
        m_column->removeWidget(row);
        m_column->insertWidget(int(place), row);
        row->show();
        m_rows << row;
    }
    for (FavoriteRow* row : former) {
        m_column->removeWidget(row);
        row->hide();
        row->deleteLater();
    }
    orderTabs();
    update();
    emit resized();
}

FavoriteRow* FavoriteList::makeRow(qsizetype place)
{
    auto* row = new FavoriteRow(m_favorites.favorites().at(place), this);
    const QUuid id = row->favoriteId();
    connect(row, &FavoriteRow::renamingBegan, this, [this, row] { endOtherRenaming(row); });
    connect(row, &FavoriteRow::renameRequested, this,
        [this, row](const QString& name) { rename(*row, name); });
    connect(row, &FavoriteRow::deletionRequested, this, [this, id] { emit deletionRequested(id); });
    connect(row, &FavoriteRow::resized, this, &FavoriteList::resized);
    connect(row, &FavoriteRow::stepRequested, this, [this, id](int by) { step(id, by); });
    connect(row, &FavoriteRow::dragged, this, [this](int y) { showDropLine(gapAt(y)); });
    connect(row, &FavoriteRow::dropped, this, [this, id](int y) { drop(id, y); });
    return row;
}

void FavoriteList::orderTabs()
{
    for (qsizetype place = 1; place < m_rows.size(); ++place)
        setTabOrder(m_rows.at(place - 1)->lastControl(), m_rows.at(place)->firstControl());
}

void FavoriteList::endOtherRenaming(const FavoriteRow* row)
{
    for (FavoriteRow* other : m_rows) {
        if (other != row)
            other->endRenaming();
    }
}

void FavoriteList::rename(FavoriteRow& row, const QString& name)
{
    if (trimmed(name).isEmpty())
        row.showError(u"Le nom ne peut pas être vide."_s);
    else if (m_favorites.rename(row.favoriteId(), name))
        row.endRenaming();
    else
        row.showError(FavoriteTexts::nameTaken());
}

void FavoriteList::step(const QUuid& id, int step)
{
    const qsizetype place = placeOf(id);
    if (step < 0 && place > 0)
        m_favorites.move({place}, place - 1);
    else if (step > 0 && place + 1 < m_rows.size())
        m_favorites.move({place}, place + 2);
}

void FavoriteList::drop(const QUuid& id, int y)
{
    showDropLine(std::nullopt);
    const qsizetype place = placeOf(id);
    const qsizetype gap = gapAt(y);
    if (gap != place && gap != place + 1) // Else it stays where it is.
        m_favorites.move({place}, gap);
}

qsizetype FavoriteList::gapAt(int y) const
{
    return std::ranges::count_if(
        m_rows, [y](const FavoriteRow* row) { return row->geometry().center().y() < y; });
}

qsizetype FavoriteList::placeOf(const QUuid& id) const
{
    const auto found = std::ranges::find(m_rows, id, &FavoriteRow::favoriteId);
    return found - m_rows.begin();
}

void FavoriteList::showDropLine(std::optional<qsizetype> gap)
{
    m_dropGap = gap;
    update();
}

void FavoriteList::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), favoritesPanelRadius, theme.surface, theme.hairline);
    for (qsizetype place = 1; place < m_rows.size(); ++place)
        painter.fillRect(1, m_rows.at(place)->y() - 1, width() - 2, 1, theme.hairline);
    if (m_dropGap)
        paintDropLine(painter);
}

void FavoriteList::paintDropLine(QPainter& painter)
{
    const int y
        = *m_dropGap < m_rows.size() ? m_rows.at(*m_dropGap)->y() - 1 : height() - dropLineWidth;
    painter.fillRect(8, std::max(0, y - 1), width() - 16, dropLineWidth, currentTheme().accent);
}

} // namespace reelhouse
