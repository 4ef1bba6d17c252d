#include "app/store/StoreReader.h"

#include "app/store/SystemErrors.h"

#include <limits>
#include <memory>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// Goes through the rows of one query. Uses SQLite's own calls: a column of SQLiteCpp shares its
/// statement's ownership, and at a million filaments those counters cost more than the reading.
class Rows final {
public:
    Rows(sqlite3* database, const char* query)
        : m_database(database)
    {
        m_result = sqlite3_prepare_v2(database, query, -1, &m_statement, nullptr);
    }
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows() { sqlite3_finalize(m_statement); }

    bool next()
    {
        if (m_result != SQLITE_OK && m_result != SQLITE_ROW)
            return false;
        m_result = sqlite3_step(m_statement);
        return m_result == SQLITE_ROW;
    }

    qint64 integer(int column) const { return sqlite3_column_int64(m_statement, column); }
    QString text(int column) const
    {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
        const int size = sqlite3_column_bytes(m_statement, column);
        QString text = QString::fromUtf8(bytes, size);
        // Qt takes it for the mark of a file wherever a text begins with it.
        if (size >= 3 && QByteArrayView(bytes, 3) == "\xef\xbb\xbf")
            text.prepend(QChar::ByteOrderMark);
        return text;
    }

    /// Why there are no more rows; nothing when all were read.
    std::optional<StoreError> error() const
    {
        if (m_result == SQLITE_DONE)
            return std::nullopt;
        return describeSqliteError(m_result, QString::fromUtf8(sqlite3_errmsg(m_database)));
    }

private:
    sqlite3* m_database;
    sqlite3_stmt* m_statement = nullptr;
    int m_result;
};

StoreError impossibleIdentity(qint64 id)
{
    return describeSqliteError(SQLITE_CORRUPT, u"id %1"_s.arg(id));
}

template <class T, class Make>
std::optional<StoreError> readEntries(
    sqlite3* database, const char* query, StoreContext& context, Make make)
{
    Rows rows(database, query);
    while (rows.next()) {
        const qint64 id = rows.integer(0);
        // Above the largest of all there would be none left for what is added next.
        if (id <= 0 || id == std::numeric_limits<qint64>::max())
            return impossibleIdentity(id);
        context.load(EntityId<T>{id}, make(rows));
    }
    return rows.error();
}

std::unique_ptr<FilamentType> makeType(const Rows& rows)
{
    return std::make_unique<FilamentType>(rows.text(1), rows.text(2));
}

template <class T>
std::unique_ptr<T> makeNamed(const Rows& rows)
{
    return std::make_unique<T>(rows.text(1));
}

/// The entry of this number. None for an empty column, and for a number that no entry has, which
/// is noted.
template <class T>
T* referredEntry(qint64 id, StoreContext& context, bool& hasLostReferences)
{
    T* entry = context.find(EntityId<T>{id});
    hasLostReferences |= !entry && id != 0;
    return entry;
}

std::unique_ptr<Filament> makeFilament(
    const Rows& rows, StoreContext& context, bool& hasLostReferences)
{
    auto filament = std::make_unique<Filament>(Filament::Values{
        .spoolsCount = rows.integer(5),
        .openedSpoolsCount = rows.integer(6),
        .colorHex = rows.text(8),
        .colorName = rows.text(9),
        .notes = rows.text(10),
        .dateAddedMs = rows.integer(7),
    });
    filament->setType(referredEntry<FilamentType>(rows.integer(1), context, hasLostReferences));
    filament->setBrand(referredEntry<Brand>(rows.integer(2), context, hasLostReferences));
    filament->setRange(referredEntry<FilamentRange>(rows.integer(3), context, hasLostReferences));
    filament->setLocation(referredEntry<Location>(rows.integer(4), context, hasLostReferences));
    return filament;
}

const char* filamentQuery(int version)
{
    if (version < 2)
        return "SELECT id, type, brand, range, location, spoolsCount, 0, dateAddedMs, colorHex,"
               " '', notes FROM Filament ORDER BY id";
    return "SELECT id, type, brand, range, location, spoolsCount, openedSpoolsCount, dateAddedMs,"
           " colorHex, colorName, notes FROM Filament ORDER BY id";
}

} // namespace

StoreReading readStore(sqlite3* database, int version, StoreContext& context)
{
    if (auto error = readEntries<FilamentType>(
            database, "SELECT id, name, iconName FROM FilamentType ORDER BY id", context, makeType))
        return {error};
    if (auto error = readEntries<Brand>(
            database, "SELECT id, name FROM Brand ORDER BY id", context, makeNamed<Brand>))
        return {error};
    if (auto error = readEntries<FilamentRange>(database,
            "SELECT id, name FROM FilamentRange ORDER BY id", context, makeNamed<FilamentRange>))
        return {error};
    if (auto error = readEntries<Location>(
            database, "SELECT id, name FROM Location ORDER BY id", context, makeNamed<Location>))
        return {error};
    StoreReading reading;
    reading.error = readEntries<Filament>(
        database, filamentQuery(version), context, [&context, &reading](const Rows& rows) {
            return makeFilament(rows, context, reading.hasLostReferences);
        });
    return reading;
}

} // namespace reelhouse
