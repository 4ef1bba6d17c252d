#include "app/shell/AppDelegate.h"

#include "app/backup/BackupService.h"
#include "app/shell/MainWindow.h"
#include "app/shell/WindowPlacement.h"
#include "app/store/StoreProvider.h"
#include "app/ui/Alert.h"
#include "core/model/StoreContext.h"
#include "core/preferences/Preferences.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <csignal>
#include <sys/resource.h>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class AppDelegateTest final : public QObject {
    Q_OBJECT

private slots:
    void theWindowOpensAtItsSize_data();
    void theWindowOpensAtItsSize();
    void theStoreIsOpenedOnceTheWindowStands();
    void aWindowThatComesLateIsSetUp();
    void theStoreIsOpenedAnywayWithoutAWindow();
    void theWindowIsPlacedAgainAfterTheStart();
    void aWindowClosedAtOnceIsLeftAlone();
    void aSecondLaunchBringsTheWindowBack();
    void theStoreAlertSaysWhyTheStockIsTemporary();
    void closingSavesTheSize_data();
    void closingSavesTheSize();
    void quittingAsks_data();
    void quittingAsks();
    void theQuestionSaysThatATemporaryStockIsNotBackedUp();
    void whoWouldLoseChangesIsAsked();
    void whileTheQuestionStandsNoOtherIsAsked();
    void anEndThatNobodyConfirmsIsNotAsked();
    void theEndOfTheSessionSavesTheStock();
    void terminatingSavesTheSizeAndEndsWithZero();
    void endingBeforeTheWindowStandsKeepsTheSavedSize();
    void quittingWritesABackupWhenWanted_data();
    void quittingWritesABackupWhenWanted();
    void withoutAStockThereIsNoBackup();
};

namespace {

struct AppDelegateFixture {
    /// Runs the start-up up to the window on screen and the store opened.
    void launch()
    {
        delegate.applicationDidFinishLaunching();
        QVERIFY(QTest::qWaitFor([this] { return provider.container() != nullptr; }));
    }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.conf"_s)};
    StoreProvider provider{StorePaths(folder.filePath(u"Documents"_s))};
    MainWindow window;
    AppDelegate delegate{preferences, provider, [this] { return &window; }};
};

/// Gives every question the same answer, and remembers what was asked.
class QuitAnswer final : public QObject {
public:
    explicit QuitAnswer(QString answer)
        : m_answer(std::move(answer))
    {
        qApp->installEventFilter(this);
    }

    /// Of each question its texts and its buttons, from left to right.
    const QList<QStringList>& questions() const { return m_questions; }
    const QString& defaultButton() const { return m_defaultButton; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<Alert*>(watched))
            QTimer::singleShot(
                0, watched, [this, watched] { reply(*static_cast<Alert*>(watched)); });
        return false;
    }

private:
    void reply(const Alert& alert)
    {
        QStringList texts;
        for (const QLabel* label : alert.findChildren<QLabel*>())
            texts += label->text();
        QPushButton* answering = nullptr;
        for (QPushButton* button : alert.findChildren<QPushButton*>()) {
            texts += button->text();
            if (button->isDefault())
                m_defaultButton = button->text();
            if (button->text() == m_answer)
                answering = button;
        }
        m_questions += texts;
        answering->click();
    }

    QString m_answer;
    QString m_defaultButton;
    QList<QStringList> m_questions;
};

/// Moves a window away from where it was first shown, again each time that it is put back there.
class PlacementCounter final : public QObject {
public:
    explicit PlacementCounter(QWidget& window)
        : m_window(window)
    {
        window.installEventFilter(this);
    }

    int returns() const { return m_returns; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Show && m_place.isNull()) {
            m_place = m_window.pos();
            QTimer::singleShot(0, this, &PlacementCounter::moveAway);
        } else if (event->type() == QEvent::Move && m_isAway && m_window.pos() == m_place) {
            ++m_returns;
            moveAway();
        }
        return false;
    }

private:
    void moveAway()
    {
        m_isAway = true;
        m_window.move(m_place + QPoint(7, 3));
    }

    QWidget& m_window;
    QPoint m_place;
    bool m_isAway = false;
    int m_returns = 0;
};

/// What the screen leaves of a wanted size, the margins and the decoration taken off.
QSize onScreen(QSize size, const QWidget& window)
{
    const QSize decoration = window.frameGeometry().size() - window.size();
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    return size.expandedTo(window.minimumSize())
        .boundedTo(available.size() - QSize(40, 40) - decoration);
}

} // namespace

void AppDelegateTest::theWindowOpensAtItsSize_data()
{
    QTest::addColumn<QSizeF>("saved");
    QTest::addColumn<bool>("isRemembered");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("nothing saved") << QSizeF() << true << QSize(1300, 850);
    QTest::newRow("a saved size") << QSizeF(700, 500) << true << QSize(700, 500);
    QTest::newRow("not to be remembered") << QSizeF(700, 500) << false << QSize(1300, 850);
    QTest::newRow("larger than the screen") << QSizeF(9000, 8000) << true << QSize(9000, 8000);
}

void AppDelegateTest::theWindowOpensAtItsSize()
{
    QFETCH(QSizeF, saved);
    QFETCH(bool, isRemembered);
    QFETCH(QSize, expected);
    AppDelegateFixture fixture;
    if (saved.isValid())
        fixture.preferences.setWindowSize(saved);
    fixture.preferences.setRememberWindowState(isRemembered);

    fixture.launch();

    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QCOMPARE(fixture.window.size(), onScreen(expected, fixture.window));
    const QPoint offset = fixture.window.frameGeometry().center() - available.center();
    QVERIFY2(offset.manhattanLength() <= 2, qPrintable(QString::number(offset.manhattanLength())));
}

void AppDelegateTest::theStoreIsOpenedOnceTheWindowStands()
{
    AppDelegateFixture fixture;
    QSignalSpy opened(&fixture.provider, &StoreProvider::stateChanged);

    fixture.launch();

    QVERIFY(fixture.window.isVisible());
    QCOMPARE(fixture.window.windowTitle(), u"Spoolwright"_s);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(fixture.delegate.modelContainer(), fixture.provider.container());
    QVERIFY(!fixture.delegate.usingInMemoryStore());
}

void AppDelegateTest::aWindowThatComesLateIsSetUp()
{
    AppDelegateFixture fixture;
    int requests = 0;
    AppDelegate delegate(fixture.preferences, fixture.provider,
        [&] { return ++requests > 3 ? &fixture.window : nullptr; });

    delegate.applicationDidFinishLaunching();

    QVERIFY(QTest::qWaitFor([&] { return fixture.provider.container() != nullptr; }));
    QVERIFY(fixture.window.isVisible());
}

void AppDelegateTest::theStoreIsOpenedAnywayWithoutAWindow()
{
    AppDelegateFixture fixture;
    int requests = 0;
    AppDelegate delegate(fixture.preferences, fixture.provider, [&]() -> MainWindow* {
        ++requests;
        return nullptr;
    });

    delegate.applicationDidFinishLaunching();

    QVERIFY(QTest::qWaitFor([&] { return fixture.provider.container() != nullptr; }, 20000));
    QCOMPARE(requests, 30);
}

void AppDelegateTest::theWindowIsPlacedAgainAfterTheStart()
{
    AppDelegateFixture fixture;
    PlacementCounter counter(fixture.window);

    fixture.launch();

    QVERIFY(QTest::qWaitFor([&] { return counter.returns() == 2; }));
    QVERIFY(!QTest::qWaitFor([&] { return counter.returns() > 2; }, 500));
}

void AppDelegateTest::aWindowClosedAtOnceIsLeftAlone()
{
    AppDelegateFixture fixture;
    fixture.preferences.setConfirmOnQuit(false);
    fixture.launch();

    fixture.window.close();

    QTest::qWait(1000); // Both corrections are due by then.
    QVERIFY(!fixture.window.isVisible());
}

void AppDelegateTest::aSecondLaunchBringsTheWindowBack()
{
    AppDelegateFixture fixture;
    fixture.launch();
    fixture.window.showMinimized();

    fixture.delegate.applicationShouldHandleReopen({});

    QVERIFY(!fixture.window.isMinimized());
    QVERIFY(fixture.window.isVisible());
}

void AppDelegateTest::theStoreAlertSaysWhyTheStockIsTemporary()
{
    AppDelegateFixture fixture;
    fixture.window.show();
    QStringList texts;
    QStringList buttons;
    QTimer::singleShot(0, &fixture.window, [&] {
        QWidget* alert = QApplication::activeModalWidget();
        for (const QLabel* label : alert->findChildren<QLabel*>())
            texts << label->text();
        for (QPushButton* button : alert->findChildren<QPushButton*>())
            buttons << button->text();
        QTest::keyClick(alert, Qt::Key_Return);
    });

    fixture.delegate.presentStoreError(u"Le fichier n'est pas une base de données."_s);

    QCOMPARE(texts,
        (QStringList{u"Impossible d'ouvrir la base de données"_s,
            u"Spoolwright fonctionne en mode temporaire : les modifications ne seront pas "
            "conservées après la fermeture.\n\nLe fichier n'est pas une base de données."_s}));
    buttons.sort();
    QCOMPARE(buttons, (QStringList{u"Continuer"_s, u"Ouvrir le dossier des données"_s}));
}

void AppDelegateTest::closingSavesTheSize_data()
{
    QTest::addColumn<bool>("isRemembered");

    QTest::newRow("remembered") << true;
    QTest::newRow("not remembered") << false;
}

void AppDelegateTest::closingSavesTheSize()
{
    QFETCH(bool, isRemembered);
    AppDelegateFixture fixture;
    fixture.preferences.setRememberWindowState(isRemembered);
    fixture.preferences.setConfirmOnQuit(false);
    fixture.launch();
    const QSizeF shown = fixture.window.size();

    fixture.window.close();

    QCOMPARE(fixture.preferences.windowSize().has_value(), isRemembered);
    if (isRemembered)
        QCOMPARE(*fixture.preferences.windowSize(), shown);
}

void AppDelegateTest::quittingAsks_data()
{
    QTest::addColumn<bool>("byClosing");
    QTest::addColumn<bool>("confirms");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("questions");
    QTest::addColumn<bool>("ends");

    QTest::newRow("closing, confirmed") << true << true << u"Quitter"_s << 1 << true;
    QTest::newRow("closing, called off") << true << true << u"Annuler"_s << 1 << false;
    QTest::newRow("closing, not to be asked") << true << false << QString() << 0 << true;
    QTest::newRow("the command, confirmed") << false << true << u"Quitter"_s << 1 << true;
    QTest::newRow("the command, called off") << false << true << u"Annuler"_s << 1 << false;
    QTest::newRow("the command, not to be asked") << false << false << QString() << 0 << true;
}

void AppDelegateTest::quittingAsks()
{
    QFETCH(bool, byClosing);
    QFETCH(bool, confirms);
    QFETCH(QString, answer);
    QFETCH(bool, ends);
    AppDelegateFixture fixture;
    fixture.preferences.setConfirmOnQuit(confirms);
    fixture.launch();
    QuitAnswer answers(answer);

    constexpr int calledOff = 7;
    QTimer::singleShot(0, &fixture.window, [&] {
        if (byClosing)
            fixture.window.close();
        else
            emit fixture.window.quitRequested();
        if (answer == u"Annuler"_s)
            QCoreApplication::exit(calledOff);
    });
    QCOMPARE(QApplication::exec(), ends ? 0 : calledOff);

    QTEST(int(answers.questions().size()), "questions");
    if (confirms) {
        QCOMPARE(answers.questions().first(),
            QStringList({u"Quitter Spoolwright ?"_s,
                u"Voulez-vous vraiment quitter l'application ?"_s, u"Annuler"_s, u"Quitter"_s}));
        QCOMPARE(answers.defaultButton(), u"Quitter"_s);
    }
    QCOMPARE(fixture.window.isVisible(), !ends || !byClosing);
    QCOMPARE(fixture.preferences.windowSize(), QSizeF(fixture.window.size()));
}

void AppDelegateTest::theQuestionSaysThatATemporaryStockIsNotBackedUp()
{
    AppDelegateFixture fixture;
    QVERIFY(
        QDir().mkpath(fixture.provider.paths().storeFile())); // A folder where the file belongs.
    fixture.launch();
    QVERIFY(fixture.delegate.usingInMemoryStore());
    QuitAnswer answers(u"Quitter"_s);

    QVERIFY(fixture.delegate.confirmQuit());
    fixture.delegate.performBackupIfEnabled();

    QCOMPARE(answers.questions().first(),
        QStringList({u"Quitter Spoolwright ?"_s, u"Voulez-vous vraiment quitter l'application ?"_s,
            u"Aucune sauvegarde ne sera créée (mode base temporaire)."_s, u"Annuler"_s,
            u"Quitter"_s}));
    QCOMPARE(BackupService::storedBackupCount(*fixture.provider.container()), 0);
}

void AppDelegateTest::whoWouldLoseChangesIsAsked()
{
    AppDelegateFixture fixture;
    fixture.launch();
    fixture.preferences.setConfirmOnQuit(false);
    StoreContext& context = fixture.provider.container()->context();
    context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    QVERIFY(fixture.delegate.confirmQuit()); // Saved.

    context.insert(std::make_unique<Brand>(u"Eryone"_s));
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit former{};
    ::getrlimit(RLIMIT_FSIZE, &former);
    const rlimit nothing{1, former.rlim_max};
    QuitAnswer answers(u"Annuler"_s);
    ::setrlimit(RLIMIT_FSIZE, &nothing);
    const bool mayQuit = fixture.delegate.confirmQuit();
    ::setrlimit(RLIMIT_FSIZE, &former);

    QVERIFY(!mayQuit);
    QVERIFY(answers.questions().value(0).contains(
        u"Les dernières modifications ne sont pas enregistrées : La base de données ne peut pas "
        "être lue ou écrite."_s));
    QVERIFY(fixture.delegate.confirmQuit());
    QVERIFY(!context.hasUnsavedChanges());
}

void AppDelegateTest::whileTheQuestionStandsNoOtherIsAsked()
{
    AppDelegateFixture fixture;
    fixture.launch();
    bool second = true;
    QTimer::singleShot(0, &fixture.window, [&] {
        second = fixture.delegate.confirmQuit();
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    });

    QVERIFY(!fixture.delegate.confirmQuit());
    QVERIFY(!second);
}

void AppDelegateTest::anEndThatNobodyConfirmsIsNotAsked()
{
    AppDelegateFixture fixture;
    fixture.launch();
    QuitAnswer answers(u"Annuler"_s);

    QTimer::singleShot(0, qApp, &QCoreApplication::quit);

    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(answers.questions().isEmpty());
    QCOMPARE(fixture.preferences.windowSize(), QSizeF(fixture.window.size()));
}

void AppDelegateTest::theEndOfTheSessionSavesTheStock()
{
    AppDelegateFixture fixture;
    fixture.launch();
    StoreContext& context = fixture.provider.container()->context();
    context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    QVERIFY(context.hasUnsavedChanges());

    fixture.delegate.commitData();

    QVERIFY(!context.hasUnsavedChanges());
    QCOMPARE(fixture.preferences.windowSize(), QSizeF(fixture.window.size()));
}

void AppDelegateTest::terminatingSavesTheSizeAndEndsWithZero()
{
    AppDelegateFixture fixture;
    fixture.launch();

    QTimer::singleShot(0, &fixture.delegate, &AppDelegate::terminate);

    QCOMPARE(QApplication::exec(), 0);
    QCOMPARE(fixture.preferences.windowSize(), QSizeF(fixture.window.size()));
}

void AppDelegateTest::endingBeforeTheWindowStandsKeepsTheSavedSize()
{
    AppDelegateFixture fixture;
    fixture.preferences.setWindowSize(QSizeF(1234, 890));

    fixture.delegate.terminate();

    QCOMPARE(fixture.preferences.windowSize(), QSizeF(1234, 890));
}

void AppDelegateTest::quittingWritesABackupWhenWanted_data()
{
    QTest::addColumn<std::optional<bool>>("wanted");
    QTest::addColumn<int>("expected");

    QTest::newRow("never said") << std::optional<bool>() << 1;
    QTest::newRow("wanted") << std::optional(true) << 1;
    QTest::newRow("not wanted") << std::optional(false) << 0;
}

void AppDelegateTest::quittingWritesABackupWhenWanted()
{
    QFETCH(std::optional<bool>, wanted);
    AppDelegateFixture fixture;
    if (wanted)
        fixture.preferences.setAutoBackupOnQuit(*wanted);
    fixture.preferences.setAutoBackupOnLaunch(false);
    fixture.launch();

    fixture.delegate.performBackupIfEnabled();

    QTEST(BackupService::storedBackupCount(*fixture.provider.container()), "expected");
}

void AppDelegateTest::withoutAStockThereIsNoBackup()
{
    AppDelegateFixture fixture;

    fixture.delegate.performBackupIfEnabled();

    QVERIFY(!QFile::exists(fixture.folder.filePath(u"Documents"_s)));
}

REELHOUSE_TEST(AppDelegateTest)

#include "AppDelegateTest.moc"
