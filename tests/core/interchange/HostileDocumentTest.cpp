#include "core/interchange/DocumentReader.h"
#include "tests/support/LittleMemory.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class HostileDocumentTest final : public QObject {
    Q_OBJECT

private slots:
    void aKeyThatStandsTwiceIsFoundAnywhere_data();
    void aKeyThatStandsTwiceIsFoundAnywhere();
    void manyMembersUnderALongKeyAreReadAtOnce();
    void aListOfNoRecordsNeedsNoRoomForRecords();
    void tooLittleMemoryIsARefusal();
};

namespace {

QByteArray documentOfTypes(const QByteArray& types, const QByteArray& before = {})
{
    return "{" + before + R"("brands":[],"filaments":[],"locations":[],"ranges":[],"types":[)"
        + types + "]}";
}

QByteArray repeated(const QByteArray& part, int times)
{
    return (part + ',').repeated(times).chopped(1);
}

/// 0 when a process with so much more memory than now reads the document, else `refusal`.
int outcomeWithin(qint64 bytes, const QByteArray& document)
{
    return inLittleMemory(bytes, [&] {
        const auto read = decodeDocument(document);
        return read ? 0 : 1 + int(read.error().kind);
    });
}

int refusal(ExportDecodingError::Kind kind)
{
    return 1 + int(kind);
}

constexpr qint64 megabyte = qint64{1024} * 1024;

} // namespace

void HostileDocumentTest::aKeyThatStandsTwiceIsFoundAnywhere_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("expectedPlace");

    QTest::newRow("in an unknown object")
        << documentOfTypes({}, R"("x":{"a":1,"a":2},)") << u"x.a"_s;
    QTest::newRow("deep below") << documentOfTypes({}, R"("x":[0,{"y":[[],[{"z":1,"z":1}]]}],)")
                                << u"x[1].y[1][0].z"_s;
    QTest::newRow("in an unknown value of a record")
        << documentOfTypes(R"({"name":"a"},{"name":"b","x":{"":1,"":2}})") << u"types[1].x.\"\""_s;
    QTest::newRow("unknown in a record")
        << documentOfTypes(R"({"name":"a","x":1,"x":2})") << u"types[0].x"_s;
}

void HostileDocumentTest::aKeyThatStandsTwiceIsFoundAnywhere()
{
    QFETCH(QByteArray, document);
    const auto read = decodeDocument(document);
    QVERIFY(!read);
    QCOMPARE(read.error().kind, ExportDecodingError::Kind::DuplicateKey);
    QTEST(read.error().place, "expectedPlace");
}

void HostileDocumentTest::manyMembersUnderALongKeyAreReadAtOnce()
{
    // Copying the key for each of its members would take minutes, and end this test.
    QByteArray members;
    for (int number = 0; number < 300000; ++number)
        members += "\"" + QByteArray::number(number) + "\":[],";
    const QByteArray key(2000000, 'k');

    QVERIFY(decodeDocument(documentOfTypes({}, "\"" + key + "\":{" + members.chopped(1) + "},")));
}

void HostileDocumentTest::aListOfNoRecordsNeedsNoRoomForRecords()
{
    if (!canLimitMemory)
        QSKIP("memory cannot be limited under the sanitizer");
    // 2,000,000 filaments would take half a gigabyte.
    QByteArray document = documentOfTypes({});
    document.replace("\"filaments\":[", "\"filaments\":[" + repeated("0", 2000000));

    QCOMPARE(
        outcomeWithin(256 * megabyte, document), refusal(ExportDecodingError::Kind::NotAnObject));
}

void HostileDocumentTest::tooLittleMemoryIsARefusal()
{
    if (!canLimitMemory)
        QSKIP("memory cannot be limited under the sanitizer");
    const QByteArray document = documentOfTypes(repeated(R"({"name":"Acier"})", 200000));
    int refusals = 0;
    int successes = 0;
    for (qint64 room = 0; room <= 96 * megabyte; room += 2 * megabyte) {
        const int outcome = outcomeWithin(room, document);
        const bool isRefused = outcome == refusal(ExportDecodingError::Kind::TooLarge);
        QVERIFY2(outcome == 0 || isRefused, qPrintable(QString::number(outcome)));
        refusals += isRefused;
        successes += outcome == 0;
    }
    QVERIFY2(refusals > 5, qPrintable(QString::number(refusals)));
    QVERIFY(successes > 0);
}

REELHOUSE_TEST(HostileDocumentTest)
#include "HostileDocumentTest.moc"
