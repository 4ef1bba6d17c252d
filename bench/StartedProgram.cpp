#include "bench/StartedProgram.h"

#include "bench/BesideFloor.h"
#include "tests/support/Waiting.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>

using namespace Qt::StringLiterals;
using reelhouse::tests::Screen;
using reelhouse::tests::waitUntil;

namespace reelhouse::bench {

namespace {

/// Part of the list: narrow, so that looking at it often costs the program little.
QRect watchedPart(const QRect& window)
{
    return {window.left() + window.width() * 2 / 5, window.top() + window.height() * 2 / 5, 60,
        window.height() / 3};
}

bool isBlank(const QImage& picture)
{
    const QRgb first = picture.pixel(0, 0);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != first)
                return false;
        }
    }
    return true;
}

double residentKib(qint64 processId)
{
    QFile status(u"/proc/%1/status"_s.arg(processId));
    if (!status.open(QFile::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').first().toDouble();
    }
    return 0;
}

} // namespace

StartedProgram::StartedProgram(tests::VirtualDesktop& desktop, QString program, QString title,
    const QString& store, QMap<QString, QString> variables)
    : m_desktop(desktop)
    , m_program(std::move(program))
    , m_title(std::move(title))
    , m_variables(std::move(variables))
{
    if (store.isEmpty())
        return;
    QDir().mkpath(m_home.dataFolder());
    if (!QFile::copy(store, m_home.storeFile()))
        qFatal("The store cannot be copied.");
}

void StartedProgram::rehearse()
{
    QProcess process;
    start(process);
    Screen& screen = m_desktop.screen();
    if (!waitUntil([&] { return screen.find(m_title).has_value(); })
        || !screen.waitForRest(screen.area(), std::chrono::seconds(2)))
        qFatal("The window does not come to rest.");
    m_part = watchedPart(screen.find(m_title)->area);
    m_painted = screen.picture(m_part);
    if (isBlank(m_painted))
        qFatal("There is no list where one should be.");
    m_residentKib = residentKib(process.processId());
    end(process);
    waitUntilTheWindowIsGone();
}

void StartedProgram::measure()
{
    QProcess process;
    m_startSeconds.push_back(secondsOf([&] {
        start(process);
        const QDeadlineTimer deadline(std::chrono::minutes(2));
        while (m_desktop.screen().picture(m_part) != m_painted) {
            if (deadline.hasExpired())
                qFatal("The list is not painted.");
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }));
    m_endSeconds.push_back(secondsOf([&] { end(process); }));
    waitUntilTheWindowIsGone();
}

double StartedProgram::startMilliseconds() const
{
    return medianOf(m_startSeconds) * 1000;
}

double StartedProgram::endMilliseconds() const
{
    return medianOf(m_endSeconds) * 1000;
}

void StartedProgram::start(QProcess& process) const
{
    QProcessEnvironment environment = m_home.environment(m_desktop.display());
    for (auto variable = m_variables.cbegin(); variable != m_variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    process.setProcessEnvironment(environment);
    process.start(m_program, QStringList());
}

void StartedProgram::end(QProcess& process) const
{
    process.terminate();
    process.waitForFinished(60000);
}

void StartedProgram::waitUntilTheWindowIsGone() const
{
    waitUntil([this] { return !m_desktop.screen().find(m_title).has_value(); });
}

} // namespace reelhouse::bench
