#include "app/store/StoreErrorAlert.h"
#include "app/store/StoreFailedView.h"
#include "app/store/StoreLoadingView.h"
#include "app/ui/Spinner.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class StoreScreensTest final : public QObject {
    Q_OBJECT

private slots:
    void theLoadingScreenSaysWhatGoesOn();
    void theFailureScreenShowsTheWholeMessageForCopying();
    void theFailureScreenAsksForTheDataFolder();
    void theAlertSaysThatTheStockIsTemporary();
    void theAlertAnswersWithTheButtonThatWasChosen_data();
    void theAlertAnswersWithTheButtonThatWasChosen();
};

namespace {

QStringList textsOf(const QWidget& widget)
{
    QStringList texts;
    for (const QLabel* label : widget.findChildren<QLabel*>())
        texts << label->text();
    return texts;
}

QPushButton* buttonNamed(const QWidget& widget, const QString& text)
{
    for (QPushButton* button : widget.findChildren<QPushButton*>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

} // namespace

void StoreScreensTest::theLoadingScreenSaysWhatGoesOn()
{
    StoreLoadingView view;
    view.resize(1100, 800);
    view.show();
    QCOMPARE(textsOf(view), QStringList{u"Ouverture de la base de données…"_s});
    const auto* spinner = view.findChild<Spinner*>();
    QVERIFY(spinner);
    QVERIFY(!spinner->isVisible()); // What is over at once does not flash up.
    QTRY_VERIFY(spinner->isVisible());
    QVERIFY(view.findChild<QLabel*>()->isVisible());
    const QPoint off = spinner->mapTo(&view, spinner->rect().center()) - view.rect().center();
    QVERIFY(std::abs(off.x()) <= 1);
}

void StoreScreensTest::theFailureScreenShowsTheWholeMessageForCopying()
{
    const StoreFailedView view(u"Le disque est <plein>.\n\nTrop peu de mémoire."_s);
    const QStringList expected{u"Impossible d'ouvrir la base de données"_s,
        u"Le disque est <plein>.\n\nTrop peu de mémoire."_s};
    QCOMPARE(textsOf(view), expected);
    const auto* message = view.findChild<QLabel*>(u"message"_s);
    QCOMPARE(message->textFormat(), Qt::PlainText);
    QVERIFY(message->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    QVERIFY(message->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    QVERIFY(message->focusPolicy() & Qt::TabFocus);
}

void StoreScreensTest::theFailureScreenAsksForTheDataFolder()
{
    const StoreFailedView view(u"Le disque est plein."_s);
    QSignalSpy requests(&view, &StoreFailedView::openDataFolderRequested);
    QPushButton* button = buttonNamed(view, u"Ouvrir le dossier des données"_s);
    QVERIFY(button);
    button->click();
    QCOMPARE(requests.size(), 1);
}

void StoreScreensTest::theAlertSaysThatTheStockIsTemporary()
{
    const std::unique_ptr<Alert> alert(
        makeStoreErrorAlert(u"La base de données est endommagée."_s, nullptr));
    const QStringList texts = textsOf(*alert);
    QVERIFY(texts.contains(u"Impossible d'ouvrir la base de données"_s));
    QVERIFY(texts.contains(u"Spoolwright fonctionne en mode temporaire : les modifications ne "
                           "seront pas conservées après la fermeture.\n\n"
                           "La base de données est endommagée."_s));
    QVERIFY(buttonNamed(*alert, u"Continuer"_s));
    QVERIFY(buttonNamed(*alert, u"Continuer"_s)->isDefault());
}

void StoreScreensTest::theAlertAnswersWithTheButtonThatWasChosen_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<StoreErrorAnswer>("answer");

    QTest::newRow("first") << u"Continuer"_s << StoreErrorAnswer::Continue;
    QTest::newRow("second") << u"Ouvrir le dossier des données"_s
                            << StoreErrorAnswer::OpenDataFolder;
}

void StoreScreensTest::theAlertAnswersWithTheButtonThatWasChosen()
{
    QFETCH(QString, button);
    QFETCH(StoreErrorAnswer, answer);

    const std::unique_ptr<Alert> alert(makeStoreErrorAlert(u"Pourquoi"_s, nullptr));
    QSignalSpy answers(alert.get(), &Alert::finished);
    alert->open();
    buttonNamed(*alert, button)->click();
    QCOMPARE(answers.size(), 1);
    QCOMPARE(StoreErrorAnswer(answers[0][0].toInt()), answer);
}

REELHOUSE_TEST(StoreScreensTest)

#include "StoreScreensTest.moc"
