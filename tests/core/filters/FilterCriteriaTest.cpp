#include "core/filters/FilterCriteria.h"

#include "tests/support/TestMain.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

#include <limits>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilterCriteriaTest final : public QObject {
    Q_OBJECT

private slots:
    void criteriaAreSummedUpAndNamed_data();
    void criteriaAreSummedUpAndNamed();
    void aSuggestedNameHasAtMostSixtyCharacters_data();
    void aSuggestedNameHasAtMostSixtyCharacters();
    void everyFieldCountsForEqualityAndHash_data();
    void everyFieldCountsForEqualityAndHash();
    void absentCriteriaAreNotWritten();
    void theSerialisedFormIsReadBack_data();
    void theSerialisedFormIsReadBack();
    void whatIsMissingOrWronglyTypedIsNamed_data();
    void whatIsMissingOrWronglyTypedIsNamed();
};

Q_DECLARE_METATYPE(reelhouse::FilterCriteria)

namespace {

FilterCriteria fullCriteria()
{
    return {u"PLA"_s, u"Acme"_s, u"Mat"_s, u"Étagère 2"_s, 3, 0, u"rouge"_s};
}

} // namespace

void FilterCriteriaTest::criteriaAreSummedUpAndNamed_data()
{
    QTest::addColumn<FilterCriteria>("criteria");
    QTest::addColumn<QString>("expectedSummary"); // Empty: none.
    QTest::addColumn<QString>("expectedName");

    QTest::newRow("nothing") << FilterCriteria{.searchText = {}} << QString()
                             << u"Tous les filaments"_s;
    QTest::newRow("empty names") << FilterCriteria{QString(), QString(), QString(), QString(), {},
        {}, {}} << QString() << u"Tous les filaments"_s;
    QTest::newRow("everything")
        << fullCriteria()
        << u"Type : PLA — Marque : Acme — Gamme : Mat — Lieu : Étagère 2 — Bobines : 3 — Entamées : 0 — Recherche : « rouge »"_s
        << u"PLA · Acme · Mat · Étagère 2 · 3 bobines · aucune entamée ·"_s;
    QTest::newRow("type, bucket and search")
        << FilterCriteria{.typeName = u"PLA"_s, .spools = 99, .searchText = u"rouge"_s}
        << u"Type : PLA — Bobines : 4+ — Recherche : « rouge »"_s
        << u"PLA · 4+ bobines · « rouge »"_s;
    QTest::newRow("none opened") << FilterCriteria{.typeName = u"PETG"_s,
        .brandName = u"Acme"_s,
        .opened = 0,
        .searchText = {}} << u"Type : PETG — Marque : Acme — Entamées : 0"_s
                                 << u"PETG · Acme · aucune entamée"_s;
    QTest::newRow("spaces only") << FilterCriteria{.searchText = u"  "_s} << u"Recherche : «    »"_s
                                 << u"«    »"_s;

    struct Row {
        qint64 bucket;
        QString summary;
        QString spools;
        QString opened;
    };
    const Row rows[] = {{0, u"0"_s, u"0 bobine"_s, u"aucune entamée"_s},
        {1, u"1"_s, u"1 bobine"_s, u"1 entamée"_s}, {2, u"2"_s, u"2 bobines"_s, u"2 entamées"_s},
        {98, u"98"_s, u"98 bobines"_s, u"98 entamées"_s},
        {99, u"4+"_s, u"4+ bobines"_s, u"4+ entamées"_s},
        {150, u"4+"_s, u"4+ bobines"_s, u"4+ entamées"_s},
        {-1, u"-1"_s, u"-1 bobine"_s, u"4+ entamées"_s}};
    for (const Row& row : rows) {
        QTest::addRow("bucket %lld of spools", row.bucket)
            << FilterCriteria{.spools = row.bucket, .searchText = {}}
            << u"Bobines : "_s + row.summary << row.spools;
        QTest::addRow("bucket %lld of opened spools", row.bucket)
            << FilterCriteria{.opened = row.bucket, .searchText = {}}
            << u"Entamées : "_s + row.summary << row.opened;
    }
}

void FilterCriteriaTest::criteriaAreSummedUpAndNamed()
{
    QFETCH(FilterCriteria, criteria);
    QFETCH(QString, expectedSummary);

    QCOMPARE(criteria.summary().has_value(), !expectedSummary.isEmpty());
    QCOMPARE(criteria.summary().value_or(QString()), expectedSummary);
    QTEST(criteria.suggestedName(), "expectedName");
}

void FilterCriteriaTest::aSuggestedNameHasAtMostSixtyCharacters_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QString>("expected");

    const QString fifty(50, u'a');
    const QString emoji = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s;
    QTest::newRow("sixty stay") << fifty + u"bcdefghijk"_s << fifty + u"bcdefghijk"_s;
    QTest::newRow("the sixty-first goes") << fifty + u"bcdefghijkl"_s << fifty + u"bcdefghijk"_s;
    QTest::newRow("a space at the cut goes too")
        << fifty + u"bcdefghij jkl"_s << fifty + u"bcdefghij"_s;
    QTest::newRow("a tab at the cut too") << fifty + u"bcdefghij\tjkl"_s << fifty + u"bcdefghij"_s;
    QTest::newRow("a no-break space too")
        << fifty + u"bcdefghij\u00A0jkl"_s << fifty + u"bcdefghij"_s;
    QTest::newRow("a line break stays") << fifty + u"bcdefghij\njkl"_s << fifty + u"bcdefghij\n"_s;
    QTest::newRow("an emoji of several parts counts as one")
        << emoji.repeated(61) << emoji.repeated(60);
    QTest::newRow("an accent is not cut off its letter")
        << fifty + u"bcdefghije\u0301"_s << fifty + u"bcdefghij"_s + u"e\u0301"_s;
    QTest::newRow("outer spaces go") << u"  PLA \t"_s << u"PLA"_s;
    QTest::newRow("nothing left but spaces") << QString(70, u' ') + u'a' << u"Tous les filaments"_s;
}

void FilterCriteriaTest::aSuggestedNameHasAtMostSixtyCharacters()
{
    QFETCH(QString, typeName);
    const FilterCriteria criteria{.typeName = typeName, .searchText = {}};

    QTEST(criteria.suggestedName(), "expected");
}

void FilterCriteriaTest::everyFieldCountsForEqualityAndHash_data()
{
    QTest::addColumn<FilterCriteria>("other");

    const auto with = [](const std::function<void(FilterCriteria&)>& change) {
        FilterCriteria criteria = fullCriteria();
        change(criteria);
        return criteria;
    };
    QTest::newRow("type") << with([](FilterCriteria& it) { it.typeName = u"pla"_s; });
    QTest::newRow("brand") << with([](FilterCriteria& it) { it.brandName.reset(); });
    QTest::newRow("range") << with([](FilterCriteria& it) { it.rangeName = QString(); });
    QTest::newRow("location") << with([](FilterCriteria& it) { it.locationName = u"Étagère"_s; });
    QTest::newRow("spools") << with([](FilterCriteria& it) { it.spools = 4; });
    QTest::newRow("opened") << with([](FilterCriteria& it) { it.opened.reset(); });
    QTest::newRow("search") << with([](FilterCriteria& it) { it.searchText = u"Rouge"_s; });
}

void FilterCriteriaTest::everyFieldCountsForEqualityAndHash()
{
    QFETCH(FilterCriteria, other);

    QVERIFY(other != fullCriteria());
    QVERIFY(qHash(other) != qHash(fullCriteria()));
    QCOMPARE(fullCriteria(), fullCriteria());
    QCOMPARE(qHash(fullCriteria()), qHash(fullCriteria()));
}

void FilterCriteriaTest::absentCriteriaAreNotWritten()
{
    const FilterCriteria nothing{.searchText = {}};

    QCOMPARE(
        QJsonDocument(nothing.toJson()).toJson(QJsonDocument::Compact), R"({"searchText":""})"_ba);
    QCOMPARE(QJsonDocument(fullCriteria().toJson()).toJson(QJsonDocument::Compact),
        QByteArray(R"({"brandName":"Acme","locationName":"Étagère 2","opened":0,)"
                   R"("rangeName":"Mat","searchText":"rouge","spools":3,"typeName":"PLA"})"));
}

void FilterCriteriaTest::theSerialisedFormIsReadBack_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<FilterCriteria>("expected");

    QTest::newRow("only what is required")
        << R"({"searchText":""})"_ba << FilterCriteria{.searchText = {}};
    QTest::newRow("nulls are absent") << R"({"typeName":null,"spools":null,"searchText":"x"})"_ba
                                      << FilterCriteria{.searchText = u"x"_s};
    QTest::newRow("an empty name is a name")
        << R"({"typeName":"","searchText":""})"_ba
        << FilterCriteria{.typeName = QString(), .searchText = {}};
    QTest::newRow("everything") << QByteArray(
        R"({"typeName":"PLA","brandName":"Acme","rangeName":"Mat",)"
        R"("locationName":"Étagère 2","spools":3,"opened":0,"searchText":"rouge"})")
                                << fullCriteria();
    QTest::newRow("the whole range of 64 bits")
        << R"({"spools":9223372036854775807,"opened":-9223372036854775808,"searchText":""})"_ba
        << FilterCriteria{.spools = std::numeric_limits<qint64>::max(),
               .opened = std::numeric_limits<qint64>::min(),
               .searchText = {}};
    QTest::newRow("other keys are passed over")
        << R"({"colour":1,"searchText":""})"_ba << FilterCriteria{.searchText = {}};
}

void FilterCriteriaTest::theSerialisedFormIsReadBack()
{
    QFETCH(QByteArray, json);
    QFETCH(FilterCriteria, expected);

    const auto read = FilterCriteria::fromJson(QJsonDocument::fromJson(json).object());
    QVERIFY(read.has_value());
    QCOMPARE(read.value(), expected);
    const auto again = FilterCriteria::fromJson(expected.toJson());
    QVERIFY(again.has_value());
    QCOMPARE(again.value(), expected);
}

void FilterCriteriaTest::whatIsMissingOrWronglyTypedIsNamed_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("expectedKey");

    QTest::newRow("no search text") << R"({"typeName":"PLA"})"_ba << u"searchText"_s;
    QTest::newRow("null as search text") << R"({"searchText":null})"_ba << u"searchText"_s;
    QTest::newRow("a number as name") << R"({"typeName":1,"searchText":""})"_ba << u"typeName"_s;
    QTest::newRow("a list as name") << R"({"brandName":[],"searchText":""})"_ba << u"brandName"_s;
    QTest::newRow("a switch as name")
        << R"({"rangeName":true,"searchText":""})"_ba << u"rangeName"_s;
    QTest::newRow("an object as name")
        << R"({"locationName":{},"searchText":""})"_ba << u"locationName"_s;
    QTest::newRow("a text as bucket") << R"({"spools":"1","searchText":""})"_ba << u"spools"_s;
    QTest::newRow("a fraction as bucket") << R"({"opened":1.5,"searchText":""})"_ba << u"opened"_s;
    QTest::newRow("a bucket beyond 64 bits")
        << R"({"spools":9223372036854775808,"searchText":""})"_ba << u"spools"_s;
}

void FilterCriteriaTest::whatIsMissingOrWronglyTypedIsNamed()
{
    QFETCH(QByteArray, json);

    const auto read = FilterCriteria::fromJson(QJsonDocument::fromJson(json).object());
    QVERIFY(!read);
    QTEST(read.error().key, "expectedKey");
}

REELHOUSE_TEST(FilterCriteriaTest)

#include "FilterCriteriaTest.moc"
