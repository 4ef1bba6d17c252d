#pragma once

#include "core/model/PersistentStore.h"

#include <SQLiteCpp/Statement.h>
#include <array>
#include <string>
#include <vector>

namespace reelhouse {

/// The texts of one row in the database's encoding; SQLite reads them where they are, and the next
/// row uses their memory again.
using TextBuffers = std::array<std::string, 3>;

/// The prepared statements of one table, one for each kind of change.
template <class T>
class TableWriter final {
public:
    explicit TableWriter(SQLite::Database& database);

    void insert(const T& entity);
    void update(const T& entity);
    /// In id order. Consecutive ids, as a whole stock mostly has, go in one statement.
    void remove(const std::vector<EntityId<T>>& ids);

private:
    SQLite::Statement m_insertion;
    SQLite::Statement m_update;
    SQLite::Statement m_removal;
    TextBuffers m_texts;
};

/// Writes changes of the stock. Everything throws SQLite::Exception.
class StoreWriter final {
public:
    /// `database` has the tables of the current version and outlives the writer.
    explicit StoreWriter(SQLite::Database& database);

    /// Within the caller's transaction.
    void write(const StockChanges& changes);

private:
    std::tuple<TableWriter<FilamentType>, TableWriter<Brand>, TableWriter<FilamentRange>,
        TableWriter<Location>, TableWriter<Filament>>
        m_tables;
};

} // namespace reelhouse
