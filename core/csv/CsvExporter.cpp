#include "core/csv/CsvExporter.h"

#include "core/model/Filament.h"

#include <QtCore/QStringConverter>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qsizetype usualLine = 160; ///< Characters, with a note.

void addCell(QString& csv, QStringView cell)
{
    const bool isQuoted = std::ranges::any_of(cell, [](QChar letter) {
        return letter == u';' || letter == u'"' || letter == u'\n' || letter == u'\r';
    });
    if (!isQuoted) {
        csv += cell;
        return;
    }
    csv += u'"';
    for (const QChar letter : cell) {
        if (letter == u'"')
            csv += letter;
        csv += letter;
    }
    csv += u'"';
}

void addName(QString& csv, const FilamentContainer* entry)
{
    if (entry)
        addCell(csv, entry->name());
}

void addLine(QString& csv, const Filament& filament)
{
    addCell(csv, filament.colorHex());
    csv += u';';
    addCell(csv, filament.colorName());
    csv += u';';
    addName(csv, filament.type());
    csv += u';';
    addName(csv, filament.brand());
    csv += u';';
    addName(csv, filament.range());
    csv += u';';
    csv += QString::number(filament.spoolsCount());
    csv += u';';
    csv += QString::number(filament.openedSpoolsCount());
    csv += u';';
    addName(csv, filament.location());
    csv += u';';
    addCell(csv, filament.notes());
    csv += u'\n';
}

} // namespace

QString CsvExporter::stockCSV(const std::vector<const Filament*>& filaments)
{
    QString csv = u"Couleur;Nom couleur;Type;Marque;Gamme;Bobines;Entamées;Lieu;Notes\n"_s;
    csv.reserve(csv.size() + usualLine * qsizetype(filaments.size()));
    for (const Filament* filament : filaments)
        addLine(csv, *filament);
    return csv;
}

std::optional<QByteArray> CsvExporter::encoded(const QString& csv)
{
    constexpr QByteArrayView byteOrderMark = "\xef\xbb\xbf";
    QStringEncoder encoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QByteArray bytes = byteOrderMark.toByteArray();
    bytes.resize(byteOrderMark.size() + encoder.requiredSpace(csv.size()));
    const char* end = encoder.appendToBuffer(bytes.data() + byteOrderMark.size(), csv);
    bytes.truncate(end - bytes.constData());
    if (encoder.hasError())
        return std::nullopt;
    return bytes;
}

} // namespace reelhouse
