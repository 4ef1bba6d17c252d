#include "tests/support/Screen.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QThread>

#include <cstdio>

using namespace reelhouse::tests;

namespace {

constexpr int stepMilliseconds = 100;
constexpr int restMilliseconds = 1000; // Longer than the pauses in which the window is placed.
constexpr int limitMilliseconds = 60000;
constexpr int caretPixels = 100; // A blinking text caret is not movement.

bool isSame(const QImage& before, const QImage& after)
{
    if (before.size() != after.size())
        return false;
    int different = 0;
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x)
            different += before.pixel(x, y) != after.pixel(x, y) ? 1 : 0;
    }
    return different <= caretPixels;
}

} // namespace

/// Waits until a window with the title `argv[1]` is shown and its picture has been at rest for a
/// second, then writes the picture of the whole screen as a PNG to the path `argv[2]`.
/// Status 1 when that does not happen within a minute.
int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: window-picture TITLE FILE.png\n");
        return 2;
    }
    const QString title = QString::fromLocal8Bit(argv[1]);
    const QString path = QFile::decodeName(argv[2]);
    const Screen screen;
    if (!screen.isConnected()) {
        std::fprintf(stderr, "There is no display.\n");
        return 1;
    }

    QElapsedTimer clock;
    clock.start();
    QImage picture;
    int rested = 0;
    while (rested < restMilliseconds && clock.elapsed() < limitMilliseconds) {
        QThread::msleep(stepMilliseconds);
        if (!screen.find(title))
            continue;
        const QImage now = screen.picture(screen.area());
        rested = isSame(picture, now) ? rested + stepMilliseconds : 0;
        picture = now;
    }
    if (rested < restMilliseconds) {
        std::fprintf(stderr, "No window named '%s' comes to rest.\n", argv[1]);
        return 1;
    }
    return picture.save(path, "PNG") ? 0 : 1;
}
