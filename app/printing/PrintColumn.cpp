#include "app/printing/PrintColumn.h"

#include "core/model/Filament.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

QString orDash(const QString& text)
{
    return text.isEmpty() ? u"—"_s : text;
}

QString nameOrDash(const FilamentContainer* entry)
{
    return entry ? entry->name() : u"—"_s;
}

/// "4", or "4 (1 ent.)".
QString spoolsCell(const Filament& filament)
{
    QString spools = QString::number(filament.spoolsCount());
    if (filament.openedSpoolsCount() < 1)
        return spools;
    return spools + u" ("_s + QString::number(filament.openedSpoolsCount()) + u" ent.)"_s;
}

} // namespace

QList<PrintColumn> PrintColumn::allDefault()
{
    return {{Kind::Type}, {Kind::Brand}, {Kind::Range}, {Kind::Spools}, {Kind::ColorName},
        {Kind::Location}, {Kind::Notes}};
}

QString printColumnKey(PrintColumn::Kind kind)
{
    switch (kind) {
    case PrintColumn::Kind::Type:
        return u"type"_s;
    case PrintColumn::Kind::Brand:
        return u"brand"_s;
    case PrintColumn::Kind::Range:
        return u"range"_s;
    case PrintColumn::Kind::Spools:
        return u"spools"_s;
    case PrintColumn::Kind::ColorName:
        return u"colorName"_s;
    case PrintColumn::Kind::Location:
        return u"location"_s;
    case PrintColumn::Kind::Notes:
        return u"notes"_s;
    }
    Q_UNREACHABLE();
}

QString printColumnTitle(PrintColumn::Kind kind)
{
    switch (kind) {
    case PrintColumn::Kind::Type:
        return u"Type"_s;
    case PrintColumn::Kind::Brand:
        return u"Marque"_s;
    case PrintColumn::Kind::Range:
        return u"Gamme"_s;
    case PrintColumn::Kind::Spools:
        return u"Bobines"_s;
    case PrintColumn::Kind::ColorName:
        return u"Nom de la couleur"_s;
    case PrintColumn::Kind::Location:
        return u"Lieu"_s;
    case PrintColumn::Kind::Notes:
        return u"Notes"_s;
    }
    Q_UNREACHABLE();
}

QString printColumnCell(PrintColumn::Kind kind, const Filament& filament)
{
    switch (kind) {
    case PrintColumn::Kind::Type:
        return nameOrDash(filament.type());
    case PrintColumn::Kind::Brand:
        return nameOrDash(filament.brand());
    case PrintColumn::Kind::Range:
        return nameOrDash(filament.range());
    case PrintColumn::Kind::Spools:
        return spoolsCell(filament);
    case PrintColumn::Kind::ColorName:
        return orDash(filament.colorName());
    case PrintColumn::Kind::Location:
        return nameOrDash(filament.location());
    case PrintColumn::Kind::Notes:
        return filament.notes();
    }
    Q_UNREACHABLE();
}

} // namespace reelhouse
