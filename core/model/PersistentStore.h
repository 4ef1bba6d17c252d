#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QString>

#include <optional>
#include <tuple>
#include <vector>

namespace reelhouse {

class StoreContext;

/// Why the storage could not do what was asked; the sentence is French and shown as it is.
struct StoreError {
    QString message;

    QString description() const { return message; }
    bool operator==(const StoreError&) const = default;
};

/// What changed in one class since the last commit, each list in id order.
template <class T>
struct EntityChanges {
    std::vector<const T*> inserted;
    std::vector<const T*> updated;
    std::vector<EntityId<T>> removed;

    bool isEmpty() const { return inserted.empty() && updated.empty() && removed.empty(); }
};

/// What changed in the whole stock since the last commit.
struct StockChanges {
    std::tuple<EntityChanges<FilamentType>, EntityChanges<Brand>, EntityChanges<FilamentRange>,
        EntityChanges<Location>, EntityChanges<Filament>>
        lists;

    template <class T>
    EntityChanges<T>& of()
    {
        return std::get<EntityChanges<T>>(lists);
    }
    template <class T>
    const EntityChanges<T>& of() const
    {
        return std::get<EntityChanges<T>>(lists);
    }
    bool isEmpty() const
    {
        return std::apply([](const auto&... list) { return (list.isEmpty() && ...); }, lists);
    }
};

/// Where the stock is kept: the only seam between the model and storage.
class PersistentStore {
public:
    PersistentStore() = default;
    PersistentStore(const PersistentStore&) = delete;
    PersistentStore& operator=(const PersistentStore&) = delete;
    virtual ~PersistentStore() = default;

    /// Reads everything into an empty context, through `StoreContext::load`.
    virtual std::optional<StoreError> load(StoreContext& context) = 0;
    /// Writes `changes` in one transaction: all of them, or none on an error. Filaments that refer
    /// to a removed entry lose that reference with it; those that change in nothing else are not
    /// among the updated ones.
    virtual std::optional<StoreError> commit(const StockChanges& changes) = 0;
    /// Upkeep that would only slow a commit down; called when the program has nothing else to do.
    virtual void tidyUp() {}
};

} // namespace reelhouse
