#include "app/printing/TableFitting.h"

#include "tests/support/TestMain.h"

#include <QtCore/QTextBoundaryFinder>
#include <QtTest/QTest>

#include <random>

using namespace reelhouse;
using namespace reelhouse::TableFitting;
using namespace Qt::StringLiterals;

class TableFittingTest final : public QObject {
    Q_OBJECT

private slots:
    void scaleOfATable_data();
    void scaleOfATable();
    void widthsOfTheColumns_data();
    void widthsOfTheColumns();
    void columnsFillThePage();
    void tabStopsStandAtTheStartOfEachNextColumn_data();
    void tabStopsStandAtTheStartOfEachNextColumn();
    void textsAreCutToTheirColumn_data();
    void textsAreCutToTheirColumn();
    void theCutIsTheOneFoundByDroppingCharacters();
    void onlyTheHeadOfAVeryLongTextIsMeasured();
};

namespace {

constexpr bool ofNotes = true;
constexpr qreal portrait = 535;

/// Every UTF-16 unit is ten points wide.
qreal tenPointsEach(QStringView text)
{
    return qreal(text.size()) * 10;
}

/// As different as letters are: narrow, usual and wide ones.
qreal likeLetters(QStringView text)
{
    qreal width = 0;
    for (const QChar unit : text)
        width += 2.5 + unit.unicode() % 7;
    return width;
}

/// The same cut, found as it is defined: one character less, measured again, until it fits.
QString cutWordForWord(const QString& text, qreal width, const TextWidth& widthOf)
{
    if (text.isEmpty() || width <= 0 || widthOf(text) <= width + 0.75)
        return text;
    QString kept = text;
    while (!kept.isEmpty() && widthOf(kept + u'…') > width) {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, kept);
        finder.toEnd();
        kept.truncate(finder.toPreviousBoundary());
    }
    while (!kept.isEmpty() && kept.back().isSpace())
        kept.chop(1);
    return kept + u'…';
}

} // namespace

Q_DECLARE_METATYPE(reelhouse::TableFitting::ColumnNeed)

void TableFittingTest::scaleOfATable_data()
{
    QTest::addColumn<QList<ColumnNeed>>("needs");
    QTest::addColumn<qreal>("contentWidth");
    QTest::addColumn<qreal>("expected");
    using Needs = QList<ColumnNeed>;

    QTest::newRow("no column") << Needs{} << portrait << 1.0;
    QTest::newRow("one column, however wide") << Needs{{5000}} << portrait << 1.0;
    QTest::newRow("everything fits") << Needs{{100}, {100}, {100}} << portrait << 1.0;
    QTest::newRow("exactly as wide as the page") << Needs{{219}, {200}, {100}} << portrait << 1.0;
    QTest::newRow("two columns are held to nine tenths")
        << Needs{{9000}, {9000}} << portrait << 1.0;
    QTest::newRow("a little too wide") << Needs{{200}, {200}, {150}} << portrait << 519.0 / 550;
    QTest::newRow("wide columns count as 45 %")
        << Needs{{2000}, {200}, {100}} << portrait << 519.0 / 533.55;
    QTest::newRow("notes count as 30 %")
        << Needs{{200}, {200}, {400, ofNotes}} << portrait << 519.0 / 555.7;
    QTest::newRow("never below 0.9") << Needs{{300}, {300}, {300}} << portrait << 0.9;
    QTest::newRow("just above the floor") << Needs{{200}, {200}, {176}} << portrait << 519.0 / 576;
    QTest::newRow("at least 40 points are shared out")
        << Needs{{14}, {14}, {14}} << 30.0 << 40.0 / 42;
}

void TableFittingTest::scaleOfATable()
{
    QFETCH(QList<ColumnNeed>, needs);
    QFETCH(qreal, contentWidth);
    QFETCH(qreal, expected);

    QCOMPARE(fittingScale(needs, contentWidth), expected);
}

void TableFittingTest::widthsOfTheColumns_data()
{
    QTest::addColumn<QList<ColumnNeed>>("needs");
    QTest::addColumn<QList<qreal>>("expected");
    using Needs = QList<ColumnNeed>;
    using Widths = QList<qreal>;

    QTest::newRow("no column") << Needs{} << Widths{};
    QTest::newRow("one narrow column takes the page") << Needs{{50}} << Widths{535};
    QTest::newRow("one wide column is held to the page") << Needs{{800}} << Widths{535};
    QTest::newRow("the last column takes what is left") << Needs{{100}, {100}} << Widths{100, 427};
    QTest::newRow("a wide column is given its width when there is room")
        << Needs{{300}, {50}} << Widths{300, 227};
    QTest::newRow("too wide together: made narrower alike")
        << Needs{{300}, {300}, {300}} << Widths{173, 173, 173};
    QTest::newRow("made narrower from their shares, not from their wishes")
        << Needs{{9000}, {233.55}, {233.55}} << Widths{173, 173, 173};
    QTest::newRow("what is spare is shared between those in need")
        << Needs{{400}, {60}, {250, ofNotes}} << Widths{268.425, 60, 190.575};
    QTest::newRow("what one does not need goes to the other in the next pass")
        << Needs{{240}, {60}, {250, ofNotes}} << Widths{240, 60, 219};
    QTest::newRow("half a point is not worth sharing")
        << Needs{{300}, {129.5}, {300, ofNotes}} << Widths{233.55, 129.5, 155.7};
    QTest::newRow("who lacks half a point is not in need: the last column takes the rest")
        << Needs{{233.95}, {129}, {156.1, ofNotes}} << Widths{233.55, 129, 156.45};
    QTest::newRow("who lacks half a point after a pass is out of need")
        << Needs{{233.55 + 34.975}, {60}, {250, ofNotes}} << Widths{268.425, 60, 190.575};
}

void TableFittingTest::widthsOfTheColumns()
{
    QFETCH(QList<ColumnNeed>, needs);
    QFETCH(QList<qreal>, expected);

    const QList<qreal> widths = columnWidths(needs, portrait);

    QCOMPARE(widths.size(), expected.size());
    for (qsizetype column = 0; column < widths.size(); ++column)
        QVERIFY2(qAbs(widths[column] - expected[column]) < 1e-9,
            qPrintable(u"column %1: %2"_s.arg(column).arg(widths[column])));
}

void TableFittingTest::columnsFillThePage()
{
    std::mt19937 dice(7);
    for (int round = 0; round < 2000; ++round) {
        QList<ColumnNeed> needs;
        const int columns = 1 + int(dice() % 7);
        for (int column = 0; column < columns; ++column)
            needs << ColumnNeed{20 + qreal(dice() % 4000) / 10, column == 6};

        qreal sum = 0;
        for (const qreal width : columnWidths(needs, portrait)) {
            QVERIFY(width > 0);
            sum += width;
        }
        const qreal available = portrait - (columns - 1) * 8;
        QVERIFY(sum <= available + 1e-9);
        QVERIFY(sum >= available - 0.5 - 1e-9);
    }
}

void TableFittingTest::tabStopsStandAtTheStartOfEachNextColumn_data()
{
    QTest::addColumn<QList<qreal>>("widths");
    QTest::addColumn<QList<qreal>>("expected");
    using Widths = QList<qreal>;

    QTest::newRow("no column") << Widths{} << Widths{};
    QTest::newRow("one column") << Widths{535} << Widths{};
    QTest::newRow("two columns") << Widths{100, 427} << Widths{108};
    QTest::newRow("four columns") << Widths{100, 50, 30.5, 10} << Widths{108, 166, 204.5};
}

void TableFittingTest::tabStopsStandAtTheStartOfEachNextColumn()
{
    QFETCH(QList<qreal>, widths);
    QFETCH(QList<qreal>, expected);

    QCOMPARE(tabStops(widths), expected);
}

void TableFittingTest::textsAreCutToTheirColumn_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qreal>("width");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing stays nothing") << u""_s << 50.0 << u""_s;
    QTest::newRow("no width cuts nothing") << u"abcdef"_s << 0.0 << u"abcdef"_s;
    QTest::newRow("a width below nothing cuts nothing") << u"abcdef"_s << -3.0 << u"abcdef"_s;
    QTest::newRow("as wide as the column") << u"abcdef"_s << 60.0 << u"abcdef"_s;
    QTest::newRow("three quarters of a point too wide") << u"abcdef"_s << 59.25 << u"abcdef"_s;
    QTest::newRow("a little more is too much") << u"abcdef"_s << 59.24 << u"abcd…"_s;
    QTest::newRow("the cut text may be as wide as the column") << u"abcdef"_s << 50.0 << u"abcd…"_s;
    QTest::newRow("but not wider") << u"abcdef"_s << 49.9 << u"abc…"_s;
    QTest::newRow("white space at the cut goes") << u"ab  cdef"_s << 50.0 << u"ab…"_s;
    QTest::newRow("no-break spaces too") << u"ab\u00a0\u202fcdef"_s << 50.0 << u"ab…"_s;
    QTest::newRow("white space in front stays") << u"  abcdef"_s << 50.0 << u"  ab…"_s;
    QTest::newRow("only white space fits") << u"    abcdef"_s << 40.0 << u"…"_s;
    QTest::newRow("only the dots fit") << u"abcdef"_s << 10.0 << u"…"_s;
    QTest::newRow("not even the dots fit") << u"abcdef"_s << 5.0 << u"…"_s;
    QTest::newRow("an emoji with its skin stays whole") << u"ab👍🏽cd"_s << 60.0 << u"ab…"_s;
    QTest::newRow("and stands when it fits") << u"ab👍🏽cd"_s << 70.0 << u"ab👍🏽…"_s;
    QTest::newRow("a family is one character") << u"👨‍👩‍👧abc"_s << 80.0 << u"…"_s;
    QTest::newRow("a flag is one character") << u"a🇫🇷bcd"_s << 40.0 << u"a…"_s;
    QTest::newRow("an accent stays on its letter") << u"cafe\u0301 noir"_s << 50.0 << u"caf…"_s;
}

void TableFittingTest::textsAreCutToTheirColumn()
{
    QFETCH(QString, text);
    QFETCH(qreal, width);
    QFETCH(QString, expected);

    QCOMPARE(fitted(text, width, tenPointsEach), expected);
}

void TableFittingTest::theCutIsTheOneFoundByDroppingCharacters()
{
    const QString source
        = u"Sécher 4 h à 50 °C avant usage. 👍🏽 Très cassant, e\u0301tat moyen 👨‍👩‍👧 "_s;
    std::mt19937 dice(11);
    for (int round = 0; round < 1000; ++round) {
        QString text = source.repeated(1 + int(dice() % 4));
        text = text.mid(qsizetype(dice() % 20), qsizetype(dice() % 250));
        const qreal width = 1 + qreal(dice() % 6000) / 10;
        QCOMPARE(fitted(text, width, likeLetters), cutWordForWord(text, width, likeLetters));
    }
}

void TableFittingTest::onlyTheHeadOfAVeryLongTextIsMeasured()
{
    qsizetype longest = 0;
    const QString text(1000000, u'x');
    const QString cut = fitted(text, 300, [&](QStringView measured) {
        longest = std::max(longest, measured.size());
        return tenPointsEach(measured);
    });

    QCOMPARE(cut, QString(29, u'x') + u'…');
    QVERIFY2(longest <= 100, qPrintable(QString::number(longest)));
}

REELHOUSE_TEST(TableFittingTest)
#include "TableFittingTest.moc"
