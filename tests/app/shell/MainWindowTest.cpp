#include "app/shell/MainWindow.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class MainWindowTest final : public QObject {
    Q_OBJECT

private slots:
    void aScreenIsLaidOutBeforeItIsPainted();
};

namespace {

/// Knows what it says only once it is shown, as the stock does.
class LateScreen final : public QWidget {
public:
    LateScreen()
        : count(new QLabel(u"0"_s, this))
    {
        auto* row = new QHBoxLayout(this);
        row->addWidget(count);
        row->addStretch();
    }

    QLabel* count;

protected:
    void showEvent(QShowEvent*) override { count->setText(u"28 filaments"_s); }
};

} // namespace

void MainWindowTest::aScreenIsLaidOutBeforeItIsPainted()
{
    MainWindow window;
    window.showScreen(new QWidget);
    window.resize(1300, 850);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto* screen = new LateScreen;

    window.showScreen(screen);

    QVERIFY(screen->isVisible());
    QCOMPARE(screen->width(), window.width());
    QCOMPARE(screen->count->width(), screen->count->sizeHint().width());
    QVERIFY(window.updatesEnabled());
}

REELHOUSE_TEST(MainWindowTest)

#include "MainWindowTest.moc"
