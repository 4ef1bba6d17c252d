#include "core/sample/SampleData.h"

#include "core/preferences/Preferences.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SampleDataTest final : public QObject {
    Q_OBJECT

private slots:
    void emptyStockGetsTheWholeSample();
    void seedingIsSavedOnceAndNotAnAction();
    void onlyTypesAndFilamentsCountAsData();
    void stockWithDataIsLeftAlone_data();
    void stockWithDataIsLeftAlone();
    void flagAlreadySetPreventsSeeding();
    void failedSaveStillSetsTheFlag();
};

namespace {

struct SampleDataFixture {
    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"p.ini"_s)};
    tests::RecordingStore store;
    StoreContext context{store};

    template <class T>
    QStringList names()
    {
        QStringList names;
        for (const auto& entry : context.fetchAll<T>())
            names += entry->name();
        return names;
    }
};

QString asLine(const Filament& filament)
{
    return QStringList{filament.type()->name(), filament.brand()->name(), filament.range()->name(),
        filament.location()->name(), QString::number(filament.spoolsCount()),
        QString::number(filament.openedSpoolsCount()), filament.colorHex(), filament.colorName(),
        filament.notes()}
        .join(u" | "_s);
}

} // namespace

void SampleDataTest::emptyStockGetsTheWholeSample()
{
    SampleDataFixture fixture;
    const QDateTime before = QDateTime::currentDateTimeUtc();

    SampleData::seed(fixture.context, fixture.preferences);

    QCOMPARE(fixture.names<FilamentType>(),
        QStringList({u"PLA"_s, u"PETG"_s, u"ASA"_s, u"ABS"_s, u"TPU"_s, u"Nylon"_s,
            u"Polycarbonate"_s, u"PVA"_s, u"HIPS"_s, u"PP"_s}));
    for (const auto& type : fixture.context.fetchAll<FilamentType>())
        QCOMPARE(type->iconName(), u"cube.fill"_s);
    QCOMPARE(fixture.names<Brand>(),
        QStringList({u"Bambu Lab"_s, u"Sunlu"_s, u"Anycubic"_s, u"Elegoo"_s, u"Prusament"_s,
            u"Polymaker"_s, u"eSun"_s, u"Overture"_s, u"Filamentum"_s, u"Devil Design"_s}));
    QCOMPARE(fixture.names<FilamentRange>(),
        QStringList({u"PLA Basic"_s, u"PLA Matte"_s, u"PLA Silk"_s, u"PLA Metal"_s, u"PLA Tough"_s,
            u"PETG Standard"_s, u"PETG Translucent"_s, u"PETG CF"_s, u"ASA Standard"_s,
            u"ASA Translucent"_s, u"ABS Standard"_s, u"TPU 95A"_s, u"TPU 85A"_s, u"Nylon PA12"_s,
            u"Nylon PA6-CF"_s}));
    QCOMPARE(fixture.names<Location>(),
        QStringList({u"Étagère A"_s, u"Étagère B"_s, u"Étagère C"_s, u"Tiroir 1"_s, u"Tiroir 2"_s,
            u"Armoire"_s, u"Boîte PLA"_s, u"Boîte PETG"_s}));

    QStringList filaments;
    for (const auto& filament : fixture.context.fetchAll<Filament>()) {
        filaments += asLine(*filament);
        QVERIFY(filament->dateAdded() >= before.addMSecs(-1));
        QVERIFY(filament->dateAdded() <= QDateTime::currentDateTimeUtc());
    }
    QCOMPARE(filaments,
        QStringList({
            u"PLA | Bambu Lab | PLA Basic | Étagère A | 2 | 1 | #E53935 | Rouge | Rouge Bambu Lab"_s,
            u"PLA | Bambu Lab | PLA Matte | Étagère A | 1 | 1 | #1E88E5 | Bleu mat | Bleu mat"_s,
            u"PLA | Sunlu | PLA Silk | Tiroir 1 | 3 | 0 | #FDD835 | Soie dorée | Soie dorée"_s,
            u"PETG | Anycubic | PETG Standard | Étagère B | 1 | 0 | #43A047 | Vert | PETG vert"_s,
            u"PETG | Elegoo | PETG Translucent | Étagère B | 1 | 1 | #FB8BFF | Rose translucide"
            u" | PETG rose translucide"_s,
            u"ASA | Bambu Lab | ASA Standard | Étagère C | 1 | 1 | #FF6F00 | Orange | ASA orange"_s,
            u"TPU | Prusament | TPU 95A | Tiroir 2 | 2 | 1 | #8E24AA | Violet | TPU violet"_s,
            u"PLA | Polymaker | PLA Basic | Boîte PLA | 1 | 0 | #FFFFFF | Blanc"
            u" | PLA blanc Polymaker"_s,
        }));
    QVERIFY(fixture.preferences.didSeedSampleData());
}

void SampleDataTest::seedingIsSavedOnceAndNotAnAction()
{
    SampleDataFixture fixture;
    const QSignalSpy changed(&fixture.context, &StoreContext::changed);

    SampleData::seed(fixture.context, fixture.preferences);
    QCoreApplication::processEvents();

    QCOMPARE(fixture.store.commits.size(), 1);
    QCOMPARE(fixture.store.commits[0].size(), 10 + 10 + 15 + 8 + 8);
    QCOMPARE(changed.size(), 1);
    QVERIFY(fixture.context.undoActionName().isEmpty());
    fixture.context.undo();
    QCOMPARE(fixture.context.count<Filament>(), 8);
}

void SampleDataTest::onlyTypesAndFilamentsCountAsData()
{
    SampleDataFixture fixture;
    fixture.context.insert(std::make_unique<Brand>(u"Maison"_s));

    SampleData::seed(fixture.context, fixture.preferences);

    QCOMPARE(fixture.context.count<Brand>(), 11);
    QCOMPARE(fixture.names<Brand>().first(), u"Maison"_s);
    QCOMPARE(fixture.context.count<Filament>(), 8);
}

void SampleDataTest::stockWithDataIsLeftAlone_data()
{
    QTest::addColumn<bool>("hasFilament");

    QTest::newRow("one filament") << true;
    QTest::newRow("one type") << false;
}

void SampleDataTest::stockWithDataIsLeftAlone()
{
    QFETCH(bool, hasFilament);
    SampleDataFixture fixture;
    if (hasFilament)
        fixture.context.insert(std::make_unique<Filament>(
            nullptr, nullptr, nullptr, nullptr, 1, 0, u"#000000"_s, u"Noir"_s, QString()));
    else
        fixture.context.insert(std::make_unique<FilamentType>(u"Bois"_s));

    SampleData::seed(fixture.context, fixture.preferences);

    QCOMPARE(fixture.context.count<Filament>(), hasFilament ? 1 : 0);
    QCOMPARE(fixture.context.count<FilamentType>(), hasFilament ? 0 : 1);
    QCOMPARE(fixture.context.count<Brand>(), 0);
    QVERIFY(fixture.preferences.didSeedSampleData());
}

void SampleDataTest::flagAlreadySetPreventsSeeding()
{
    SampleDataFixture fixture;
    fixture.preferences.setDidSeedSampleData(true);

    SampleData::seed(fixture.context, fixture.preferences);

    QCOMPARE(fixture.context.count<FilamentType>(), 0);
    QVERIFY(fixture.store.commits.isEmpty());
}

void SampleDataTest::failedSaveStillSetsTheFlag()
{
    SampleDataFixture fixture;
    fixture.store.error = StoreError{u"Disque plein"_s};

    SampleData::seed(fixture.context, fixture.preferences);

    QVERIFY(fixture.preferences.didSeedSampleData());
    QCOMPARE(fixture.context.count<Filament>(), 8);
    QVERIFY(fixture.context.hasUnsavedChanges());
}

REELHOUSE_TEST(SampleDataTest)

#include "SampleDataTest.moc"
