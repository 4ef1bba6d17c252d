#include "app/shell/UndoCommands.h"

#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QMenu>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class UndoCommandsTest final : public QObject {
    Q_OBJECT

private slots:
    void entriesNameTheirAction();
};

void UndoCommandsTest::entriesNameTheirAction()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    Brand& brand = context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    QMenu menu;
    const UndoCommands commands(context, menu, nullptr);
    QAction* undo = menu.actions().at(0);
    QAction* redo = menu.actions().at(1);
    QCOMPARE(undo->text(), u"Annuler"_s);
    QCOMPARE(redo->text(), u"Rétablir"_s);
    QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    QCOMPARE(undo->shortcut(), QKeySequence(u"Ctrl+Z"_s));
    QCOMPARE(redo->shortcut(), QKeySequence(u"Ctrl+Shift+Z"_s));

    context.perform(u"Renommer la marque"_s, [&] { brand.setName(u"eSun"_s); });
    context.processPendingChanges();
    QCOMPARE(undo->text(), u"Annuler « Renommer la marque »"_s);
    QVERIFY(undo->isEnabled() && !redo->isEnabled());

    undo->trigger();
    context.processPendingChanges();
    QCOMPARE(brand.name(), u"Sunlu"_s);
    QCOMPARE(redo->text(), u"Rétablir « Renommer la marque »"_s);
    QVERIFY(!undo->isEnabled() && redo->isEnabled());

    redo->trigger();
    QCOMPARE(brand.name(), u"eSun"_s);
}

REELHOUSE_TEST(UndoCommandsTest)

#include "UndoCommandsTest.moc"
