#include "tests/support/KeySymbols.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <array>
#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace reelhouse::tests;
using namespace std::chrono_literals;

namespace {

/// A picture of the guide, the key that, held with Control, leads to what it shows, and what is
/// typed there; Escape leads back.
struct Scene {
    const char* name;
    xcb_keysym_t key;
    const char* typed = "";
    bool isTakenDark = false;
};

constexpr std::array scenes{
    Scene{.name = "stock", .key = '1', .isTakenDark = true},
    Scene{.name = "cards", .key = '2', .isTakenDark = true},
    Scene{.name = "stats", .key = '3'},
    Scene{.name = "find", .key = 'f', .typed = "petg"},
    Scene{.name = "add", .key = 'n'},
    Scene{.name = "print", .key = 'p'},
};

int report(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    return 1;
}

/// Starts the program on a stock of its own and writes a picture of each scene into the folder.
int takePictures(const QDir& folder, bool isDark)
{
    VirtualDesktop desktop({1400, 960});
    TestHome home;
    if (isDark)
        home.darken();
    if (!desktop.startWindowManager())
        return report("The window manager does not start.");
    RunningProgram program(home, desktop);
    if (!program.waitForWindow())
        return report("The program shows no window.");
    Screen& screen = desktop.screen();
    for (const Scene& scene : scenes) {
        if (isDark && !scene.isTakenDark)
            continue;
        screen.pressKey(scene.key, {Key::control});
        screen.type(scene.typed);
        if (!screen.waitForRest(screen.area()))
            return report("The window does not come to rest.");
        const auto window = program.waitForWindow();
        const QString file = folder.filePath(
            QString::fromLatin1(scene.name) + (isDark ? u"-dark.png"_s : u".png"_s));
        if (!window || !screen.picture(window->area & screen.area()).save(file, "PNG"))
            return report("A picture cannot be written.");
        screen.pressKey(Key::escape);
        screen.waitForRest(screen.area(), 300ms);
    }
    return program.endWith(SIGTERM) == 0 ? 0 : report("The program did not end well.");
}

} // namespace

/// Writes the pictures of the guide, light and dark, into the folder `argv[1]`.
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 2)
        return report("usage: guide-pictures FOLDER");
    const QDir folder(QFile::decodeName(argv[1]));
    const int light = takePictures(folder, false);
    return light != 0 ? light : takePictures(folder, true);
}
