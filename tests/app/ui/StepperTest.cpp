#include "app/ui/Stepper.h"

#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

#include <functional>
#include <limits>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class StepperTest final : public QObject {
    Q_OBJECT

private slots:
    void itsLabelCarriesTheNumber();
    void stepsEndWithTheRange_data();
    void stepsEndWithTheRange();
    void settingIsNotEditing();
    void keysStep_data();
    void keysStep();
    void digitsMakeANumber_data();
    void digitsMakeANumber();
    void aDigitWaitsForTheNext();
    void whatEndsTheTyping_data();
    void whatEndsTheTyping();
    void theButtonsStep();
    void aButtonHeldDownRepeats();
    void aButtonThatLeadsNowhereDoesNothing();
    void otherKeysPassOn();
    void itIsASpinBoxToAssistiveTechnology();
};

namespace {

constexpr qint64 largestNumber = std::numeric_limits<qint64>::max();
constexpr qint64 smallestNumber = std::numeric_limits<qint64>::min();

struct StepperFixture {
    explicit StepperFixture(qint64 value, qint64 minimum = 1, qint64 maximum = 99)
    {
        stepper.setRange(minimum, maximum);
        stepper.setValue(value);
        stepper.resize(stepper.sizeHint());
        stepper.show();
        stepper.activateWindow();
        stepper.setFocus();
    }
    QPoint minus() const { return {stepper.width() / 4, stepper.height() / 2}; }
    QPoint plus() const { return {stepper.width() * 3 / 4, stepper.height() / 2}; }

    Stepper stepper{u"Nombre de bobines: "_s};
    QSignalSpy edits{&stepper, &Stepper::valueEdited};
};

} // namespace

void StepperTest::itsLabelCarriesTheNumber()
{
    StepperFixture fixture(3);
    QCOMPARE(fixture.stepper.label()->text(), u"Nombre de bobines: 3"_s);

    fixture.stepper.setValue(largestNumber);
    QCOMPARE(fixture.stepper.label()->text(), u"Nombre de bobines: 9223372036854775807"_s);
}

void StepperTest::stepsEndWithTheRange_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<int>("steps");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("one up") << 1LL << 1 << 2LL;
    QTest::newRow("one down") << 2LL << -1 << 1LL;
    QTest::newRow("never below the range") << 1LL << -1 << 1LL;
    QTest::newRow("up to its end") << 98LL << 1 << 99LL;
    QTest::newRow("never above it") << 99LL << 1 << 99LL;
    QTest::newRow("ten up end there too") << 95LL << 10 << 99LL;
    QTest::newRow("ten down") << 95LL << -10 << 85LL;
    QTest::newRow("ten down end there too") << 5LL << -10 << 1LL;
    QTest::newRow("from above down to its end") << 250LL << -1 << 99LL;
    QTest::newRow("from above not further up") << 250LL << 1 << 250LL;
    QTest::newRow("from the largest number") << largestNumber << -1 << 99LL;
    QTest::newRow("the largest stays") << largestNumber << 1 << largestNumber;
    QTest::newRow("from below up to its start") << -5LL << 1 << 1LL;
    QTest::newRow("from below not further down") << smallestNumber << -1 << smallestNumber;
}

void StepperTest::stepsEndWithTheRange()
{
    QFETCH(qint64, value);
    QFETCH(int, steps);
    QFETCH(qint64, expected);
    StepperFixture fixture(value);

    QCOMPARE(fixture.stepper.canStep(steps), expected != value);
    fixture.stepper.step(steps);

    QCOMPARE(fixture.stepper.value(), expected);
    QCOMPARE(fixture.edits.count(), expected != value ? 1 : 0);
}

void StepperTest::settingIsNotEditing()
{
    StepperFixture fixture(3);

    fixture.stepper.setValue(500);
    fixture.stepper.setRange(1, 2);

    QCOMPARE(fixture.stepper.value(), 500);
    QCOMPARE(fixture.edits.count(), 0);
}

void StepperTest::keysStep_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("up") << Qt::Key_Up << 51LL;
    QTest::newRow("right") << Qt::Key_Right << 51LL;
    QTest::newRow("down") << Qt::Key_Down << 49LL;
    QTest::newRow("left") << Qt::Key_Left << 49LL;
    QTest::newRow("page up") << Qt::Key_PageUp << 60LL;
    QTest::newRow("page down") << Qt::Key_PageDown << 40LL;
    QTest::newRow("plus") << Qt::Key_Plus << 51LL;
    QTest::newRow("minus") << Qt::Key_Minus << 49LL;
}

void StepperTest::keysStep()
{
    QFETCH(Qt::Key, key);
    StepperFixture fixture(50);

    QTest::keyClick(&fixture.stepper, key);

    QTEST(fixture.stepper.value(), "expected");
}

void StepperTest::digitsMakeANumber_data()
{
    QTest::addColumn<qint64>("maximum");
    QTest::addColumn<QString>("digits");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("two digits") << 99LL << u"42"_s << 42LL;
    QTest::newRow("as large as can be") << 99LL << u"99"_s << 99LL;
    QTest::newRow("a third digit starts anew") << 99LL << u"427"_s << 42LL;
    QTest::newRow("leading zeroes") << 99LL << u"0042"_s << 42LL;
    QTest::newRow("nought is too small") << 99LL << u"00"_s << 7LL;
    QTest::newRow("too large a digit") << 4LL << u"9"_s << 7LL;
    QTest::newRow("one digit where no second fits") << 4LL << u"3"_s << 3LL;
    QTest::newRow("the second digit alone where both are too many") << 25LL << u"29"_s << 9LL;
    QTest::newRow("three digits") << 250LL << u"137"_s << 137LL;
    QTest::newRow("without end") << largestNumber << u"9223372036854775807"_s << largestNumber;
}

void StepperTest::digitsMakeANumber()
{
    QFETCH(qint64, maximum);
    QFETCH(QString, digits);
    StepperFixture fixture(7, 1, maximum);

    QTest::keyClicks(&fixture.stepper, digits);

    QTEST(fixture.stepper.value(), "expected");
}

void StepperTest::aDigitWaitsForTheNext()
{
    StepperFixture fixture(20);

    QTest::keyClick(&fixture.stepper, Qt::Key_1);
    QCOMPARE(fixture.stepper.label()->text(), u"Nombre de bobines: 1"_s);
    QCOMPARE(fixture.edits.count(), 0);

    QTest::keyClick(&fixture.stepper, Qt::Key_5);
    QCOMPARE(fixture.edits.count(), 1);
    QCOMPARE(fixture.edits.first().first().toLongLong(), 15);

    QTest::keyClick(&fixture.stepper, Qt::Key_3);
    QTRY_COMPARE(fixture.edits.count(), 2);
    QCOMPARE(fixture.stepper.value(), 3);
}

void StepperTest::whatEndsTheTyping_data()
{
    QTest::addColumn<std::function<void(Stepper&)>>("end");
    QTest::addColumn<qint64>("expected");

    using End = std::function<void(Stepper&)>;
    QTest::newRow("the focus goes elsewhere")
        << End([](Stepper& stepper) { stepper.clearFocus(); }) << 4LL;
    QTest::newRow("an arrow key") << End([](Stepper& stepper) {
        QTest::keyClick(&stepper, Qt::Key_Up);
    }) << 5LL;
    QTest::newRow("Return") << End([](Stepper& stepper) {
        QTest::keyClick(&stepper, Qt::Key_Return);
    }) << 4LL;
    QTest::newRow("a shortcut") << End([](Stepper& stepper) {
        QTest::keyClick(&stepper, Qt::Key_Return, Qt::ControlModifier);
    }) << 4LL;
    QTest::newRow("another number is set")
        << End([](Stepper& stepper) { stepper.setValue(9); }) << 9LL;
}

void StepperTest::whatEndsTheTyping()
{
    QFETCH(std::function<void(Stepper&)>, end);
    QFETCH(qint64, expected);
    StepperFixture fixture(20);
    QVERIFY(QTest::qWaitForWindowActive(&fixture.stepper));
    QTest::keyClick(&fixture.stepper, Qt::Key_4);

    end(fixture.stepper);

    QCOMPARE(fixture.stepper.value(), expected);
    QCOMPARE(fixture.stepper.label()->text(), u"Nombre de bobines: %1"_s.arg(expected));
}

void StepperTest::theButtonsStep()
{
    StepperFixture fixture(3);

    QTest::mouseClick(&fixture.stepper, Qt::LeftButton, {}, fixture.plus());
    QTest::mouseClick(&fixture.stepper, Qt::LeftButton, {}, fixture.plus());
    QCOMPARE(fixture.stepper.value(), 5);
    QTest::mouseClick(&fixture.stepper, Qt::LeftButton, {}, fixture.minus());
    QCOMPARE(fixture.stepper.value(), 4);
    QTest::mouseClick(&fixture.stepper, Qt::RightButton, {}, fixture.plus());
    QCOMPARE(fixture.stepper.value(), 4);
}

void StepperTest::aButtonHeldDownRepeats()
{
    StepperFixture fixture(3);

    QTest::mousePress(&fixture.stepper, Qt::LeftButton, {}, fixture.plus());
    QTRY_VERIFY(fixture.stepper.value() >= 6);
    QTest::mouseRelease(&fixture.stepper, Qt::LeftButton, {}, fixture.plus());
    const qint64 reached = fixture.stepper.value();
    QTest::qWait(150);
    QCOMPARE(fixture.stepper.value(), reached);
}

void StepperTest::aButtonThatLeadsNowhereDoesNothing()
{
    StepperFixture fixture(250);

    QTest::mouseClick(&fixture.stepper, Qt::LeftButton, {}, fixture.plus());
    QCOMPARE(fixture.stepper.value(), 250);
    QCOMPARE(fixture.edits.count(), 0);
    QTest::mouseClick(&fixture.stepper, Qt::LeftButton, {}, fixture.minus());
    QCOMPARE(fixture.stepper.value(), 99);
}

void StepperTest::otherKeysPassOn()
{
    StepperFixture fixture(3);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&fixture.stepper, &escape);
    QVERIFY(!escape.isAccepted());
    QKeyEvent undo(QEvent::KeyPress, Qt::Key_Up, Qt::AltModifier);
    QCoreApplication::sendEvent(&fixture.stepper, &undo);
    QVERIFY(!undo.isAccepted());
    QCOMPARE(fixture.stepper.value(), 3);
}

void StepperTest::itIsASpinBoxToAssistiveTechnology()
{
    StepperFixture fixture(3);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&fixture.stepper);
    QCOMPARE(spoken->role(), QAccessible::SpinBox);
    QCOMPARE(spoken->text(QAccessible::Name), u"Nombre de bobines"_s);
    QCOMPARE(spoken->text(QAccessible::Value), u"3"_s);

    QAccessibleValueInterface* number = spoken->valueInterface();
    QVERIFY(number);
    QCOMPARE(number->minimumValue().toLongLong(), 1);
    QCOMPARE(number->maximumValue().toLongLong(), 99);
    number->setCurrentValue(12);
    QCOMPARE(fixture.stepper.value(), 12);
    number->setCurrentValue(500);
    QCOMPARE(fixture.stepper.value(), 99);
    QCOMPARE(fixture.edits.count(), 2);
}

REELHOUSE_TEST(StepperTest)

#include "StepperTest.moc"
