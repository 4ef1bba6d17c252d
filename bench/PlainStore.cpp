#include "bench/PlainStore.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

namespace reelhouse::bench {

namespace {

void require(bool isTrue, sqlite3* database)
{
    if (isTrue)
        return;
    std::fprintf(stderr, "SQLite: %s\n", sqlite3_errmsg(database));
    std::abort();
}

QString textOf(sqlite3_stmt* statement, int column)
{
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(statement, column));
}

PlainEntry* find(const std::vector<std::unique_ptr<PlainEntry>>& entries, qint64 id)
{
    const auto found = std::ranges::lower_bound(
        entries, id, {}, [](const std::unique_ptr<PlainEntry>& entry) { return entry->id; });
    return found != entries.end() && (*found)->id == id ? found->get() : nullptr;
}

void bindText(sqlite3_stmt* statement, int parameter, const std::string& text)
{
    sqlite3_bind_text(statement, parameter, text.data(), int(text.size()), SQLITE_STATIC);
}

template <class T>
qint64 idOrZero(const T* entry)
{
    return entry ? entry->id().value : 0;
}

} // namespace

std::vector<PlainRow> plainRowsOf(StoreContext& context)
{
    std::vector<PlainRow> rows;
    for (const auto& filament : context.fetchAll<Filament>()) {
        rows.push_back({filament->id().value,
            {idOrZero(filament->type()), idOrZero(filament->brand()), idOrZero(filament->range()),
                idOrZero(filament->location())},
            filament->spoolsCount(), filament->openedSpoolsCount(),
            filament->dateAdded().toMSecsSinceEpoch(), filament->colorHex().toStdString(),
            filament->colorName().toStdString(), filament->notes().toStdString()});
    }
    return rows;
}

PlainStore::PlainStore(const std::string& path)
{
    const int result = sqlite3_open_v2(
        path.c_str(), &m_database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    require(result == SQLITE_OK, m_database);
    run("PRAGMA locking_mode = EXCLUSIVE");
    run("PRAGMA synchronous = FULL");
    run("PRAGMA foreign_keys = ON");
    run("PRAGMA wal_autocheckpoint = 0");
}

PlainStore::~PlainStore()
{
    sqlite3_finalize(m_countUpdate);
    sqlite3_close(m_database);
}

void PlainStore::quickCheck()
{
    sqlite3_stmt* statement = prepare("PRAGMA quick_check(1)");
    require(sqlite3_step(statement) == SQLITE_ROW && textOf(statement, 0) == QStringLiteral("ok"),
        m_database);
    sqlite3_finalize(statement);
}

PlainStock PlainStore::read()
{
    PlainStock stock;
    readEntries(stock, 0, "SELECT id, name, iconName FROM FilamentType ORDER BY id");
    readEntries(stock, 1, "SELECT id, name, '' FROM Brand ORDER BY id");
    readEntries(stock, 2, "SELECT id, name, '' FROM FilamentRange ORDER BY id");
    readEntries(stock, 3, "SELECT id, name, '' FROM Location ORDER BY id");
    sqlite3_stmt* statement
        = prepare("SELECT id, type, brand, range, location, spoolsCount, openedSpoolsCount,"
                  " dateAddedMs, colorHex, colorName, notes FROM Filament ORDER BY id");
    while (sqlite3_step(statement) == SQLITE_ROW) {
        auto filament = std::make_unique<PlainFilament>(PlainFilament{
            sqlite3_column_int64(statement, 0),
            {},
            sqlite3_column_int64(statement, 5),
            sqlite3_column_int64(statement, 6),
            sqlite3_column_int64(statement, 7),
            textOf(statement, 8),
            textOf(statement, 9),
            textOf(statement, 10),
        });
        for (size_t kind = 0; kind < 4; ++kind) {
            PlainEntry* entry
                = find(stock.entries[kind], sqlite3_column_int64(statement, int(kind) + 1));
            filament->references[kind] = entry;
            if (entry)
                entry->filaments.push_back(filament.get());
        }
        stock.filaments.push_back(std::move(filament));
    }
    sqlite3_finalize(statement);
    return stock;
}

void PlainStore::writeCount(qint64 filament, qint64 spoolsCount)
{
    if (!m_countUpdate)
        m_countUpdate = prepare("UPDATE Filament SET spoolsCount = ?2 WHERE id = ?1");
    run("BEGIN IMMEDIATE");
    sqlite3_bind_int64(m_countUpdate, 1, filament);
    sqlite3_bind_int64(m_countUpdate, 2, spoolsCount);
    require(sqlite3_step(m_countUpdate) == SQLITE_DONE, m_database);
    sqlite3_reset(m_countUpdate);
    run("COMMIT");
}

void PlainStore::removeType(qint64 type)
{
    run("BEGIN IMMEDIATE");
    sqlite3_stmt* statement = prepare("DELETE FROM FilamentType WHERE id = ?1");
    sqlite3_bind_int64(statement, 1, type);
    require(sqlite3_step(statement) == SQLITE_DONE, m_database);
    sqlite3_finalize(statement);
    run("COMMIT");
}

void PlainStore::insert(const std::vector<PlainRow>& rows)
{
    run("BEGIN IMMEDIATE");
    sqlite3_stmt* statement
        = prepare("INSERT INTO Filament (id, type, brand, range, location, spoolsCount,"
                  " openedSpoolsCount, dateAddedMs, colorHex, colorName, notes)"
                  " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)");
    for (const PlainRow& row : rows) {
        sqlite3_bind_int64(statement, 1, row.id);
        for (int kind = 0; kind < 4; ++kind) {
            if (row.references[size_t(kind)] == 0)
                sqlite3_bind_null(statement, kind + 2);
            else
                sqlite3_bind_int64(statement, kind + 2, row.references[size_t(kind)]);
        }
        sqlite3_bind_int64(statement, 6, row.spoolsCount);
        sqlite3_bind_int64(statement, 7, row.openedSpoolsCount);
        sqlite3_bind_int64(statement, 8, row.dateAddedMs);
        bindText(statement, 9, row.colorHex);
        bindText(statement, 10, row.colorName);
        bindText(statement, 11, row.notes);
        require(sqlite3_step(statement) == SQLITE_DONE, m_database);
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
    run("COMMIT");
}

void PlainStore::run(const char* sql)
{
    require(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, m_database);
}

sqlite3_stmt* PlainStore::prepare(const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr) == SQLITE_OK, m_database);
    return statement;
}

void PlainStore::readEntries(PlainStock& stock, size_t kind, const char* query)
{
    sqlite3_stmt* statement = prepare(query);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        stock.entries[kind].push_back(std::make_unique<PlainEntry>(PlainEntry{
            sqlite3_column_int64(statement, 0), textOf(statement, 1), textOf(statement, 2), {}}));
    }
    sqlite3_finalize(statement);
}

} // namespace reelhouse::bench
