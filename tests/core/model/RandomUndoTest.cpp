#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/StockPicture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <random>

using namespace reelhouse;
using reelhouse::tests::pictureOf;
using namespace Qt::StringLiterals;

class RandomUndoTest final : public QObject {
    Q_OBJECT

private slots:
    void undoneAllGivesTheFirstStockAndDoneAllTheLast_data();
    void undoneAllGivesTheFirstStockAndDoneAllTheLast();
};

namespace {

/// Edits at random whatever it finds.
class Meddler final {
public:
    Meddler(StoreContext& context, quint32 seed)
        : m_context(context)
        , m_random(seed)
    {
    }

    void meddle()
    {
        switch (below(10)) {
        case 0:
        case 1:
            insertEntry();
            break;
        case 2:
        case 3:
            m_context.insert(std::make_unique<Filament>(any<FilamentType>(), any<Brand>(),
                any<FilamentRange>(), any<Location>(), 2, 1, word(), word(), word()));
            break;
        case 4:
            remove<Filament>();
            break;
        case 5:
            removeEntry();
            break;
        case 6:
            if (Location* location = any<Location>())
                location->setName(word());
            break;
        default:
            if (Filament* filament = any<Filament>())
                edit(*filament);
            break;
        }
    }

    size_t below(size_t limit) { return size_t(m_random() % limit); }

private:
    void insertEntry()
    {
        switch (below(4)) {
        case 0:
            m_context.insert(std::make_unique<FilamentType>(word()));
            break;
        case 1:
            m_context.insert(std::make_unique<Brand>(word()));
            break;
        case 2:
            m_context.insert(std::make_unique<FilamentRange>(word()));
            break;
        default:
            m_context.insert(std::make_unique<Location>(word()));
            break;
        }
    }

    void removeEntry()
    {
        switch (below(4)) {
        case 0:
            remove<FilamentType>();
            break;
        case 1:
            remove<Brand>();
            break;
        case 2:
            remove<FilamentRange>();
            break;
        default:
            remove<Location>();
            break;
        }
    }

    template <class T>
    void remove()
    {
        if (T* entity = any<T>())
            m_context.remove(*entity);
    }

    void edit(Filament& filament)
    {
        switch (below(5)) {
        case 0:
            filament.setSpoolsCount(qint64(below(5)));
            break;
        case 1:
            filament.setNotes(word());
            break;
        case 2:
            filament.setType(any<FilamentType>());
            break;
        case 3:
            filament.setBrand(any<Brand>());
            break;
        default:
            filament.setRange(any<FilamentRange>());
            break;
        }
    }

    template <class T>
    T* any()
    {
        const auto all = m_context.fetchAll<T>();
        return all.empty() || below(5) == 0 ? nullptr : all[below(all.size())].get();
    }

    QString word() { return QString::number(below(10)); }

    StoreContext& m_context;
    std::mt19937 m_random;
};

} // namespace

void RandomUndoTest::undoneAllGivesTheFirstStockAndDoneAllTheLast_data()
{
    QTest::addColumn<quint32>("seed");

    for (quint32 seed = 1; seed <= 15; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void RandomUndoTest::undoneAllGivesTheFirstStockAndDoneAllTheLast()
{
    QFETCH(quint32, seed);
    tests::RecordingStore store;
    StoreContext context(store);
    Meddler meddler(context, seed);
    QList<QStringList> pictures{pictureOf(context)};
    const auto pause = [&] {
        if (meddler.below(3) == 0)
            context.save();
    };

    while (pictures.size() < 60) {
        const QStringList last = pictures.last();
        context.perform(u"Hasard"_s, [&] {
            for (size_t step = meddler.below(6) + 1; step > 0; --step)
                meddler.meddle();
        });
        pause();
        if (pictureOf(context) != last)
            pictures += pictureOf(context);
        // Now and then one step back and forth.
        if (pictures.size() > 1 && meddler.below(4) == 0) {
            context.undo();
            pause();
            QCOMPARE(pictureOf(context), pictures[pictures.size() - 2]);
            context.redo();
            QCOMPARE(pictureOf(context), pictures.last());
        }
    }

    for (qsizetype step = pictures.size() - 1; step > 0; --step) {
        QCOMPARE(pictureOf(context), pictures[step]);
        context.undo();
        pause();
    }
    QCOMPARE(pictureOf(context), pictures.first());
    QCOMPARE(context.undoActionName(), QString());
    for (qsizetype step = 1; step < pictures.size(); ++step) {
        context.redo();
        pause();
        QCOMPARE(pictureOf(context), pictures[step]);
    }
    QCOMPARE(context.redoActionName(), QString());
}

REELHOUSE_TEST(RandomUndoTest)

#include "RandomUndoTest.moc"
