#include "app/shell/EditCommands.h"

#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtGui/QClipboard>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class EditCommandsTest final : public QObject {
    Q_OBJECT

private slots:
    void entriesNameTheirAction();
    void anEmptiedHistoryDisablesThem();
    void withoutATextFieldTheStockIsMeant();
    void aTextFieldIsEdited();
    void keysAndMenuMeanTheSameField();
    void aFieldWithNothingToUndoLeavesThatToTheStock();
    void whoWalksThroughTheMenuBarEditsWhatHadTheKeyboard();
    void aFieldThatIsGoneIsNotEdited();
};

namespace {

/// A window with the menu, a text field and something else that takes the keyboard.
struct EditFixture {
    EditFixture()
    {
        auto* column = new QVBoxLayout(new QWidget);
        column->addWidget(field);
        column->addWidget(other);
        window.setCentralWidget(column->parentWidget());
        new EditCommands(stock->context(), *menu, &window);
        stock->context().perform(u"Ajouter une marque"_s,
            [&] { stock->context().insert(std::make_unique<Brand>(u"Sunlu"_s)); });
        stock->context().processPendingChanges();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other->setFocus();
    }

    QAction& entry(const QString& name) const
    {
        for (QAction* action : menu->actions()) {
            if (action->iconText().section(u' ', 0, 0) == name)
                return *action;
        }
        qFatal("No such entry.");
    }
    /// The names of the entries that can be chosen, as the user sees them on opening the menu.
    QStringList enabledEntries() const
    {
        emit menu->aboutToShow();
        QStringList names;
        for (const QAction* action : menu->actions()) {
            if (!action->isSeparator() && action->isEnabled())
                names += action->iconText();
        }
        return names;
    }
    int brands() const { return int(stock->context().count<Brand>()); }

    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock();
    QMainWindow window;
    QMenu* menu = window.menuBar()->addMenu(u"Édition"_s);
    QLineEdit* field = new QLineEdit;
    QPushButton* other = new QPushButton;
};

} // namespace

void EditCommandsTest::entriesNameTheirAction()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    Brand& brand = context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    QMenu menu;
    const EditCommands commands(context, menu, nullptr);
    QAction* undo = menu.actions().at(0);
    QAction* redo = menu.actions().at(1);
    QCOMPARE(undo->iconText(), u"Annuler"_s);
    QCOMPARE(redo->iconText(), u"Rétablir"_s);
    QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    QCOMPARE(undo->shortcut(), QKeySequence(u"Ctrl+Z"_s));
    QCOMPARE(redo->shortcut(), QKeySequence(u"Ctrl+Shift+Z"_s));

    context.perform(u"Renommer la marque"_s, [&] { brand.setName(u"eSun"_s); });
    context.processPendingChanges();
    QCOMPARE(undo->iconText(), u"Annuler « Renommer la marque »"_s);
    QVERIFY(undo->isEnabled() && !redo->isEnabled());

    undo->trigger();
    context.processPendingChanges();
    QCOMPARE(brand.name(), u"Sunlu"_s);
    QCOMPARE(redo->iconText(), u"Rétablir « Renommer la marque »"_s);
    QVERIFY(!undo->isEnabled() && redo->isEnabled());

    redo->trigger();
    QCOMPARE(brand.name(), u"eSun"_s);
}

void EditCommandsTest::anEmptiedHistoryDisablesThem()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    QMenu menu;
    const EditCommands commands(context, menu, nullptr);
    for (const QString& name : {u"Sunlu"_s, u"eSun"_s})
        context.perform(name, [&] { context.insert(std::make_unique<Brand>(name)); });
    context.undo();
    context.processPendingChanges();
    QVERIFY(menu.actions().at(0)->isEnabled() && menu.actions().at(1)->isEnabled());

    context.clearHistory();
    context.processPendingChanges();

    QVERIFY(!menu.actions().at(0)->isEnabled() && !menu.actions().at(1)->isEnabled());
    QCOMPARE(menu.actions().at(0)->iconText(), u"Annuler"_s);
    QCOMPARE(menu.actions().at(1)->iconText(), u"Rétablir"_s);
}

void EditCommandsTest::withoutATextFieldTheStockIsMeant()
{
    const EditFixture fixture;
    QGuiApplication::clipboard()->setText(u"texte"_s);

    QCOMPARE(fixture.enabledEntries(), QStringList{u"Annuler « Ajouter une marque »"_s});
    fixture.entry(u"Annuler"_s).trigger();

    QCOMPARE(fixture.brands(), 0);
}

void EditCommandsTest::aTextFieldIsEdited()
{
    const EditFixture fixture;
    QGuiApplication::clipboard()->clear();
    fixture.field->setFocus();
    QCOMPARE(fixture.enabledEntries(), QStringList{u"Annuler « Ajouter une marque »"_s});
    QTest::keyClicks(fixture.field, u"rouge"_s);
    QCOMPARE(fixture.enabledEntries(), QStringList({u"Annuler"_s, u"Tout sélectionner"_s}));

    fixture.entry(u"Tout"_s).trigger();
    QCOMPARE(fixture.field->selectedText(), u"rouge"_s);
    QCOMPARE(fixture.enabledEntries(),
        QStringList({u"Annuler"_s, u"Couper"_s, u"Copier"_s, u"Tout sélectionner"_s}));

    fixture.entry(u"Couper"_s).trigger();
    QCOMPARE(fixture.field->text(), QString());
    QCOMPARE(QGuiApplication::clipboard()->text(), u"rouge"_s);
    QCOMPARE(fixture.enabledEntries(), QStringList({u"Annuler"_s, u"Coller"_s}));

    fixture.entry(u"Annuler"_s).trigger();
    QCOMPARE(fixture.field->text(), u"rouge"_s);
    QVERIFY(fixture.enabledEntries().contains(u"Rétablir"_s));
    fixture.entry(u"Rétablir"_s).trigger();
    QCOMPARE(fixture.field->text(), QString());

    fixture.entry(u"Coller"_s).trigger();
    QCOMPARE(fixture.field->text(), u"rouge"_s);
    QGuiApplication::clipboard()->clear();
    fixture.field->setSelection(0, 2);
    QVERIFY(fixture.enabledEntries().contains(u"Copier"_s));
    fixture.entry(u"Copier"_s).trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), u"ro"_s);
    QCOMPARE(fixture.brands(), 1);
}

void EditCommandsTest::keysAndMenuMeanTheSameField()
{
    const EditFixture fixture;
    fixture.field->setFocus();
    QTest::keyClicks(fixture.field, u"bleu"_s);

    QTest::keyClick(fixture.field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(fixture.field->text(), QString());
    QCOMPARE(fixture.brands(), 1);

    fixture.other->setFocus();
    QTest::keyClick(fixture.other, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(fixture.brands(), 0);
    fixture.stock->context().processPendingChanges();
    QTest::keyClick(fixture.other, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(fixture.brands(), 1);
}

void EditCommandsTest::aFieldWithNothingToUndoLeavesThatToTheStock()
{
    const EditFixture fixture;
    fixture.field->setFocus();
    QTest::keyClicks(fixture.field, u"bleu"_s);
    const auto press = [&](Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(fixture.field, Qt::Key_Z, modifiers);
        fixture.stock->context().processPendingChanges();
    };

    press(Qt::ControlModifier);
    QCOMPARE(fixture.field->text(), QString());
    QCOMPARE(fixture.brands(), 1);
    press(Qt::ControlModifier);
    QCOMPARE(fixture.brands(), 0);

    press(Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(fixture.field->text(), u"bleu"_s);
    QCOMPARE(fixture.brands(), 0);
    press(Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(fixture.brands(), 1);
    QCOMPARE(fixture.field->text(), u"bleu"_s);
}

void EditCommandsTest::whoWalksThroughTheMenuBarEditsWhatHadTheKeyboard()
{
    EditFixture fixture;
    QGuiApplication::clipboard()->clear();
    fixture.field->setFocus();
    QTest::keyClicks(fixture.field, u"vert"_s);
    fixture.window.menuBar()->setFocus();

    QCOMPARE(fixture.enabledEntries(), QStringList({u"Annuler"_s, u"Tout sélectionner"_s}));
    fixture.entry(u"Annuler"_s).trigger();

    QCOMPARE(fixture.field->text(), QString());
    QCOMPARE(fixture.brands(), 1);
}

void EditCommandsTest::aFieldThatIsGoneIsNotEdited()
{
    const EditFixture fixture;
    QTest::keyClicks(fixture.field, u"gris"_s);
    fixture.field->setFocus();
    fixture.field->selectAll();
    QVERIFY(fixture.enabledEntries().contains(u"Couper"_s));

    delete fixture.field;

    QTest::keyClick(fixture.other, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(fixture.enabledEntries(), QStringList{u"Annuler « Ajouter une marque »"_s});
}

REELHOUSE_TEST(EditCommandsTest)

#include "EditCommandsTest.moc"
