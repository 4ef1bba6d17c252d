#include "app/backup/StockDocument.h"

#include "core/interchange/DocumentWriter.h"
#include "core/interchange/ExactKey.h"
#include "core/model/NewestFirst.h"
#include "core/model/StoreContext.h"

#include <unordered_map>

namespace reelhouse {

namespace {

const QString* nameOfReference(const FilamentContainer* entry)
{
    return entry ? &entry->name() : nullptr;
}

FilamentText textOf(const Filament& filament)
{
    return {
        .type = nameOfReference(filament.type()),
        .brand = nameOfReference(filament.brand()),
        .range = nameOfReference(filament.range()),
        .location = nameOfReference(filament.location()),
        .colorHex = filament.colorHex(),
        .colorName = &filament.colorName(),
        .notes = filament.notes(),
        .spoolsCount = filament.spoolsCount(),
        .openedSpoolsCount = filament.openedSpoolsCount(),
        .dateAddedMs = filament.dateAdded().toMSecsSinceEpoch(),
    };
}

template <class Entity, class Record>
void addNames(StoreContext& context, std::vector<Record>& records)
{
    for (const auto& entry : context.fetchAll<Entity>())
        records.push_back({entry->name()});
}

template <class T>
void removeAll(StoreContext& context)
{
    std::vector<T*> entities;
    for (const auto& entity : context.fetchAll<T>())
        entities.push_back(entity.get());
    for (T* entity : entities)
        context.remove(*entity);
}

/// The records that the names stand in outlive it.
template <class T>
using ByName = std::unordered_map<std::u16string_view, T*>;

/// Inserts one entry for each record; of equal names the last counts.
template <class T, class Record>
ByName<T> insertNamed(StoreContext& context, const std::vector<Record>& records)
{
    ByName<T> byName;
    byName.reserve(records.size());
    for (const Record& record : records)
        byName[exactKey(record.name)] = &context.insert(std::make_unique<T>(record.name));
    return byName;
}

ByName<FilamentType> insertTypes(StoreContext& context, const std::vector<ExportType>& records)
{
    ByName<FilamentType> byName;
    for (const ExportType& record : records) {
        byName[exactKey(record.name)] = &context.insert(std::make_unique<FilamentType>(
            record.name, record.iconName.value_or(filamentTypeDefaultIcon())));
    }
    return byName;
}

template <class T>
T* entryNamed(const ByName<T>& byName, const std::optional<QString>& name)
{
    if (!name)
        return nullptr;
    const auto found = byName.find(exactKey(*name));
    return found == byName.end() ? nullptr : found->second;
}

} // namespace

std::optional<QByteArray> StockDocument::encode(StoreContext& context, FilamentOrder order)
{
    ExportData lists;
    lists.schemaVersion = ExportData::currentSchemaVersion;
    for (const auto& type : context.fetchAll<FilamentType>())
        lists.types.push_back({type->name(), type->iconName()});
    addNames<Brand>(context, lists.brands);
    addNames<FilamentRange>(context, lists.ranges);
    addNames<Location>(context, lists.locations);
    DocumentWriter writer(lists, context.count<Filament>());
    switch (order) {
    case FilamentOrder::Store:
        for (const auto& filament : context.fetchAll<Filament>())
            writer.add(textOf(*filament));
        break;
    case FilamentOrder::NewestFirst:
        for (const Filament* filament : newestFirst(context))
            writer.add(textOf(*filament));
        break;
    }
    return writer.finish();
}

std::optional<StoreError> StockDocument::replaceStock(StoreContext& context, const ExportData& data)
{
    removeAll<Filament>(context);
    removeAll<FilamentType>(context);
    removeAll<Brand>(context);
    removeAll<FilamentRange>(context);
    removeAll<Location>(context);
    const auto types = insertTypes(context, data.types);
    const auto brands = insertNamed<Brand>(context, data.brands);
    const auto ranges = insertNamed<FilamentRange>(context, data.ranges);
    const auto locations = insertNamed<Location>(context, data.locations);
    for (const ExportFilament& record : data.filaments) {
        auto filament = std::make_unique<Filament>(Filament::Values{
            .spoolsCount = record.spoolsCount,
            .openedSpoolsCount = record.openedSpoolsCount.value_or(0),
            .colorHex = record.colorHex,
            .colorName = record.colorName.value_or(QString()),
            .notes = record.notes,
            .dateAddedMs = record.dateAddedMs,
        });
        filament->setType(entryNamed(types, record.type));
        filament->setBrand(entryNamed(brands, record.brand));
        filament->setRange(entryNamed(ranges, record.range));
        filament->setLocation(entryNamed(locations, record.location));
        context.insert(std::move(filament));
    }
    context.clearHistory();
    return context.save();
}

} // namespace reelhouse
