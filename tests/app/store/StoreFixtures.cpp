#include "tests/app/store/StoreFixtures.h"

#include "app/store/SqliteStore.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDateTime>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtTest/QTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

QString nameOf(const FilamentContainer* entry)
{
    return entry ? entry->name() : u"-"_s;
}

QString lineOf(const Filament& filament)
{
    return QStringList{QString::number(filament.id().value),
        QString::number(filament.spoolsCount()), QString::number(filament.openedSpoolsCount()),
        filament.colorHex(), filament.colorName(), filament.notes(),
        QString::number(filament.dateAdded().toMSecsSinceEpoch()), nameOf(filament.type()),
        nameOf(filament.brand()), nameOf(filament.range()), nameOf(filament.location())}
        .join(u'|');
}

template <class T>
void addLines(QStringList& lines, StoreContext& context)
{
    for (const auto& entry : context.fetchAll<T>())
        lines << QString::number(entry->id().value) + u'|' + entry->name();
}

/// A connection of the test's own, closed at the end of the scope.
class Connection final {
public:
    explicit Connection(const QString& path)
    {
        const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &m_handle,
            SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        if (result != SQLITE_OK)
            qFatal("The test cannot open its database.");
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { sqlite3_close_v2(m_handle); }

    sqlite3* handle() const { return m_handle; }

private:
    sqlite3* m_handle = nullptr;
};

} // namespace

Result<std::unique_ptr<StoreContainer>, StoreError> openStore(const QString& path)
{
    auto store = SqliteStore::openFile(path);
    if (!store)
        return Failure{store.error()};
    return StoreContainer::load(std::move(store.value()), StoreKind::File, path);
}

QString refusal(const QString& path)
{
    const auto container = openStore(path);
    return container ? QString() : container.error().description();
}

QStringList linesOf(StoreContext& context)
{
    QStringList lines;
    addLines<FilamentType>(lines, context);
    addLines<Brand>(lines, context);
    addLines<FilamentRange>(lines, context);
    addLines<Location>(lines, context);
    for (const auto& filament : context.fetchAll<Filament>())
        lines << lineOf(*filament);
    return lines;
}

void runSql(const QString& path, const QString& sql)
{
    const Connection connection(path);
    const int result
        = sqlite3_exec(connection.handle(), sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        qFatal("The test's SQL failed: %s", sqlite3_errmsg(connection.handle()));
}

QString askSql(const QString& path, const QString& sql)
{
    const Connection connection(path);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection.handle(), sql.toUtf8().constData(), -1, &statement, nullptr);
    if (sqlite3_step(statement) != SQLITE_ROW)
        qFatal("The test's question has no answer: %s", sqlite3_errmsg(connection.handle()));
    QString answer
        = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)),
            sqlite3_column_bytes(statement, 0));
    sqlite3_finalize(statement);
    return answer;
}

void makeSmallStore(const QString& path)
{
    auto opened = openStore(path);
    QVERIFY2(opened, "The small store could not be made.");
    StoreContext& context = opened.value()->context();
    FilamentType& pla = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    Brand& brand = context.insert(std::make_unique<Brand>(u"Sunlu"_s));
    for (const QString& color : {u"Rouge"_s, u"Bleu"_s}) {
        Filament& filament = context.insert(std::make_unique<Filament>(
            &pla, &brand, nullptr, nullptr, 3, 1, u"#E53935"_s, color, u"Éclat"_s));
        filament.setDateAdded(QDateTime::fromMSecsSinceEpoch(1700000000123));
    }
    QVERIFY(!context.save());
}

QStringList smallStoreLines()
{
    return {u"1|PLA"_s, u"1|Sunlu"_s, u"1|3|1|#E53935|Rouge|Éclat|1700000000123|PLA|Sunlu|-|-"_s,
        u"2|3|1|#E53935|Bleu|Éclat|1700000000123|PLA|Sunlu|-|-"_s};
}

QMap<QString, QByteArray> snapshotOf(const QString& folder)
{
    QMap<QString, QByteArray> entries;
    const QDir root(folder);
    QDirIterator iterator(folder,
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QFileInfo entry(iterator.next());
        QByteArray description = QByteArray::number(int(entry.permissions())) + ' '
            + QByteArray::number(entry.lastModified().toMSecsSinceEpoch()) + ' ';
        if (entry.isSymLink())
            description += "link to " + entry.symLinkTarget().toUtf8();
        else if (entry.isFile())
            description += QByteArray::number(entry.size()) + ' '
                + QCryptographicHash::hash(bytesOf(entry.filePath()), QCryptographicHash::Sha1)
                      .toHex();
        entries.insert(root.relativeFilePath(entry.filePath()), description);
    }
    return entries;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The test cannot read %s", qPrintable(path));
    return file.readAll();
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("The test cannot write %s", qPrintable(path));
}

} // namespace reelhouse::tests
