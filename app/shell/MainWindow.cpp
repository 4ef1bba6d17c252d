#include "app/shell/MainWindow.h"

#include <QtCore/QCoreApplication>
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
    // The first thing painted of it is laid out: no bare ground before, no text still too narrow.
    setUpdatesEnabled(false);
    setCentralWidget(screen);
    screen->show();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    setUpdatesEnabled(true);
}

QSize MainWindow::chromeSize() const
{
    return {0, menuBar()->sizeHint().height()};
}

void MainWindow::setSettingsEnabled(bool isEnabled)
{
    m_settings->setEnabled(isEnabled);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_mayClose || m_mayClose());
}

void MainWindow::makeMenuBar()
{
    QMenu* application = menuBar()->addMenu(u"Spool&wright"_s);
    QAction* about = application->addAction(u"À &propos de Reelhouse"_s);
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &MainWindow::aboutRequested);
    application->addSeparator();
    m_settings = application->addAction(u"&Réglages…"_s, QKeySequence(Qt::CTRL | Qt::Key_Comma),
        this, &MainWindow::settingsRequested);
    m_settings->setMenuRole(QAction::PreferencesRole);
    m_settings->setEnabled(false);
    application->addSeparator();
    QAction* quit = application->addAction(
        u"&Quitter"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), this, &MainWindow::quitRequested);
    quit->setMenuRole(QAction::QuitRole);

    m_fileMenu = menuBar()->addMenu(u"&Fichier"_s);
    m_editMenu = menuBar()->addMenu(u"É&dition"_s);
    m_viewMenu = menuBar()->addMenu(u"&Présentation"_s);
    m_stockMenu = menuBar()->addMenu(u"&Stock"_s);
    for (QMenu* menu : {m_fileMenu, m_viewMenu, m_stockMenu})
        menu->menuAction()->setEnabled(false);
    QMenu* window = menuBar()->addMenu(u"Fe&nêtre"_s);
    window->addAction(
        u"&Réduire"_s, QKeySequence(Qt::CTRL | Qt::Key_M), this, &QWidget::showMinimized);
    window->addAction(u"&Fermer"_s, QKeySequence(Qt::CTRL | Qt::Key_W), this, &QWidget::close);
    QMenu* help = menuBar()->addMenu(u"&Aide"_s);
    help->addAction(
        u"&Raccourcis clavier"_s, QKeySequence(Qt::Key_F1), this, &MainWindow::keysRequested);
}

} // namespace reelhouse
