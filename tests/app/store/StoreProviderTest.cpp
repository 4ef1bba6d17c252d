#include "app/store/StoreProvider.h"

#include "tests/app/store/StoreFixtures.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <atomic>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class StoreProviderTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void theFirstRunMakesTheFolderAndAnEmptyStore();
    void thePathsHangBelowDocuments();
    void loadingTwiceOpensOnce();
    void anUnusableFileGivesTheMemoryStoreAndAsksForTheAlert();
    void whenBothStoresFailTheMessageHoldsBothReasons();
    void aStoreThatFailsWhileLoadingIsNotUsed();
    void theContextBelongsToTheMainThread();
    void whatCouldNotBeSavedIsTriedAgain();
    void aFolderThatCannotBeMadeGivesTheMemoryStore();
    void theJournalIsMovedIntoTheFileOnceTheProgramIsIdle();
    void destructionWaitsForTheOpening();

private:
    StorePaths paths() const { return StorePaths(m_documents->path()); }

    std::unique_ptr<QTemporaryDir> m_documents;
};

namespace {

using Opened = Result<std::unique_ptr<PersistentStore>, StoreError>;

StoreOpeners::Opener failingWith(const QString& message)
{
    return [message]() -> Opened { return Failure{StoreError{message}}; };
}

/// Opens without a complaint and then cannot be read.
class UnreadableStore final : public PersistentStore {
public:
    std::optional<StoreError> load(StoreContext& /*context*/) override
    {
        return StoreError{u"illisible"_s};
    }
    std::optional<StoreError> commit(const StockChanges& /*changes*/) override
    {
        return std::nullopt;
    }
};

} // namespace

void StoreProviderTest::init()
{
    m_documents = std::make_unique<QTemporaryDir>();
}

void StoreProviderTest::theFirstRunMakesTheFolderAndAnEmptyStore()
{
    const StorePaths below(m_documents->filePath(u"pas encore là"_s));
    StoreProvider provider(below);
    QSignalSpy states(&provider, &StoreProvider::stateChanged);
    QSignalSpy activations(&provider, &StoreProvider::activationRequested);
    QSignalSpy alerts(&provider, &StoreProvider::storeAlertRequested);
    QVERIFY(!provider.container());
    QCOMPARE(provider.failureMessage(), QString());

    provider.loadIfNeeded();
    QVERIFY(activations.wait());

    QCOMPARE(states.size(), 1);
    QVERIFY(provider.container());
    QVERIFY(!provider.usesMemoryStore());
    QCOMPARE(provider.failureMessage(), QString());
    QCOMPARE(alerts.size(), 0);
    QVERIFY(QFileInfo(below.storeFile()).isFile());
}

void StoreProviderTest::thePathsHangBelowDocuments()
{
    const StorePaths documents(u"/home/ada/Documents"_s);
    QCOMPARE(documents.dataFolder(), u"/home/ada/Documents/Spoolwright"_s);
    QCOMPARE(documents.storeFile(), u"/home/ada/Documents/Spoolwright/Spoolwright.store"_s);
    QCOMPARE(documents.olderStoreFile(), u"/home/ada/Documents/Reelhouse/Reelhouse.store"_s);
}

void StoreProviderTest::loadingTwiceOpensOnce()
{
    std::atomic<int> openings = 0;
    StoreProvider provider(paths(),
        {[&]() -> Opened {
             ++openings;
             return Failure{StoreError{u"E1"_s}};
         },
            failingWith(u"E2"_s)});
    QSignalSpy states(&provider, &StoreProvider::stateChanged);

    provider.loadIfNeeded();
    provider.loadIfNeeded();
    QVERIFY(states.wait());
    provider.loadIfNeeded();
    QTest::qWait(50);

    QCOMPARE(openings.load(), 1);
    QCOMPARE(states.size(), 1);
}

void StoreProviderTest::anUnusableFileGivesTheMemoryStoreAndAsksForTheAlert()
{
    QDir().mkpath(paths().dataFolder());
    writeBytes(paths().storeFile(), QByteArray("pas une base").repeated(1000));
    const auto before = snapshotOf(m_documents->path());
    StoreProvider provider(paths());
    QStringList order;
    connect(&provider, &StoreProvider::stateChanged, this, [&] { order << u"state"_s; });
    connect(&provider, &StoreProvider::activationRequested, this, [&] { order << u"front"_s; });
    connect(&provider, &StoreProvider::storeAlertRequested, this,
        [&](const QString& message) { order << message; });

    provider.loadIfNeeded();
    QTRY_COMPARE(order.size(), 3);

    const QStringList expected{
        u"state"_s, u"front"_s, u"Le fichier n'est pas une base de données."_s};
    QCOMPARE(order, expected);
    QVERIFY(provider.container());
    QVERIFY(provider.usesMemoryStore());
    QCOMPARE(provider.failureMessage(), QString());
    QCOMPARE(provider.container()->context().count<Filament>(), 0);
    QCOMPARE(snapshotOf(m_documents->path()), before);
}

void StoreProviderTest::whenBothStoresFailTheMessageHoldsBothReasons()
{
    StoreProvider provider(
        paths(), {failingWith(u"Le disque est plein."_s), failingWith(u"Trop peu de mémoire."_s)});
    QSignalSpy activations(&provider, &StoreProvider::activationRequested);
    QSignalSpy alerts(&provider, &StoreProvider::storeAlertRequested);

    provider.loadIfNeeded();
    QVERIFY(activations.wait());

    QVERIFY(!provider.container());
    QVERIFY(!provider.usesMemoryStore());
    QCOMPARE(provider.failureMessage(), u"Le disque est plein.\n\nTrop peu de mémoire."_s);
    QCOMPARE(alerts.size(), 0);
}

void StoreProviderTest::aStoreThatFailsWhileLoadingIsNotUsed()
{
    const auto unreadable = []() -> Opened {
        return std::unique_ptr<PersistentStore>(std::make_unique<UnreadableStore>());
    };
    StoreProvider provider(paths(), {unreadable, failingWith(u"E2"_s)});
    QSignalSpy states(&provider, &StoreProvider::stateChanged);

    provider.loadIfNeeded();
    QVERIFY(states.wait());

    QVERIFY(!provider.container());
    QCOMPARE(provider.failureMessage(), u"illisible\n\nE2"_s);
}

void StoreProviderTest::theContextBelongsToTheMainThread()
{
    StoreProvider provider(paths());
    QSignalSpy states(&provider, &StoreProvider::stateChanged);
    provider.loadIfNeeded();
    QVERIFY(states.wait());

    StoreContext& context = provider.container()->context();
    QCOMPARE(context.thread(), QThread::currentThread());
    QSignalSpy changes(&context, &StoreContext::changed);
    context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    QVERIFY(changes.wait());
    QVERIFY(!context.hasUnsavedChanges());
}

void StoreProviderTest::theJournalIsMovedIntoTheFileOnceTheProgramIsIdle()
{
    StoreProvider provider(paths());
    QSignalSpy states(&provider, &StoreProvider::stateChanged);
    provider.loadIfNeeded();
    QVERIFY(states.wait());

    provider.container()->context().insert(std::make_unique<Brand>(u"Atelier Bleu"_s));
    QTRY_VERIFY(!provider.container()->context().hasUnsavedChanges());
    QTRY_VERIFY_WITH_TIMEOUT(bytesOf(paths().storeFile()).contains("Atelier Bleu"), 20000);
}

void StoreProviderTest::whatCouldNotBeSavedIsTriedAgain()
{
    auto made = std::make_unique<RecordingStore>();
    RecordingStore& store = *made;
    StoreProvider provider(paths(),
        {[&]() -> Opened { return std::unique_ptr<PersistentStore>(std::move(made)); },
            failingWith(u"E2"_s)});
    QSignalSpy states(&provider, &StoreProvider::stateChanged);
    provider.loadIfNeeded();
    QVERIFY(states.wait());
    StoreContext& context = provider.container()->context();
    QSignalSpy commits(&context, &StoreContext::committed);
    store.error = StoreError{u"Le disque est plein."_s};

    context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    QTRY_COMPARE(commits.size(), 1);
    QCOMPARE(commits.last().first().toString(), u"Le disque est plein."_s);
    store.error.reset();

    QTRY_VERIFY_WITH_TIMEOUT(!context.hasUnsavedChanges(), 20000);
    QCOMPARE(store.commits, QList<QStringList>{{u"+Brand 1"_s}});
    QCOMPARE(commits.last().first().toString(), QString());
}

void StoreProviderTest::aFolderThatCannotBeMadeGivesTheMemoryStore()
{
    writeBytes(paths().dataFolder(), "un fichier");
    StoreProvider provider(paths());
    QSignalSpy alerts(&provider, &StoreProvider::storeAlertRequested);

    provider.loadIfNeeded();
    QVERIFY(alerts.wait());

    QVERIFY(provider.usesMemoryStore());
    QVERIFY(!alerts.first().first().toString().isEmpty());
    QCOMPARE(bytesOf(paths().dataFolder()), "un fichier"_ba);
}

void StoreProviderTest::destructionWaitsForTheOpening()
{
    std::atomic<bool> isDone = false;
    {
        StoreProvider provider(paths(),
            {[&]() -> Opened {
                 QThread::msleep(100);
                 isDone = true;
                 return Failure{StoreError{u"E1"_s}};
             },
                failingWith(u"E2"_s)});
        provider.loadIfNeeded();
    }
    QVERIFY(isDone);
}

REELHOUSE_TEST(StoreProviderTest)

#include "StoreProviderTest.moc"
