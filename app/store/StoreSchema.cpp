#include "app/store/StoreSchema.h"

#include <string>

namespace reelhouse::StoreSchema {

namespace {

// The numbers and references stand before the texts: deleting a reference entry makes SQLite look
// through the reference columns, which then never lie behind a long note. These columns have no
// index: it would triple the cost of inserting, and the model already knows which filaments lose
// the entry.
constexpr const char* tables = R"sql(
CREATE TABLE Filament (
    id INTEGER PRIMARY KEY,
    type INTEGER REFERENCES FilamentType (id) ON DELETE SET NULL,
    brand INTEGER REFERENCES Brand (id) ON DELETE SET NULL,
    range INTEGER REFERENCES FilamentRange (id) ON DELETE SET NULL,
    location INTEGER REFERENCES Location (id) ON DELETE SET NULL,
    spoolsCount INTEGER NOT NULL,
    openedSpoolsCount INTEGER NOT NULL DEFAULT 0,
    dateAddedMs INTEGER NOT NULL,
    colorHex TEXT NOT NULL,
    colorName TEXT NOT NULL DEFAULT '',
    notes TEXT NOT NULL
) STRICT;
CREATE TABLE FilamentType (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL,
    iconName TEXT NOT NULL DEFAULT 'cube.fill'
) STRICT;
CREATE TABLE Brand (id INTEGER PRIMARY KEY, name TEXT NOT NULL) STRICT;
CREATE TABLE FilamentRange (id INTEGER PRIMARY KEY, name TEXT NOT NULL) STRICT;
CREATE TABLE Location (id INTEGER PRIMARY KEY, name TEXT NOT NULL) STRICT;
)sql";

constexpr const char* fromVersion1 = R"sql(
ALTER TABLE Filament ADD COLUMN openedSpoolsCount INTEGER NOT NULL DEFAULT 0;
ALTER TABLE Filament ADD COLUMN colorName TEXT NOT NULL DEFAULT '';
)sql";

void setVersion(SQLite::Database& database)
{
    database.exec("PRAGMA user_version = " + std::to_string(currentVersion));
}

} // namespace

void create(SQLite::Database& database)
{
    database.exec("PRAGMA application_id = " + std::to_string(applicationId));
    database.exec(tables);
    setVersion(database);
}

void raise(SQLite::Database& database, int version)
{
    if (version < 2)
        database.exec(fromVersion1);
    setVersion(database);
}

void dropLostReferences(SQLite::Database& database)
{
    database.exec(R"(
UPDATE Filament SET type = NULL WHERE type NOT IN (SELECT id FROM FilamentType);
UPDATE Filament SET brand = NULL WHERE brand NOT IN (SELECT id FROM Brand);
UPDATE Filament SET range = NULL WHERE range NOT IN (SELECT id FROM FilamentRange);
UPDATE Filament SET location = NULL WHERE location NOT IN (SELECT id FROM Location);
)");
}

} // namespace reelhouse::StoreSchema
