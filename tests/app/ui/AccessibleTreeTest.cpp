#include "tests/support/AccessibleTree.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace reelhouse;
using namespace Qt::StringLiterals;

/// That the walk over a screen's accessible tree finds what it is there to find.
class AccessibleTreeTest final : public QObject {
    Q_OBJECT

private slots:
    void whatHasANameIsPassed();
    void whatHasNoneIsFound();
    void theChoiceOfAPickerIsNotItsName();
    void whatIsHiddenIsNotLookedAt();
};

void AccessibleTreeTest::whatHasANameIsPassed()
{
    QWidget screen;
    auto* form = new QFormLayout(&screen);
    form->addRow(u"Nom"_s, new QLineEdit);
    form->addRow(new QPushButton(u"Ajouter"_s));
    screen.show();

    QCOMPARE(tests::unnamedControls(&screen), QStringList());
}

void AccessibleTreeTest::whatHasNoneIsFound()
{
    QWidget screen;
    auto* inner = new QWidget(&screen);
    auto* field = new QLineEdit(inner);
    field->setObjectName(u"name"_s);
    screen.show();

    QCOMPARE(tests::unnamedControls(&screen), QStringList{u"QLineEdit name (role 2a)"_s});
}

void AccessibleTreeTest::theChoiceOfAPickerIsNotItsName()
{
    QWidget screen;
    auto* form = new QFormLayout(&screen);
    auto* picker = new QComboBox;
    picker->addItem(u"PLA"_s);
    form->addRow(picker);
    screen.show();
    QCOMPARE(tests::unnamedControls(&screen), QStringList{u"QComboBox  (role 2e)"_s});

    auto* labelled = new QComboBox;
    form->addRow(u"Type"_s, labelled);
    form->removeRow(picker);
    QCOMPARE(tests::unnamedControls(&screen), QStringList());
}

void AccessibleTreeTest::whatIsHiddenIsNotLookedAt()
{
    QWidget screen;
    auto* field = new QLineEdit(&screen);
    screen.show();
    field->hide();

    QCOMPARE(tests::unnamedControls(&screen), QStringList());
}

REELHOUSE_TEST(AccessibleTreeTest)

#include "AccessibleTreeTest.moc"
