#include "core/interchange/ExportData.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class DocumentValidationTest final : public QObject {
    Q_OBJECT

private slots:
    void documentsAreAcceptedOrRefused_data();
    void documentsAreAcceptedOrRefused();
    void errorsAreEqualByCaseAndContent();
    void namesAreFoldedAsTheLocaleAsks();
};

namespace {

ExportFilament filamentOf(qint64 spools, std::optional<qint64> opened = std::nullopt)
{
    ExportFilament filament;
    filament.spoolsCount = spools;
    filament.openedSpoolsCount = opened;
    return filament;
}

ExportFilament filamentNaming(std::optional<QString> ExportFilament::*member, const QString& name)
{
    ExportFilament filament;
    filament.*member = name;
    return filament;
}

ExportData versioned(std::optional<qint64> version)
{
    ExportData data;
    data.schemaVersion = version;
    return data;
}

} // namespace

void DocumentValidationTest::documentsAreAcceptedOrRefused_data()
{
    QTest::addColumn<ExportData>("data");
    QTest::addColumn<QString>("expected"); // Empty: accepted.
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    constexpr qint64 smallest = std::numeric_limits<qint64>::min();

    QTest::newRow("empty") << ExportData() << QString();
    QTest::newRow("version 1") << versioned(1) << QString();
    QTest::newRow("version 0") << versioned(0) << QString();
    QTest::newRow("a negative version") << versioned(-7) << QString();
    QTest::newRow("version 2")
        << versioned(2)
        << u"Ce fichier utilise un format plus récent (version 2) que cette version de l'application."_s;

    const auto twoTypes = [](const QString& first, const QString& second) {
        ExportData data;
        data.types = {{first, {}}, {u"Autre"_s, {}}, {second, {}}};
        return data;
    };
    QTest::newRow("types apart") << twoTypes(u"PLA"_s, u"PETG"_s) << QString();
    QTest::newRow("types with a space behind") << twoTypes(
        u"PLA"_s, u"pla "_s) << u"Le fichier contient plusieurs types nommés « pla  »."_s;
    QTest::newRow("types with other white space") << twoTypes(u"PLA"_s,
        u"\n\tPLA\u00a0"_s) << u"Le fichier contient plusieurs types nommés « \n\tPLA\u00a0 »."_s;
    QTest::newRow("types with an accent")
        << twoTypes(u"PLA"_s, u"Plá"_s) << u"Le fichier contient plusieurs types nommés « Plá »."_s;
    QTest::newRow("types with inner spaces are apart")
        << twoTypes(u"P LA"_s, u"P  LA"_s) << QString();
    QTest::newRow("types composed and decomposed") << twoTypes(
        u"\u00e9"_s, u"e\u0301"_s) << u"Le fichier contient plusieurs types nommés « e\u0301 »."_s;
    QTest::newRow("types without a name")
        << twoTypes(u""_s, u"  "_s) << u"Le fichier contient plusieurs types nommés «    »."_s;
    QTest::newRow("one type without a name") << twoTypes(u""_s, u"PLA"_s) << QString();
    ExportData brands;
    brands.brands = {{u"Acme"_s}, {u"ACME"_s}};
    QTest::newRow("brands") << brands
                            << u"Le fichier contient plusieurs marques nommés « ACME »."_s;
    ExportData ranges;
    ranges.ranges = {{u"Mat"_s}, {u"mat"_s}};
    QTest::newRow("ranges") << ranges << u"Le fichier contient plusieurs gammes nommés « mat »."_s;
    ExportData locations;
    locations.locations = {{u"Étagère"_s}, {u"etagere"_s}};
    QTest::newRow("locations") << locations
                               << u"Le fichier contient plusieurs lieus nommés « etagere »."_s;
    ExportData across;
    across.types = {{u"Même"_s, {}}};
    across.brands = {{u"Même"_s}};
    across.ranges = {{u"Même"_s}};
    across.locations = {{u"Même"_s}};
    QTest::newRow("one name in all four lists") << across << QString();

    ExportData order;
    order.schemaVersion = 2;
    order.types = {{u"a"_s, {}}, {u"A"_s, {}}};
    order.brands = {{u"b"_s}, {u"B"_s}};
    order.ranges = {{u"c"_s}, {u"C"_s}};
    order.locations = {{u"d"_s}, {u"D"_s}};
    order.filaments
        = {filamentNaming(&ExportFilament::type, u"z"_s), filamentOf(largest), filamentOf(largest)};
    QTest::newRow("first the version")
        << order
        << u"Ce fichier utilise un format plus récent (version 2) que cette version de l'application."_s;
    order.schemaVersion = 1;
    QTest::newRow("then the types")
        << order << u"Le fichier contient plusieurs types nommés « A »."_s;
    order.types.pop_back();
    QTest::newRow("then the brands")
        << order << u"Le fichier contient plusieurs marques nommés « B »."_s;
    order.brands.pop_back();
    QTest::newRow("then the ranges")
        << order << u"Le fichier contient plusieurs gammes nommés « C »."_s;
    order.ranges.pop_back();
    QTest::newRow("then the locations")
        << order << u"Le fichier contient plusieurs lieus nommés « D »."_s;
    order.locations.pop_back();
    QTest::newRow("then the references")
        << order << u"Un filament fait référence à un type « z » absent du fichier."_s;
    order.filaments.erase(order.filaments.begin());
    QTest::newRow("last the sums")
        << order << u"Les nombres de bobines du fichier sont trop grands pour être additionnés."_s;

    struct Category {
        std::optional<QString> ExportFilament::*member;
        QString word;
    };
    for (const Category& category :
        {Category{&ExportFilament::type, u"type"_s}, Category{&ExportFilament::brand, u"marque"_s},
            Category{&ExportFilament::range, u"gamme"_s},
            Category{&ExportFilament::location, u"lieu"_s}}) {
        ExportData data;
        data.types = {{u"acme"_s, {}}};
        data.brands = {{u"acme"_s}};
        data.ranges = {{u"acme"_s}};
        data.locations = {{u"acme"_s}};
        const QByteArray word = category.word.toUtf8();
        data.filaments = {filamentNaming(category.member, u"acme"_s)};
        QTest::addRow("%s known", word.constData()) << data << QString();
        for (const QString& name : {u"Acme"_s, u"acme "_s, u"acmé"_s, u""_s}) {
            data.filaments = {ExportFilament(), filamentNaming(category.member, name)};
            QTest::addRow("%s '%s' is not to the letter", word.constData(), qPrintable(name))
                << data
                << u"Un filament fait référence à un "_s + category.word + u" « "_s + name
                    + u" » absent du fichier."_s;
        }
    }
    ExportFilament fourUnknown;
    fourUnknown.type = u"t"_s;
    fourUnknown.brand = u"b"_s;
    fourUnknown.range = u"r"_s;
    fourUnknown.location = u"l"_s;
    ExportData references;
    references.filaments = {fourUnknown};
    QTest::newRow("references: the type first")
        << references << u"Un filament fait référence à un type « t » absent du fichier."_s;
    references.types = {{u"t"_s, {}}};
    QTest::newRow("references: then the brand")
        << references << u"Un filament fait référence à un marque « b » absent du fichier."_s;
    references.brands = {{u"b"_s}};
    QTest::newRow("references: then the range")
        << references << u"Un filament fait référence à un gamme « r » absent du fichier."_s;
    references.ranges = {{u"r"_s}};
    QTest::newRow("references: then the location")
        << references << u"Un filament fait référence à un lieu « l » absent du fichier."_s;
    references.locations = {{u"l"_s}};
    QTest::newRow("references: all known") << references << QString();

    ExportData emptyName;
    emptyName.types = {{u""_s, {}}};
    emptyName.filaments = {filamentNaming(&ExportFilament::type, u""_s)};
    QTest::newRow("an empty name is a name") << emptyName << QString();

    const QString withZero = QString::fromUtf16(u"PLA\0x", 5);
    ExportData zeroInside;
    zeroInside.types = {{withZero, {}}};
    zeroInside.filaments = {filamentNaming(&ExportFilament::type, withZero)};
    QTest::newRow("a zero character is one of a name") << zeroInside << QString();
    zeroInside.filaments = {filamentNaming(&ExportFilament::type, u"PLA"_s)};
    QTest::newRow("a name does not end at a zero character")
        << zeroInside << u"Un filament fait référence à un type « PLA » absent du fichier."_s;

    const auto counts = [](std::vector<ExportFilament> filaments) {
        ExportData data;
        data.filaments = std::move(filaments);
        return data;
    };
    const QString tooLarge
        = u"Les nombres de bobines du fichier sont trop grands pour être additionnés."_s;
    QTest::newRow("more opened than spools") << counts({filamentOf(2, 5)}) << QString();
    QTest::newRow("negative counts") << counts({filamentOf(-2, -5)}) << QString();
    QTest::newRow("the largest sum")
        << counts({filamentOf(largest - 1), filamentOf(1)}) << QString();
    QTest::newRow("one spool too many") << counts({filamentOf(largest), filamentOf(1)}) << tooLarge;
    QTest::newRow("one opened too many")
        << counts({filamentOf(0, largest), filamentOf(0, 1)}) << tooLarge;
    QTest::newRow("the smallest sum") << counts({filamentOf(smallest)}) << QString();
    QTest::newRow("one too few") << counts({filamentOf(smallest), filamentOf(-1)}) << tooLarge;
    QTest::newRow("some of them too many")
        << counts({filamentOf(largest), filamentOf(-1), filamentOf(1)}) << tooLarge;
}

void DocumentValidationTest::documentsAreAcceptedOrRefused()
{
    QFETCH(ExportData, data);

    const auto error = data.validate();

    QTEST(error ? error->description() : QString(), "expected");
}

void DocumentValidationTest::errorsAreEqualByCaseAndContent()
{
    using Error = ExportValidationError;

    QVERIFY(Error::unsupportedSchema(2) == Error::unsupportedSchema(2));
    QVERIFY(Error::unsupportedSchema(2) != Error::unsupportedSchema(3));
    QVERIFY(Error::duplicateName(u"type"_s, u"a"_s) == Error::duplicateName(u"type"_s, u"a"_s));
    QVERIFY(Error::duplicateName(u"type"_s, u"a"_s) != Error::duplicateName(u"lieu"_s, u"a"_s));
    QVERIFY(Error::duplicateName(u"type"_s, u"a"_s) != Error::unknownReference(u"type"_s, u"a"_s));
}

void DocumentValidationTest::namesAreFoldedAsTheLocaleAsks()
{
    ExportData data;
    data.locations = {{u"ISI"_s}, {u"ısı"_s}};

    QVERIFY(data.validate(FoldingRules::Turkic).has_value());
    QVERIFY(!data.validate(FoldingRules::Standard).has_value());
}

REELHOUSE_TEST(DocumentValidationTest)

#include "DocumentValidationTest.moc"
