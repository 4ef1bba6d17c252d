#include "tests/window/TestHome.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QSettings>

#include <SQLiteCpp/SQLiteCpp.h>
#include <functional>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

using Row = SQLite::Statement;

constexpr const char* everyFilament = R"sql(
SELECT Filament.id || '|' || ifnull(FilamentType.name, '-') || '|' || ifnull(Brand.name, '-')
    || '|' || ifnull(FilamentRange.name, '-') || '|' || ifnull(Location.name, '-')
    || '|' || spoolsCount || '|' || openedSpoolsCount || '|' || colorHex || '|' || colorName
    || '|' || notes || '|' || dateAddedMs
FROM Filament
    LEFT JOIN FilamentType ON FilamentType.id = type
    LEFT JOIN Brand ON Brand.id = brand
    LEFT JOIN FilamentRange ON FilamentRange.id = range
    LEFT JOIN Location ON Location.id = location
ORDER BY Filament.id
)sql";

/// Throws when the copy is not whole.
void readCopyOfStore(
    const QString& file, const char* query, const std::function<void(Row&)>& takeRow)
{
    const QTemporaryDir copies;
    const QString copy = copies.filePath(u"copy.store"_s);
    QFile::copy(file, copy);
    QFile::copy(file + u"-wal"_s, copy + u"-wal"_s);
    SQLite::Database database(QFile::encodeName(copy).toStdString(), SQLite::OPEN_READWRITE);
    if (database.execAndGet("PRAGMA quick_check").getString() != "ok")
        throw SQLite::Exception("The store is not whole.");
    SQLite::Statement rows(database, query);
    while (rows.executeStep())
        takeRow(rows);
}

} // namespace

TestHome::TestHome()
{
    const QString runtime = path(u"runtime"_s);
    if (!m_folder.isValid() || !QDir().mkpath(runtime))
        qFatal("No temporary folder.");
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QProcessEnvironment TestHome::environment(const QString& display) const
{
    QProcessEnvironment environment;
    const QProcessEnvironment system = QProcessEnvironment::systemEnvironment();
    for (const QString& kept :
        {u"PATH"_s, u"ASAN_OPTIONS"_s, u"LSAN_OPTIONS"_s, u"UBSAN_OPTIONS"_s}) {
        if (system.contains(kept))
            environment.insert(kept, system.value(kept));
    }
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, path(u"runtime"_s));
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + path(u"no-bus"_s));
    environment.insert(u"DISPLAY"_s, display);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"TZ"_s, u"Europe/Paris"_s);
    for (auto variable = m_variables.cbegin(); variable != m_variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    return environment;
}

void TestHome::setVariable(const QString& name, const QString& value)
{
    m_variables.insert(name, value);
}

void TestHome::darken()
{
    addToDesktop("[Colors:Button]\nBackgroundNormal=49,49,54\n"
                 "[Colors:Window]\nBackgroundNormal=30,30,34\n");
}

void TestHome::enlargeFonts()
{
    addToDesktop("[General]\nfont=Inter,20,-1,5,50,0,0,0,0,0\n"
                 "menuFont=Inter,20,-1,5,50,0,0,0,0,0\n");
}

void TestHome::addToDesktop(const QByteArray& lines)
{
    // Qt reads the settings of this desktop from a file, without any of its programs installed.
    QDir().mkpath(path(u".config"_s));
    QFile settings(path(u".config/kdeglobals"_s));
    if (!settings.open(QFile::WriteOnly | QFile::Append) || settings.write(lines) < 0)
        qFatal("No settings for the desktop.");
    setVariable(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
    setVariable(u"KDE_SESSION_VERSION"_s, u"5"_s);
}

QString TestHome::dataFolder() const
{
    return path(u"Documents/Spoolwright"_s);
}

QString TestHome::storeFile() const
{
    return dataFolder() + u"/Spoolwright.store"_s;
}

QString TestHome::preferencesFile() const
{
    return path(u".config/Spoolwright/Spoolwright.ini"_s);
}

QStringList TestHome::backups() const
{
    const QDir folder(dataFolder() + u"/Backups"_s);
    QStringList paths;
    for (const QString& name : folder.entryList({u"*.json"_s}, QDir::Files, QDir::Name))
        paths += folder.filePath(name);
    return paths;
}

QStringList TestHome::everything() const
{
    QStringList paths;
    QDirIterator entries(m_folder.path(),
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (entries.hasNext())
        paths.append(QDir(m_folder.path()).relativeFilePath(entries.next()));
    paths.sort();
    return paths;
}

QString TestHome::preference(const QString& key) const
{
    return QSettings(preferencesFile(), QSettings::IniFormat).value(key).toString();
}

void TestHome::setPreferences(const QMap<QString, QString>& values) const
{
    QByteArray bytes = "[General]\n";
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        bytes += (value.key() + u'=' + value.value() + u'\n').toUtf8();
    writePreferenceFile(bytes);
}

void TestHome::writePreferenceFile(const QByteArray& bytes) const
{
    QDir().mkpath(QFileInfo(preferencesFile()).path());
    QFile file(preferencesFile());
    if (!file.open(QFile::WriteOnly | QFile::Truncate) || file.write(bytes) != bytes.size())
        qFatal("The preferences cannot be written.");
}

QString TestHome::addDocument(const QByteArray& bytes) const
{
    QFile document(path(u"Documents/stock.json"_s));
    if (!document.open(QFile::WriteOnly) || document.write(bytes) < 0)
        qFatal("The document cannot be written.");
    return document.fileName();
}

void TestHome::breakStore() const
{
    QDir().mkpath(dataFolder());
    QFile store(storeFile());
    if (!store.open(QFile::WriteOnly) || store.write("This is no stock.") < 0)
        qFatal("The broken store cannot be written.");
}

std::optional<QMap<qint64, qint64>> TestHome::spoolsInStore() const
try {
    QMap<qint64, qint64> spools;
    readCopyOfStore(storeFile(), "SELECT id, spoolsCount FROM Filament",
        [&](Row& row) { spools.insert(row.getColumn(0).getInt64(), row.getColumn(1).getInt64()); });
    return spools;
} catch (const SQLite::Exception&) {
    return std::nullopt;
}

std::optional<QStringList> TestHome::filamentsInStore() const
try {
    QStringList filaments;
    readCopyOfStore(storeFile(), everyFilament,
        [&](Row& row) { filaments += QString::fromUtf8(row.getColumn(0).getText()); });
    return filaments;
} catch (const SQLite::Exception&) {
    return std::nullopt;
}

QString TestHome::path(const QString& relative) const
{
    return m_folder.filePath(relative);
}

} // namespace reelhouse::tests
