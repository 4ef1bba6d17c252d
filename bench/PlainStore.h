#pragma once

#include "core/model/StoreContext.h"

#include <memory>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

/// The floor of the store: the same database through SQLite's C API alone, with nothing that keeps
/// a stock in order around it.
namespace reelhouse::bench {

struct PlainFilament;

/// A reference entry with the filaments that refer to it.
struct PlainEntry {
    qint64 id;
    QString name;
    QString iconName;
    std::vector<PlainFilament*> filaments;
};

struct PlainFilament {
    qint64 id;
    std::array<PlainEntry*, 4> references;
    qint64 spoolsCount;
    qint64 openedSpoolsCount;
    qint64 dateAddedMs;
    QString colorHex;
    QString colorName;
    QString notes;
};

struct PlainStock {
    std::array<std::vector<std::unique_ptr<PlainEntry>>, 4> entries;
    std::vector<std::unique_ptr<PlainFilament>> filaments;
};

/// One filament ready to be inserted, its texts in the database's encoding.
struct PlainRow {
    qint64 id;
    std::array<qint64, 4> references; ///< 0 for none.
    qint64 spoolsCount;
    qint64 openedSpoolsCount;
    qint64 dateAddedMs;
    std::string colorHex;
    std::string colorName;
    std::string notes;
};

std::vector<PlainRow> plainRowsOf(StoreContext& context);

/// A connection with the program's settings for durability and foreign keys.
class PlainStore final {
public:
    explicit PlainStore(const std::string& path);
    PlainStore(const PlainStore&) = delete;
    PlainStore& operator=(const PlainStore&) = delete;
    ~PlainStore();

    void quickCheck();
    PlainStock read();
    /// Writes one count in a transaction of its own.
    void writeCount(qint64 filament, qint64 spoolsCount);
    /// Removes a type in a transaction of its own; its filaments lose it.
    void removeType(qint64 type);
    /// Inserts all rows in one transaction. What they refer to is there.
    void insert(const std::vector<PlainRow>& rows);

private:
    void run(const char* sql);
    sqlite3_stmt* prepare(const char* sql);
    void readEntries(PlainStock& stock, size_t kind, const char* query);

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_countUpdate = nullptr;
};

} // namespace reelhouse::bench
