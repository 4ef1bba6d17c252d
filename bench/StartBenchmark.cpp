#include "bench/BesideFloor.h"
#include "tests/support/Waiting.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace reelhouse;
using namespace reelhouse::tests;

namespace {

constexpr int rounds = 21;

struct Figures {
    std::vector<double> seconds; ///< From the start to the first painted list.
    double residentKib = 0;
};

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

/// One program, with one list to paint, started again and again.
class Subject final {
public:
    Subject(VirtualDesktop& desktop, QString program, QString title, const QString& store)
        : m_desktop(desktop)
        , m_program(std::move(program))
        , m_title(std::move(title))
    {
        if (store.isEmpty())
            return;
        QDir().mkpath(m_home.dataFolder());
        if (!QFile::copy(store, m_home.storeFile()))
            qFatal("The store cannot be copied.");
    }

    /// Starts it to learn what its painted list looks like, and how much memory it takes then.
    void rehearse()
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
        m_figures.residentKib = residentKib(process.processId());
        end(process);
    }

    void measure()
    {
        QProcess process;
        m_figures.seconds.push_back(bench::secondsOf([&] {
            start(process);
            const QDeadlineTimer deadline(std::chrono::minutes(2));
            while (m_desktop.screen().picture(m_part) != m_painted) {
                if (deadline.hasExpired())
                    qFatal("The list is not painted.");
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        }));
        end(process);
    }

    const Figures& figures() const { return m_figures; }

private:
    void start(QProcess& process) const
    {
        process.setProcessEnvironment(m_home.environment(m_desktop.display()));
        process.start(m_program, QStringList());
    }

    void end(QProcess& process) const
    {
        process.terminate();
        process.waitForFinished(60000);
        waitUntil([this] { return !m_desktop.screen().find(m_title).has_value(); });
    }

    VirtualDesktop& m_desktop;
    QString m_program;
    QString m_title;
    TestHome m_home;
    QRect m_part;
    QImage m_painted;
    Figures m_figures;
};

} // namespace

/// `start-benchmark SPOOLWRIGHT EMPTY_TABLE STORE`: the time from the start of the program to the
/// first painted list, and its memory, beside an empty window with a table, started in turns.
int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::fputs("start-benchmark SPOOLWRIGHT EMPTY_TABLE STORE\n", stderr);
        return 2;
    }
    VirtualDesktop desktop;
    Subject ours(desktop, QFile::decodeName(argv[1]), u"Spoolwright"_s, QFile::decodeName(argv[3]));
    Subject floor(desktop, QFile::decodeName(argv[2]), u"empty-table"_s, {});
    ours.rehearse();
    floor.rehearse();
    for (int round = 0; round < rounds; ++round) {
        ours.measure();
        floor.measure();
    }
    const double ourMilliseconds = bench::medianOf(ours.figures().seconds) * 1000;
    const double floorMilliseconds = bench::medianOf(floor.figures().seconds) * 1000;
    std::printf("start to painted list: %.0f ms, floor %.0f ms, %.2f times; "
                "resident: %.1f MiB, floor %.1f MiB\n",
        ourMilliseconds, floorMilliseconds, ourMilliseconds / floorMilliseconds,
        ours.figures().residentKib / 1024, floor.figures().residentKib / 1024);
    return 0;
}
