#include "tests/support/LongNames.h"
#include "tests/support/TestMain.h"
#include "tests/window/EveryScreen.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/ScreenReader.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

/// What a screen reader could not tell apart or call at all. Rows and cells are told apart by where
/// they are.
QStringList faults(const QString& scene, const ScreenReader& reader)
{
    const auto window = reader.activeWindow();
    if (!window)
        return {scene + u": no window has the keyboard"_s};
    QStringList found;
    QStringList known;
    window->forEachShown([&](const AccessibleObject& object) {
        if (!object.is(AccessibleState::Focusable))
            return;
        const QString name = object.callableName();
        if (name.isEmpty())
            found += scene + u": a "_s + object.role + u" without a name"_s;
        if (object.role.endsWith(u"cell"_s) || object.role == u"list item"_s)
            return;
        const QString heard = object.role + u' ' + name + u' ' + object.description;
        if (known.contains(heard))
            found += scene + u": two times "_s + heard;
        known += heard;
    });
    return found;
}

} // namespace

/// Reads every screen and sheet of the real program as a screen reader does. It takes a minute, so
/// scripts/check --full runs it.
class EveryScreenWalk final : public QObject {
    Q_OBJECT

private slots:
    void everyControlCanBeCalled();
    void soItCanWithoutAStock();
};

void EveryScreenWalk::everyControlCanBeCalled()
{
    VirtualDesktop desktop;
    QVERIFY(desktop.startWindowManager());
    TestHome home;
    ScreenReader reader(home, desktop.display());
    RunningProgram program(home, desktop);
    QVERIFY(program.waitForWindow().has_value());
    QStringList found;
    int sceneCount = 0;
    EveryScreen screens(desktop, reader, program, [&](const QString& scene) {
        ++sceneCount;
        found += faults(scene, reader);
    });

    const QStringList missing = screens.visit(home.addDocument(longNames()));

    QCOMPARE(missing.join(u'\n'), QString());
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));
    QVERIFY2(sceneCount > 40, qPrintable(QString::number(sceneCount)));
}

void EveryScreenWalk::soItCanWithoutAStock()
{
    VirtualDesktop desktop;
    QVERIFY(desktop.startWindowManager());
    TestHome home;
    home.breakStore();
    ScreenReader reader(home, desktop.display());
    RunningProgram program(home, desktop);
    QVERIFY(program.waitForWindow().has_value());
    QStringList found;
    EveryScreen screens(
        desktop, reader, program, [&](const QString& scene) { found += faults(scene, reader); });

    QCOMPARE(screens.visitTemporaryStore().join(u'\n'), QString());
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));
}

} // namespace reelhouse::tests

using reelhouse::tests::EveryScreenWalk;
REELHOUSE_TEST(EveryScreenWalk)

#include "EveryScreenWalk.moc"
