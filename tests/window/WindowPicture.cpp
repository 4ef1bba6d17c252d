#include "tests/support/Screen.h"
#include "tests/support/Waiting.h"

#include <QtCore/QFile>

#include <cstdio>

using namespace reelhouse::tests;

/// Waits until a window with the title `argv[1]` is shown and nothing moves on the screen any more,
/// then writes the picture of the whole screen as a PNG to the path `argv[2]`.
/// Status 1 when that does not happen within a minute.
int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: window-picture TITLE FILE.png\n");
        return 2;
    }
    const QString title = QString::fromLocal8Bit(argv[1]);
    const Screen screen;
    if (!screen.isConnected()) {
        std::fprintf(stderr, "There is no display.\n");
        return 1;
    }
    // Longer at rest than the pauses in which the program places its window.
    if (!waitUntil([&] { return screen.find(title).has_value(); }, std::chrono::minutes(1))
        || !screen.waitForRest(screen.area(), std::chrono::seconds(1))) {
        std::fprintf(stderr, "No window named '%s' comes to rest.\n", argv[1]);
        return 1;
    }
    return screen.picture(screen.area()).save(QFile::decodeName(argv[2]), "PNG") ? 0 : 1;
}
