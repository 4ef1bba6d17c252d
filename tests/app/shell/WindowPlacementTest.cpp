#include "app/shell/WindowPlacement.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;

class WindowPlacementTest final : public QObject {
    Q_OBJECT

private slots:
    void theWindowIsCentredWithinTheMargins_data();
    void theWindowIsCentredWithinTheMargins();
    void theMinimumFitsTheScreen_data();
    void theMinimumFitsTheScreen();
    void aWindowIsWithinReachOrNot_data();
    void aWindowIsWithinReachOrNot();
};

void WindowPlacementTest::theWindowIsCentredWithinTheMargins_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QMargins>("decoration");
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QRect>("expected");

    const QMargins bare;
    const QMargins titled(2, 24, 2, 4);
    QTest::newRow("room for all") << QSize(1300, 850) << bare << QRect(0, 0, 1920, 1080)
                                  << QRect(310, 115, 1300, 850);
    QTest::newRow("beside a panel")
        << QSize(1300, 850) << bare << QRect(60, 30, 1860, 1050) << QRect(340, 130, 1300, 850);
    QTest::newRow("higher than the screen")
        << QSize(1300, 850) << bare << QRect(0, 0, 1366, 768) << QRect(33, 20, 1300, 728);
    QTest::newRow("larger than the screen")
        << QSize(5000, 4000) << bare << QRect(0, 0, 1366, 768) << QRect(20, 20, 1326, 728);
    QTest::newRow("with a title bar")
        << QSize(1300, 850) << titled << QRect(0, 0, 1920, 1080) << QRect(310, 125, 1300, 850);
    QTest::newRow("the title bar counts in the margins")
        << QSize(5000, 4000) << titled << QRect(0, 0, 1000, 800) << QRect(22, 44, 956, 732);
    QTest::newRow("no screen to speak of") << QSize(1300, 850) << bare << QRect() << QRect();
}

void WindowPlacementTest::theWindowIsCentredWithinTheMargins()
{
    QFETCH(QSize, size);
    QFETCH(QMargins, decoration);
    QFETCH(QRect, available);
    QFETCH(QRect, expected);

    QCOMPARE(WindowPlacement::centred(size, decoration, available), expected);
}

void WindowPlacementTest::theMinimumFitsTheScreen_data()
{
    QTest::addColumn<QMargins>("decoration");
    QTest::addColumn<QSize>("chrome");
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("a large screen")
        << QMargins() << QSize(0, 26) << QRect(0, 0, 1920, 1080) << QSize(1100, 800);
    QTest::newRow("1366 x 768") << QMargins() << QSize(0, 26) << QRect(0, 0, 1366, 768)
                                << QSize(1100, 702);
    QTest::newRow("narrow, decorated")
        << QMargins(2, 24, 2, 4) << QSize(0, 26) << QRect(0, 0, 1024, 900) << QSize(980, 800);
    QTest::newRow("no screen") << QMargins() << QSize(0, 26) << QRect() << QSize(1100, 800);
}

void WindowPlacementTest::theMinimumFitsTheScreen()
{
    QFETCH(QMargins, decoration);
    QFETCH(QSize, chrome);
    QFETCH(QRect, available);
    QFETCH(QSize, expected);

    QCOMPARE(WindowPlacement::minimumContentSize(decoration, chrome, available), expected);
}

void WindowPlacementTest::aWindowIsWithinReachOrNot_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<bool>("expected");

    QTest::newRow("in the middle") << QRect(310, 115, 1300, 850) << true;
    QTest::newRow("as large as the screen") << QRect(0, 30, 1920, 1050) << true;
    QTest::newRow("partly beside, as the user left it") << QRect(-1200, 300, 1300, 850) << true;
    QTest::newRow("partly below") << QRect(300, 1070, 1300, 850) << true;
    QTest::newRow("beside the screen") << QRect(1930, 100, 1300, 850) << false;
    QTest::newRow("its title bar above the screen") << QRect(300, -40, 1300, 850) << false;
    QTest::newRow("too wide") << QRect(0, 30, 1921, 850) << false;
    QTest::newRow("too high") << QRect(0, 30, 1300, 1051) << false;
}

void WindowPlacementTest::aWindowIsWithinReachOrNot()
{
    QFETCH(QRect, frame);

    QTEST(WindowPlacement::isReachable(frame, QRect(0, 30, 1920, 1050)), "expected");
}

REELHOUSE_TEST(WindowPlacementTest)

#include "WindowPlacementTest.moc"
