#pragma once

#include "core/model/Entity.h"
#include "core/model/EntityId.h"

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace reelhouse {

/// Owns every entity of one class that a context knows: those in stock, in id order, and those
/// removed that the undo history or an uncommitted change still needs.
template <class T>
class EntityTable {
public:
    /// Takes the entity in under the next identity, which is above every one seen in this run.
    T& insert(StoreContext& context, std::unique_ptr<T> entity)
    {
        return load(context, EntityId<T>{m_lastId + 1}, std::move(entity));
    }

    T& load(StoreContext& context, EntityId<T> id, std::unique_ptr<T> entity)
    {
        entity->m_context = &context;
        entity->m_id = id.value;
        return append(std::move(entity));
    }

    /// Marks it; it leaves the list at the next read and is freed by `sweep`.
    void remove(T& entity)
    {
        entity.m_removed = true;
        ++m_removedInRows;
    }

    /// Puts a removed entity back at its place.
    void restore(T& entity)
    {
        compact();
        const size_t place = entity.m_row;
        std::unique_ptr<T> back = std::move(m_removed[place]);
        m_removed[place] = std::move(m_removed.back());
        m_removed.pop_back();
        if (place < m_removed.size())
            m_removed[place]->m_row = quint32(place);
        back->m_removed = false;
        append(std::move(back));
    }

    std::span<const std::unique_ptr<T>> all()
    {
        compact();
        sort();
        return m_rows;
    }

    qsizetype count() const { return qsizetype(m_rows.size()) - m_removedInRows; }

    T* find(EntityId<T> id)
    {
        sort();
        const auto found = std::ranges::lower_bound(m_rows, id.value, {}, idOf);
        if (found == m_rows.end() || (*found)->m_id != id.value || (*found)->m_removed)
            return nullptr;
        return found->get();
    }

    /// Frees the removed entities of which `isNeeded` says no.
    template <class Predicate>
    void sweep(Predicate isNeeded)
    {
        if (m_removedInRows == 0 && m_removed.empty())
            return;
        compact();
        std::erase_if(m_removed, [&](const std::unique_ptr<T>& row) { return !isNeeded(*row); });
        renumber(m_removed, 0);
    }

private:
    T& append(std::unique_ptr<T> entity)
    {
        const bool goesOnSorted
            = isSorted() && (m_rows.empty() || m_rows.back()->m_id < entity->m_id);
        m_lastId = std::max(m_lastId, entity->m_id);
        entity->m_row = quint32(m_rows.size());
        m_rows.push_back(std::move(entity));
        if (goesOnSorted)
            ++m_sortedRows;
        return *m_rows.back();
    }

    bool isSorted() const { return m_sortedRows == m_rows.size(); }

    /// Once for any number of removals.
    void compact()
    {
        if (m_removedInRows == 0)
            return;
        const auto isInStock = [](const std::unique_ptr<T>& row) { return !row->m_removed; };
        const auto tail = m_rows.begin() + std::ptrdiff_t(m_sortedRows);
        m_sortedRows = size_t(std::count_if(m_rows.begin(), tail, isInStock));
        const auto firstRemoved = std::stable_partition(m_rows.begin(), m_rows.end(), isInStock);
        const size_t known = m_removed.size();
        m_removed.insert(m_removed.end(), std::make_move_iterator(firstRemoved),
            std::make_move_iterator(m_rows.end()));
        m_rows.erase(firstRemoved, m_rows.end());
        m_removedInRows = 0;
        renumber(m_removed, known);
        renumber(m_rows, 0);
    }

    /// Once for any number of entities put back: they stand behind the others and go among them.
    void sort()
    {
        if (isSorted())
            return;
        const auto tail = m_rows.begin() + std::ptrdiff_t(m_sortedRows);
        std::ranges::sort(tail, m_rows.end(), {}, idOf);
        const auto place = std::ranges::lower_bound(m_rows.begin(), tail, idOf(*tail), {}, idOf);
        std::ranges::inplace_merge(place, tail, m_rows.end(), {}, idOf);
        renumber(m_rows, size_t(place - m_rows.begin()));
        m_sortedRows = m_rows.size();
    }

    static qint64 idOf(const std::unique_ptr<T>& row) { return row->m_id; }

    static void renumber(const std::vector<std::unique_ptr<T>>& rows, size_t from)
    {
        for (size_t row = from; row < rows.size(); ++row)
            rows[row]->m_row = quint32(row);
    }

    std::vector<std::unique_ptr<T>> m_rows;
    std::vector<std::unique_ptr<T>> m_removed;
    qsizetype m_removedInRows = 0;
    qint64 m_lastId = 0;
    size_t m_sortedRows = 0; ///< How many rows, from the first on, stand in id order.
};

} // namespace reelhouse
