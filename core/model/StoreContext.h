#pragma once

#include "core/model/EntityTable.h"
#include "core/model/Journal.h"
#include "core/model/PersistentStore.h"
#include "core/model/UndoHistory.h"

#include <QtCore/QObject>

#include <functional>

namespace reelhouse {

/// Owns the whole stock, tells the screens when it changed and saves it.
///
/// Entities report each change before it is made, so that the context knows the value every changed
/// field had at the last commit (what to save) and when the user's action began (what to undo).
/// Used by one thread at a time; made without parent, so that it can be moved to the main thread
/// once.
class StoreContext final : public QObject {
    Q_OBJECT

public:
    /// `store` is asked to commit at each save; it outlives the context.
    explicit StoreContext(PersistentStore& store);
    ~StoreContext() override;

    /// Takes the entity into the stock and gives it its identity.
    /// What a filament refers to has been inserted before it.
    template <class T>
    T& insert(std::unique_ptr<T> entity);
    /// Takes the entity out of the stock; filaments that refer to it stay and lose that reference.
    /// The object lives on in the undo history, else until `changed()` was delivered and it is
    /// saved.
    template <class T>
    void remove(T& entity);
    /// The entity with this identity, or null when there is none or it was removed.
    template <class T>
    T* find(EntityId<T> id);
    /// The entry of a reference list with this identity, or null as well.
    FilamentContainer* find(ReferenceKind kind, qint64 id);
    /// Every entity of one class in store order: by identity, which is the order of insertion.
    /// The span holds until the next insertion or removal; an element never changes hands.
    template <class T>
    std::span<const std::unique_ptr<T>> fetchAll();
    template <class T>
    qsizetype count() const;

    /// Takes in what the store holds; never recorded, announced or saved. For PersistentStore::load
    /// only.
    template <class T>
    T& load(EntityId<T> id, std::unique_ptr<T> entity);

    /// Runs `edit` as one action of the user, named in French as the menu shows it. All that it
    /// changes is undone and done again together. Within another perform it joins the outer action.
    /// An edit that changes nothing leaves no trace in the history.
    void perform(const QString& actionName, const std::function<void()>& edit);
    /// The same, for an edit that is often repeated: when the latest action has the same name and
    /// changed the same entities, this one becomes part of it and both are undone together.
    void performRepeated(const QString& actionName, const std::function<void()>& edit);
    /// The names of the actions that undo() and redo() would touch next; empty when there is none.
    QString undoActionName() const;
    QString redoActionName() const;
    /// Puts the latest action back; the same objects return under their identities and places.
    void undo();
    void redo();
    /// Forgets every action, for when the whole stock was replaced. Announced by `changed()`.
    void clearHistory();

    /// Delivers `changed()` now, then writes every unsaved change in one transaction.
    /// After an error the changes stay pending and go along with the next save. Not within perform.
    std::optional<StoreError> save();
    bool hasUnsavedChanges() const;
    /// Delivers what is pending now instead of at the next turn of the event loop, then saves.
    void processPendingChanges();

signals:
    /// Something in the stock changed. Sent at most once per turn of the event loop; the context
    /// saves by itself after it. A slot reads the stock and never writes into it.
    void changed();
    /// The store was asked to keep something. `failure` says in French why it did not; empty: it
    /// did.
    void committed(const QString& failure);

private:
    friend Entity;

    /// Everything kept about one class of entities.
    template <class T>
    struct Shelf {
        EntityTable<T> table;
        Journal<T> sinceCommit{JournalKind::SinceCommit};
        Journal<T> sinceActionBegan{JournalKind::SinceActionBegan};
    };

    enum class Direction : quint8 { Back, Forward };

    template <class T>
    Shelf<T>& shelf()
    {
        return std::get<Shelf<T>>(m_shelves);
    }
    template <class T>
    void willChange(T& entity);
    template <class T>
    void willAppear(T& entity);
    template <class T>
    void restore(T& entity);
    template <class T>
    void addChanges(StockChanges& stock);
    template <class T>
    std::vector<UndoChange<T>> takeAction();
    template <class T>
    void putBack(const std::vector<UndoChange<T>>& changes, Direction direction);
    template <class T>
    void takeOut(std::vector<UndoChange<T>>& changes, Direction direction);

    void noteChange();
    void run(const QString& actionName, const std::function<void()>& edit, Repetition repetition);
    void replay(UndoAction& action, Direction direction);
    void deliver();
    std::optional<StoreError> commit();
    void sweep();

    PersistentStore& m_store;
    std::tuple<Shelf<FilamentType>, Shelf<Brand>, Shelf<FilamentRange>, Shelf<Location>,
        Shelf<Filament>>
        m_shelves;
    UndoHistory m_history;
    int m_performDepth = 0;
    bool m_isDeliveryQueued = false;
    bool m_isChangedSinceDelivery = false;
};

template <class T>
T& StoreContext::load(EntityId<T> id, std::unique_ptr<T> entity)
{
    return shelf<T>().table.load(*this, id, std::move(entity));
}

template <class T>
T* StoreContext::find(EntityId<T> id)
{
    return shelf<T>().table.find(id);
}

template <class T>
std::span<const std::unique_ptr<T>> StoreContext::fetchAll()
{
    return shelf<T>().table.all();
}

template <class T>
qsizetype StoreContext::count() const
{
    return std::get<Shelf<T>>(m_shelves).table.count();
}

} // namespace reelhouse
