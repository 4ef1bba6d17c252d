#include "app/store/SqliteStore.h"

#include "app/store/DurableFiles.h"
#include "app/store/StoreCompanions.h"
#include "app/store/StoreFileCheck.h"
#include "app/store/StoreReader.h"
#include "app/store/StoreSchema.h"
#include "app/store/StoreWriter.h"
#include "app/store/SystemErrors.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStringBuilder>
#include <QtCore/QTemporaryDir>

#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int lockedFileWaitMs = 5000;

StoreError errorFrom(const SQLite::Exception& exception)
{
    return describeSqliteError(
        exception.getExtendedErrorCode(), QString::fromUtf8(exception.what()));
}

StoreError errorFrom(const SystemError& error)
{
    return {error.description()};
}

/// Settings of the connection that change nothing in the file.
void configure(SQLite::Database& database)
{
    // First of all, before the file is touched: the write-ahead index then lives in this process's
    // memory and nobody else gets in.
    database.exec("PRAGMA locking_mode = EXCLUSIVE");
    database.exec("PRAGMA synchronous = FULL");
    database.exec("PRAGMA foreign_keys = ON");
    database.exec("PRAGMA trusted_schema = OFF");
    // `tidyUp` moves the journal's content when the program is idle; this is the limit for one that
    // never is, in pages.
    database.exec("PRAGMA wal_autocheckpoint = 8192");
    database.exec("PRAGMA journal_size_limit = 4194304");
}

void setConnectionOption(SQLite::Database& database, int option, bool isOn)
{
    sqlite3_db_config(database.getHandle(), option, isOn ? 1 : 0, nullptr);
}

/// Writes a complete, empty store at `path` and closes it.
void makeDatabase(const QString& path)
{
    SQLite::Database database(
        QFile::encodeName(path).toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    configure(database);
    SQLite::Transaction transaction(database);
    StoreSchema::create(database);
    transaction.commit();
    database.exec("PRAGMA journal_mode = WAL");
}

/// Makes an empty store at the free name `path`. It is complete and synced under another name
/// before it gets its own, so that a crash never leaves half a store.
std::optional<StoreError> createStoreFile(const QString& path)
{
    if (const auto error = setOrphanedCompanionsAside(path))
        return errorFrom(*error);
    const QString draft = path + u".new"_s;
    for (const QString& file : QStringList{draft} + storeCompanions(draft)) {
        if (const auto error = DurableFiles::remove(file))
            return errorFrom(*error);
    }
    try {
        makeDatabase(draft);
    } catch (const SQLite::Exception& exception) {
        DurableFiles::remove(draft); // The first error is the one to report.
        return errorFrom(exception);
    }
    if (const auto error = DurableFiles::renameToFreeName(draft, path))
        return errorFrom(*error);
    return std::nullopt;
}

/// SQLite follows links when it names the companions, and so does all that looks at them.
QString resolved(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

} // namespace

SqliteStore::SqliteStore(const QString& path)
    // Only one thread at a time uses a store, so SQLite need not guard every call.
    : m_database(QFile::encodeName(path).toStdString(),
        SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, lockedFileWaitMs)
{
    // A file that ends up refused keeps the journal that it came with. One without a journal must
    // not keep the empty one that SQLite makes for itself. Settled before anything is read.
    setConnectionOption(m_database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE,
        DurableFiles::isTaken(path % StoreCompanion::journal));
    setConnectionOption(m_database, SQLITE_DBCONFIG_ENABLE_VIEW, false);
    setConnectionOption(m_database, SQLITE_DBCONFIG_ENABLE_TRIGGER, false);
    configure(m_database);
}

SqliteStore::~SqliteStore() = default;

Result<std::unique_ptr<PersistentStore>, StoreError> SqliteStore::openFile(const QString& path)
{
    if (!DurableFiles::isTaken(path)) {
        if (auto error = createStoreFile(path))
            return Failure{*error};
    }
    const QString file = resolved(path);
    if (auto error = checkStoreFile(path))
        return Failure{*error};
    if (auto error = rehearseRollback(file))
        return Failure{*error};
    try {
        std::unique_ptr<SqliteStore> store(new SqliteStore(file));
        if (auto error = store->examine())
            return Failure{*error};
        return std::unique_ptr<PersistentStore>(std::move(store));
    } catch (const SQLite::Exception& exception) {
        return Failure{errorFrom(exception)};
    }
}

Result<std::unique_ptr<PersistentStore>, StoreError> SqliteStore::openInMemory()
{
    try {
        std::unique_ptr<SqliteStore> store(new SqliteStore(u":memory:"_s));
        StoreSchema::create(store->m_database);
        store->m_version = StoreSchema::currentVersion;
        return std::unique_ptr<PersistentStore>(std::move(store));
    } catch (const SQLite::Exception& exception) {
        return Failure{errorFrom(exception)};
    }
}

std::optional<StoreError> SqliteStore::rehearseRollback(const QString& file)
{
    if (!DurableFiles::isTaken(file % StoreCompanion::rollbackJournal))
        return std::nullopt;
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"store"_s);
    for (const QStringView suffix :
        {QStringView(), StoreCompanion::journal, StoreCompanion::rollbackJournal}) {
        if (!DurableFiles::isTaken(file % suffix))
            continue;
        if (const auto error = DurableFiles::copy(file % suffix, copy % suffix))
            return errorFrom(*error);
    }
    try {
        SqliteStore store(copy);
        if (auto error = store.examine())
            return error;
        StoreContext context(store);
        return readStore(store.m_database.getHandle(), store.m_version, context).error;
    } catch (const SQLite::Exception& exception) {
        return errorFrom(exception);
    }
}

std::optional<StoreError> SqliteStore::examine()
{
    if (sqlite3_db_readonly(m_database.getHandle(), "main") != 0)
        return describeSqliteError(SQLITE_READONLY, {});
    // Asked again because the journal may hold a newer header than the file. Only questions so far:
    // even an empty transaction lets SQLite correct the page count in the header.
    m_version = m_database.execAndGet("PRAGMA user_version").getInt();
    const int applicationId = m_database.execAndGet("PRAGMA application_id").getInt();
    if (auto error = checkStoreIdentity(applicationId, m_version))
        return error;
    const std::string verdict = m_database.execAndGet("PRAGMA quick_check(1)").getString();
    if (verdict != "ok")
        return describeSqliteError(SQLITE_CORRUPT, QString::fromStdString(verdict));
    return std::nullopt;
}

std::optional<StoreError> SqliteStore::load(StoreContext& context)
{
    const StoreReading reading = readStore(m_database.getHandle(), m_version, context);
    if (reading.error)
        return reading.error;
    try {
        return proveWritable(reading.hasLostReferences);
    } catch (const SQLite::Exception& exception) {
        return errorFrom(exception);
    }
}

std::optional<StoreError> SqliteStore::proveWritable(bool hasLostReferences)
{
    SQLite::Transaction transaction(m_database, SQLite::TransactionBehavior::IMMEDIATE);
    StoreSchema::raise(m_database, m_version);
    if (hasLostReferences)
        StoreSchema::dropLostReferences(m_database);
    // Within the transaction: tables that take no changes are found before anything is written.
    m_writer = std::make_unique<StoreWriter>(m_database);
    transaction.commit();
    m_version = StoreSchema::currentVersion;
    setConnectionOption(m_database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, false);

    const std::string mode = m_database.execAndGet("PRAGMA journal_mode = WAL").getString();
    if (mode != "wal" && mode != "memory")
        return describeSqliteError(
            SQLITE_CANTOPEN, u"journal_mode "_s + QString::fromStdString(mode));
    return std::nullopt;
}

std::optional<StoreError> SqliteStore::commit(const StockChanges& changes)
{
    Q_ASSERT(m_writer);
    try {
        SQLite::Transaction transaction(m_database, SQLite::TransactionBehavior::IMMEDIATE);
        m_writer->write(changes);
        transaction.commit();
        return std::nullopt;
    } catch (const SQLite::Exception& exception) {
        return errorFrom(exception);
    }
}

void SqliteStore::tidyUp()
{
    // What cannot be moved now stays in the journal, where it is as safe.
    sqlite3_wal_checkpoint_v2(
        m_database.getHandle(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

} // namespace reelhouse
