#pragma once

#include "core/Result.h"
#include "core/model/PersistentStore.h"

#include <SQLiteCpp/Database.h>
#include <memory>

namespace reelhouse {

class StoreWriter;

/// The stock in one SQLite database: a file in WAL mode with every commit synced, held exclusively
/// until the object is destroyed, or a database in memory that nobody else sees.
///
/// What cannot be used is refused, by `openFile` or by `load`, with every byte of the file and its
/// companions as it was. While a file is held, no other code of this process may open and close it:
/// that would give up the hold, as POSIX file locks belong to the process.
class SqliteStore final : public PersistentStore {
public:
    /// Opens the store at `path`, or makes an empty one there when the name is free. Waits at most
    /// five seconds for another process that holds it. The folder exists already.
    static Result<std::unique_ptr<PersistentStore>, StoreError> openFile(const QString& path);
    static Result<std::unique_ptr<PersistentStore>, StoreError> openInMemory();
    ~SqliteStore() override;

    /// Reads every table once, then raises an older schema and proves that a commit reaches the
    /// disk. Only after it is the store known to work.
    std::optional<StoreError> load(StoreContext& context) override;
    std::optional<StoreError> commit(const StockChanges& changes) override;
    /// Moves what the journal holds into the main file, so that it starts over.
    void tidyUp() override;

private:
    explicit SqliteStore(const QString& path);

    /// A rollback journal, left by a transaction of a program that keeps one, is played back by
    /// the first reading. Does that to a copy, to know beforehand whether the result is usable.
    static std::optional<StoreError> rehearseRollback(const QString& file);
    std::optional<StoreError> examine();
    std::optional<StoreError> proveWritable(bool hasLostReferences);

    SQLite::Database m_database;
    int m_version = 0;
    std::unique_ptr<StoreWriter> m_writer; ///< Once loaded.
};

} // namespace reelhouse
