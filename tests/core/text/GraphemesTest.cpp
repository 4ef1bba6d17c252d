#include "core/text/Graphemes.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class GraphemesTest final : public QObject {
    Q_OBJECT

private slots:
    void theFirstCharactersAreKeptWhole_data();
    void theFirstCharactersAreKeptWhole();
};

void GraphemesTest::theFirstCharactersAreKeptWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing of nothing") << QString() << 3 << QString();
    QTest::newRow("none wanted") << u"abc"_s << 0 << QString();
    QTest::newRow("letters") << u"abc"_s << 2 << u"ab"_s;
    QTest::newRow("fewer than wanted") << u"abc"_s << 5 << u"abc"_s;
    QTest::newRow("a combining accent belongs to its letter")
        << u"e\u0301te"_s << 1 << u"e\u0301"_s;
    QTest::newRow("outside the basic plane") << u"\U0001F9F5x"_s << 1 << u"\U0001F9F5"_s;
    QTest::newRow("emoji with joiners") << u"\U0001F468\u200D\U0001F469\u200D\U0001F467 abc"_s << 1
                                        << u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s;
    QTest::newRow("emoji with a skin tone")
        << u"\U0001F44D\U0001F3FDx"_s << 1 << u"\U0001F44D\U0001F3FD"_s;
    QTest::newRow("flags are pairs")
        << u"\U0001F1EB\U0001F1F7\U0001F1E9\U0001F1EA"_s << 1 << u"\U0001F1EB\U0001F1F7"_s;
    QTest::newRow("a Windows line break is one") << u"a\r\nb"_s << 2 << u"a\r\n"_s;
}

void GraphemesTest::theFirstCharactersAreKeptWhole()
{
    QFETCH(QString, text);
    QFETCH(int, count);

    QTEST(firstGraphemes(text, count).toString(), "expected");
}

REELHOUSE_TEST(GraphemesTest)

#include "GraphemesTest.moc"
