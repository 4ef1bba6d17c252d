#include "app/shell/MainWindow.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QMenuBar>

using namespace Qt::StringLiterals;

namespace reelhouse {

MainWindow::MainWindow()
{
    setWindowTitle(u"Spoolwright"_s);
    makeMenuBar();
}

void MainWindow::showScreen(QWidget* screen)
{
    setCentralWidget(screen);
}

QSize MainWindow::chromeSize() const
{
    return {0, menuBar()->sizeHint().height()};
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_mayClose || m_mayClose());
}

void MainWindow::makeMenuBar()
{
    QMenu* application = menuBar()->addMenu(u"Spoolwright"_s);
    QAction* about = application->addAction(u"À propos de Reelhouse"_s);
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &MainWindow::aboutRequested);
    application->addSeparator();
    QAction* quit = application->addAction(
        u"Quitter"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), this, &MainWindow::quitRequested);
    quit->setMenuRole(QAction::QuitRole);

    m_editMenu = menuBar()->addMenu(u"Édition"_s);
}

} // namespace reelhouse
