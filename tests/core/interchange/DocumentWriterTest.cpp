#include "core/interchange/DocumentReader.h"
#include "core/interchange/ExportData.h"
#include "tests/support/TestMain.h"
#include "tests/support/WholeDocument.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class DocumentWriterTest final : public QObject {
    Q_OBJECT

private slots:
    void aWholeDocumentHasThisForm();
    void emptyListsHaveThisForm();
    void absentFieldsAreLeftOut();
    void textsAreEscaped_data();
    void textsAreEscaped();
    void datesAreWrittenInWholeSeconds_data();
    void datesAreWrittenInWholeSeconds();
    void integersAreWrittenPlainly_data();
    void integersAreWrittenPlainly();
    void whatCannotBeWrittenGivesNothing_data();
    void whatCannotBeWrittenGivesNothing();
    void aWrittenDocumentReadsBackByteForByte();
};

namespace {

ExportData wholeData()
{
    ExportData data;
    data.schemaVersion = 1;
    data.types = {{u"PLA"_s, u"drop.fill"_s}, {u""_s, u""_s}};
    data.brands = {{u"Filéo"_s}, {u"Trois/D"_s}};
    data.ranges = {{u"Matte"_s}};
    data.locations = {{u"Étagère A"_s}};
    data.filaments = {
        {u"PLA"_s, u"Filéo"_s, u"Matte"_s, u"Étagère A"_s, 2, 5, u"#E53935"_s, u"Rouge"_s,
            u"Sécher 4 h\n\"avant\" usage"_s, 1741944413750},
        {u""_s, u"Trois/D"_s, u"Matte"_s, u"Étagère A"_s, -3, -1, u"\uFEFF#"_s, u""_s,
            QString(QChar(u'\0')), -250},
    };
    return data;
}

ExportFilament plainFilament()
{
    ExportFilament filament;
    filament.colorHex = u"#000000"_s;
    return filament;
}

/// The value of one key of the only filament, as the document writes it.
QByteArray writtenValue(const ExportFilament& filament, const QByteArray& key)
{
    ExportData data;
    data.filaments = {filament};
    const QByteArray text = data.encodeJSON().value_or("(nothing)");
    const qsizetype start = text.indexOf("\"" + key + "\" : ") + key.size() + 5;
    QByteArray value = text.sliced(start, text.indexOf('\n', start) - start);
    if (value.endsWith(','))
        value.chop(1);
    return value;
}

} // namespace

void DocumentWriterTest::aWholeDocumentHasThisForm()
{
    const auto text = wholeData().encodeJSON();

    QVERIFY(text.has_value());
    QCOMPARE(*text, wholeDocument());
}

void DocumentWriterTest::emptyListsHaveThisForm()
{
    ExportData data;
    data.schemaVersion = 1;

    QCOMPARE(data.encodeJSON().value(), QByteArray(R"({
  "brands" : [

  ],
  "filaments" : [

  ],
  "locations" : [

  ],
  "ranges" : [

  ],
  "schemaVersion" : 1,
  "types" : [

  ]
})"));
}

void DocumentWriterTest::absentFieldsAreLeftOut()
{
    ExportData data;
    data.types = {{u"PLA"_s, std::nullopt}};
    data.filaments = {plainFilament()};

    QCOMPARE(data.encodeJSON().value(), QByteArray(R"({
  "brands" : [

  ],
  "filaments" : [
    {
      "colorHex" : "#000000",
      "dateAdded" : "1970-01-01T00:00:00Z",
      "notes" : "",
      "spoolsCount" : 0
    }
  ],
  "locations" : [

  ],
  "ranges" : [

  ],
  "types" : [
    {
      "name" : "PLA"
    }
  ]
})"));
}

void DocumentWriterTest::textsAreEscaped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("plain") << u"PLA mat"_s << "\"PLA mat\""_ba;
    QTest::newRow("slash") << u"50/50"_s << R"("50\/50")"_ba;
    QTest::newRow("quotes and backslash") << u"\"a\\b\""_s << R"("\"a\\b\"")"_ba;
    QTest::newRow("short escapes") << u"\b\f\n\r\t"_s << R"("\b\f\n\r\t")"_ba;
    QTest::newRow("other controls")
        << QString::fromUtf8("\x00\x01\x1f", 3) << R"("\u0000\u0001\u001f")"_ba;
    QTest::newRow("delete is no control here") << QString(QChar(0x7f)) << "\"\x7f\""_ba;
    QTest::newRow("two, three and four bytes")
        << u"é€😀"_s << "\"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\""_ba;
    QTest::newRow("a line separator") << QString(QChar(0x2028)) << "\"\xe2\x80\xa8\""_ba;
    QTest::newRow("decomposed stays so") << u"e\u0301"_s << "\"e\xcc\x81\""_ba;
}

void DocumentWriterTest::textsAreEscaped()
{
    QFETCH(QString, text);
    ExportFilament filament = plainFilament();
    filament.notes = text;

    QTEST(writtenValue(filament, "notes"), "expected");
}

void DocumentWriterTest::datesAreWrittenInWholeSeconds_data()
{
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("the fraction is dropped")
        << qint64(1741944413750) << "\"2025-03-14T09:26:53Z\""_ba;
    QTest::newRow("before 1970 too") << qint64(-1) << "\"1969-12-31T23:59:59Z\""_ba;
    QTest::newRow("a leap day") << qint64(1709164800000) << "\"2024-02-29T00:00:00Z\""_ba;
    QTest::newRow("the first year") << qint64(-62167219200000) << "\"0000-01-01T00:00:00Z\""_ba;
    QTest::newRow("the last second") << qint64(253402300799999) << "\"9999-12-31T23:59:59Z\""_ba;
}

void DocumentWriterTest::datesAreWrittenInWholeSeconds()
{
    QFETCH(qint64, milliseconds);
    ExportFilament filament = plainFilament();
    filament.dateAddedMs = milliseconds;

    QTEST(writtenValue(filament, "dateAdded"), "expected");
}

void DocumentWriterTest::integersAreWrittenPlainly_data()
{
    QTest::addColumn<qint64>("count");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("zero") << qint64(0) << "0"_ba;
    QTest::newRow("negative") << qint64(-12) << "-12"_ba;
    QTest::newRow("largest") << std::numeric_limits<qint64>::max() << "9223372036854775807"_ba;
    QTest::newRow("smallest") << std::numeric_limits<qint64>::min() << "-9223372036854775808"_ba;
}

void DocumentWriterTest::integersAreWrittenPlainly()
{
    QFETCH(qint64, count);
    ExportFilament filament = plainFilament();
    filament.spoolsCount = count;

    QTEST(writtenValue(filament, "spoolsCount"), "expected");
}

void DocumentWriterTest::whatCannotBeWrittenGivesNothing_data()
{
    QTest::addColumn<QString>("notes");
    QTest::addColumn<qint64>("milliseconds");

    QTest::newRow("an upper half alone") << QString(QChar(0xd83d)) << qint64(0);
    QTest::newRow("a lower half alone") << QString(QChar(0xde00)) << qint64(0);
    QTest::newRow("halves in the wrong order")
        << QString(QChar(0xde00)) + QChar(0xd83d) << qint64(0);
    QTest::newRow("a half before a letter") << QString(QChar(0xd83d)) + u'a' << qint64(0);
    QTest::newRow("the year 10000") << QString() << qint64(253402300800000);
    QTest::newRow("before the year 0") << QString() << qint64(-62167219200001);
    QTest::newRow("the largest moment") << QString() << std::numeric_limits<qint64>::max();
    QTest::newRow("the smallest moment") << QString() << std::numeric_limits<qint64>::min();
}

void DocumentWriterTest::whatCannotBeWrittenGivesNothing()
{
    QFETCH(QString, notes);
    QFETCH(qint64, milliseconds);
    ExportData data;
    data.filaments = {plainFilament()};
    data.filaments[0].notes = notes;
    data.filaments[0].dateAddedMs = milliseconds;

    QCOMPARE(data.encodeJSON(), std::nullopt);
}

void DocumentWriterTest::aWrittenDocumentReadsBackByteForByte()
{
    const auto read = decodeDocument(wholeDocument());

    QVERIFY(read);
    QCOMPARE(read.value().encodeJSON().value(), wholeDocument());
    ExportData expected = wholeData();
    expected.filaments[0].dateAddedMs = 1741944413000;
    expected.filaments[1].dateAddedMs = -1000;
    QVERIFY(read.value() == expected);
}

REELHOUSE_TEST(DocumentWriterTest)

#include "DocumentWriterTest.moc"
