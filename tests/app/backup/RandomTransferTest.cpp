#include "app/backup/StockDocument.h"
#include "core/csv/CsvExporter.h"
#include "core/interchange/DocumentReader.h"
#include "core/model/NewestFirst.h"
#include "tests/app/backup/BackupFixture.h"
#include "tests/support/TestMain.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtTest/QTest>

#include <rapidcheck.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// Random stocks on their way out and back.
class RandomTransferTest final : public QObject {
    Q_OBJECT

private slots:
    void everyStockComesBackThroughItsDocument();
    void everyTableIsReadAlikeBySomebodyElse();
    void aSpreadsheetProgramHasTheSameCells();
};

namespace {

/// What is awkward in JSON, in CSV or in Unicode.
const QStringList& awkwardPieces()
{
    static const QStringList pieces{u"a"_s, u"Étagère"_s, u"😀"_s, u"\""_s, u"\\"_s, u"/"_s, u";"_s,
        u","_s, u"\n"_s, u"\r"_s, u"\r\n"_s, u"\t"_s, QString(QChar(0x1f)), QString(QChar(0x7f)),
        u" "_s, u"="_s, u"'"_s, QString(QChar(0x2028)), u"e\u0301"_s, QString(QChar(0xfeff)),
        QString(QChar(0xffff)), u"\\u0041"_s};
    return pieces;
}

QString textOf(const std::vector<quint8>& choices)
{
    QString text;
    for (const quint8 choice : choices)
        text += awkwardPieces()[choice % awkwardPieces().size()];
    return text;
}

/// One filament as random numbers; its references lie on the lists or are absent.
struct RandomFilament {
    quint8 type;
    quint8 brand;
    quint8 range;
    quint8 location;
    qint32 spools;
    qint32 opened;
    std::vector<quint8> colorHex;
    std::vector<quint8> colorName;
    std::vector<quint8> notes;
    qint32 seconds;
};

std::ostream& operator<<(std::ostream& stream, const RandomFilament& filament)
{
    return stream << "{notes " << textOf(filament.notes).toUtf8().toStdString() << '}';
}

/// Names that are apart for every reader: each begins with its number.
template <class Record>
std::optional<QString> fillNames(
    std::vector<Record>& records, const std::vector<std::vector<quint8>>& names, quint8 choice)
{
    if (records.empty()) {
        for (size_t number = 0; number < names.size(); ++number)
            records.push_back({QString::number(number) + u'|' + textOf(names[number])});
    }
    if (records.empty() || choice % 4 == 0)
        return std::nullopt;
    return records[choice % records.size()].name;
}

ExportData randomData(
    const std::vector<std::vector<quint8>>& names, const std::vector<RandomFilament>& filaments)
{
    ExportData data;
    data.schemaVersion = 1;
    for (size_t number = 0; number < names.size(); ++number) {
        const QString name = QString::number(number) + u'|' + textOf(names[number]);
        data.types.push_back({name, textOf(names[names.size() - 1 - number])});
    }
    for (const RandomFilament& random : filaments) {
        ExportFilament filament;
        if (!data.types.empty() && random.type % 4 != 0)
            filament.type = data.types[random.type % data.types.size()].name;
        filament.brand = fillNames(data.brands, names, random.brand);
        filament.range = fillNames(data.ranges, names, random.range);
        filament.location = fillNames(data.locations, names, random.location);
        filament.spoolsCount = random.spools;
        filament.openedSpoolsCount = random.opened;
        filament.colorHex = textOf(random.colorHex);
        filament.colorName = textOf(random.colorName);
        filament.notes = textOf(random.notes);
        filament.dateAddedMs = qint64{random.seconds} * 1000;
        data.filaments.push_back(std::move(filament));
    }
    return data;
}

QString nameOrNothing(const FilamentContainer* entry)
{
    return entry ? entry->name() : QString();
}

/// The cells that a table of these filaments must hold, header included.
QJsonArray cellsOf(const std::vector<const Filament*>& filaments)
{
    QJsonArray rows{QJsonArray{u"Couleur"_s, u"Nom couleur"_s, u"Type"_s, u"Marque"_s, u"Gamme"_s,
        u"Bobines"_s, u"Entamées"_s, u"Lieu"_s, u"Notes"_s}};
    for (const Filament* filament : filaments) {
        rows.append(QJsonArray{filament->colorHex(), filament->colorName(),
            nameOrNothing(filament->type()), nameOrNothing(filament->brand()),
            nameOrNothing(filament->range()), QString::number(filament->spoolsCount()),
            QString::number(filament->openedSpoolsCount()), nameOrNothing(filament->location()),
            filament->notes()});
    }
    return rows;
}

/// The cells as the csv module of Python reads them.
QJsonArray readByPython(const QByteArray& table)
{
    static const QString program
        = u"import csv, io, json, sys\n"
          "text = sys.stdin.buffer.read().decode('utf-8-sig')\n"
          "rows = csv.reader(io.StringIO(text, newline=''), delimiter=';')\n"
          "print(json.dumps(list(rows)))\n"_s;
    QProcess python;
    python.start(u"python3"_s, {u"-c"_s, program});
    python.write(table);
    python.closeWriteChannel();
    if (!python.waitForFinished() || python.exitCode() != 0)
        return {QString::fromUtf8(python.readAllStandardError())};
    return QJsonDocument::fromJson(python.readAllStandardOutput()).array();
}

/// The table as a spreadsheet program saves it again, every column opened as text.
QByteArray throughSpreadsheet(const QByteArray& table)
{
    const QTemporaryDir folder;
    BackupFixture::writeFile(folder.filePath(u"table.csv"_s), table);
    QProcess office;
    office.setStandardErrorFile(QProcess::nullDevice());
    office.start(u"soffice"_s,
        {u"-env:UserInstallation=file://"_s + folder.filePath(u"profile"_s), u"--headless"_s,
            u"--infilter=CSV:59,34,76,1,1/2/2/2/3/2/4/2/5/2/6/2/7/2/8/2/9/2"_s, u"--convert-to"_s,
            u"csv:Text - txt - csv (StarCalc):59,34,76,1,,0,false,true"_s, u"--outdir"_s,
            folder.filePath(u"saved"_s), folder.filePath(u"table.csv"_s)});
    if (!office.waitForFinished(120000))
        return {};
    return BackupFixture::readFile(folder.filePath(u"saved/table.csv"_s));
}

} // namespace

template <>
struct rc::Arbitrary<RandomFilament> {
    static rc::Gen<RandomFilament> arbitrary()
    {
        const auto text = rc::gen::scale(0.3, rc::gen::arbitrary<std::vector<quint8>>());
        return rc::gen::build<RandomFilament>(rc::gen::set(&RandomFilament::type),
            rc::gen::set(&RandomFilament::brand), rc::gen::set(&RandomFilament::range),
            rc::gen::set(&RandomFilament::location), rc::gen::set(&RandomFilament::spools),
            rc::gen::set(&RandomFilament::opened), rc::gen::set(&RandomFilament::colorHex, text),
            rc::gen::set(&RandomFilament::colorName, text),
            rc::gen::set(&RandomFilament::notes, text), rc::gen::set(&RandomFilament::seconds));
    }
};

void RandomTransferTest::everyStockComesBackThroughItsDocument()
{
    const BackupFixture fixture;
    StoreContext& context = fixture.stock->context();
    const bool holds = rc::check([&](const std::vector<std::vector<quint8>>& names,
                                     const std::vector<RandomFilament>& filaments) {
        const ExportData data = randomData(names, filaments);
        RC_ASSERT(!data.validate());
        const QByteArray written = data.encodeJSON().value();
        const auto read = decodeDocument(written);
        RC_ASSERT(read.has_value());
        RC_ASSERT(read.value() == data);
        RC_ASSERT(!StockDocument::replaceStock(context, read.value()));
        const auto rebuilt = StockDocument::encode(context, StockDocument::FilamentOrder::Store);
        RC_ASSERT(rebuilt.value() == written);
    });
    QVERIFY(holds);
}

void RandomTransferTest::everyTableIsReadAlikeBySomebodyElse()
{
    const BackupFixture fixture;
    StoreContext& context = fixture.stock->context();
    std::vector<ExportData> stocks;
    // One run of Python for all of them.
    const bool holds = rc::check([&](const std::vector<std::vector<quint8>>& names,
                                     const std::vector<RandomFilament>& filaments) {
        stocks.push_back(randomData(names, filaments));
    });
    QVERIFY(holds);
    QByteArray tables;
    QJsonArray expected;
    for (const ExportData& stock : stocks) {
        QVERIFY(!StockDocument::replaceStock(context, stock));
        const auto filaments = newestFirst(context);
        tables += CsvExporter::stockCSV(filaments).toUtf8();
        for (const auto& row : cellsOf(filaments))
            expected.append(row);
    }
    const QJsonArray read = readByPython("\xef\xbb\xbf" + tables);

    QCOMPARE(read.size(), expected.size());
    for (qsizetype row = 0; row < read.size(); ++row)
        QCOMPARE(read[row], expected[row]);
}

void RandomTransferTest::aSpreadsheetProgramHasTheSameCells()
{
    if (QStandardPaths::findExecutable(u"soffice"_s).isEmpty())
        QSKIP("LibreOffice Calc is not installed: scripts/check --full installs it.");
    BackupFixture fixture;
    for (const QString& piece : awkwardPieces()) {
        if (piece == QChar(0x1f) || piece == QChar(0xffff))
            continue; // A spreadsheet cannot hold them.
        auto& type = fixture.context().insert(std::make_unique<FilamentType>(u"t"_s + piece));
        fixture.addFilament(piece, &type).setNotes(piece + u"a"_s + piece);
        fixture.addFilament(u"007"_s, &type).setNotes(piece + piece + u'z');
    }
    const auto filaments = newestFirst(fixture.context());

    const QJsonArray read = readByPython(
        throughSpreadsheet(CsvExporter::encoded(CsvExporter::stockCSV(filaments)).value()));

    // Within a cell it knows one kind of line break.
    const QByteArray expected
        = QJsonDocument(cellsOf(filaments)).toJson().replace("\\r\\n", "\\n").replace("\\r", "\\n");
    QCOMPARE(QJsonDocument(read).toJson(), expected);
}

REELHOUSE_TEST(RandomTransferTest)

#include "RandomTransferTest.moc"
