#include "tests/support/LongNames.h"
#include "tests/window/EveryScreen.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/ScreenReader.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace reelhouse::tests;

namespace {

/// A way to show the program, by a name such as "150" or "200-dark-large-fonts".
struct Size {
    double scale = 0; ///< 1 is the usual one.
    bool isDark = false;
    bool hasLargeFonts = false;
};

/// The scale is 0 where the name is none.
Size sizeCalled(const QString& name)
{
    const QString percent = name.section(u'-', 0, 0);
    return {percent.toInt() / 100.0, name.contains(u"-dark"_s), name.contains(u"-large-fonts"_s)};
}

constexpr QSize desktopAtFullScale(1400, 960);
constexpr int quickly = 80; ///< How a picture is written: the files are larger, not worse.

void prepare(TestHome& home, const Size& size)
{
    home.setVariable(u"QT_SCALE_FACTOR"_s, QString::number(size.scale));
    home.setVariable(u"QT_PLUGIN_PATH"_s, QStringLiteral(LAYOUT_WITNESS_FOLDER));
    home.setVariable(u"QT_QPA_GENERIC_PLUGINS"_s, u"layoutwitness"_s);
    if (size.hasLargeFonts)
        home.enlargeFonts();
    if (size.isDark)
        home.darken();
}

/// Shows all that there is at this size, takes a picture of each into the folder and returns what
/// is wrong.
QStringList look(const QDir& folder, const Size& size, bool isStockBroken)
{
    VirtualDesktop desktop(desktopAtFullScale * size.scale);
    if (!desktop.startWindowManager())
        return {u"The window manager does not start."_s};
    TestHome home;
    prepare(home, size);
    ScreenReader reader(home, desktop.display());
    if (isStockBroken)
        home.breakStore();
    RunningProgram program(home, desktop);
    if (!program.waitForWindow())
        return {u"The program shows no window."_s};
    QStringList problems;
    const auto see = [&](const QString& scene) {
        const QImage picture = desktop.screen().picture(desktop.screen().area());
        picture.save(folder.filePath(scene + u".png"_s), nullptr, quickly);
        for (const QString& problem : reader.ask(u"spoolwright.LayoutWitness"_s, u"problems"_s))
            problems += scene + u": "_s + problem;
    };
    EveryScreen screens(desktop, reader, program, see);
    if (isStockBroken)
        return screens.visitTemporaryStore() + problems;
    return screens.visit(home.addDocument(longNames())) + problems;
}

} // namespace

/// Shows every screen and sheet of the program at one size, `argv[2]`. Writes a picture of each
/// into a folder of this name under the folder `argv[1]`, and what is cut off or lies over
/// something else to standard error.
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.value(2);
    const Size size = sizeCalled(name);
    if (arguments.size() != 3 || size.scale < 1) {
        std::fprintf(stderr, "usage: screen-sizes FOLDER PERCENT[-dark][-large-fonts]\n");
        return 2;
    }
    const QDir pictures(arguments.at(1) + u'/' + name);
    pictures.mkpath(u"."_s);
    const QStringList problems = look(pictures, size, false) + look(pictures, size, true);
    for (const QString& problem : problems)
        std::fprintf(stderr, "%s: %s\n", qPrintable(name), qPrintable(problem));
    return problems.isEmpty() ? 0 : 1;
}
