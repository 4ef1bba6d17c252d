#include "core/text/Folding.h"

#include "tests/support/TestMain.h"

#include <QtCore/QLocale>
#include <QtTest/QTest>

#include <random>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FoldingTest final : public QObject {
    Q_OBJECT

private slots:
    void trimmingRemovesWhiteSpaceAndLineBreaks_data();
    void trimmingRemovesWhiteSpaceAndLineBreaks();
    void foldingLevelsCaseAndDiacritics_data();
    void foldingLevelsCaseAndDiacritics();
    void turkicRulesTellTheTwoIApart_data();
    void turkicRulesTellTheTwoIApart();
    void searchFindsTheFoldedQueryAsOnePiece_data();
    void searchFindsTheFoldedQueryAsOnePiece();
    void emptyQueryMatchesEverything_data();
    void emptyQueryMatchesEverything();
    void composedAndDecomposedTextsFoldAlike();
    void quickFoldingAgreesWithTheDefinition_data();
    void quickFoldingAgreesWithTheDefinition();
    void quickSearchAgreesWithTheDefinition_data();
    void quickSearchAgreesWithTheDefinition();
    void foldingFollowsTheSystemLocale();
};

Q_DECLARE_METATYPE(reelhouse::FoldingRules)

namespace {

/// The letters that fold to several, once they are without marks.
std::vector<std::pair<QChar, QString>> foldedToSeveral()
{
    return {{u'ß', u"ss"_s}, {u'\u1E9E', u"ss"_s}, {u'\u0149', u"\u02BCn"_s},
        {u'\u1E9A', u"a\u02BE"_s}, {u'\u0587', u"\u0565\u0582"_s}, {u'\uFB00', u"ff"_s},
        {u'\uFB01', u"fi"_s}, {u'\uFB02', u"fl"_s}, {u'\uFB03', u"ffi"_s}, {u'\uFB04', u"ffl"_s},
        {u'\uFB05', u"st"_s}, {u'\uFB06', u"st"_s}, {u'\uFB13', u"\u0574\u0576"_s},
        {u'\uFB14', u"\u0574\u0565"_s}, {u'\uFB15', u"\u0574\u056B"_s},
        {u'\uFB16', u"\u057E\u0576"_s}, {u'\uFB17', u"\u0574\u056D"_s}};
}

/// The rule word for word, slow and without any table: what the tests hold the quick way to.
QString foldedByDefinition(const QString& text, FoldingRules rules)
{
    QString first = text;
    const auto isSpace = [](QChar c) {
        return QStringView(u"\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005"
                           u"\u2006\u2007\u2008\u2009\u200A\u2028\u2029\u202F\u205F\u3000")
            .contains(c);
    };
    while (!first.isEmpty() && isSpace(first.front()))
        first.remove(0, 1);
    while (!first.isEmpty() && isSpace(first.back()))
        first.chop(1);

    const QList<uint> letters = first.normalized(QString::NormalizationForm_D).toUcs4();
    QString bare;
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const bool isMark = QChar::category(letters[i]) == QChar::Mark_NonSpacing;
        const bool isMarked
            = i + 1 < letters.size() && QChar::category(letters[i + 1]) == QChar::Mark_NonSpacing;
        if (rules == FoldingRules::Turkic && letters[i] == u'I' && !isMarked)
            bare += u'ı';
        else if (!isMark)
            bare += QChar::fromUcs4(letters[i]);
    }
    bare = bare.toCaseFolded();
    for (const auto& [letter, several] : foldedToSeveral())
        bare.replace(letter, several);
    return bare.normalized(QString::NormalizationForm_C);
}

/// Texts of letters that like to go wrong: mostly Latin, some not, with marks in any place.
class TextSource final {
public:
    explicit TextSource(quint32 seed)
        : m_random(seed)
    {
    }

    QString text(int greatestLength)
    {
        const int length = below(greatestLength + 1);
        // Some texts stay Latin, so that the quick way has its chance.
        const bool isLatin = below(2) == 0;
        QString text;
        for (int place = 0; place < length; ++place)
            text += QChar::fromUcs4(letter(isLatin));
        return text;
    }

    int below(int limit) { return int(m_random() % quint32(limit)); }

private:
    char32_t letter(bool isLatin)
    {
        static constexpr std::u32string_view few = U"aAiIıİsSßſ \u0301\u0307\u0327";
        static constexpr std::u32string_view strange
            = U"\u20D0\u1DC2\u0345\uFB01Ωως한\u1112\u1161\u11ABガ\u3099\u1E9EÅKİ\U00010400"
              U"\U0001D15E\U0001F3FDӢ\u0903\u3000\u2028\u1680";
        switch (below(isLatin ? 3 : 5)) {
        case 0:
            return few[size_t(below(int(few.size())))];
        case 1:
            return char32_t(below(0x370));
        case 2:
            return below(3) == 0 ? char32_t(0x2000 + below(0x70)) : char32_t('a' + below(3));
        case 3:
            return strange[size_t(below(int(strange.size())))];
        default:
            return char32_t(0x370 + below(0xD800 - 0x370));
        }
    }

    std::mt19937 m_random;
};

void addRulesRows()
{
    QTest::addColumn<FoldingRules>("rules");
    QTest::newRow("standard") << FoldingRules::Standard;
    QTest::newRow("turkic") << FoldingRules::Turkic;
}

} // namespace

void FoldingTest::trimmingRemovesWhiteSpaceAndLineBreaks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const auto around = [](const char* name, const QString& space) {
        QTest::newRow(name) << QString(space + u"a b"_s + space) << u"a b"_s;
    };
    around("space", u" "_s);
    around("tab", u"\t"_s);
    around("line feed", u"\n"_s);
    around("vertical tab", u"\v"_s);
    around("form feed", u"\f"_s);
    around("carriage return and line feed", u"\r\n"_s);
    around("next line", u"\u0085"_s);
    around("no-break space", u"\u00A0"_s);
    around("ogham space", u"\u1680"_s);
    around("en quad", u"\u2000"_s);
    around("figure space", u"\u2007"_s);
    around("hair space", u"\u200A"_s);
    around("line separator", u"\u2028"_s);
    around("paragraph separator", u"\u2029"_s);
    around("narrow no-break space", u"\u202F"_s);
    around("medium mathematical space", u"\u205F"_s);
    around("ideographic space", u"\u3000"_s);
    around("several kinds", u" \u00A0\u3000\n"_s);
    QTest::newRow("inner spaces stay") << u" PLA  \u00A0 noir "_s << u"PLA  \u00A0 noir"_s;
    QTest::newRow("a zero-width space is none") << u"\u200Ba"_s << u"\u200Ba"_s;
    QTest::newRow("nothing but spaces") << u" \t\u2003"_s << u""_s;
    QTest::newRow("nothing") << u""_s << u""_s;
}

void FoldingTest::trimmingRemovesWhiteSpaceAndLineBreaks()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(trimmed(text).toString(), expected);
}

void FoldingTest::foldingLevelsCaseAndDiacritics_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("case") << u"PLA"_s << u"pla"_s;
    QTest::newRow("spaces around") << u"PLA "_s << u"pla"_s;
    QTest::newRow("spaces inside stay") << u"PLA  Noir"_s << u"pla  noir"_s;
    QTest::newRow("composed accents") << u"Été"_s << u"ete"_s;
    QTest::newRow("decomposed accents") << u"E\u0301te\u0301"_s << u"ete"_s;
    QTest::newRow("every accent of French") << u"ÀÂÄÇÉÈÊËÎÏÔÖÙÛÜŸ"_s << u"aaaceeeeiioouuuy"_s;
    QTest::newRow("ligatures stay letters") << u"ŒUVRE Æ"_s << u"œuvre æ"_s;
    QTest::newRow("sharp s") << u"Weiß"_s << u"weiss"_s;
    QTest::newRow("capital sharp s") << u"WEIẞ"_s << u"weiss"_s;
    QTest::newRow("long s") << u"ſ"_s << u"s"_s;
    QTest::newRow("a stroke is no mark") << u"Ø ø Ł"_s << u"ø ø ł"_s;
    QTest::newRow("ogonek and caron") << u"Ąčęž"_s << u"acez"_s;
    QTest::newRow("two marks on a letter") << u"Ǖ ắ"_s << u"u a"_s;
    QTest::newRow("marks in another order") << u"a\u0323\u0302"_s << u"a"_s;
    QTest::newRow("dotted capital i") << u"İstanbul"_s << u"istanbul"_s;
    QTest::newRow("dotless i stays another letter") << u"ı"_s << u"ı"_s;
    QTest::newRow("plain capital i") << u"IGUS"_s << u"igus"_s;
    QTest::newRow("kelvin and angstrom signs") << u"\u212A \u212B"_s << u"k a"_s;
    QTest::newRow("letter with apostrophe") << u"\u0149"_s << u"\u02BCn"_s;
    QTest::newRow("digraph letter") << u"Ǆ ǅ ǆ"_s << u"ǆ ǆ ǆ"_s;
    QTest::newRow("presentation ligature") << u"\uFB01l"_s << u"fil"_s;
    QTest::newRow("digits and signs stay") << u"#E53935 – 1,75 mm"_s << u"#e53935 – 1,75 mm"_s;
    QTest::newRow("typographic marks stay") << u"« L’Été »"_s << u"« l’ete »"_s;
    QTest::newRow("greek, final sigma included") << u"Ὀδυσσεύς"_s << u"οδυσσευσ"_s;
    QTest::newRow("greek iota below") << u"ᾳ"_s << u"α"_s;
    QTest::newRow("cyrillic") << u"Ёлка Й"_s << u"елка и"_s;
    QTest::newRow("armenian ligature") << u"\u0587"_s << u"\u0565\u0582"_s;
    QTest::newRow("korean stays in syllables") << u"한국"_s << u"한국"_s;
    QTest::newRow("korean letters join") << u"\u1112\u1161\u11AB"_s << u"한"_s;
    QTest::newRow("japanese voicing marks go") << u"ガ"_s << u"カ"_s;
    QTest::newRow("hebrew points go") << u"ש\u05C1"_s << u"ש"_s;
    QTest::newRow("spacing marks stay") << u"\u0915\u0903"_s << u"\u0915\u0903"_s;
    QTest::newRow("beyond 16 bits") << u"\U00010400"_s << u"\U00010428"_s;
    QTest::newRow("a mark beyond 16 bits goes") << u"a\U0001D167"_s << u"a"_s;
    QTest::newRow("a picture with its skin tone stays") << u"👍\U0001F3FD"_s << u"👍\U0001F3FD"_s;
    QTest::newRow("nothing but a mark") << u"\u0301"_s << u""_s;
    QTest::newRow("nothing but spaces") << u" \u00A0 "_s << u""_s;
    QTest::newRow("a null stays") << QString(u"A\0B"_s) << QString(u"a\0b"_s);
}

void FoldingTest::foldingLevelsCaseAndDiacritics()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(normalizedForKey(text, FoldingRules::Standard), expected);
    QCOMPARE(normalizedForSearch(text, FoldingRules::Standard), expected);
}

void FoldingTest::turkicRulesTellTheTwoIApart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("capital dotless") << u"ISPARTA"_s << u"ısparta"_s;
    QTest::newRow("small dotless") << u"ısparta"_s << u"ısparta"_s;
    QTest::newRow("capital dotted") << u"İZMİR"_s << u"izmir"_s;
    QTest::newRow("small dotted") << u"izmir"_s << u"izmir"_s;
    QTest::newRow("capital dotted, decomposed") << u"I\u0307ZMI\u0307R"_s << u"izmir"_s;
    QTest::newRow("circumflex, capital") << u"Îman"_s << u"iman"_s;
    QTest::newRow("circumflex, capital, decomposed") << u"I\u0302man"_s << u"iman"_s;
    QTest::newRow("circumflex, small") << u"îman"_s << u"iman"_s;
    QTest::newRow("other letters fold as ever") << u"ŞÖĞÜÇ"_s << u"soguc"_s;
    QTest::newRow("beside letters of another script") << u"한 I İ"_s << u"한 ı i"_s;
}

void FoldingTest::turkicRulesTellTheTwoIApart()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(normalizedForKey(text, FoldingRules::Turkic), expected);
}

void FoldingTest::searchFindsTheFoldedQueryAsOnePiece_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");

    QTest::newRow("without its accent") << u"eclat"_s << u"Bel Éclat rouge"_s << true;
    QTest::newRow("with an accent the text lacks") << u"éclat"_s << u"ECLAT"_s << true;
    QTest::newRow("beginning of a name") << u"mat"_s << u"Matte"_s << true;
    QTest::newRow("beginning of a code") << u"#ff"_s << u"#FF6F00"_s << true;
    QTest::newRow("spaces around the query") << u" mat "_s << u"PLA Matte"_s << true;
    QTest::newRow("the words in one text") << u"pla noir"_s << u"Mon PLA noir"_s << true;
    QTest::newRow("the words apart") << u"pla noir"_s << u"PLA très noir"_s << false;
    QTest::newRow("longer than the text") << u"rouges"_s << u"rouge"_s << false;
    QTest::newRow("its end alone") << u"rapide"_s << u"pide rapid"_s << false;
    QTest::newRow("after its end alone") << u"rapide"_s << u"pide RAPIDE"_s << true;
    QTest::newRow("whole text") << u"rouge"_s << u"Rouge"_s << true;
    QTest::newRow("at the very end") << u"ge"_s << u"Rouge"_s << true;
    QTest::newRow("after a false start") << u"aab"_s << u"aaab"_s << true;
    QTest::newRow("after an overlapping start") << u"ababac"_s << u"abababac"_s << true;
    QTest::newRow("half of a sharp s") << u"eis"_s << u"Weiß"_s << true;
    QTest::newRow("second half of a sharp s") << u"s x"_s << u"ß X"_s << true;
    QTest::newRow("across decomposed letters") << u"ete"_s << u"E\u0301te\u0301s"_s << true;
    QTest::newRow("in an empty text") << u"a"_s << u""_s << false;
    QTest::newRow("a whole syllable") << u"한"_s << u"대한민국"_s << true;
    QTest::newRow("half a syllable") << u"하"_s << u"한"_s << false;
    QTest::newRow("latin in a mixed text") << u"pla"_s << u"한국 PLA"_s << true;
    QTest::newRow("an inner space") << u"\u0301 a"_s << u"x a"_s << true;
    QTest::newRow("no space at the ends of a text") << u"\u0301 a"_s << u" a"_s << false;
}

void FoldingTest::searchFindsTheFoldedQueryAsOnePiece()
{
    QFETCH(QString, query);
    QFETCH(QString, text);
    QFETCH(bool, expected);

    QCOMPARE(SearchPattern(query, FoldingRules::Standard).isFoundIn(text), expected);
}

void FoldingTest::emptyQueryMatchesEverything_data()
{
    QTest::addColumn<QString>("query");

    QTest::newRow("nothing") << u""_s;
    QTest::newRow("spaces") << u" \u00A0\u3000 "_s;
    QTest::newRow("a lone mark") << u"\u0301"_s;
}

void FoldingTest::emptyQueryMatchesEverything()
{
    QFETCH(QString, query);

    const SearchPattern pattern(query);
    QVERIFY(pattern.matchesEverything());
    QVERIFY(pattern.isFoundIn(u"Rouge"_s));
    QVERIFY(pattern.isFoundIn(u"한"_s));
    QVERIFY(pattern.isFoundIn(QString()));
}

void FoldingTest::composedAndDecomposedTextsFoldAlike()
{
    TextSource source(7);
    for (int run = 0; run < 8000; ++run) {
        const QString text = source.text(8);
        for (const auto rules : {FoldingRules::Standard, FoldingRules::Turkic}) {
            const QString folded = normalizedForKey(text, rules);
            QCOMPARE(
                normalizedForKey(text.normalized(QString::NormalizationForm_C), rules), folded);
            QCOMPARE(
                normalizedForKey(text.normalized(QString::NormalizationForm_D), rules), folded);
        }
    }
}

void FoldingTest::quickFoldingAgreesWithTheDefinition_data()
{
    addRulesRows();
}

void FoldingTest::quickFoldingAgreesWithTheDefinition()
{
    QFETCH(FoldingRules, rules);

    for (char16_t unit = 0; unit < 0xFFFF; ++unit) {
        if (QChar(unit).isSurrogate())
            continue;
        const QString letter(unit);
        QCOMPARE(normalizedForKey(letter, rules), foldedByDefinition(letter, rules));
        if (unit > 0x2100)
            continue;
        for (const QString& text : {u'a' + letter, u'I' + letter + u'b'})
            QCOMPARE(normalizedForKey(text, rules), foldedByDefinition(text, rules));
    }
    TextSource source(11);
    for (int run = 0; run < 8000; ++run) {
        const QString text = source.text(12);
        QCOMPARE(normalizedForKey(text, rules), foldedByDefinition(text, rules));
    }
}

void FoldingTest::quickSearchAgreesWithTheDefinition_data()
{
    addRulesRows();
}

void FoldingTest::quickSearchAgreesWithTheDefinition()
{
    QFETCH(FoldingRules, rules);

    TextSource source(13);
    int found = 0;
    for (int run = 0; run < 20000; ++run) {
        const QString text = source.text(12);
        // Half of the queries are a piece of the text.
        const QString query = source.below(2) == 0
            ? source.text(3)
            : text.mid(source.below(int(text.size()) + 1), source.below(4));
        const bool expected
            = foldedByDefinition(text, rules).contains(foldedByDefinition(query, rules));
        QVERIFY2(SearchPattern(query, rules).isFoundIn(text) == expected,
            qPrintable(u"'%1' in '%2'"_s.arg(query, text)));
        found += int(expected);
    }
    QVERIFY(found > 5000);
    QVERIFY(found < 17000);
}

void FoldingTest::foldingFollowsTheSystemLocale()
{
    const bool isTurkic = QLocale::system().language() == QLocale::Turkish
        || QLocale::system().language() == QLocale::Azerbaijani;

    QCOMPARE(systemFoldingRules(), isTurkic ? FoldingRules::Turkic : FoldingRules::Standard);
    QCOMPARE(normalizedForKey(u"I"_s), isTurkic ? u"ı"_s : u"i"_s);
}

REELHOUSE_TEST(FoldingTest)

#include "FoldingTest.moc"
