#include "tests/app/backup/OneStock.h"

#include "app/backup/StockImport.h"
#include "app/store/SqliteStore.h"

#include <QtCore/QDir>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

ExportData stockOf(const QString& name, int filaments)
{
    ExportData data;
    data.types = {{u"PLA "_s + name, std::nullopt}};
    data.filaments.resize(size_t(filaments));
    for (ExportFilament& filament : data.filaments) {
        filament.type = data.types[0].name;
        filament.colorName = name;
        filament.notes = u"Sécher 4 h à 50 °C avant usage."_s;
    }
    return data;
}

std::unique_ptr<StoreContainer> openStock(const QString& path)
{
    auto store = SqliteStore::openFile(path);
    if (!store)
        return nullptr;
    auto container = StoreContainer::load(std::move(store.value()), StoreKind::File, path);
    return container ? std::move(container.value()) : nullptr;
}

QString pictureOfOneStock(StoreContainer* stock)
{
    if (!stock)
        return u"cannot be opened"_s;
    const auto filaments = stock->context().fetchAll<Filament>();
    const auto types = stock->context().fetchAll<FilamentType>();
    if (filaments.empty() || types.size() != 1)
        return u"%1 filaments, %2 types"_s.arg(filaments.size()).arg(types.size());
    const QString name = filaments[0]->colorName();
    for (const auto& filament : filaments) {
        if (filament->colorName() != name || filament->type() != types[0].get()
            || types[0]->name() != u"PLA "_s + name)
            return u"a mixture"_s;
    }
    return name + u' ' + QString::number(filaments.size());
}

QStringList unreadableBackups(const QString& folder)
{
    QStringList unreadable;
    for (const QString& name : QDir(folder).entryList({u"*.json"_s}, QDir::Files | QDir::Hidden)) {
        if (!StockImport::readDocument(folder + u'/' + name))
            unreadable << name;
    }
    return unreadable;
}

} // namespace reelhouse::tests
