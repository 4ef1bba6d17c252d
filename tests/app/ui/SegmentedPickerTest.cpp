#include "app/ui/SegmentedPicker.h"

#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class SegmentedPickerTest final : public QObject {
    Q_OBJECT

private slots:
    void theFirstSegmentIsChosenAtFirst();
    void aClickChooses();
    void aClickOnTheChosenSegmentChangesNothing();
    void theOwnerSetsTheChoiceSilently();
    void aChoiceThatDoesNotExistIsIgnored_data();
    void aChoiceThatDoesNotExistIsIgnored();
    void arrowKeysMoveTheChoice_data();
    void arrowKeysMoveTheChoice();
    void tabEntersAtTheChosenSegmentAndLeaves();
    void segmentsAreNamedRadioButtons();
};

namespace {

QList<Segment> segments()
{
    return {{u"view.list"_s, u"Liste"_s}, {u"view.cards"_s, u"Cartes"_s},
        {u"view.statistics"_s, u"Stats"_s}};
}

QPushButton* segmentAt(const SegmentedPicker& picker, int index)
{
    return picker.findChildren<QPushButton*>().at(index);
}

} // namespace

void SegmentedPickerTest::theFirstSegmentIsChosenAtFirst()
{
    const SegmentedPicker picker(segments());

    QCOMPARE(picker.selection(), 0);
    QVERIFY(segmentAt(picker, 0)->isChecked());
}

void SegmentedPickerTest::aClickChooses()
{
    const SegmentedPicker picker(segments());
    QSignalSpy chosen(&picker, &SegmentedPicker::selectionChosen);

    QTest::mouseClick(segmentAt(picker, 2), Qt::LeftButton);

    QCOMPARE(picker.selection(), 2);
    QCOMPARE(chosen, QList<QVariantList>({{2}}));
    QVERIFY(!segmentAt(picker, 0)->isChecked());
}

void SegmentedPickerTest::aClickOnTheChosenSegmentChangesNothing()
{
    const SegmentedPicker picker(segments());
    QSignalSpy chosen(&picker, &SegmentedPicker::selectionChosen);

    QTest::mouseClick(segmentAt(picker, 0), Qt::LeftButton);

    QCOMPARE(picker.selection(), 0);
    QVERIFY(segmentAt(picker, 0)->isChecked());
    QVERIFY(chosen.isEmpty());
}

void SegmentedPickerTest::theOwnerSetsTheChoiceSilently()
{
    SegmentedPicker picker(segments());
    QSignalSpy chosen(&picker, &SegmentedPicker::selectionChosen);

    picker.setSelection(1);

    QCOMPARE(picker.selection(), 1);
    QVERIFY(segmentAt(picker, 1)->isChecked());
    QVERIFY(chosen.isEmpty());
}

void SegmentedPickerTest::aChoiceThatDoesNotExistIsIgnored_data()
{
    QTest::addColumn<int>("index");

    QTest::newRow("before the first") << -1;
    QTest::newRow("after the last") << 3;
}

void SegmentedPickerTest::aChoiceThatDoesNotExistIsIgnored()
{
    QFETCH(int, index);
    SegmentedPicker picker(segments());
    picker.setSelection(1);

    picker.setSelection(index);

    QCOMPARE(picker.selection(), 1);
}

void SegmentedPickerTest::arrowKeysMoveTheChoice_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("expected");

    QTest::newRow("right") << 0 << int(Qt::Key_Right) << 1;
    QTest::newRow("left") << 2 << int(Qt::Key_Left) << 1;
    QTest::newRow("down") << 1 << int(Qt::Key_Down) << 2;
    QTest::newRow("up") << 1 << int(Qt::Key_Up) << 0;
}

void SegmentedPickerTest::arrowKeysMoveTheChoice()
{
    QFETCH(int, start);
    QFETCH(int, key);
    QFETCH(int, expected);
    SegmentedPicker picker(segments());
    picker.setSelection(start);
    picker.show();
    QVERIFY(QTest::qWaitForWindowActive(&picker));
    segmentAt(picker, start)->setFocus();
    QSignalSpy chosen(&picker, &SegmentedPicker::selectionChosen);

    QTest::keyClick(segmentAt(picker, start), static_cast<Qt::Key>(key));

    QCOMPARE(picker.selection(), expected);
    QVERIFY(segmentAt(picker, expected)->hasFocus());
    QCOMPARE(chosen, QList<QVariantList>({{expected}}));
}

void SegmentedPickerTest::tabEntersAtTheChosenSegmentAndLeaves()
{
    QWidget window;
    auto* before = new QPushButton(&window);
    auto* picker = new SegmentedPicker(segments(), &window);
    auto* after = new QPushButton(&window);
    picker->setSelection(1);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    before->setFocus();

    QTest::keyClick(before, Qt::Key_Tab);
    QVERIFY(segmentAt(*picker, 1)->hasFocus());
    QTest::keyClick(segmentAt(*picker, 1), Qt::Key_Tab);

    QVERIFY(after->hasFocus());
}

void SegmentedPickerTest::segmentsAreNamedRadioButtons()
{
    const SegmentedPicker picker(segments());

    const QStringList labels{u"Liste"_s, u"Cartes"_s, u"Stats"_s};
    for (int index = 0; index < labels.size(); ++index) {
        QPushButton* segment = segmentAt(picker, index);
        QCOMPARE(spokenRole(segment), QAccessible::RadioButton);
        QCOMPARE(spokenName(segment), labels.at(index));
        QCOMPARE(segment->toolTip(), labels.at(index));
    }
}

REELHOUSE_TEST(SegmentedPickerTest)

#include "SegmentedPickerTest.moc"
