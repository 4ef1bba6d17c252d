#include "app/ui/PlainToolTip.h"

#include "tests/support/TestMain.h"

#include <QtGui/QTextDocument>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class PlainToolTipTest final : public QObject {
    Q_OBJECT

private slots:
    void aTextIsShownAsItStands_data();
    void aTextIsShownAsItStands();
};

void PlainToolTipTest::aTextIsShownAsItStands_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << QString();
    QTest::newRow("a name") << u"PLA & PETG"_s;
    QTest::newRow("bold") << u"<b>PLA</b>"_s;
    QTest::newRow("a picture") << u"<img src=\"/tmp/x.png\"> PLA"_s;
    QTest::newRow("a comparison") << u"1 < 2 <i>ou</i> 3"_s;
    QTest::newRow("an entity") << u"<b>&amp;</b>"_s;
    QTest::newRow("two lines") << u"<b>PLA</b>\nAcme"_s;
}

void PlainToolTipTest::aTextIsShownAsItStands()
{
    QFETCH(QString, text);

    const QString tip = plainToolTip(text);

    // A tooltip decides by itself how to read what it is given.
    QTextDocument shown;
    if (Qt::mightBeRichText(tip))
        shown.setHtml(tip);
    else
        shown.setPlainText(tip);
    QCOMPARE(shown.toPlainText(), text);
}

REELHOUSE_TEST(PlainToolTipTest)

#include "PlainToolTipTest.moc"
