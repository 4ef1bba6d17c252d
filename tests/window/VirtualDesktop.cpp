#include "tests/window/VirtualDesktop.h"

#include "tests/support/Waiting.h"

#include <QtCore/QStandardPaths>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

VirtualDesktop::VirtualDesktop(QSize size)
{
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(u"Xvfb"_s,
        {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s,
            u"%1x%2x24"_s.arg(size.width()).arg(size.height()), u"-nolisten"_s, u"tcp"_s});
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(20000))
            qFatal("Xvfb does not start.");
    }
    m_display = u':' + QString::fromLatin1(m_server.readLine().trimmed());
    m_screen = std::make_unique<Screen>(m_display.toLatin1());
    if (!m_screen->isConnected())
        qFatal("Xvfb does not answer.");
}

VirtualDesktop::~VirtualDesktop()
{
    m_screen.reset();
    for (QProcess* process : {&m_windowManager, &m_server}) {
        if (process->state() == QProcess::NotRunning)
            continue;
        process->terminate();
        process->waitForFinished(5000);
    }
}

bool VirtualDesktop::isPossible()
{
    return !QStandardPaths::findExecutable(u"Xvfb"_s).isEmpty();
}

bool VirtualDesktop::startWindowManager()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, m_display);
    m_windowManager.setProcessEnvironment(environment);
    m_windowManager.setStandardErrorFile(QProcess::nullDevice());
    m_windowManager.start(u"openbox"_s, {u"--sm-disable"_s});
    return waitUntil([this] { return m_screen->hasWindowManager(); });
}

} // namespace reelhouse::tests
