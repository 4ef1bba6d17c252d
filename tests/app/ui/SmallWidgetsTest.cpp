#include "app/ui/EmptyState.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/SearchField.h"
#include "app/ui/Spinner.h"
#include "app/ui/StatusLine.h"
#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/TestMain.h"

#include <QtGui/QClipboard>
#include <QtGui/QTextDocument>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class SmallWidgetsTest final : public QObject {
    Q_OBJECT

private slots:
    void theSearchFieldHasItsTexts();
    void theClearButtonShowsWithText();
    void theClearButtonEmptiesLikeTyping();
    void toolTipsShowNamesAsTheyAre();
    void aStatusLineKeepsItsRoomWhileEmpty();
    void aStatusLineShowsItsMessage();
    void aStatusLineIsAtMost640Wide();
    void aLongStatusWraps();
    void ofAVeryLongStatusTheMiddleIsLeftOut();
    void aStatusOfOneEndlessWordStaysInItsWindow_data();
    void aStatusOfOneEndlessWordStaysInItsWindow();
    void theStatusIsSelectedAndCopiedByTheKeyboard();
    void anEmptyStatusIsNoStopOfTab();
    void anEmptyStateShowsItsTextsAndButton();
    void anEmptyStateShowsALongTextWhole();
    void aSpinnerIsAProgressBarOfUnknownLength();
};

namespace {

QToolButton* clearButton(const SearchField& field)
{
    for (auto* button : field.findChildren<QToolButton*>()) {
        if (button->toolTip() == "Effacer la recherche"_L1)
            return button;
    }
    return nullptr;
}

const auto longMessage
    = u"Erreur d'import : Le fichier contient plusieurs types nommés « pla ». "_s.repeated(5);

/// A status line at the top of a screen, as it is used.
class Screen final : public QWidget {
public:
    Screen()
        : m_line(new StatusLine(this))
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_line);
        column->addStretch(1);
        resize(700, 400);
        show();
        QCoreApplication::processEvents();
    }

    StatusLine& line() const { return *m_line; }

private:
    StatusLine* m_line;
};

} // namespace

void SmallWidgetsTest::theSearchFieldHasItsTexts()
{
    SearchField field;

    QCOMPARE(field.placeholderText(), u"Rechercher…"_s);
    QCOMPARE(spokenName(&field), u"Rechercher"_s);
    QCOMPARE(spokenRole(&field), QAccessible::EditableText);
    QCOMPARE(field.minimumSizeHint().width(), 128);
    QVERIFY(field.sizeHint().height() >= 30);
}

void SmallWidgetsTest::theClearButtonShowsWithText()
{
    SearchField field;
    field.show();
    QVERIFY(clearButton(field) != nullptr);
    QVERIFY(!clearButton(field)->isVisible());

    QTest::keyClicks(&field, u"rouge"_s);
    QVERIFY(clearButton(field)->isVisible());
    QCOMPARE(spokenName(clearButton(field)), u"Effacer la recherche"_s);

    field.setText(QString());
    QVERIFY(!clearButton(field)->isVisible());
}

void SmallWidgetsTest::theClearButtonEmptiesLikeTyping()
{
    SearchField field;
    field.show();
    field.setText(u"rouge"_s);
    QSignalSpy edited(&field, &QLineEdit::textEdited);

    QTest::mouseClick(clearButton(field), Qt::LeftButton);

    QCOMPARE(field.text(), QString());
    QCOMPARE(edited, QList<QVariantList>({{QString()}}));
}

void SmallWidgetsTest::toolTipsShowNamesAsTheyAre()
{
    QCOMPARE(plainToolTip(u"Rouge & co < 3"_s), u"Rouge & co < 3"_s);

    const QString name = u"<b>PLA</b> & <i>co</i>"_s;
    QTextDocument document;
    document.setHtml(plainToolTip(name));
    QVERIFY(Qt::mightBeRichText(plainToolTip(name)));
    QCOMPARE(document.toPlainText(), name);
}

void SmallWidgetsTest::aStatusLineKeepsItsRoomWhileEmpty()
{
    const Screen screen;
    const int empty = screen.line().height();

    screen.line().showMessage(StatusKind::Success, u"Export réussi ! (28 filaments)"_s);
    QCoreApplication::processEvents();
    const int filled = screen.line().height();
    screen.line().clear();
    QCoreApplication::processEvents();

    QVERIFY(empty > 20);
    QCOMPARE(filled, empty);
    QCOMPARE(screen.line().height(), empty);
}

void SmallWidgetsTest::aStatusLineShowsItsMessage()
{
    StatusLine line;
    line.show();
    auto* label = line.findChild<QLabel*>();
    QVERIFY(!label->isVisible());

    line.showMessage(StatusKind::Error, u"Erreur d'écriture : <b>disque plein</b>"_s);
    QVERIFY(label->isVisible());
    QCOMPARE(line.text(), u"Erreur d'écriture : <b>disque plein</b>"_s);
    QCOMPARE(spokenName(label), u"Erreur d'écriture : <b>disque plein</b>"_s);

    line.clear();
    QVERIFY(!label->isVisible());
    QCOMPARE(line.text(), QString());
}

void SmallWidgetsTest::aStatusLineIsAtMost640Wide()
{
    StatusLine line;
    line.resize(1000, 200);
    line.show();

    line.showMessage(StatusKind::Success, u"Sauvegarde effectuée"_s);
    QCoreApplication::processEvents();
    const int shortWidth = line.findChild<QLabel*>()->parentWidget()->width();
    line.showMessage(StatusKind::Error, longMessage);
    QCoreApplication::processEvents();
    const int longWidth = line.findChild<QLabel*>()->parentWidget()->width();

    QVERIFY2(shortWidth < 300, qPrintable(QString::number(shortWidth)));
    QCOMPARE(longWidth, 640);
}

void SmallWidgetsTest::aLongStatusWraps()
{
    const Screen screen;
    screen.line().showMessage(StatusKind::Error, longMessage);
    QCoreApplication::processEvents();

    const auto* label = screen.line().findChild<QLabel*>();
    QVERIFY(label->height() >= 3 * label->fontMetrics().height());
}

void SmallWidgetsTest::ofAVeryLongStatusTheMiddleIsLeftOut()
{
    const QString beginning = u"Un filament fait référence à un marque « "_s;
    const QString end = u" » absent du fichier."_s;
    StatusLine line;

    const QString longest = beginning + QString(600 - beginning.size() - end.size(), u'A') + end;
    line.showMessage(StatusKind::Error, longest);
    QCOMPARE(line.text(), longest);

    line.showMessage(StatusKind::Error, beginning + QString(60000, u'A') + end);
    QCOMPARE(line.text(),
        beginning + QString(400 - beginning.size(), u'A') + u'…' + QString(200 - end.size(), u'A')
            + end);

    // No emoji is cut in two.
    line.showMessage(StatusKind::Error, u'a' + u"🧵"_s.repeated(300) + u'z');
    QCOMPARE(line.text(), u'a' + u"🧵"_s.repeated(199) + u'…' + u"🧵"_s.repeated(99) + u'z');
}

void SmallWidgetsTest::aStatusOfOneEndlessWordStaysInItsWindow_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("letters") << QString(60000, u'W');
    QTest::newRow("letters of two units") << u"𝐖"_s.repeated(30000);
    QTest::newRow("spaces that part no lines") << QString(60000, QChar::Nbsp);
    QTest::newRow("line breaks") << QString(60000, u'\n');
    QTest::newRow("separators of lines") << QString(60000, QChar::LineSeparator);
}

void SmallWidgetsTest::aStatusOfOneEndlessWordStaysInItsWindow()
{
    QFETCH(QString, name);
    Screen screen;

    screen.line().showMessage(
        StatusKind::Error, u"Erreur d'import : Le fichier contient plusieurs « "_s + name);
    QCoreApplication::processEvents();

    QCOMPARE(screen.size(), QSize(700, 400));
    const auto* label = screen.line().findChild<QLabel*>();
    QVERIFY2(label->height() < 16 * label->fontMetrics().height(),
        qPrintable(QString::number(label->height())));
}

void SmallWidgetsTest::theStatusIsSelectedAndCopiedByTheKeyboard()
{
    Screen screen;
    auto* button = new QPushButton(u"Exporter"_s, &screen);
    button->show();
    screen.line().showMessage(StatusKind::Error, u"Erreur d'écriture : Espace insuffisant"_s);
    auto* label = screen.line().findChild<QLabel*>();
    QVERIFY(label->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    QTRY_COMPARE(QApplication::activeWindow(), &screen);
    button->setFocus();
    const QImage before = label->grab().toImage();

    QTest::keyClick(button, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), label);
    QCOMPARE(label->selectedText(), u"Erreur d'écriture : Espace insuffisant"_s);
    QTest::keyClick(label, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"Erreur d'écriture : Espace insuffisant"_s);
    const QPoint ring(1, label->height() / 2);
    QVERIFY(label->grab().toImage().pixelColor(ring) != before.pixelColor(ring));

    QTest::keyClick(label, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), button);
    QVERIFY(!label->hasSelectedText());
}

void SmallWidgetsTest::anEmptyStatusIsNoStopOfTab()
{
    Screen screen;
    auto* button = new QPushButton(u"Exporter"_s, &screen);
    button->show();
    screen.line().showMessage(StatusKind::Success, u"Export réussi"_s);
    screen.line().clear();
    QTRY_COMPARE(QApplication::activeWindow(), &screen);
    button->setFocus();

    QTest::keyClick(button, Qt::Key_Tab);

    QCOMPARE(QApplication::focusWidget(), button);
}

void SmallWidgetsTest::anEmptyStateShowsALongTextWhole()
{
    EmptyState state(
        u"magnifyingglass"_s, u"0 résultat"_s, u"Rien ne convient ici. "_s.repeated(6));
    state.resize(1200, 700);
    state.show();

    for (const QLabel* label : state.findChildren<QLabel*>())
        QVERIFY(label->height() >= label->heightForWidth(label->width()));
}

void SmallWidgetsTest::anEmptyStateShowsItsTextsAndButton()
{
    EmptyState state(u"magnifyingglass"_s, u"0 résultat"_s, u"Rien ne convient."_s);
    auto* button = new QPushButton(u"Effacer"_s);
    state.setButton(button);
    state.resize(800, 600);
    state.show();
    QCoreApplication::processEvents();

    QStringList texts;
    for (const auto* label : state.findChildren<QLabel*>())
        texts << label->text();
    QCOMPARE(texts, QStringList({u"0 résultat"_s, u"Rien ne convient."_s}));
    QCOMPARE(button->parentWidget(), &state);
    const int middle = button->mapTo(&state, button->rect().center()).x();
    QVERIFY(qAbs(middle - 400) <= 1);
}

void SmallWidgetsTest::aSpinnerIsAProgressBarOfUnknownLength()
{
    Spinner spinner;

    QCOMPARE(spinner.sizeHint(), QSize(30, 30));
    QCOMPARE(spokenRole(&spinner), QAccessible::ProgressBar);
    QCOMPARE(spinner.minimum(), spinner.maximum());
}

REELHOUSE_TEST(SmallWidgetsTest)

#include "SmallWidgetsTest.moc"
