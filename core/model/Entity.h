#pragma once

#include <QtCore/qglobal.h>
#include <array>

namespace reelhouse {

class StoreContext;
class UndoHistory;
template <class T>
class EntityTable;
template <class T>
class Journal;

/// What the five stored classes share: their place in a StoreContext.
/// An entity belongs to nobody until it is inserted, then to its context for good.
class Entity {
public:
    Entity(const Entity&) = delete;
    Entity& operator=(const Entity&) = delete;

    /// The context it was inserted into; null before. It stays set after a removal.
    StoreContext* context() const { return m_context; }
    bool isRemoved() const { return m_removed; }
    /// Its place among the entities of its class in store order.
    /// Valid from a call of `StoreContext::fetchAll` until the next insertion or removal.
    quint32 row() const { return m_row; }

protected:
    Entity() = default;
    ~Entity() = default;

    /// Called by a setter before it writes.
    template <class T>
    static void willChange(T& entity);

    qint64 identity() const { return m_id; }

private:
    friend StoreContext;
    friend UndoHistory;
    template <class T>
    friend class EntityTable;
    template <class T>
    friend class Journal;

    StoreContext* m_context = nullptr;
    qint64 m_id = 0;
    quint32 m_row = 0;
    quint32 m_historyUses = 0; ///< How many groups of the undo history speak of it.
    std::array<quint32, 2>
        m_journalPlaces{}; ///< For each journal: the place of its note there plus 1, or 0.
    bool m_removed = false;
};

} // namespace reelhouse
