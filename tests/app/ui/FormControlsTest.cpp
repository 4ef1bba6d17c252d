#include "app/ui/ColorWell.h"
#include "app/ui/EditorSwatch.h"
#include "app/ui/FormGroup.h"
#include "app/ui/NotesField.h"
#include "app/ui/Stepper.h"
#include "app/ui/Toggle.h"
#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class FormControlsTest final : public QObject {
    Q_OBJECT

private slots:
    void everyControlOfAGroupIsNamed();
    void openingTheColorWindowWritesNothing();
    void everyPickedColorIsToldAtOnce();
    void theColorWindowHasAlphaAndNoButtons();
    void theNotesGrowFromFourToEightLines();
    void theNotesDoNotScrollForAPixel();
    void longLinesCountAsSeveral();
    void theNotesComeBackAsTheyWentIn_data();
    void theNotesComeBackAsTheyWentIn();
    void tabLeavesTheNotes();
    void theSwatchIsSpoken();
    void aToggleIsACheckBox();
    void rowsAreHighEnoughForTheirTexts();
};

namespace {

QString numberedLines(int count)
{
    QStringList lines;
    for (int line = 0; line < count; ++line)
        lines << QString::number(line);
    return lines.join(u'\n');
}

} // namespace

void FormControlsTest::rowsAreHighEnoughForTheirTexts()
{
    FormGroup group;
    QLabel* large = group.addRow(u"Nom"_s, new Toggle);
    const QLabel* usual = group.addRow(u"Gamme"_s, new Toggle);
    QFont font = large->font();
    font.setPixelSize(60);
    large->setFont(font);

    group.resize(300, group.minimumSizeHint().height());
    group.show();

    QVERIFY(large->height() >= large->fontMetrics().height());
    QCOMPARE(usual->parentWidget()->height(), 36);
}

void FormControlsTest::everyControlOfAGroupIsNamed()
{
    FormGroup group;
    auto* stepper = new Stepper(u"Bobines: "_s);
    group.addRow(stepper->label(), stepper);
    group.addRow(u"Nom"_s, new QLineEdit);
    group.addRow(u"Sauvegarde"_s, new Toggle);
    group.addRow(u"Couleur"_s, new QLabel(u"#FFFFFF"_s), new ColorWell);
    group.addTallRow(u"Notes"_s, new NotesField);
    group.show();

    QCOMPARE(unnamedControls(&group), QStringList());
    QVERIFY(stepper->label()->isVisible());
    for (const QLabel* label : group.findChildren<QLabel*>())
        QVERIFY(label->buddy() || label->text() == u"#FFFFFF"_s);
}

void FormControlsTest::openingTheColorWindowWritesNothing()
{
    ColorWell well;
    well.setColor(QColor(10, 20, 30, 40));
    well.show();
    QSignalSpy edits(&well, &ColorWell::colorEdited);

    well.click();
    auto* dialog = well.findChild<QColorDialog*>();
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
    QCOMPARE(dialog->currentColor(), QColor(10, 20, 30, 40));
    QCoreApplication::processEvents();
    dialog->reject();

    QCOMPARE(edits.count(), 0);
    QCOMPARE(well.color(), QColor(10, 20, 30, 40));
}

void FormControlsTest::everyPickedColorIsToldAtOnce()
{
    ColorWell well;
    well.show();
    QSignalSpy edits(&well, &ColorWell::colorEdited);
    well.click();
    auto* dialog = well.findChild<QColorDialog*>();

    dialog->setCurrentColor(QColor(200, 0, 0));
    QCOMPARE(edits.count(), 1);
    QCOMPARE(edits.last().first().value<QColor>(), QColor(200, 0, 0));
    dialog->setCurrentColor(QColor(0, 200, 0, 100));
    QCOMPARE(edits.last().first().value<QColor>(), QColor(0, 200, 0, 100));
    QCOMPARE(well.color(), QColor(0, 200, 0, 100));
    well.click();
    QCOMPARE(well.findChildren<QColorDialog*>().size(), 1);
}

void FormControlsTest::theColorWindowHasAlphaAndNoButtons()
{
    ColorWell well;
    well.show();
    well.click();
    auto* dialog = well.findChild<QColorDialog*>();

    QVERIFY(dialog->testOption(QColorDialog::ShowAlphaChannel));
    QVERIFY(dialog->testOption(QColorDialog::NoButtons));
    QCOMPARE(dialog->windowModality(), Qt::WindowModal);
}

void FormControlsTest::theNotesDoNotScrollForAPixel()
{
    for (int points = 8; points <= 24; ++points) {
        NotesField notes;
        QFont font = notes.font();
        font.setPointSize(points);
        notes.setFont(font);
        notes.show();
        notes.resize(290, notes.height());
        notes.setText(u"a\nb\nc\nd\ne"_s);
        QCoreApplication::processEvents();
        QVERIFY2(notes.verticalScrollBar()->maximum() == 0, qPrintable(QString::number(points)));
    }
}

void FormControlsTest::theNotesGrowFromFourToEightLines()
{
    QWidget screen;
    auto* column = new QVBoxLayout(&screen);
    auto* notes = new NotesField;
    column->addWidget(notes);
    column->addStretch();
    screen.resize(320, 600);
    screen.show();
    const int line = qCeil(QFontMetricsF(notes->font()).lineSpacing());
    const auto heightOf = [&](int lines) {
        notes->setText(numberedLines(lines));
        QCoreApplication::processEvents();
        return notes->height();
    };

    const int four = heightOf(0);
    QCOMPARE(heightOf(4), four);
    QCOMPARE(heightOf(5), four + line);
    QCOMPARE(heightOf(8), four + 4 * line);
    QCOMPARE(heightOf(300), four + 4 * line);
    QCOMPARE(heightOf(1), four);
}

void FormControlsTest::longLinesCountAsSeveral()
{
    QWidget screen;
    auto* column = new QVBoxLayout(&screen);
    auto* notes = new NotesField;
    column->addWidget(notes);
    column->addStretch();
    screen.resize(320, 600);
    screen.show();
    const int four = notes->height();

    notes->setText(u"mot "_s.repeated(200));
    QCoreApplication::processEvents();

    QCOMPARE(notes->height(), four + 4 * notes->fontMetrics().lineSpacing());
}

void FormControlsTest::theNotesComeBackAsTheyWentIn_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("typedText");

    QTest::newRow("plain") << u"un\ndeux"_s << u"xun\ndeux"_s;
    QTest::newRow("narrow spaces") << u"6\u00A0h à 80\u202F°C"_s << u"x6\u00A0h à 80\u202F°C"_s;
    QTest::newRow("another system's lines") << u"un\r\ndeux\rtrois"_s << u"xun\ndeux\ntrois"_s;
    QTest::newRow("right to left, emoji") << u"مرحبا 🧵"_s << u"xمرحبا 🧵"_s;
    QTest::newRow("spaces and lines around") << u"\n\n a \n"_s << u"x\n\n a \n"_s;
}

void FormControlsTest::theNotesComeBackAsTheyWentIn()
{
    QFETCH(QString, text);
    NotesField notes;
    QSignalSpy edits(&notes, &NotesField::textEdited);
    notes.show();

    notes.setText(text);
    QCOMPARE(notes.text(), text);
    QCOMPARE(edits.count(), 0);

    QTest::keyClick(&notes, Qt::Key_X);
    QTEST(notes.text(), "typedText");
    QVERIFY(edits.count() >= 1);
    QTest::keyClick(&notes, Qt::Key_Backspace);
    QCOMPARE(notes.text(), text);
}

void FormControlsTest::tabLeavesTheNotes()
{
    QWidget screen;
    auto* column = new QVBoxLayout(&screen);
    auto* notes = new NotesField;
    auto* next = new QLineEdit;
    column->addWidget(notes);
    column->addWidget(next);
    screen.show();
    screen.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&screen));
    notes->setFocus();

    QTest::keyClick(notes, Qt::Key_Return);
    QTest::keyClick(notes, Qt::Key_Tab);

    QCOMPARE(notes->text(), u"\n"_s);
    QVERIFY(next->hasFocus());
}

void FormControlsTest::theSwatchIsSpoken()
{
    EditorSwatch swatch(60);

    swatch.setColor(u"#E53935"_s, u" Rouge "_s);
    QCOMPARE(spokenName(&swatch), u"Couleur"_s);
    QCOMPARE(spokenDescription(&swatch), u"Rouge, #E53935"_s);
    QCOMPARE(swatch.height(), 60);
    swatch.resize(200, 60);
    QCOMPARE(swatch.grab().toImage().pixelColor(100, 30), QColor(0xE53935));

    swatch.setColor(u"#FFF"_s, u" "_s);
    QCOMPARE(spokenDescription(&swatch), u"#FFF"_s);
    QCOMPARE(swatch.grab().toImage().pixelColor(100, 30), QColor(Qt::black));
}

void FormControlsTest::aToggleIsACheckBox()
{
    Toggle toggle;
    toggle.resize(toggle.sizeHint());
    toggle.show();
    QSignalSpy toggles(&toggle, &QCheckBox::toggled);
    QCOMPARE(spokenRole(&toggle), QAccessible::CheckBox);

    QTest::mouseClick(&toggle, Qt::LeftButton, {}, {toggle.width() - 8, toggle.height() / 2});
    QVERIFY(toggle.isChecked());
    QTest::keyClick(&toggle, Qt::Key_Space);
    QVERIFY(!toggle.isChecked());
    QCOMPARE(toggles.count(), 2);
    const QImage off = toggle.grab().toImage();
    toggle.setChecked(true);
    QTRY_VERIFY(toggle.grab().toImage() != off);
}

REELHOUSE_TEST(FormControlsTest)

#include "FormControlsTest.moc"
