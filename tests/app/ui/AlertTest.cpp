#include "app/ui/Alert.h"

#include "app/ui/ButtonLook.h"
#include "app/ui/WrappingLabel.h"
#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class AlertTest final : public QObject {
    Q_OBJECT

private slots:
    void buttonsStandFromRightToLeft();
    void aNoteStandsBelowTheMessage();
    void aClickGivesTheIndexOfTheButton_data();
    void aClickGivesTheIndexOfTheButton();
    void keysAnswer_data();
    void keysAnswer();
    void closingTheWindowCancels();
    void itRunsModally();
    void theFocusOfADestructiveQuestionIsOnCancel();
    void theMostImportantButtonLooksIt();
    void itIsAsWideAsItsMessageNeeds_data();
    void itIsAsWideAsItsMessageNeeds();
    void itIsSpokenAsADialogWithItsTexts();
    void markupInAMessageIsText();
    void ofVeryLongTextsTheMiddleIsLeftOut();
    void aWordOfAnyLengthIsShownWhole_data();
    void aWordOfAnyLengthIsShownWhole();
};

namespace {

enum class Case { Delete, Quit, Temporary };

QList<AlertButton> buttonsOf(Case which)
{
    switch (which) {
    case Case::Delete:
        return {{u"Supprimer"_s, AlertRole::Destroy}, {u"Annuler"_s, AlertRole::Cancel}};
    case Case::Quit:
        return {{u"Quitter"_s, AlertRole::Confirm}, {u"Annuler"_s, AlertRole::Cancel}};
    case Case::Temporary:
        return {{u"Continuer"_s, AlertRole::Confirm},
            {u"Ouvrir le dossier des données"_s, AlertRole::Other}};
    }
    Q_UNREACHABLE();
}

class ShownAlert {
public:
    explicit ShownAlert(Case which, const QString& message = u"Voulez-vous vraiment ?"_s)
        : m_alert(AlertTone::Warning, u"Titre"_s, message, buttonsOf(which), &m_window)
    {
        m_window.resize(1100, 800);
        m_window.show();
        m_alert.open();
    }

    bool waitActive() { return QTest::qWaitForWindowActive(&m_alert); }
    Alert& alert() { return m_alert; }

    QPushButton* button(const QString& text)
    {
        for (auto* button : m_alert.findChildren<QPushButton*>()) {
            if (button->text() == text)
                return button;
        }
        return nullptr;
    }

private:
    QWidget m_window;
    Alert m_alert;
};

} // namespace

void AlertTest::buttonsStandFromRightToLeft()
{
    ShownAlert shown(Case::Delete);

    QVERIFY(shown.button(u"Annuler"_s)->x() < shown.button(u"Supprimer"_s)->x());
}

void AlertTest::aNoteStandsBelowTheMessage()
{
    ShownAlert shown(Case::Quit);
    const QString note = u"Aucune sauvegarde ne sera créée."_s;
    const int before = shown.alert().height();

    shown.alert().hide();
    shown.alert().addNote(note);
    shown.alert().open();

    const auto labels = shown.alert().findChildren<QLabel*>();
    const auto* last = *std::ranges::max_element(
        labels, {}, [](const QLabel* label) { return label->mapToGlobal(QPoint()).y(); });
    QCOMPARE(last->text(), note);
    QVERIFY(shown.alert().height() > before);
    QVERIFY(shown.alert().accessibleDescription().endsWith(note));
}

void AlertTest::aClickGivesTheIndexOfTheButton_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("index");

    QTest::newRow("delete") << int(Case::Delete) << u"Supprimer"_s << 0;
    QTest::newRow("keep") << int(Case::Delete) << u"Annuler"_s << 1;
    QTest::newRow("go on") << int(Case::Temporary) << u"Continuer"_s << 0;
    QTest::newRow("open the folder")
        << int(Case::Temporary) << u"Ouvrir le dossier des données"_s << 1;
}

void AlertTest::aClickGivesTheIndexOfTheButton()
{
    QFETCH(int, which);
    QFETCH(QString, text);
    QFETCH(int, index);
    ShownAlert shown(static_cast<Case>(which));
    QSignalSpy finished(&shown.alert(), &QDialog::finished);

    QTest::mouseClick(shown.button(text), Qt::LeftButton);

    QCOMPARE(finished, QList<QVariantList>({{index}}));
    QVERIFY(!shown.alert().isVisible());
}

void AlertTest::keysAnswer_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<int>("index");

    const auto row = [](const char* name, Case which, const QKeySequence& key, int index) {
        QTest::newRow(name) << int(which) << key << index;
    };
    row("Return keeps what would be deleted", Case::Delete, Qt::Key_Return, 1);
    row("Escape keeps it too", Case::Delete, Qt::Key_Escape, 1);
    row("Control Escape as well", Case::Delete, Qt::CTRL | Qt::Key_Escape, 1);
    row("Return quits", Case::Quit, Qt::Key_Return, 0);
    row("Escape stays", Case::Quit, Qt::Key_Escape, 1);
    row("Return goes on", Case::Temporary, Qt::Key_Return, 0);
    row("Escape goes on, nothing can be cancelled", Case::Temporary, Qt::Key_Escape, 0);
}

void AlertTest::keysAnswer()
{
    QFETCH(int, which);
    QFETCH(QKeySequence, key);
    QFETCH(int, index);
    ShownAlert shown(static_cast<Case>(which));
    QVERIFY(shown.waitActive());
    QSignalSpy finished(&shown.alert(), &QDialog::finished);

    QTest::keyClick(&shown.alert(), key[0].key(), key[0].keyboardModifiers());

    QCOMPARE(finished, QList<QVariantList>({{index}}));
}

void AlertTest::closingTheWindowCancels()
{
    ShownAlert shown(Case::Quit);
    QSignalSpy finished(&shown.alert(), &QDialog::finished);

    shown.alert().close();

    QCOMPARE(finished, QList<QVariantList>({{1}}));
}

void AlertTest::itRunsModally()
{
    Alert alert(AlertTone::Question, u"Quitter Spoolwright ?"_s, QString(), buttonsOf(Case::Quit));
    QTimer::singleShot(0, &alert, [&alert] { QTest::keyClick(&alert, Qt::Key_Return); });

    QCOMPARE(alert.exec(), 0);
}

void AlertTest::theFocusOfADestructiveQuestionIsOnCancel()
{
    ShownAlert shown(Case::Delete);
    QVERIFY(shown.waitActive());

    QCOMPARE(QApplication::focusWidget(), shown.button(u"Annuler"_s));
    QVERIFY(!shown.button(u"Supprimer"_s)->isDefault());
}

void AlertTest::theMostImportantButtonLooksIt()
{
    ShownAlert deletion(Case::Delete);
    ShownAlert quit(Case::Quit);

    QCOMPARE(buttonLook(deletion.button(u"Supprimer"_s)), ButtonLook::DestructiveFilled);
    QCOMPARE(buttonLook(deletion.button(u"Annuler"_s)), ButtonLook::Normal);
    QCOMPARE(buttonLook(quit.button(u"Quitter"_s)), ButtonLook::Default);
}

void AlertTest::itIsAsWideAsItsMessageNeeds_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("width");

    QTest::newRow("a short one") << u"Vraiment ?"_s << 420;
    QTest::newRow("a long one") << u"Les modifications ne seront pas conservées. "_s.repeated(4)
                                << 500;
    QTest::newRow("many short lines") << u"un\ndeux\ntrois\nquatre"_s << 420;
}

void AlertTest::itIsAsWideAsItsMessageNeeds()
{
    QFETCH(QString, message);
    QFETCH(int, width);
    ShownAlert shown(Case::Quit, message);

    QCOMPARE(shown.alert().panelRect().width(), width);
}

void AlertTest::itIsSpokenAsADialogWithItsTexts()
{
    ShownAlert shown(Case::Quit);

    QCOMPARE(spokenRole(&shown.alert()), QAccessible::Dialog);
    QCOMPARE(spokenName(&shown.alert()), u"Titre"_s);
    QCOMPARE(spokenDescription(&shown.alert()), u"Voulez-vous vraiment ?"_s);
}

void AlertTest::markupInAMessageIsText()
{
    ShownAlert shown(Case::Quit, u"<b>PLA</b>"_s);

    for (const auto* label : shown.alert().findChildren<QLabel*>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
}

void AlertTest::ofVeryLongTextsTheMiddleIsLeftOut()
{
    const QString tooLong = u"Supprimer « "_s + QString(60000, u'A') + u" » ?"_s;
    const QString shown
        = u"Supprimer « "_s + QString(388, u'A') + u'…' + QString(196, u'A') + u" » ?"_s;

    Alert alert(AlertTone::Question, tooLong, tooLong, buttonsOf(Case::Delete));
    alert.addNote(tooLong);

    for (const QLabel* label : alert.findChildren<WrappingLabel*>())
        QCOMPARE(label->text(), shown);
    QCOMPARE(alert.windowTitle(), shown);
    QCOMPARE(alert.accessibleDescription(), shown + u' ' + shown);
}

void AlertTest::aWordOfAnyLengthIsShownWhole_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("leastLines");

    QTest::newRow("words") << u"Voulez-vous vraiment supprimer PLA ?"_s << 1;
    QTest::newRow("a very long word")
        << u"Voulez-vous vraiment supprimer "_s + QString(200, u'W') + u" ?"_s << 4;
    QTest::newRow("line breaks") << u"un\ndeux\ntrois"_s << 3;
}

void AlertTest::aWordOfAnyLengthIsShownWhole()
{
    QFETCH(QString, message);
    QFETCH(int, leastLines);
    ShownAlert shown(Case::Delete, message);
    QVERIFY(shown.waitActive());

    const auto labels = shown.alert().findChildren<QLabel*>();
    auto* label = *std::ranges::find(labels, message, &QLabel::text);
    const QRect place(label->mapTo(&shown.alert(), QPoint()), label->size());
    QVERIFY(shown.alert().panelRect().contains(place));
    QVERIFY(label->height() >= leastLines * label->fontMetrics().height());
    // Nothing is painted up to the right edge, where a cut text would end.
    const QImage picture = label->grab().toImage();
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                ink |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(ink.right() < picture.width() - 1);
    QVERIFY(ink.bottom() > (leastLines - 1) * label->fontMetrics().height());
}

REELHOUSE_TEST(AlertTest)

#include "AlertTest.moc"
