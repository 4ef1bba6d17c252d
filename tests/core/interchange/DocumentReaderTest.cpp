#include "core/interchange/DocumentReader.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class DocumentReaderTest final : public QObject {
    Q_OBJECT

private slots:
    void whatIsNotJsonIsRefused_data();
    void whatIsNotJsonIsRefused();
    void numbersBeyondAllOthersAreRefused_data();
    void numbersBeyondAllOthersAreRefused();
    void theRootIsHeldToItsForm_data();
    void theRootIsHeldToItsForm();
    void aFilamentIsHeldToItsForm_data();
    void aFilamentIsHeldToItsForm();
    void entriesAreHeldToTheirForm_data();
    void entriesAreHeldToTheirForm();
    void integersAreRead_data();
    void integersAreRead();
    void datesAreRead_data();
    void datesAreRead();
    void absentKeysLeaveTheirFieldsEmpty();
    void unknownKeysAndAnyOrderAreAccepted();
    void aByteOrderMarkIsAccepted();
    void escapesAreRead();
};

namespace {

const QByteArray fullFilament
    = R"({"brand":"B","colorHex":"#fff","colorName":"c","dateAdded":"2025-03-14T09:26:53Z",)"
      R"("location":"L","notes":"n","openedSpoolsCount":1,"range":"R","spoolsCount":2,"type":"T"})";

QByteArray documentWith(const QByteArray& filaments)
{
    return R"({"brands":[],"filaments":[)" + filaments
        + R"(],"locations":[],"ranges":[],"schemaVersion":1,"types":[]})";
}

/// The only filament with one key given another value; without a value the key goes.
QByteArray filamentWith(const QByteArray& key, const QByteArray& value)
{
    const qsizetype start = fullFilament.indexOf("\"" + key + "\":");
    qsizetype end = fullFilament.indexOf(",\"", start);
    if (end < 0)
        end = fullFilament.size() - 1;
    const QByteArray member = value.isEmpty() ? QByteArray() : "\"" + key + "\":" + value;
    QByteArray text = fullFilament;
    text.replace(start, end - start, member);
    return text.replace("{,", "{").replace(",,", ",").replace(",}", "}");
}

/// The French refusal, or nothing.
QString refusalOf(const QByteArray& document)
{
    const auto read = decodeDocument(document);
    return read ? QString() : read.error().description();
}

ExportFilament onlyFilament(const QByteArray& filament)
{
    auto read = decodeDocument(documentWith(filament));
    if (!read)
        qFatal("Refused: %s", qPrintable(read.error().description()));
    return read.value().filaments.at(0);
}

} // namespace

void DocumentReaderTest::whatIsNotJsonIsRefused_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<int>("line");

    const QByteArray empty = documentWith({});
    QTest::newRow("nothing") << ""_ba << 1;
    QTest::newRow("spaces only") << " \n "_ba << 2;
    QTest::newRow("a word") << "bonjour"_ba << 1;
    QTest::newRow("trailing text") << empty + "\nx" << 2;
    QTest::newRow("two documents") << empty + "\n" + empty << 2;
    QTest::newRow("cut short") << empty.chopped(1) + "\n" << 2;
    QTest::newRow("two byte-order marks") << "\xef\xbb\xbf\xef\xbb\xbf"_ba + empty << 1;
    QTest::newRow("a comma too many") << "{\"brands\":[],\n\"types\":[1,]}"_ba << 2;
    QTest::newRow("no value") << "{\"x\":\n\n}"_ba << 3;
    QTest::newRow("a comment") << "\n/* */ " + empty << 2;

    // What stands in the second line of the document.
    const auto wrong = [](const char* name, const QByteArray& value) {
        QTest::newRow(name) << "{\"x\":\n" + value + "\n}" << 2;
    };
    wrong("an unknown word", "nul");
    wrong("a raw tabulator", "\"a\tb\"");
    wrong("a raw line feed", "\"a\nb\"");
    wrong("an unclosed text", "\"a");
    wrong("bad UTF-8", "\"\xc3\x28\"");
    wrong("a byte of no character", "\"\xff\"");
    wrong("more bytes than needed", "\"\xc0\x80\"");
    wrong("an encoded surrogate", "\"\xed\xa0\x80\"");
    wrong("half a character at the end", "\"\xc3\"");
    wrong("an unknown escape", R"("\a")");
    wrong("an escape of three digits", R"("\u00e")");
    wrong("an escape without digits", R"("\uxyzt")");
    wrong("a lone upper surrogate", R"("\ud83d")");
    wrong("an upper surrogate before a letter", R"("\ud83d\u0041")");
    wrong("a lone lower surrogate", R"("\ude00")");
    wrong("surrogates in the wrong order", R"("\ude00\ud83d")");
    wrong("a leading zero", "01");
    wrong("a plus sign", "+1");
    wrong("a sign alone", "-");
    wrong("no digit behind the point", "1.");
    wrong("no digit before the point", ".5");
    wrong("no digit in the exponent", "1e+");
    wrong("two values", "1 2");
    wrong("a list without commas", "[1 2]");
    wrong("a list not closed", "[1}");
    wrong("an object without a colon", R"({"a" 1})");
    wrong("an object without a key", "{1:2}");
    wrong("an object that ends in a comma", R"({"a":1,})");
    wrong("nested without reason", QByteArray(5000, '[') + QByteArray(5000, ']'));
    wrong("nested one level too deep", QByteArray(1024, '[') + QByteArray(1024, ']'));
}

void DocumentReaderTest::whatIsNotJsonIsRefused()
{
    QFETCH(QByteArray, document);
    QFETCH(int, line);

    QCOMPARE(refusalOf(document),
        u"ligne %1 : le fichier n'est pas un document JSON valide"_s.arg(line));
}

void DocumentReaderTest::numbersBeyondAllOthersAreRefused_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("isAccepted");

    QTest::newRow("a long integer") << "123456789012345678901"_ba << false;
    QTest::newRow("one more than 64 bits") << "18446744073709551616"_ba << false;
    QTest::newRow("64 bits") << "18446744073709551615"_ba << true;
    QTest::newRow("one less than the smallest") << "-9223372036854775809"_ba << false;
    QTest::newRow("the smallest") << "-9223372036854775808"_ba << true;
    QTest::newRow("a large exponent") << "1e400"_ba << false;
    QTest::newRow("a small exponent") << "1e-400"_ba << true;
    QTest::newRow("the largest of its kind") << "1.7976931348623157e308"_ba << true;
}

void DocumentReaderTest::numbersBeyondAllOthersAreRefused()
{
    QFETCH(QByteArray, number);
    QFETCH(bool, isAccepted);
    // Behind one that is only small.
    const QByteArray document = documentWith({}).replace("{", "{\"x\":[1e-400,\n" + number + "],");

    QCOMPARE(refusalOf(document),
        isAccepted ? QString() : u"ligne 2 : le fichier contient un nombre trop grand"_s);
}

void DocumentReaderTest::theRootIsHeldToItsForm_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("expected");

    const QByteArray empty = documentWith({});
    const auto without = [&](const char* list) {
        QByteArray text = empty;
        return text.replace(QByteArray("\"") + list + "\":[],", "")
            .replace(QByteArray(",\"") + list + "\":[]", "");
    };
    QTest::newRow("a list") << "[]"_ba << u"le document : un objet est attendu"_s;
    QTest::newRow("a number") << "1"_ba << u"le document : un objet est attendu"_s;
    QTest::newRow("null") << "null"_ba << u"le document : un objet est attendu"_s;
    for (const char* list : {"types", "brands", "ranges", "locations", "filaments"}) {
        const QString name = QString::fromLatin1(list);
        QTest::addRow("without %s", list)
            << without(list) << name + u" : champ obligatoire absent"_s;
        const QByteArray key = QByteArray("\"") + list + "\":";
        QTest::addRow("%s null", list) << QByteArray(empty).replace(key + "[]", key + "null")
                                       << name + u" : champ obligatoire absent"_s;
        QTest::addRow("%s an object", list) << QByteArray(empty).replace(key + "[]", key + "{}")
                                            << name + u" : une liste est attendue"_s;
        QTest::addRow("%s twice", list) << QByteArray(empty).replace("{", "{" + key + "[],")
                                        << name + u" : champ présent plusieurs fois"_s;
        QTest::addRow("%s of numbers", list) << QByteArray(empty).replace(key + "[]", key + "[7]")
                                             << name + u"[0] : un objet est attendu"_s;
    }
    const auto version = [&](const QByteArray& value) {
        return QByteArray(empty).replace("\"schemaVersion\":1", "\"schemaVersion\":" + value);
    };
    QTest::newRow("version absent")
        << QByteArray(empty).replace("\"schemaVersion\":1,", "") << QString();
    QTest::newRow("version null") << version("null") << QString();
    QTest::newRow("version 0") << version("0") << QString();
    QTest::newRow("version 2 decodes") << version("2") << QString();
    QTest::newRow("version a text")
        << version("\"1\"") << u"schemaVersion : un nombre entier est attendu"_s;
    QTest::newRow("version a fraction")
        << version("1.5") << u"schemaVersion : un nombre entier est attendu"_s;
    QTest::newRow("an unknown key twice") << QByteArray(empty).replace("{", R"({"x":1,"x":2,)")
                                          << u"x : champ présent plusieurs fois"_s;
    QTest::newRow("deep in an unknown key") << QByteArray(empty).replace("{",
        R"({"x":[1,{"y":{"z":1,"z":2}}],)") << u"x[1].y.z : champ présent plusieurs fois"_s;
    QTest::newRow("an empty key twice") << QByteArray(empty).replace("{", R"({"":1,"":2,)")
                                        << u"\"\" : champ présent plusieurs fois"_s;
    QTest::newRow("below an empty key") << QByteArray(empty).replace("{", R"({"":{"":1,"":2},)")
                                        << u"\"\".\"\" : champ présent plusieurs fois"_s;
    QTest::newRow("an escaped key is the same key") << QByteArray(empty).replace(
        "{", R"({"\u0074ypes":[],)") << u"types : champ présent plusieurs fois"_s;
}

void DocumentReaderTest::theRootIsHeldToItsForm()
{
    QFETCH(QByteArray, document);
    QTEST(refusalOf(document), "expected");
}

void DocumentReaderTest::aFilamentIsHeldToItsForm_data()
{
    QTest::addColumn<QByteArray>("filament");
    QTest::addColumn<QString>("expected");

    QTest::newRow("whole") << fullFilament << QString();
    for (const char* key :
        {"type", "brand", "range", "location", "colorName", "openedSpoolsCount"}) {
        QTest::addRow("without %s", key) << filamentWith(key, {}) << QString();
        QTest::addRow("%s null", key) << filamentWith(key, "null") << QString();
    }
    for (const char* key : {"spoolsCount", "colorHex", "notes", "dateAdded"}) {
        const QString expected
            = u"filaments[0]."_s + QLatin1StringView(key) + u" : champ obligatoire absent"_s;
        QTest::addRow("without %s", key) << filamentWith(key, {}) << expected;
        QTest::addRow("%s null", key) << filamentWith(key, "null") << expected;
    }
    for (const char* key :
        {"type", "brand", "range", "location", "colorName", "colorHex", "notes"}) {
        for (const char* value : {"7", "true", "[]", "{}"})
            QTest::addRow("%s as %s", key, value)
                << filamentWith(key, value)
                << u"filaments[0]."_s + QLatin1StringView(key) + u" : un texte est attendu"_s;
    }
    for (const char* key : {"spoolsCount", "openedSpoolsCount"}) {
        for (const char* value : {"\"7\"", "true", "[]", "2.5"})
            QTest::addRow("%s as %s", key, value) << filamentWith(key, value)
                                                  << u"filaments[0]."_s + QLatin1StringView(key)
                    + u" : un nombre entier est attendu"_s;
        for (const char* value :
            {"9223372036854775808", "18446744073709551615", "1e300", "-1e19", "9007199254740993.0"})
            QTest::addRow("%s as %s", key, value) << filamentWith(key,
                value) << u"filaments[0]."_s + QLatin1StringView(key) + u" : nombre trop grand"_s;
    }
    for (const char* value :
        {"7", "\"2025-03-14\"", "\"2025-03-14T09:26:53.750Z\"", "\"2025-03-14T09:26:53+00:00\"",
            "\"2025-03-14t09:26:53Z\"", "\"2025-03-14T09:26:53z\"", "\"2025-02-30T09:26:53Z\"",
            "\"2023-02-29T09:26:53Z\"", "\"2025-13-14T09:26:53Z\"", "\"2025-00-14T09:26:53Z\"",
            "\"2025-03-00T09:26:53Z\"", "\"2025-03-14T24:00:00Z\"", "\"2025-03-14T09:60:53Z\"",
            "\"2025-03-14T09:26:60Z\"", "\"2025-03-14 09:26:53Z\"", "\"+025-03-14T09:26:53Z\"",
            "\"2025-03-14T09:26:5 Z\"", "\"\"", "\" 2025-03-14T09:26:53Z\""}) {
        QTest::addRow("dateAdded as %s", value)
            << filamentWith("dateAdded", value)
            << u"filaments[0].dateAdded : une date de la forme 2025-03-14T09:26:53Z est attendue"_s;
    }
    QTest::newRow("notes twice") << QByteArray(fullFilament).replace("{", R"({"notes":"",)")
                                 << u"filaments[0].notes : champ présent plusieurs fois"_s;
    QTest::newRow("an unknown key twice")
        << QByteArray(fullFilament).replace("{", R"({"x":[],"x":[],)")
        << u"filaments[0].x : champ présent plusieurs fois"_s;
    QTest::newRow("the place counts from 0") << fullFilament + "," + fullFilament + ","
            + filamentWith("notes", {}) << u"filaments[2].notes : champ obligatoire absent"_s;
}

void DocumentReaderTest::aFilamentIsHeldToItsForm()
{
    QFETCH(QByteArray, filament);
    QTEST(refusalOf(documentWith(filament)), "expected");
}

void DocumentReaderTest::entriesAreHeldToTheirForm_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QString>("expected");

    for (const char* list : {"types", "brands", "ranges", "locations"}) {
        const QString place = QLatin1StringView(list) + u"[0].name : "_s;
        QTest::addRow("%s", list) << QByteArray(list) << R"({"name":"a"})"_ba << QString();
        QTest::addRow("%s without name", list)
            << QByteArray(list) << "{}"_ba << place + u"champ obligatoire absent"_s;
        QTest::addRow("%s with null", list)
            << QByteArray(list) << R"({"name":null})"_ba << place + u"champ obligatoire absent"_s;
        QTest::addRow("%s with a number", list)
            << QByteArray(list) << R"({"name":1})"_ba << place + u"un texte est attendu"_s;
        QTest::addRow("%s with two names", list)
            << QByteArray(list) << R"({"name":"","name":""})"_ba
            << place + u"champ présent plusieurs fois"_s;
    }
    QTest::newRow("icon absent") << "types"_ba
                                 << R"({"name":"a"})"_ba << QString();
    QTest::newRow("icon null") << "types"_ba
                               << R"({"iconName":null,"name":"a"})"_ba << QString();
    QTest::newRow("icon a number")
        << "types"_ba
        << R"({"iconName":1,"name":"a"})"_ba << u"types[0].iconName : un texte est attendu"_s;
    QTest::newRow("icon of a brand is unknown") << "brands"_ba
                                                << R"({"iconName":1,"name":"a"})"_ba << QString();
}

void DocumentReaderTest::entriesAreHeldToTheirForm()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, entry);
    const QByteArray key = "\"" + list + "\":[";

    QTEST(refusalOf(documentWith({}).replace(key + "]", key + entry + "]")), "expected");
}

void DocumentReaderTest::integersAreRead_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("plain") << "3"_ba << qint64(3);
    QTest::newRow("with a fraction of nothing") << "3.0"_ba << qint64(3);
    QTest::newRow("with an exponent") << "3e2"_ba << qint64(300);
    QTest::newRow("minus zero") << "-0.0"_ba << qint64(0);
    QTest::newRow("negative") << "-5"_ba << qint64(-5);
    QTest::newRow("largest") << "9223372036854775807"_ba << std::numeric_limits<qint64>::max();
    QTest::newRow("smallest") << "-9223372036854775808"_ba << std::numeric_limits<qint64>::min();
}

void DocumentReaderTest::integersAreRead()
{
    QFETCH(QByteArray, written);
    QTEST(onlyFilament(filamentWith("spoolsCount", written)).spoolsCount, "expected");
}

void DocumentReaderTest::datesAreRead_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("an ordinary one") << "\"2025-03-14T09:26:53Z\""_ba << qint64(1741944413000);
    QTest::newRow("a leap day") << "\"2024-02-29T23:59:59Z\""_ba << qint64(1709251199000);
    QTest::newRow("before 1970") << "\"1969-12-31T23:59:59Z\""_ba << qint64(-1000);
    QTest::newRow("first") << "\"0000-01-01T00:00:00Z\""_ba << qint64(-62167219200000);
    QTest::newRow("last") << "\"9999-12-31T23:59:59Z\""_ba << qint64(253402300799000);
}

void DocumentReaderTest::datesAreRead()
{
    QFETCH(QByteArray, written);
    QTEST(onlyFilament(filamentWith("dateAdded", written)).dateAddedMs, "expected");
}

void DocumentReaderTest::absentKeysLeaveTheirFieldsEmpty()
{
    const ExportFilament filament = onlyFilament(
        R"({"colorHex":"","dateAdded":"1970-01-01T00:00:00Z","notes":"","spoolsCount":0})");

    QVERIFY(filament == ExportFilament());
    QVERIFY(!filament.type && !filament.brand && !filament.range && !filament.location);
    QVERIFY(!filament.openedSpoolsCount && !filament.colorName);
}

void DocumentReaderTest::unknownKeysAndAnyOrderAreAccepted()
{
    const auto read = decodeDocument(
        R"({ "types" : [ ], "autre" : {"a":[1,2.5,null,{"b":"c"}]}, "filaments" : [
            {"type":"T","x":{},"spoolsCount":2,"notes":"n","dateAdded":"1970-01-01T00:00:01Z",
             "y":[[]],"colorHex":"h"}
        ], "ranges":[], "locations":[{"name":"L","x":1}], "brands":[] })");

    QVERIFY2(read, qPrintable(read ? QString() : read.error().description()));
    ExportData expected;
    expected.locations = {{u"L"_s}};
    ExportFilament filament;
    filament.type = u"T"_s;
    filament.spoolsCount = 2;
    filament.notes = u"n"_s;
    filament.dateAddedMs = 1000;
    filament.colorHex = u"h"_s;
    expected.filaments = {filament};
    QVERIFY(read.value() == expected);
}

void DocumentReaderTest::aByteOrderMarkIsAccepted()
{
    QCOMPARE(refusalOf("\xef\xbb\xbf" + documentWith(fullFilament)), QString());
}

void DocumentReaderTest::escapesAreRead()
{
    const ExportFilament filament
        = onlyFilament(filamentWith("notes", R"("\u00e9\/\ud83d\ude00\n\u0000\"\\")"));

    QCOMPARE(filament.notes, u"é/😀\n"_s + QChar(0) + u"\"\\"_s);
}

REELHOUSE_TEST(DocumentReaderTest)

#include "DocumentReaderTest.moc"
