#include "core/text/FoundSpans.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <random>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FoundSpansTest final : public QObject {
    Q_OBJECT

private slots:
    void whatIsFoundIsMarkedInTheTextAsItIs_data();
    void whatIsFoundIsMarkedInTheTextAsItIs();
    void turkicLettersAreMarkedByTheirRules();
    void somethingIsMarkedWhereverTheSearchFindsSomething();
};

namespace {

/// The text with brackets round the spans.
QString marked(const QString& text, const std::vector<TextSpan>& spans)
{
    QString picture = text;
    for (auto span = spans.rbegin(); span != spans.rend(); ++span) {
        picture.insert(span->start + span->length, u']');
        picture.insert(span->start, u'[');
    }
    return picture;
}

} // namespace

void FoundSpansTest::whatIsFoundIsMarkedInTheTextAsItIs_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("expected");

    QTest::newRow("other case") << u"Rouge vif"_s << u"ROUGE"_s << u"[Rouge] vif"_s;
    QTest::newRow("an accent in the text") << u"Étagère A"_s << u"etagere"_s << u"[Étagère] A"_s;
    QTest::newRow("an accent in the query") << u"Etagere"_s << u"tàg"_s << u"E[tag]ere"_s;
    QTest::newRow("a decomposed accent stays with its letter")
        << u"E\u0301tage\u0300re"_s << u"ge"_s << u"E\u0301ta[ge\u0300]re"_s;
    QTest::newRow("several") << u"Mat, mat, MAT"_s << u"mat"_s << u"[Mat], [mat], [MAT]"_s;
    QTest::newRow("side by side") << u"aaaaa"_s << u"aa"_s << u"[aa][aa]a"_s;
    QTest::newRow("none") << u"Vert"_s << u"rouge"_s << u"Vert"_s;
    QTest::newRow("no query") << u"Vert"_s << u" "_s << u"Vert"_s;
    QTest::newRow("no text") << QString() << u"a"_s << QString();
    QTest::newRow("one letter of several folded ones") << u"Weiß"_s << u"ss"_s << u"Wei[ß]"_s;
    QTest::newRow("half of a letter marks it whole") << u"Weiß!"_s << u"is"_s << u"We[iß]!"_s;
    QTest::newRow("both halves mark it once") << u"ß"_s << u"s"_s << u"[ß]"_s;
    QTest::newRow("a ligature") << u"o\uFB03ce"_s << u"fic"_s << u"o[\uFB03c]e"_s;
    QTest::newRow("spaces inside, none outside")
        << u"Bleu nuit"_s << u" u n "_s << u"Ble[u n]uit"_s;
    QTest::newRow("an emoji of several parts")
        << u"x\U0001F468\u200D\U0001F469\u200D\U0001F467y"_s << u"y"_s
        << u"x\U0001F468\u200D\U0001F469\u200D\U0001F467[y]"_s;
    QTest::newRow("beyond the first plane")
        << u"a\U0001F9F5b"_s << u"\U0001F9F5"_s << u"a[\U0001F9F5]b"_s;
    QTest::newRow("Korean") << u"\u1112\u1161\u11ABx"_s << u"한"_s << u"[\u1112\u1161\u11AB]x"_s;
    QTest::newRow("a mark by itself is no letter") << u"\u0301ab"_s << u"a"_s << u"\u0301[a]b"_s;
}

void FoundSpansTest::whatIsFoundIsMarkedInTheTextAsItIs()
{
    QFETCH(QString, text);
    QFETCH(QString, query);

    const QString folded = normalizedForSearch(query, FoldingRules::Standard);

    QTEST(marked(text, foundSpans(text, folded, FoldingRules::Standard)), "expected");
}

void FoundSpansTest::turkicLettersAreMarkedByTheirRules()
{
    const auto spans = [](const QString& text, const QString& query) {
        return marked(text,
            foundSpans(
                text, normalizedForSearch(query, FoldingRules::Turkic), FoldingRules::Turkic));
    };

    QCOMPARE(spans(u"ISI isi"_s, u"ı"_s), u"[I]S[I] isi"_s);
    QCOMPARE(spans(u"ISI İsi"_s, u"i"_s), u"ISI [İ]s[i]"_s);
}

void FoundSpansTest::somethingIsMarkedWhereverTheSearchFindsSomething()
{
    std::mt19937 random(11);
    const QList<char32_t> letters{U'a', U'A', U'é', U'e', U'\u0301', U'\u0323', U'ß', U's', U'ﬁ',
        U'f', U'i', U'I', U'İ', U'한', U'-', U'\U0001F9F5', U'\u200D'};
    const auto drawn = [&](qsizetype length) {
        QString text;
        for (qsizetype place = 0; place < length; ++place)
            text += QChar::fromUcs4(letters[qsizetype(random() % quint32(letters.size()))]);
        return text;
    };
    for (int run = 0; run < 20'000; ++run) {
        const QString text = drawn(12);
        const QString query = drawn(1 + qsizetype(random() % 2));
        const SearchPattern pattern(query, FoldingRules::Standard);
        if (pattern.matchesEverything())
            continue;
        const auto spans = foundSpans(
            text, normalizedForSearch(query, FoldingRules::Standard), FoldingRules::Standard);
        QVERIFY2(!spans.empty() == pattern.isFoundIn(text), qPrintable(text + u" / "_s + query));
        qsizetype end = 0;
        for (const TextSpan& span : spans) {
            QVERIFY(span.start >= end && span.length > 0);
            end = span.start + span.length;
        }
        QVERIFY(end <= text.size());
    }
}

REELHOUSE_TEST(FoundSpansTest)

#include "FoundSpansTest.moc"
