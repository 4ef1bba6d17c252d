#pragma once

#include <QtWidgets/QMainWindow>

namespace reelhouse {

/// The one main window: its title, its menu bar and, in it, the screen that the store's state calls
/// for.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();

    /// Replaces the screen; the former one is deleted.
    void showScreen(QWidget* screen);

    /// What the window shows around the screen: its menu bar. Width 0.
    QSize chromeSize() const;

    /// The menu "Édition", which the screens' commands are added to.
    QMenu& editMenu() { return *m_editMenu; }

signals:
    /// The window is about to close; it will unless the program says no.
    void closing();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenuBar();

    QMenu* m_editMenu = nullptr;
};

} // namespace reelhouse
