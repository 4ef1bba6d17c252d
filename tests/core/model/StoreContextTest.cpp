#include "core/model/StoreContext.h"

#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtCore/QThread>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class StoreContextTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void identitiesRiseAndAreNeverGivenTwice();
    void identitiesBeginAboveEveryLoadedOne();
    void loadingIsNeitherAnnouncedNorSaved();
    void storeOrderIsTheOrderOfInsertion();
    void rowsNumberTheStoreOrder();
    void findingFollowsInsertionAndRemoval();
    void removingTwiceIsRemovingOnce();
    void changesOfOneTurnAreAnnouncedOnceThenSaved();
    void savingAnnouncesFirst();
    void nothingPendingIsNotSaved();
    void valuePutBackBeforeTheSaveIsNotWritten();
    void whatCameAndWentBeforeTheSaveIsNotWritten();
    void changesComeInIdentityOrder();
    void removalOfAnEntryLeavesItsFilamentsToTheStore();
    void failedSaveStaysPendingAndGoesAlong();
    void failedAutomaticSaveGoesAlongWithTheNextChange();
    void removedObjectLivesUntilTheChangeIsDelivered();
    void contextMovesToAnotherThread();

private:
    Filament& insertFilament(Brand* brand = nullptr);
    Brand& insertBrand(const QString& name);

    std::unique_ptr<tests::RecordingStore> m_store;
    std::unique_ptr<StoreContext> m_context;
};

void StoreContextTest::init()
{
    m_context.reset();
    m_store = std::make_unique<tests::RecordingStore>();
    m_context = std::make_unique<StoreContext>(*m_store);
}

Filament& StoreContextTest::insertFilament(Brand* brand)
{
    return m_context->insert(std::make_unique<Filament>(
        nullptr, brand, nullptr, nullptr, 1, 0, u"#000000"_s, u"Noir"_s, QString()));
}

Brand& StoreContextTest::insertBrand(const QString& name)
{
    return m_context->insert(std::make_unique<Brand>(name));
}

void StoreContextTest::identitiesRiseAndAreNeverGivenTwice()
{
    QCOMPARE(insertFilament().id().value, 1);
    Filament& second = insertFilament();
    QCOMPARE(second.id().value, 2);
    QCOMPARE(insertBrand(u"Sunlu"_s).id().value, 1);

    m_context->remove(second);
    m_context->save();

    QCOMPARE(insertFilament().id().value, 3);
}

void StoreContextTest::identitiesBeginAboveEveryLoadedOne()
{
    m_context->load(BrandId{7}, std::make_unique<Brand>(u"Sunlu"_s));
    m_context->load(BrandId{4}, std::make_unique<Brand>(u"eSun"_s));

    QCOMPARE(insertBrand(u"Elegoo"_s).id().value, 8);
    QCOMPARE(m_context->find(BrandId{4})->name(), u"eSun"_s);
    QCOMPARE(m_context->find(BrandId{7})->name(), u"Sunlu"_s);
    QCOMPARE(m_context->fetchAll<Brand>()[0]->name(), u"eSun"_s);
}

void StoreContextTest::loadingIsNeitherAnnouncedNorSaved()
{
    const QSignalSpy changed(m_context.get(), &StoreContext::changed);

    m_context->load(BrandId{1}, std::make_unique<Brand>(u"Sunlu"_s));
    QCoreApplication::processEvents();

    QCOMPARE(changed.size(), 0);
    QVERIFY(!m_context->hasUnsavedChanges());
    QVERIFY(m_store->commits.isEmpty());
    QVERIFY(m_context->undoActionName().isEmpty());
}

void StoreContextTest::storeOrderIsTheOrderOfInsertion()
{
    QStringList expected;
    for (int count = 0; count < 200; ++count) {
        const QString name = QString::number((count * 37) % 200);
        insertBrand(name);
        expected += name;
    }
    for (int count = 150; count > 20; count -= 7) {
        m_context->remove(*m_context->find(BrandId{count}));
        expected[count - 1].clear();
    }
    expected.removeAll(QString());

    QStringList actual;
    for (const auto& brand : m_context->fetchAll<Brand>())
        actual += brand->name();
    QCOMPARE(actual, expected);
    QCOMPARE(m_context->count<Brand>(), expected.size());
}

void StoreContextTest::rowsNumberTheStoreOrder()
{
    for (int count = 0; count < 5; ++count)
        insertFilament();
    m_context->remove(*m_context->find(FilamentId{2}));

    const auto filaments = m_context->fetchAll<Filament>();

    QCOMPARE(filaments.size(), size_t(4));
    for (size_t row = 0; row < filaments.size(); ++row)
        QCOMPARE(filaments[row]->row(), quint32(row));
}

void StoreContextTest::findingFollowsInsertionAndRemoval()
{
    Filament& filament = insertFilament();
    const FilamentId id = filament.id();
    QCOMPARE(m_context->find(id), &filament);
    QCOMPARE(m_context->find(FilamentId{}), nullptr);
    QCOMPARE(m_context->find(FilamentId{99}), nullptr);

    m_context->remove(filament);

    QVERIFY(filament.isRemoved());
    QCOMPARE(m_context->find(id), nullptr);
    m_context->save();
    QCOMPARE(m_context->find(id), nullptr);
}

void StoreContextTest::removingTwiceIsRemovingOnce()
{
    Filament& filament = insertFilament();
    insertFilament();

    m_context->remove(filament);
    m_context->remove(filament);

    QCOMPARE(m_context->count<Filament>(), 1);
    QCOMPARE(m_context->fetchAll<Filament>().size(), size_t(1));
}

void StoreContextTest::changesOfOneTurnAreAnnouncedOnceThenSaved()
{
    const QSignalSpy changed(m_context.get(), &StoreContext::changed);
    qsizetype commitsWhenAnnounced = -1;
    connect(m_context.get(), &StoreContext::changed, this,
        [&] { commitsWhenAnnounced = m_store->commits.size(); });

    Brand& brand = insertBrand(u"Sunlu"_s);
    insertFilament(&brand).setSpoolsCount(4);
    brand.setName(u"eSun"_s);
    QCOMPARE(changed.size(), 0);
    QVERIFY(m_context->hasUnsavedChanges());
    QCoreApplication::processEvents();

    QCOMPARE(changed.size(), 1);
    QCOMPARE(commitsWhenAnnounced, 0);
    QCOMPARE(m_store->commits, (QList<QStringList>{{u"+Brand 1"_s, u"+Filament 1"_s}}));
    QVERIFY(!m_context->hasUnsavedChanges());

    brand.setName(u"Elegoo"_s);
    QCoreApplication::processEvents();
    QCOMPARE(changed.size(), 2);
    QCOMPARE(m_store->commits.last(), QStringList{u"~Brand 1"_s});
}

void StoreContextTest::savingAnnouncesFirst()
{
    const QSignalSpy changed(m_context.get(), &StoreContext::changed);
    insertBrand(u"Sunlu"_s);

    QVERIFY(!m_context->save());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_store->commits.size(), 1);

    QCoreApplication::processEvents();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_store->commits.size(), 1);
}

void StoreContextTest::nothingPendingIsNotSaved()
{
    QVERIFY(!m_context->save());
    QVERIFY(m_store->commits.isEmpty());
}

void StoreContextTest::valuePutBackBeforeTheSaveIsNotWritten()
{
    Filament& filament = insertFilament();
    m_context->save();

    filament.setSpoolsCount(5);
    filament.setSpoolsCount(1);
    m_context->save();

    QCOMPARE(m_store->commits.size(), 1);
    QVERIFY(!m_context->hasUnsavedChanges());
}

void StoreContextTest::whatCameAndWentBeforeTheSaveIsNotWritten()
{
    Brand& brand = insertBrand(u"Sunlu"_s);
    Filament& filament = insertFilament(&brand);
    m_context->remove(brand);
    m_context->remove(filament);

    m_context->save();

    QVERIFY(m_store->commits.isEmpty());
    QVERIFY(!m_context->hasUnsavedChanges());
}

void StoreContextTest::changesComeInIdentityOrder()
{
    for (int count = 0; count < 6; ++count)
        insertFilament();
    m_context->save();
    m_store->commits.clear();

    m_context->find(FilamentId{5})->setSpoolsCount(2);
    m_context->find(FilamentId{3})->setSpoolsCount(2);
    m_context->remove(*m_context->find(FilamentId{6}));
    m_context->remove(*m_context->find(FilamentId{2}));
    insertFilament();
    insertFilament();
    m_context->save();

    QCOMPARE(m_store->commits,
        (QList<QStringList>{{u"+Filament 7"_s, u"+Filament 8"_s, u"~Filament 3"_s, u"~Filament 5"_s,
            u"-Filament 2"_s, u"-Filament 6"_s}}));
}

void StoreContextTest::removalOfAnEntryLeavesItsFilamentsToTheStore()
{
    Brand& brand = insertBrand(u"Sunlu"_s);
    Brand& other = insertBrand(u"Acme"_s);
    insertFilament(&brand);
    insertFilament();
    Filament& edited = insertFilament(&brand);
    Filament& moved = insertFilament(&brand);
    m_context->save();
    m_store->commits.clear();

    m_context->remove(brand);
    edited.setNotes(u"autre"_s);
    moved.setBrand(&other);
    m_context->save();

    QCOMPARE(m_store->commits,
        (QList<QStringList>{{u"-Brand 1"_s, u"~Filament 3"_s, u"~Filament 4"_s}}));
}

void StoreContextTest::failedSaveStaysPendingAndGoesAlong()
{
    Filament& first = insertFilament();
    Filament& second = insertFilament();
    m_context->save();
    m_store->commits.clear();
    const StoreError diskFull{u"Disque plein"_s};

    m_store->error = diskFull;
    first.setSpoolsCount(2);
    m_context->remove(second);
    QCOMPARE(m_context->save(), std::optional(diskFull));
    QVERIFY(m_context->hasUnsavedChanges());
    QCOMPARE(m_context->save(), std::optional(diskFull));

    m_store->error.reset();
    insertFilament();
    QVERIFY(!m_context->save());

    QCOMPARE(m_store->commits,
        (QList<QStringList>{{u"+Filament 3"_s, u"~Filament 1"_s, u"-Filament 2"_s}}));
    QVERIFY(!m_context->hasUnsavedChanges());
}

void StoreContextTest::failedAutomaticSaveGoesAlongWithTheNextChange()
{
    m_store->error = StoreError{u"Disque plein"_s};
    Filament& filament = insertFilament();
    QCoreApplication::processEvents();
    QVERIFY(m_context->hasUnsavedChanges());

    m_store->error.reset();
    QCoreApplication::processEvents();
    QVERIFY(m_store->commits.isEmpty());
    filament.setSpoolsCount(3);
    QCoreApplication::processEvents();

    QCOMPARE(m_store->commits, (QList<QStringList>{{u"+Filament 1"_s}}));
}

void StoreContextTest::removedObjectLivesUntilTheChangeIsDelivered()
{
    Filament& filament = insertFilament();
    m_context->save();
    QString notesWhenAnnounced;
    connect(m_context.get(), &StoreContext::changed, this,
        [&] { notesWhenAnnounced = filament.colorName(); });

    m_context->remove(filament);
    QCoreApplication::processEvents();

    QCOMPARE(notesWhenAnnounced, u"Noir"_s);
}

void StoreContextTest::contextMovesToAnotherThread()
{
    std::unique_ptr<StoreContext> context;
    QThread* mainThread = QThread::currentThread();
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        context = std::make_unique<StoreContext>(*m_store);
        context->load(BrandId{1}, std::make_unique<Brand>(u"Sunlu"_s));
        context->moveToThread(mainThread);
    }));
    thread->start();
    QVERIFY(thread->wait(10000));
    const QSignalSpy changed(context.get(), &StoreContext::changed);

    context->find(BrandId{1})->setName(u"eSun"_s);
    QCoreApplication::processEvents();

    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_store->commits, (QList<QStringList>{{u"~Brand 1"_s}}));
}

REELHOUSE_TEST(StoreContextTest)

#include "StoreContextTest.moc"
