#pragma once

#include <QtCore/QUuid>
#include <QtWidgets/QWidget>

#include <optional>

class QVBoxLayout;

namespace reelhouse {

class FavoriteRow;
class FilterFavoritesStore;

/// The rows of the management sheet in one panel. Rows are drawn along by the pointer or moved by
/// the keyboard; at most one of them is being renamed.
class FavoriteList final : public QWidget {
    Q_OBJECT

public:
    explicit FavoriteList(FilterFavoritesStore& favorites, QWidget* parent);

signals:
    void deletionRequested(const QUuid& id);
    /// The height that the list needs may have changed.
    void resized();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintDropLine(QPainter& painter);
    void refresh();
    FavoriteRow* makeRow(qsizetype place);
    void orderTabs();
    void endOtherRenaming(const FavoriteRow* row);
    void rename(FavoriteRow& row, const QString& name);
    void step(const QUuid& id, int step);
    void drop(const QUuid& id, int y);
    qsizetype gapAt(int y) const;
    qsizetype placeOf(const QUuid& id) const;
    void showDropLine(std::optional<qsizetype> gap);

    FilterFavoritesStore& m_favorites;
    QVBoxLayout* m_column;
    QList<FavoriteRow*> m_rows;
    std::optional<qsizetype> m_dropGap; ///< Before which row a drawn one would land.
};

} // namespace reelhouse
