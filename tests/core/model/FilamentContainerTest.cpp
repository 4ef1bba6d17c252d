#include "core/model/FilamentContainer.h"

#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <csignal>
#include <limits>
#include <random>
#include <set>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilamentContainerTest final : public QObject {
    Q_OBJECT

private slots:
    void settingAReferenceKeepsBothSides();
    void countsAreDerivedFromTheFilaments();
    void spoolCountBeyond64BitsEndsTheProgram();
    void removingAnEntryLeavesItsFilamentsWithoutIt();
    void removingAFilamentLeavesItsEntries();
    void whatIsDestroyedLeavesNoTrace();
    void everySetterIsNoticed();
    void randomOperationsAgreeWithAPlainModel();
};

namespace {

Filament& insertFilament(StoreContext& context, Location* location, qint64 spools)
{
    return context.insert(std::make_unique<Filament>(
        nullptr, nullptr, nullptr, location, spools, 0, u"#000000"_s, QString(), QString()));
}

std::set<const Filament*> filamentsOf(const FilamentContainer& entry)
{
    return {entry.filaments().begin(), entry.filaments().end()};
}

} // namespace

void FilamentContainerTest::settingAReferenceKeepsBothSides()
{
    Brand former(u"Sunlu"_s);
    Brand latter(u"eSun"_s);
    Filament first(nullptr, &former, nullptr, nullptr, 1, 0, {}, {}, {});
    Filament second(nullptr, &former, nullptr, nullptr, 1, 0, {}, {}, {});
    Filament third(nullptr, &former, nullptr, nullptr, 1, 0, {}, {}, {});
    QCOMPARE(filamentsOf(former), (std::set<const Filament*>{&first, &second, &third}));

    first.setBrand(&latter);

    QCOMPARE(first.brand(), &latter);
    QCOMPARE(filamentsOf(former), (std::set<const Filament*>{&second, &third}));
    QCOMPARE(filamentsOf(latter), (std::set<const Filament*>{&first}));

    third.setBrand(nullptr);
    QCOMPARE(third.brand(), nullptr);
    QCOMPARE(filamentsOf(former), (std::set<const Filament*>{&second}));
}

void FilamentContainerTest::countsAreDerivedFromTheFilaments()
{
    tests::RecordingStore store;
    StoreContext context(store);
    Location& location = context.insert(std::make_unique<Location>(u"Armoire"_s));
    QCOMPARE(location.filamentCount(), 0);
    QCOMPARE(location.spoolCount(), 0);

    for (const qint64 spools : {2, 0, 5})
        insertFilament(context, &location, spools);

    QCOMPARE(location.filamentCount(), 3);
    QCOMPARE(location.spoolCount(), 7);
}

void FilamentContainerTest::spoolCountBeyond64BitsEndsTheProgram()
{
    const qint64 most = std::numeric_limits<qint64>::max();
    Location location(u"Armoire"_s);
    const Filament first(nullptr, nullptr, nullptr, &location, most, 0, {}, {}, {});
    QCOMPARE(location.spoolCount(), most);
    const Filament second(nullptr, nullptr, nullptr, &location, 1, 0, {}, {}, {});

    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGABRT, SIG_DFL);
        ::close(STDERR_FILENO);
        ::_exit(location.spoolCount() == 0 ? 1 : 0);
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);

    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGABRT);
}

void FilamentContainerTest::removingAnEntryLeavesItsFilamentsWithoutIt()
{
    tests::RecordingStore store;
    StoreContext context(store);
    auto& type = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    auto& brand = context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    auto& range = context.insert(std::make_unique<FilamentRange>(u"Silk"_s));
    auto& location = context.insert(std::make_unique<Location>(u"Armoire"_s));
    for (int count = 0; count < 3; ++count)
        context.insert(std::make_unique<Filament>(
            &type, &brand, &range, &location, 1, 0, QString(), QString(), QString()));

    context.remove(brand);

    QCOMPARE(context.count<Filament>(), 3);
    for (const auto& filament : context.fetchAll<Filament>()) {
        QCOMPARE(filament->brand(), nullptr);
        QCOMPARE(filament->type(), &type);
        QCOMPARE(filament->range(), &range);
        QCOMPARE(filament->location(), &location);
    }
    context.remove(type);
    context.remove(range);
    context.remove(location);
    QCOMPARE(context.count<Filament>(), 3);
    for (const auto& filament : context.fetchAll<Filament>())
        QCOMPARE(filament->values().references, (std::array<qint64, 4>{}));
}

void FilamentContainerTest::removingAFilamentLeavesItsEntries()
{
    tests::RecordingStore store;
    StoreContext context(store);
    Location& location = context.insert(std::make_unique<Location>(u"Armoire"_s));
    Filament& first = insertFilament(context, &location, 2);
    Filament& second = insertFilament(context, &location, 3);

    context.remove(first);

    QCOMPARE(context.count<Location>(), 1);
    QCOMPARE(filamentsOf(location), (std::set<const Filament*>{&second}));
    QCOMPARE(location.spoolCount(), 3);
}

void FilamentContainerTest::whatIsDestroyedLeavesNoTrace()
{
    Location location(u"Armoire"_s);
    auto filament = std::make_unique<Filament>(
        nullptr, nullptr, nullptr, &location, 1, 0, QString(), QString(), QString());
    filament.reset();
    QCOMPARE(location.filamentCount(), 0);

    Filament survivor(nullptr, nullptr, nullptr, nullptr, 1, 0, {}, {}, {});
    {
        Location shortLived(u"Tiroir"_s);
        survivor.setLocation(&shortLived);
    }
    QCOMPARE(survivor.location(), nullptr);
}

void FilamentContainerTest::everySetterIsNoticed()
{
    tests::RecordingStore store;
    StoreContext context(store);
    auto& type = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    auto& brand = context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    auto& range = context.insert(std::make_unique<FilamentRange>(u"Silk"_s));
    auto& location = context.insert(std::make_unique<Location>(u"Armoire"_s));
    context.save();
    store.commits.clear();

    type.setName(u"PETG"_s);
    context.save();
    type.setIconName(u"leaf.fill"_s);
    context.save();
    brand.setName(u"eSun"_s);
    range.setName(u"Mat"_s);
    location.setName(u"Tiroir"_s);
    context.save();
    type.setName(u"PETG"_s);
    type.setIconName(u"leaf.fill"_s);
    brand.setName(u"eSun"_s);
    context.save();

    QCOMPARE(store.commits,
        (QList<QStringList>{{u"~FilamentType 1"_s}, {u"~FilamentType 1"_s},
            {u"~Brand 1"_s, u"~FilamentRange 1"_s, u"~Location 1"_s}}));
}

void FilamentContainerTest::randomOperationsAgreeWithAPlainModel()
{
    tests::RecordingStore store;
    StoreContext context(store);
    std::mt19937 random(3);
    const auto below = [&](size_t limit) { return size_t(random() % limit); };
    std::map<qint64, qint64> brandOfFilament; // Identities; 0 for none.
    std::set<qint64> brands;
    const auto anyBrand = [&]() -> Brand* {
        if (brands.empty() || below(4) == 0)
            return nullptr;
        return context.find(BrandId{*std::next(brands.begin(), qint64(below(brands.size())))});
    };
    const auto anyFilament = [&]() -> Filament* {
        if (brandOfFilament.empty())
            return nullptr;
        const auto place
            = std::next(brandOfFilament.begin(), qint64(below(brandOfFilament.size())));
        return context.find(FilamentId{place->first});
    };

    for (int step = 0; step < 5000; ++step) {
        switch (below(8)) {
        case 0:
            brands.insert(context.insert(std::make_unique<Brand>(u"x"_s)).id().value);
            break;
        case 1:
            if (Brand* brand = anyBrand(); brand && below(3) == 0) {
                brands.erase(brand->id().value);
                for (auto& [filament, reference] : brandOfFilament)
                    reference = reference == brand->id().value ? 0 : reference;
                context.remove(*brand);
            }
            break;
        case 2:
        case 3: {
            Brand* brand = anyBrand();
            const auto& filament = context.insert(std::make_unique<Filament>(
                nullptr, brand, nullptr, nullptr, 1, 0, QString(), QString(), QString()));
            brandOfFilament[filament.id().value] = brand ? brand->id().value : 0;
            break;
        }
        case 4:
            if (Filament* filament = anyFilament()) {
                brandOfFilament.erase(filament->id().value);
                context.remove(*filament);
            }
            break;
        case 5:
            if (below(10) == 0)
                context.processPendingChanges();
            break;
        default:
            if (Filament* filament = anyFilament()) {
                Brand* brand = anyBrand();
                brandOfFilament[filament->id().value] = brand ? brand->id().value : 0;
                filament->setBrand(brand);
            }
            break;
        }
    }

    QVERIFY(brands.size() > 10);
    QVERIFY(brandOfFilament.size() > 50);
    QCOMPARE(context.count<Brand>(), qsizetype(brands.size()));
    QCOMPARE(context.count<Filament>(), qsizetype(brandOfFilament.size()));
    for (const auto& filament : context.fetchAll<Filament>()) {
        const qint64 brand = filament->brand() ? filament->brand()->id().value : 0;
        QCOMPARE(brand, brandOfFilament.at(filament->id().value));
    }
    for (const auto& brand : context.fetchAll<Brand>()) {
        QVERIFY(brands.contains(brand->id().value));
        std::set<qint64> expected;
        for (const auto& [filament, reference] : brandOfFilament) {
            if (reference == brand->id().value)
                expected.insert(filament);
        }
        std::set<qint64> actual;
        for (const Filament* filament : brand->filaments())
            actual.insert(filament->id().value);
        QCOMPARE(actual, expected);
        QCOMPARE(brand->filamentCount(), qint64(expected.size()));
    }
}

REELHOUSE_TEST(FilamentContainerTest)

#include "FilamentContainerTest.moc"
