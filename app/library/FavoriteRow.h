#pragma once

#include "core/filters/FilterFavorite.h"

#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace reelhouse {

/// One favourite in the management sheet: its name and summary with the buttons to rename and to
/// delete it, or, while it is renamed, a field for the name.
class FavoriteRow final : public QWidget {
    Q_OBJECT

public:
    explicit FavoriteRow(const FilterFavorite& favorite, QWidget* parent);

    QUuid favoriteId() const { return m_favorite.id; }
    void setFavorite(const FilterFavorite& favorite);
    bool isRenaming() const;
    void beginRenaming();
    /// Shows the favourite again; what was typed is dropped.
    void endRenaming();
    /// Shown under the field until the text is changed; the row stays in renaming.
    void showError(const QString& message);
    /// The row's first and last control, for the order of the Tab key.
    QWidget* firstControl() const;
    QWidget* lastControl() const;

signals:
    void renamingBegan();
    void renameRequested(const QString& name);
    void deletionRequested();
    /// The height that the row needs may have changed.
    void resized();
    /// By the keyboard: one place up (-1) or down (1).
    void stepRequested(int step);
    /// The pointer draws the row along; `y` is its height in the parent.
    void dragged(int y);
    void dropped(int y);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeShownPart();
    QWidget* makeRenamingPart();
    void addKey(const QKeySequence& key, void (FavoriteRow::*action)());
    void commit();
    void stepUp() { emit stepRequested(-1); }
    void stepDown() { emit stepRequested(1); }

    FilterFavorite m_favorite;
    QLabel* m_name;
    QLabel* m_summary;
    QPushButton* m_renameButton;
    QPushButton* m_deleteButton;
    QWidget* m_shownPart;
    QLineEdit* m_field;
    QLabel* m_error;
    QPushButton* m_confirmButton;
    QWidget* m_renamingPart;
    int m_pressedAt = -1; ///< Where the row was pressed; -1 while it is not.
    bool m_isDragged = false;
};

} // namespace reelhouse
