#pragma once

#include "core/model/Entity.h"

#include <memory>
#include <vector>

namespace reelhouse {

/// One entity that was touched since a moment, with the values it had then.
template <class T>
struct Note {
    T* entity;
    std::unique_ptr<typename T::Values> before; ///< Null: it was not in the stock then.
};

/// What every journal of a context remembers: the value that each touched entity had at one moment.
enum class JournalKind : quint8 { SinceCommit, SinceActionBegan };

/// The notes about one class of entities. An entity is noted once, at its first change.
template <class T>
class Journal {
public:
    explicit Journal(JournalKind kind)
        : m_kind(size_t(kind))
    {
    }

    bool isEmpty() const { return m_notes.empty(); }
    const std::vector<Note<T>>& notes() const { return m_notes; }

    void noteExisting(T& entity)
    {
        if (place(entity) == 0)
            add(entity, std::make_unique<typename T::Values>(entity.values()));
    }

    void noteAbsent(T& entity)
    {
        if (place(entity) == 0)
            add(entity, nullptr);
    }

    bool isNoted(const T& entity) const { return entity.m_journalPlaces[m_kind] != 0; }

    /// Hands the notes out and starts anew.
    std::vector<Note<T>> take()
    {
        for (const Note<T>& note : m_notes)
            place(*note.entity) = 0;
        return std::exchange(m_notes, {});
    }

private:
    quint32& place(T& entity) { return entity.m_journalPlaces[m_kind]; }

    void add(T& entity, std::unique_ptr<typename T::Values> before)
    {
        m_notes.push_back({&entity, std::move(before)});
        place(entity) = quint32(m_notes.size());
    }

    size_t m_kind;
    std::vector<Note<T>> m_notes;
};

} // namespace reelhouse
