#include "app/ui/Picker.h"

#include "tests/support/TestMain.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolTip>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class PickerTest final : public QObject {
    Q_OBJECT

private slots:
    void noneComesFirst();
    void theChoiceStaysAsTheListChanges();
    void aChoiceThatIsGoneBecomesNone();
    void settingIsNotEditing();
    void choosingIsToldOnce_data();
    void choosingIsToldOnce();
    void lettersJumpToAName();
    void aSpaceInANameBelongsToIt();
    void lettersJumpInTheOpenListToo();
    void theWheelChangesNothing();
    void aLongNameIsCutWithATooltip();
    void markupInANameIsText();
    void thousandsOfEntriesOpen();
    void theOpenListIsAsWideAsItsNames_data();
    void theOpenListIsAsWideAsItsNames();
    void aWiderListEndsWhereThePickerDoes();
    void oddNamesStayOnOneLine();
};

namespace {

struct PickerFixture {
    PickerFixture()
    {
        picker.setEntries({{4, u"ABS"_s, u"cube.fill"_s}, {2, u"PETG"_s, u"drop.fill"_s},
            {3, u"PLA"_s, u"leaf.fill"_s}});
        picker.resize(300, 28);
        picker.show();
        picker.activateWindow();
        picker.setFocus();
    }

    QString toolTipFor(qint64 id)
    {
        picker.setChoice(id);
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, {5, 5}, picker.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&picker, &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }

    Picker picker{u"Sélectionner…"_s};
    QSignalSpy edits{&picker, &Picker::choiceEdited};
};

} // namespace

void PickerTest::noneComesFirst()
{
    PickerFixture fixture;
    const QAbstractItemModelTester tester(fixture.picker.model());
    QCOMPARE(fixture.picker.choice(), 0);
    QStringList names;
    for (int row = 0; row < fixture.picker.count(); ++row)
        names << fixture.picker.itemText(row);
    QCOMPARE(names, (QStringList{u"Sélectionner…"_s, u"ABS"_s, u"PETG"_s, u"PLA"_s}));
    QVERIFY(fixture.picker.itemIcon(0).isNull());
    QVERIFY(!fixture.picker.itemIcon(1).isNull());
}

void PickerTest::theChoiceStaysAsTheListChanges()
{
    PickerFixture fixture;
    fixture.picker.setChoice(3);
    QCOMPARE(fixture.picker.currentText(), u"PLA"_s);

    fixture.picker.setEntries({{9, u"ASA"_s, {}}, {3, u"PLA +"_s, {}}, {2, u"PETG"_s, {}}});

    QCOMPARE(fixture.picker.choice(), 3);
    QCOMPARE(fixture.picker.currentText(), u"PLA +"_s);
    QCOMPARE(fixture.edits.count(), 0);
}

void PickerTest::aChoiceThatIsGoneBecomesNone()
{
    PickerFixture fixture;
    fixture.picker.setChoice(3);

    fixture.picker.setEntries({{4, u"ABS"_s, {}}});

    QCOMPARE(fixture.picker.choice(), 0);
    QCOMPARE(fixture.picker.currentText(), u"Sélectionner…"_s);
    QCOMPARE(fixture.edits.count(), 0);
}

void PickerTest::settingIsNotEditing()
{
    PickerFixture fixture;

    fixture.picker.setChoice(2);
    fixture.picker.setChoice(77);

    QCOMPARE(fixture.picker.choice(), 0);
    QCOMPARE(fixture.edits.count(), 0);
}

void PickerTest::choosingIsToldOnce_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("an arrow") << QList<Qt::Key>{Qt::Key_Down} << 4LL;
    QTest::newRow("the last") << QList<Qt::Key>{Qt::Key_End} << 3LL;
    QTest::newRow("none again") << QList<Qt::Key>{Qt::Key_Down, Qt::Key_Home} << 0LL;
}

void PickerTest::choosingIsToldOnce()
{
    QFETCH(QList<Qt::Key>, keys);
    QFETCH(qint64, expected);
    PickerFixture fixture;

    for (const Qt::Key key : keys)
        QTest::keyClick(&fixture.picker, key);

    QCOMPARE(fixture.picker.choice(), expected);
    QCOMPARE(fixture.edits.count(), keys.size());
    QCOMPARE(fixture.edits.last().first().toLongLong(), expected);
}

void PickerTest::lettersJumpToAName()
{
    PickerFixture fixture;

    QTest::keyClicks(&fixture.picker, u"pl"_s);

    QCOMPARE(fixture.picker.choice(), 3);
    QCOMPARE(fixture.edits.last().first().toLongLong(), 3);
}

void PickerTest::aSpaceInANameBelongsToIt()
{
    PickerFixture fixture;
    fixture.picker.setEntries({{1, u"PLA 10"_s, {}}, {2, u"PLA 20"_s, {}}});

    QTest::keyClicks(&fixture.picker, u"pla 2"_s);
    QCOMPARE(fixture.picker.choice(), 2);
    QVERIFY(!fixture.picker.view()->isVisible());

    QTest::qWait(QApplication::keyboardInputInterval() + 20);
    QTest::keyClick(&fixture.picker, Qt::Key_Space);
    QVERIFY(fixture.picker.view()->isVisible());
}

void PickerTest::lettersJumpInTheOpenListToo()
{
    PickerFixture fixture;
    fixture.picker.showPopup();
    QVERIFY(fixture.picker.view()->isVisible());

    QTest::keyClicks(fixture.picker.view(), u"pl"_s);
    QTest::keyClick(fixture.picker.view(), Qt::Key_Return);

    QCOMPARE(fixture.picker.choice(), 3);
    QCOMPARE(fixture.edits.count(), 1);
    QTRY_VERIFY(!fixture.picker.view()->isVisible());
}

void PickerTest::theWheelChangesNothing()
{
    PickerFixture fixture;
    const QPointF middle = fixture.picker.rect().center();
    QWheelEvent wheel(middle, fixture.picker.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&fixture.picker, &wheel);

    QCOMPARE(fixture.picker.choice(), 0);
    QVERIFY(!wheel.isAccepted());
}

void PickerTest::aLongNameIsCutWithATooltip()
{
    PickerFixture fixture;
    const QString longName = QString(200, u'W');
    fixture.picker.setEntries({{1, longName, {}}, {2, u"ABS"_s, {}}});

    QCOMPARE(fixture.toolTipFor(2), QString());
    QCOMPARE(fixture.toolTipFor(1), longName);
    QVERIFY(fixture.picker.minimumSizeHint().width() < 200);
}

void PickerTest::markupInANameIsText()
{
    PickerFixture fixture;
    const QString wide(200, u'W');
    fixture.picker.setEntries({{1, u"<b>"_s + wide + u"</b>"_s, {}}});
    const QString expected = u"<p>&lt;b&gt;"_s + wide + u"&lt;/b&gt;</p>"_s;

    QCOMPARE(fixture.toolTipFor(1), expected);
    QCOMPARE(fixture.picker.itemData(1, Qt::ToolTipRole).toString(), expected);
}

void PickerTest::thousandsOfEntriesOpen()
{
    PickerFixture fixture;
    std::vector<PickerEntry> entries;
    for (int number = 1; number <= 5000; ++number)
        entries.push_back({number, u"Marque %1"_s.arg(number), {}});
    fixture.picker.setEntries(entries);
    QCOMPARE(fixture.picker.count(), 5001);

    fixture.picker.showPopup();
    QTest::keyClicks(fixture.picker.view(), u"marque 4321"_s);
    QTest::keyClick(fixture.picker.view(), Qt::Key_Return);

    QCOMPARE(fixture.picker.choice(), 4321);
}

void PickerTest::theOpenListIsAsWideAsItsNames_data()
{
    QTest::addColumn<QString>("longName");
    QTest::addColumn<bool>("fits");

    QTest::newRow("short ones") << u"PLA"_s << true;
    QTest::newRow("one that needs more") << u"Boîte du sous-sol, rayon de gauche"_s << true;
    QTest::newRow("one that is cut") << QString(200, u'W') << false;
}

void PickerTest::theOpenListIsAsWideAsItsNames()
{
    QFETCH(QString, longName);
    QFETCH(bool, fits);
    PickerFixture fixture;
    fixture.picker.resize(120, 28);
    std::vector<PickerEntry> entries;
    for (int number = 1; number <= 60; ++number)
        entries.push_back({number, number == 31 ? longName : QString::number(number), {}});
    fixture.picker.setEntries(entries);

    fixture.picker.showPopup();

    const int list = fixture.picker.view()->width();
    const int name = fixture.picker.view()->fontMetrics().horizontalAdvance(longName);
    QCOMPARE(list > name, fits);
    fixture.picker.hidePopup();
}

void PickerTest::aWiderListEndsWhereThePickerDoes()
{
    PickerFixture fixture;
    fixture.picker.resize(120, 28);
    fixture.picker.move(400, 100);
    fixture.picker.setEntries({{1, u"Boîte du sous-sol, rayon de gauche"_s, {}}});

    fixture.picker.showPopup();

    const QRect list = fixture.picker.view()->window()->geometry();
    QVERIFY(list.width() > 120);
    QCOMPARE(list.right(), fixture.picker.mapToGlobal(fixture.picker.rect().topRight()).x());
    fixture.picker.hidePopup();
}

void PickerTest::oddNamesStayOnOneLine()
{
    PickerFixture fixture;
    fixture.picker.setEntries({{1, u"deux\nlignes"_s, {}}, {2, u"مرحبا 🧵"_s, {}}});
    fixture.picker.setChoice(1);
    QCOMPARE(fixture.picker.currentText(), u"deux lignes"_s);
    const int height = fixture.picker.sizeHint().height();
    fixture.picker.setChoice(2);
    QCOMPARE(fixture.picker.sizeHint().height(), height);
    QVERIFY(!fixture.picker.grab().isNull());
}

REELHOUSE_TEST(PickerTest)

#include "PickerTest.moc"
