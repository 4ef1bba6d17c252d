#include "app/ui/ContextMenuKey.h"

#include "tests/support/TestMain.h"

#include <QtGui/QContextMenuEvent>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ContextMenuKeyTest final : public QObject {
    Q_OBJECT

private slots:
    void itOpensTheMenuOfWhatHasTheKeyboard_data();
    void itOpensTheMenuOfWhatHasTheKeyboard();
};

namespace {

class MenuField final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

    QList<QContextMenuEvent::Reason> asked;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override { asked << event->reason(); }
};

} // namespace

void ContextMenuKeyTest::itOpensTheMenuOfWhatHasTheKeyboard_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("opens");

    QTest::newRow("with shift") << Qt::KeyboardModifiers(Qt::ShiftModifier) << true;
    QTest::newRow("alone") << Qt::KeyboardModifiers() << false;
    QTest::newRow("with more") << (Qt::ShiftModifier | Qt::ControlModifier) << false;
}

void ContextMenuKeyTest::itOpensTheMenuOfWhatHasTheKeyboard()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, opens);
    const ContextMenuKey key;
    QWidget window;
    MenuField field(u"Rouge"_s, &window);
    window.show();
    window.activateWindow();
    field.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    QTest::keyClick(&field, Qt::Key_F10, modifiers);

    const QList<QContextMenuEvent::Reason> expected(opens ? 1 : 0, QContextMenuEvent::Keyboard);
    QCOMPARE(field.asked, expected);
}

REELHOUSE_TEST(ContextMenuKeyTest)

#include "ContextMenuKeyTest.moc"
