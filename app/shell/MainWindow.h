#pragma once

#include <QtWidgets/QMainWindow>

#include <functional>

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

    /// Offers the settings, which need the stock.
    void setSettingsEnabled(bool isEnabled);

    /// Asked each time the user closes the window: whether it may. Without one it always may.
    void setCloseQuestion(std::function<bool()> mayClose) { m_mayClose = std::move(mayClose); }

    /// The menus that the screens' commands are added to; all but "Édition" rest until then.
    QMenu& fileMenu() { return *m_fileMenu; }
    QMenu& editMenu() { return *m_editMenu; }
    QMenu& viewMenu() { return *m_viewMenu; }
    QMenu& stockMenu() { return *m_stockMenu; }

signals:
    void aboutRequested();
    void settingsRequested();
    void keysRequested();
    /// The user wants the program to end.
    void quitRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenuBar();

    std::function<bool()> m_mayClose;
    QAction* m_settings = nullptr;
    QMenu* m_fileMenu = nullptr;
    QMenu* m_editMenu = nullptr;
    QMenu* m_viewMenu = nullptr;
    QMenu* m_stockMenu = nullptr;
};

} // namespace reelhouse
