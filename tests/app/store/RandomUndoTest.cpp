#include "app/store/SqliteStore.h"
#include "tests/support/StockPicture.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <functional>
#include <rapidcheck.h>

using namespace reelhouse;
using reelhouse::tests::pictureOf;
using namespace Qt::StringLiterals;

namespace {

/// What one random edit does; numbers beyond what the stock holds count again from the start.
struct RandomEdit {
    enum class Kind : quint8 {
        InsertEntry,
        InsertFilament,
        RemoveEntry,
        RemoveFilament,
        RenameEntry,
        SetIcon,
        SetSpools,
        SetTexts,
        SetReference,
    };

    Kind kind;
    quint8 target; ///< Which of the entities.
    quint8 reference; ///< Which list, or which entry.
    quint8 value; ///< What is written.
};

std::ostream& operator<<(std::ostream& stream, const RandomEdit& edit)
{
    return stream << '{' << int(edit.kind) << ' ' << int(edit.target) << ' ' << int(edit.reference)
                  << ' ' << int(edit.value) << '}';
}

/// One action of the user: a spool more on a filament, or several edits at once.
struct RandomAction {
    bool isPlus;
    quint8 target; ///< Which filament gets the spool.
    std::vector<RandomEdit> edits;
    bool isTakenBack; ///< Undone and done again at once.
};

std::ostream& operator<<(std::ostream& stream, const RandomAction& action)
{
    if (action.isPlus)
        return stream << "plus " << int(action.target);
    for (const RandomEdit& edit : action.edits)
        stream << edit << ' ';
    return stream;
}

/// Writes random edits into a stock.
class StockMeddler final {
public:
    explicit StockMeddler(StoreContext& context)
        : m_context(context)
    {
    }

    void apply(const RandomEdit& edit)
    {
        using Kind = RandomEdit::Kind;
        switch (edit.kind) {
        case Kind::InsertEntry:
            insertEntry(edit);
            break;
        case Kind::InsertFilament:
            m_context.insert(std::make_unique<Filament>(any<FilamentType>(edit.target),
                any<Brand>(edit.reference), any<FilamentRange>(edit.value),
                any<Location>(edit.target), edit.value, edit.reference, word(edit.value),
                word(edit.target), word(edit.reference)));
            break;
        case Kind::RemoveEntry:
            withEntry(edit, [this](auto& entry) { m_context.remove(entry); });
            break;
        case Kind::RemoveFilament:
            if (Filament* filament = any<Filament>(edit.target))
                m_context.remove(*filament);
            break;
        case Kind::RenameEntry:
            withEntry(edit, [&](auto& entry) { entry.setName(word(edit.value)); });
            break;
        case Kind::SetIcon:
            if (FilamentType* type = any<FilamentType>(edit.target))
                type->setIconName(word(edit.value));
            break;
        case Kind::SetSpools:
        case Kind::SetTexts:
        case Kind::SetReference:
            if (Filament* filament = any<Filament>(edit.target))
                changeFilament(*filament, edit);
            break;
        }
    }

    /// Nothing where the stock has no filament; else the one that has a spool more.
    FilamentId addSpool(quint8 number)
    {
        Filament* filament = any<Filament>(number);
        if (!filament)
            return {};
        m_context.performRepeated(u"Ajouter une bobine"_s,
            [&] { filament->setSpoolsCount(filament->spoolsCount() + 1); });
        return filament->id();
    }

private:
    static QString word(quint8 value) { return QString::number(value % 10); }

    /// One of the entities of a class; now and then none.
    template <class T>
    T* any(quint8 number)
    {
        const auto all = m_context.fetchAll<T>();
        return all.empty() || number % 5 == 0 ? nullptr : all[number % all.size()].get();
    }

    void insertEntry(const RandomEdit& edit)
    {
        switch (edit.reference % referenceKindCount) {
        case 0:
            m_context.insert(std::make_unique<FilamentType>(word(edit.value)));
            break;
        case 1:
            m_context.insert(std::make_unique<Brand>(word(edit.value)));
            break;
        case 2:
            m_context.insert(std::make_unique<FilamentRange>(word(edit.value)));
            break;
        default:
            m_context.insert(std::make_unique<Location>(word(edit.value)));
            break;
        }
    }

    template <class Action>
    void withEntry(const RandomEdit& edit, Action action)
    {
        const auto actOn = [&](auto* entry) {
            if (entry)
                action(*entry);
        };
        switch (edit.reference % referenceKindCount) {
        case 0:
            actOn(any<FilamentType>(edit.target));
            break;
        case 1:
            actOn(any<Brand>(edit.target));
            break;
        case 2:
            actOn(any<FilamentRange>(edit.target));
            break;
        default:
            actOn(any<Location>(edit.target));
            break;
        }
    }

    void changeFilament(Filament& filament, const RandomEdit& edit)
    {
        if (edit.kind == RandomEdit::Kind::SetSpools) {
            filament.setSpoolsCount(edit.value);
            filament.setOpenedSpoolsCount(edit.reference);
            filament.clampOpenedSpools();
        } else if (edit.kind == RandomEdit::Kind::SetTexts) {
            filament.setNotes(word(edit.value));
            filament.setColorName(word(edit.reference));
            filament.setColorHex(word(edit.target));
            filament.setDateAdded(QDateTime::fromMSecsSinceEpoch(edit.value));
        } else {
            filament.setType(any<FilamentType>(edit.value));
            filament.setBrand(any<Brand>(edit.reference));
            filament.setRange(any<FilamentRange>(edit.target));
            filament.setLocation(any<Location>(edit.value));
        }
    }

    StoreContext& m_context;
};

/// A stock over a database file, and what the file says of it.
class FiledStock final {
public:
    explicit FiledStock(const QString& path)
        : m_path(path)
    {
        open();
    }

    StoreContext& context() { return *m_context; }

    /// Saves, then reads the file again and compares it with the graph.
    bool isEqualInFile()
    {
        if (m_context->save())
            return false;
        StoreContext read(*m_store);
        return !m_store->load(read) && pictureOf(read) == pictureOf(*m_context);
    }

    /// What a later run of the program finds.
    QStringList pictureAfterReopening()
    {
        m_context.reset();
        m_store.reset();
        open();
        return pictureOf(*m_context);
    }

private:
    void open()
    {
        auto store = SqliteStore::openFile(m_path);
        RC_ASSERT(bool(store));
        m_store = std::move(store.value());
        m_context = std::make_unique<StoreContext>(*m_store);
        RC_ASSERT(!m_store->load(*m_context));
    }

    QString m_path;
    std::unique_ptr<PersistentStore> m_store;
    std::unique_ptr<StoreContext> m_context;
};

/// Does the actions one by one, undoes them all, does them all again, and asks at each step
/// whether graph and file are what they were there.
void follow(const std::vector<RandomAction>& actions)
{
    const QTemporaryDir folder;
    FiledStock stock(folder.filePath(u"stock.store"_s));
    StoreContext& context = stock.context();
    StockMeddler meddler(context);
    QList<QStringList> pictures{pictureOf(context)}; // at the start, then after each action
    FilamentId lastPlus;

    for (const RandomAction& action : actions) {
        FilamentId plus;
        if (action.isPlus) {
            plus = meddler.addSpool(action.target);
        } else {
            context.perform(u"Hasard"_s, [&] {
                std::ranges::for_each(
                    action.edits, std::bind_front(&StockMeddler::apply, &meddler));
            });
        }
        const QStringList now = pictureOf(context);
        if (now == pictures.last())
            continue; // what changes nothing leaves no trace
        if (plus && plus == lastPlus)
            pictures.last() = now; // undone together
        else
            pictures += now;
        lastPlus = plus;
        RC_ASSERT(stock.isEqualInFile());
        if (action.isTakenBack) {
            context.undo();
            RC_ASSERT(pictureOf(context) == pictures[pictures.size() - 2]);
            RC_ASSERT(stock.isEqualInFile());
            context.redo();
            RC_ASSERT(pictureOf(context) == now);
        }
    }

    for (qsizetype step = pictures.size() - 2; step >= 0; --step) {
        context.undo();
        RC_ASSERT(pictureOf(context) == pictures[step]);
        RC_ASSERT(stock.isEqualInFile());
    }
    RC_ASSERT(context.undoActionName().isEmpty());
    for (qsizetype step = 1; step < pictures.size(); ++step) {
        context.redo();
        RC_ASSERT(pictureOf(context) == pictures[step]);
        RC_ASSERT(stock.isEqualInFile());
    }
    RC_ASSERT(context.redoActionName().isEmpty());
    RC_ASSERT(stock.pictureAfterReopening() == pictures.last());
}

} // namespace

template <>
struct rc::Arbitrary<RandomEdit> {
    static Gen<RandomEdit> arbitrary()
    {
        return gen::build<RandomEdit>(gen::set(&RandomEdit::kind,
                                          gen::cast<RandomEdit::Kind>(gen::inRange(
                                              0, int(RandomEdit::Kind::SetReference) + 1))),
            gen::set(&RandomEdit::target), gen::set(&RandomEdit::reference),
            gen::set(&RandomEdit::value));
    }
};

template <>
struct rc::Arbitrary<RandomAction> {
    static Gen<RandomAction> arbitrary()
    {
        return gen::build<RandomAction>(gen::set(&RandomAction::isPlus),
            gen::set(&RandomAction::target),
            gen::set(&RandomAction::edits,
                gen::resize(6, gen::nonEmpty(gen::arbitrary<std::vector<RandomEdit>>()))),
            gen::set(&RandomAction::isTakenBack));
    }
};

class RandomUndoTest final : public QObject {
    Q_OBJECT

private slots:
    void undoneWhollyGivesTheStartAndRedoneWhollyTheEnd();
};

void RandomUndoTest::undoneWhollyGivesTheStartAndRedoneWhollyTheEnd()
{
    QVERIFY(rc::check("graph and file follow every undo and redo",
        [](const std::vector<RandomAction>& actions) { follow(actions); }));
}

REELHOUSE_TEST(RandomUndoTest)

#include "RandomUndoTest.moc"
