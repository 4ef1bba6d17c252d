#include "tests/app/printing/PrintedStock.h"

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

template <class T>
T* PrintedStock::entry(std::vector<std::unique_ptr<T>>& entries, const QString& name)
{
    if (name.isEmpty())
        return nullptr;
    for (const auto& known : entries) {
        if (known->name() == name)
            return known.get();
    }
    entries.push_back(std::make_unique<T>(name));
    return entries.back().get();
}

void PrintedStock::add(const QString& type, const QString& brand, const QString& range,
    const QString& location, int spools, int opened, const QString& colorName, const QString& notes)
{
    m_filaments.push_back(std::make_unique<Filament>(entry(m_types, type), entry(m_brands, brand),
        entry(m_ranges, range), entry(m_locations, location), spools, opened, u"#E53935"_s,
        colorName, notes));
}

std::vector<const Filament*> PrintedStock::filaments() const
{
    std::vector<const Filament*> result;
    for (const auto& filament : m_filaments)
        result.push_back(filament.get());
    return result;
}

PrintedStock makeWorkshop()
{
    PrintedStock stock;
    stock.add({}, {}, {}, {}, 1, 0, u"Gris inconnu"_s, u"Bobine sans étiquette"_s);
    stock.add(u"ABS"_s, u"Écofil"_s, u"ABS Standard"_s, u"Armoire"_s, 2, 0, u"Noir profond"_s);
    stock.add(u"ABS"_s, u"Filéo"_s, u"ABS Standard"_s, u"Étagère C"_s, 1, 1, u"Gris argent"_s,
        u"Sécher 6 h à 80 °C (four)"_s);
    stock.add(u"ASA"_s, u"Écofil"_s, u"ASA Standard"_s, u"Étagère C"_s, 4, 2, u"Bleu pétrole"_s,
        u"Pièces extérieures seulement"_s);
    stock.add(u"Nylon"_s, u"Nord Polymères"_s, u"Nylon PA6-CF"_s, u"Boîte étanche 2"_s, 1, 1,
        u"Noir carbone"_s, u"Buse en acier trempé obligatoire"_s);
    stock.add(
        u"PETG"_s, u"Zénith"_s, u"PETG Translucide"_s, u"Étagère B"_s, 1, 0, u"Rose translucide"_s);
    stock.add(u"PLA"_s, u"Écofil"_s, u"PLA Basic"_s, u"Étagère A"_s, 12, 3, u"Noir"_s,
        u"Stock principal"_s);
    stock.add(u"PLA"_s, u"Maison du Fil"_s, u"PLA Silk"_s, u"Tiroir 1"_s, 3, 0, u"Soie dorée"_s);
    stock.add(u"Polycarbonate"_s, u"Zénith"_s, {}, u"Armoire"_s, 1, 0, u"Cristal"_s);
    stock.add(
        u"PVA"_s, u"Nord Polymères"_s, {}, u"Boîte étanche"_s, 1, 1, {}, u"Supports solubles"_s);
    return stock;
}

PrintedStock makeLongStock(int count)
{
    PrintedStock stock;
    for (int index = 1; index <= count; ++index) {
        const QString number = QString::number(index);
        stock.add(u"PLA"_s, u"Écofil"_s, u"Basic"_s, u"Tiroir"_s, index % 5, index % 2,
            u"Couleur "_s + number, u"Note "_s + number);
    }
    return stock;
}

} // namespace reelhouse::tests
