#pragma once

#include "tests/window/TestHome.h"

#include <QtCore/QMap>
#include <QtCore/QRect>
#include <QtGui/QImage>

#include <vector>

class QProcess;

namespace reelhouse::tests {
class VirtualDesktop;
}

namespace reelhouse::bench {

/// One program with one list to paint, started and ended again and again on a virtual screen and
/// watched from outside.
class StartedProgram final {
public:
    /// `title` is that of its window; `store` the stock that it is given, or empty; `variables`
    /// come beside those of its user's environment.
    StartedProgram(tests::VirtualDesktop& desktop, QString program, QString title,
        const QString& store, QMap<QString, QString> variables = {});

    /// Starts it to learn what its painted list looks like, and how much memory it takes then.
    void rehearse();
    /// Starts it, waits for the painted list and ends it by SIGTERM.
    void measure();

    /// Medians of what was measured.
    double startMilliseconds() const;
    double endMilliseconds() const;
    double residentMib() const { return m_residentKib / 1024; }

private:
    void start(QProcess& process) const;
    void end(QProcess& process) const;
    void waitUntilTheWindowIsGone() const;

    tests::VirtualDesktop& m_desktop;
    QString m_program;
    QString m_title;
    QMap<QString, QString> m_variables;
    tests::TestHome m_home;
    QRect m_part; ///< Of the list, on the screen.
    QImage m_painted;
    std::vector<double> m_startSeconds;
    std::vector<double> m_endSeconds;
    double m_residentKib = 0;
};

} // namespace reelhouse::bench
