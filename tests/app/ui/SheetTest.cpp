#include "app/ui/Sheet.h"

#include "app/ui/ButtonLook.h"
#include "app/ui/Compositing.h"
#include "app/ui/Scrim.h"
#include "app/ui/Theme.h"
#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class SheetTest final : public QObject {
    Q_OBJECT

private slots:
    void nothingCompositesWithoutAScreen();
    void itLiesCentredOverItsWindow();
    void itIsModalForItsWindow();
    void aScrimDimsTheWindowWhileItIsOpen();
    void deletingAnOpenSheetTakesTheScrimAway();
    void theScrimFollowsTheWindow();
    void itIsNeverHigherThanTheWindow();
    void overASmallSheetItHasItsOwnSize();
    void whatDoesNotFitIsReachedByKey();
    void itGrowsWithTheFont();
    void keysCloseIt_data();
    void keysCloseIt();
    void withControlReturnTheTextKeepsItsLineBreak();
    void aDisabledConfirmButtonIgnoresReturn();
    void itIsOpaqueAndSquareWithoutCompositing();
    void itHasATitleForAssistiveTechnology();
};

namespace {

/// A sheet with a field and two buttons, open over a window.
class OpenSheet {
public:
    explicit OpenSheet(ConfirmKey key = ConfirmKey::AnyReturn, int contentHeight = 100)
        : m_sheet(new Sheet(u"Ajouter un filament"_s, 480, &m_window))
    {
        m_window.setGeometry(100, 100, 1100, 800);
        m_window.show();
        auto* field = new QPlainTextEdit(m_sheet);
        field->setMinimumHeight(contentHeight);
        m_sheet->body()->addWidget(field);
        auto* cancel = new QPushButton(u"Annuler"_s, m_sheet);
        auto* add = new QPushButton(u"Ajouter"_s, m_sheet);
        cancel->setAutoDefault(false);
        QObject::connect(cancel, &QPushButton::clicked, m_sheet, &QDialog::reject);
        QObject::connect(add, &QPushButton::clicked, m_sheet, &QDialog::accept);
        m_sheet->buttonRow()->addWidget(cancel);
        m_sheet->buttonRow()->addStretch(1);
        m_sheet->buttonRow()->addWidget(add);
        m_sheet->setConfirmButton(add, key);
        m_sheet->open();
        field->setFocus();
    }

    QWidget& window() { return m_window; }
    Sheet& sheet() { return *m_sheet; }
    QPlainTextEdit& field() { return *m_sheet->findChild<QPlainTextEdit*>(); }
    QPushButton& confirm() { return *m_sheet->findChildren<QPushButton*>().last(); }
    Scrim* scrim() { return m_window.findChild<Scrim*>(); }

private:
    QWidget m_window;
    Sheet* m_sheet;
};

} // namespace

void SheetTest::nothingCompositesWithoutAScreen()
{
    QVERIFY(!windowsAreComposited());
}

void SheetTest::itLiesCentredOverItsWindow()
{
    OpenSheet open;

    QCOMPARE(open.sheet().panelRect().width(), 480);
    const QPoint offset = open.sheet().geometry().center() - open.window().geometry().center();
    QVERIFY(offset.manhattanLength() <= 2);
}

void SheetTest::itIsModalForItsWindow()
{
    OpenSheet open;

    QCOMPARE(open.sheet().windowModality(), Qt::WindowModal);
    QVERIFY(open.sheet().windowFlags().testFlag(Qt::FramelessWindowHint));
}

void SheetTest::aScrimDimsTheWindowWhileItIsOpen()
{
    OpenSheet open;
    QVERIFY(open.scrim() != nullptr);
    QCOMPARE(open.scrim()->geometry(), open.window().rect());

    open.sheet().reject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(open.scrim() == nullptr);
}

void SheetTest::deletingAnOpenSheetTakesTheScrimAway()
{
    OpenSheet open;

    delete &open.sheet();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(open.scrim() == nullptr);
}

void SheetTest::theScrimFollowsTheWindow()
{
    OpenSheet open;

    open.window().resize(1300, 900);
    QCoreApplication::processEvents();

    QCOMPARE(open.scrim()->size(), QSize(1300, 900));
    const QPoint offset = open.sheet().geometry().center() - open.window().geometry().center();
    QVERIFY(offset.manhattanLength() <= 2);
}

void SheetTest::itGrowsWithTheFont()
{
    QWidget window;
    window.resize(1100, 800);
    window.show();
    const auto panelSize = [&window](int width, qreal points) {
        Sheet sheet(u"Ajouter un filament"_s, width, &window);
        sheet.setPanelSize(width, 300);
        QFont font = sheet.font();
        font.setPointSizeF(points);
        sheet.setFont(font);
        sheet.open();
        return sheet.panelRect().size();
    };

    QCOMPARE(panelSize(480, 8), QSize(480, 300));
    QCOMPARE(panelSize(480, 10), QSize(480, 300));
    const QSize grown = panelSize(480, 20); // The font may not come in just this size.
    QVERIFY(qAbs(grown.width() - 960) < 20);
    QVERIFY(qAbs(grown.height() - 600) < 20);
    QCOMPARE(panelSize(620, 20).width(), 1100 - 48);
}

void SheetTest::itIsNeverHigherThanTheWindow()
{
    OpenSheet open(ConfirmKey::AnyReturn, 2000);

    QCOMPARE(open.sheet().panelRect().height(), 800 - 48);
    const QPoint bottom = open.confirm().mapTo(&open.sheet(), open.confirm().rect().bottomRight());
    QVERIFY(open.sheet().panelRect().contains(bottom));
    QVERIFY(open.field().height() >= 2000);
}

void SheetTest::overASmallSheetItHasItsOwnSize()
{
    OpenSheet open;
    open.sheet().setPanelSize(300, 200);
    Sheet second(u"Composants tiers"_s, 600, &open.sheet());
    second.setPanelSize(600, 560);
    second.open();

    QCOMPARE(second.panelRect().size(), QSize(600, 560));
    const QPoint offset = second.geometry().center() - open.window().geometry().center();
    QVERIFY(offset.manhattanLength() <= 2);

    second.setPanelSize(3000, 3000);
    QCOMPARE(second.panelRect().size(), QSize(1100 - 48, 800 - 48));
}

void SheetTest::whatDoesNotFitIsReachedByKey()
{
    OpenSheet open(ConfirmKey::AnyReturn, 2000);
    const QScrollBar* bar = open.sheet().findChild<QScrollArea*>()->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    open.confirm().setFocus();

    QTest::keyClick(&open.confirm(), Qt::Key_PageDown);
    QCOMPARE(bar->value(), std::min(bar->pageStep(), bar->maximum()));
    QTest::keyClick(&open.confirm(), Qt::Key_PageUp);
    QCOMPARE(bar->value(), 0);
}

void SheetTest::keysCloseIt_data()
{
    QTest::addColumn<int>("confirmKey");
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<bool>("isInField");
    QTest::addColumn<int>("result"); // -1: stays open

    const auto row
        = [](const char* name, ConfirmKey confirmKey, const QKeySequence& key, bool isInField,
              int result) { QTest::newRow(name) << int(confirmKey) << key << isInField << result; };
    using enum ConfirmKey;
    row("Escape", AnyReturn, Qt::Key_Escape, false, 0);
    row("Control Escape", AnyReturn, Qt::CTRL | Qt::Key_Escape, false, 0);
    row("Control Escape in a text", ControlReturn, Qt::CTRL | Qt::Key_Escape, true, 0);
    row("Return", AnyReturn, Qt::Key_Return, false, 1);
    row("Control Return", AnyReturn, Qt::CTRL | Qt::Key_Return, false, 1);
    row("Control Return in a text", ControlReturn, Qt::CTRL | Qt::Key_Return, true, 1);
    row("Control Enter", ControlReturn, Qt::CTRL | Qt::Key_Enter, true, 1);
    row("Return where only Control Return confirms", ControlReturn, Qt::Key_Return, false, -1);
}

void SheetTest::keysCloseIt()
{
    QFETCH(int, confirmKey);
    QFETCH(QKeySequence, key);
    QFETCH(bool, isInField);
    QFETCH(int, result);
    OpenSheet open(static_cast<ConfirmKey>(confirmKey));
    QVERIFY(QTest::qWaitForWindowActive(&open.sheet()));
    QSignalSpy finished(&open.sheet(), &QDialog::finished);
    QWidget* target = &open.sheet();
    if (isInField)
        target = &open.field();

    QTest::keyClick(target, key[0].key(), key[0].keyboardModifiers());

    QCOMPARE(open.sheet().isVisible(), result == -1);
    if (result != -1)
        QCOMPARE(finished, QList<QVariantList>({{result}}));
}

void SheetTest::withControlReturnTheTextKeepsItsLineBreak()
{
    OpenSheet open(ConfirmKey::ControlReturn);
    QVERIFY(QTest::qWaitForWindowActive(&open.sheet()));

    QTest::keyClicks(&open.field(), u"a"_s);
    QTest::keyClick(&open.field(), Qt::Key_Return);

    QVERIFY(open.sheet().isVisible());
    QCOMPARE(open.field().toPlainText(), u"a\n"_s);
}

void SheetTest::aDisabledConfirmButtonIgnoresReturn()
{
    OpenSheet open;
    open.confirm().setEnabled(false);
    QVERIFY(QTest::qWaitForWindowActive(&open.sheet()));

    QTest::keyClick(&open.sheet(), Qt::Key_Return);
    QTest::keyClick(&open.sheet(), Qt::Key_Return, Qt::ControlModifier);

    QVERIFY(open.sheet().isVisible());
}

void SheetTest::itIsOpaqueAndSquareWithoutCompositing()
{
    OpenSheet open;

    QVERIFY(!open.sheet().testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(open.sheet().panelRect(), open.sheet().rect());
    const QImage picture = open.sheet().grab().toImage();
    QCOMPARE(picture.pixelColor(0, 0), currentTheme().line);
    QCOMPARE(picture.pixelColor(4, 4), currentTheme().canvas);
}

void SheetTest::itHasATitleForAssistiveTechnology()
{
    OpenSheet open;

    QCOMPARE(spokenRole(&open.sheet()), QAccessible::Dialog);
    QCOMPARE(spokenName(&open.sheet()), u"Ajouter un filament"_s);
    QCOMPARE(buttonLook(&open.confirm()), ButtonLook::Default);
}

REELHOUSE_TEST(SheetTest)

#include "SheetTest.moc"
