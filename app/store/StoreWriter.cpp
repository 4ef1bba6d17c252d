#include "app/store/StoreWriter.h"

#include "core/model/Filament.h"

#include <QtCore/QStringConverter>

#include <algorithm>

namespace reelhouse {

namespace {

/// The statements of one table; the id is always the first parameter. A removal takes the first and
/// the last of consecutive ids.
struct Texts {
    const char* insertion;
    const char* update;
    const char* removal;
};

Texts textsFor(const FilamentType* /*kind*/)
{
    return {"INSERT INTO FilamentType (id, name, iconName) VALUES (?1, ?2, ?3)",
        "UPDATE FilamentType SET name = ?2, iconName = ?3 WHERE id = ?1",
        "DELETE FROM FilamentType WHERE id BETWEEN ?1 AND ?2"};
}

Texts textsFor(const Brand* /*kind*/)
{
    return {"INSERT INTO Brand (id, name) VALUES (?1, ?2)",
        "UPDATE Brand SET name = ?2 WHERE id = ?1", "DELETE FROM Brand WHERE id BETWEEN ?1 AND ?2"};
}

Texts textsFor(const FilamentRange* /*kind*/)
{
    return {"INSERT INTO FilamentRange (id, name) VALUES (?1, ?2)",
        "UPDATE FilamentRange SET name = ?2 WHERE id = ?1",
        "DELETE FROM FilamentRange WHERE id BETWEEN ?1 AND ?2"};
}

Texts textsFor(const Location* /*kind*/)
{
    return {"INSERT INTO Location (id, name) VALUES (?1, ?2)",
        "UPDATE Location SET name = ?2 WHERE id = ?1",
        "DELETE FROM Location WHERE id BETWEEN ?1 AND ?2"};
}

Texts textsFor(const Filament* /*kind*/)
{
    return {"INSERT INTO Filament (id, type, brand, range, location, spoolsCount,"
            " openedSpoolsCount, dateAddedMs, colorHex, colorName, notes)"
            " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)",
        "UPDATE Filament SET type = ?2, brand = ?3, range = ?4, location = ?5, spoolsCount = ?6,"
        " openedSpoolsCount = ?7, dateAddedMs = ?8, colorHex = ?9, colorName = ?10, notes = ?11"
        " WHERE id = ?1",
        "DELETE FROM Filament WHERE id BETWEEN ?1 AND ?2"};
}

/// Gives a statement its parameters one after the other, then runs it.
class Row final {
public:
    Row(SQLite::Statement& statement, TextBuffers& texts)
        : m_statement(statement)
        , m_texts(texts)
    {
        // After a run that failed it takes no parameters before this.
        m_statement.tryReset();
    }

    Row& operator<<(qint64 value)
    {
        m_statement.bind(m_next++, int64_t{value});
        return *this;
    }

    Row& operator<<(const QString& text)
    {
        std::string& bytes = m_texts[m_textCount++];
        bytes.resize(size_t(m_encoder.requiredSpace(text.size())));
        const char* end = m_encoder.appendToBuffer(bytes.data(), text);
        bytes.resize(size_t(end - bytes.data()));
        m_statement.bindNoCopy(m_next++, bytes);
        return *this;
    }

    template <class Reference>
    Row& operator<<(const Reference* reference)
    {
        if (reference)
            return *this << reference->id().value;
        m_statement.bind(m_next++);
        return *this;
    }

    void run() { m_statement.exec(); }

private:
    SQLite::Statement& m_statement;
    TextBuffers& m_texts;
    QStringEncoder m_encoder{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    size_t m_textCount = 0;
    int m_next = 1;
};

void addFields(Row& row, const FilamentType& type)
{
    row << type.name() << type.iconName();
}

void addFields(Row& row, const FilamentContainer& entry)
{
    row << entry.name();
}

void addFields(Row& row, const Filament& filament)
{
    row << filament.type() << filament.brand() << filament.range() << filament.location()
        << filament.spoolsCount() << filament.openedSpoolsCount()
        << filament.dateAdded().toMSecsSinceEpoch() << filament.colorHex() << filament.colorName()
        << filament.notes();
}

template <class T>
void runWith(SQLite::Statement& statement, TextBuffers& texts, const T& entity)
{
    Row row(statement, texts);
    row << entity.id().value;
    addFields(row, entity);
    row.run();
}

} // namespace

template <class T>
TableWriter<T>::TableWriter(SQLite::Database& database)
    : m_insertion(database, textsFor(static_cast<const T*>(nullptr)).insertion)
    , m_update(database, textsFor(static_cast<const T*>(nullptr)).update)
    , m_removal(database, textsFor(static_cast<const T*>(nullptr)).removal)
{
}

template <class T>
void TableWriter<T>::insert(const T& entity)
{
    runWith(m_insertion, m_texts, entity);
}

template <class T>
void TableWriter<T>::update(const T& entity)
{
    runWith(m_update, m_texts, entity);
}

template <class T>
void TableWriter<T>::remove(const std::vector<EntityId<T>>& ids)
{
    const auto isGap = [](EntityId<T> id, EntityId<T> next) { return id.value + 1 != next.value; };
    for (auto first = ids.begin(); first != ids.end();) {
        const auto beforeGap = std::adjacent_find(first, ids.end(), isGap);
        const auto end = beforeGap == ids.end() ? beforeGap : beforeGap + 1;
        Row row(m_removal, m_texts);
        row << first->value << (end - 1)->value;
        row.run();
        first = end;
    }
}

StoreWriter::StoreWriter(SQLite::Database& database)
    : m_tables(database, database, database, database, database)
{
}

void StoreWriter::write(const StockChanges& changes)
{
    // Reference entries stand before the filaments in both tuples: they are there before a filament
    // names them.
    const auto insertAndUpdate = [&]<class T>(TableWriter<T>& table) {
        for (const T* entity : changes.of<T>().inserted)
            table.insert(*entity);
        for (const T* entity : changes.of<T>().updated)
            table.update(*entity);
    };
    const auto remove
        = [&]<class T>(TableWriter<T>& table) { table.remove(changes.of<T>().removed); };
    // What goes, goes first, the filaments ahead: for each removed entry SQLite looks through all
    // the filaments that are there, and when the whole stock is replaced that are none.
    remove(std::get<TableWriter<Filament>>(m_tables));
    remove(std::get<TableWriter<FilamentType>>(m_tables));
    remove(std::get<TableWriter<Brand>>(m_tables));
    remove(std::get<TableWriter<FilamentRange>>(m_tables));
    remove(std::get<TableWriter<Location>>(m_tables));
    std::apply([&](auto&... tables) { (insertAndUpdate(tables), ...); }, m_tables);
}

} // namespace reelhouse
