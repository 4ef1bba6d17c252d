#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QDialog>

class QHBoxLayout;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace reelhouse {

class Scrim;

/// Which Return key confirms a sheet.
enum class ConfirmKey {
    AnyReturn, ///< Return, and Ctrl+Return.
    ControlReturn, ///< Ctrl+Return only: Return belongs to what is being edited.
};

/// A dialog that belongs to one window and lies over it, without a frame, the window dimmed behind.
/// Opened with `open()`; Escape and Ctrl+Escape cancel it. Content goes into `body()`, which
/// scrolls when the window is too low; the row of buttons always stays.
class Sheet : public QDialog {
    Q_OBJECT

public:
    /// `title` is what assistive technology calls it; it is not drawn. `width` in pixels, for texts
    /// of 10 points: with larger ones a sheet is as much wider, within its window.
    Sheet(const QString& title, int width, QWidget* parent);
    ~Sheet() override;

    QVBoxLayout* body() const { return m_body; }
    /// The row below the content, empty at first. Add a stretch to part left from right.
    QHBoxLayout* buttonRow() const { return m_buttonRow; }

    /// The space around the content, 20 at first.
    void setPadding(int padding);
    /// Shows no scroll bar; the wheel and the keys still scroll.
    void hideScrollBar();
    /// The button that Return presses; it is given the default look.
    void setConfirmButton(QPushButton* button, ConfirmKey key = ConfirmKey::AnyReturn);
    /// The width and, where it is not 0, the height of what is seen, without the shadow; both for
    /// texts of 10 points.
    void setPanelSize(int width, int height = 0);

    /// What is seen of the sheet, without its shadow, in its own coordinates.
    QRect panelRect() const;
    qreal panelRadius() const;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fitIntoWindow();
    void removeScrim();

    bool m_isTranslucent; ///< Rounded, with a shadow; else square and opaque.
    QVBoxLayout* m_body;
    QHBoxLayout* m_buttonRow;
    QScrollArea* m_scrollArea;
    ConfirmKey m_confirmKey = ConfirmKey::AnyReturn;
    int m_panelWidth;
    int m_panelHeight = 0;
    QPointer<Scrim> m_scrim; ///< Belongs to the window that it dims.
};

} // namespace reelhouse
