#include "core/sample/SampleData.h"

#include "core/model/StoreContext.h"
#include "core/preferences/Preferences.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

struct SampleFilament {
    size_t type;
    size_t brand;
    size_t range;
    size_t location;
    qint64 spools;
    qint64 opened;
    QString colorHex;
    QString colorName;
    QString notes;
};

QStringList typeNames()
{
    return {u"PLA"_s, u"PETG"_s, u"ASA"_s, u"ABS"_s, u"TPU"_s, u"Nylon"_s, u"Polycarbonate"_s,
        u"PVA"_s, u"HIPS"_s, u"PP"_s};
}

QStringList brandNames()
{
    return {u"Bambu Lab"_s, u"Sunlu"_s, u"Anycubic"_s, u"Elegoo"_s, u"Prusament"_s, u"Polymaker"_s,
        u"eSun"_s, u"Overture"_s, u"Filamentum"_s, u"Devil Design"_s};
}

QStringList rangeNames()
{
    return {u"PLA Basic"_s, u"PLA Matte"_s, u"PLA Silk"_s, u"PLA Metal"_s, u"PLA Tough"_s,
        u"PETG Standard"_s, u"PETG Translucent"_s, u"PETG CF"_s, u"ASA Standard"_s,
        u"ASA Translucent"_s, u"ABS Standard"_s, u"TPU 95A"_s, u"TPU 85A"_s, u"Nylon PA12"_s,
        u"Nylon PA6-CF"_s};
}

QStringList locationNames()
{
    return {u"Étagère A"_s, u"Étagère B"_s, u"Étagère C"_s, u"Tiroir 1"_s, u"Tiroir 2"_s,
        u"Armoire"_s, u"Boîte PLA"_s, u"Boîte PETG"_s};
}

/// The references by their places in the lists above.
std::vector<SampleFilament> sampleFilaments()
{
    return {
        {0, 0, 0, 0, 2, 1, u"#E53935"_s, u"Rouge"_s, u"Rouge Bambu Lab"_s},
        {0, 0, 1, 0, 1, 1, u"#1E88E5"_s, u"Bleu mat"_s, u"Bleu mat"_s},
        {0, 1, 2, 3, 3, 0, u"#FDD835"_s, u"Soie dorée"_s, u"Soie dorée"_s},
        {1, 2, 5, 1, 1, 0, u"#43A047"_s, u"Vert"_s, u"PETG vert"_s},
        {1, 3, 6, 1, 1, 1, u"#FB8BFF"_s, u"Rose translucide"_s, u"PETG rose translucide"_s},
        {2, 0, 8, 2, 1, 1, u"#FF6F00"_s, u"Orange"_s, u"ASA orange"_s},
        {4, 4, 11, 4, 2, 1, u"#8E24AA"_s, u"Violet"_s, u"TPU violet"_s},
        {0, 5, 0, 6, 1, 0, u"#FFFFFF"_s, u"Blanc"_s, u"PLA blanc Polymaker"_s},
    };
}

template <class T>
std::vector<T*> insertAll(StoreContext& context, const QStringList& names)
{
    std::vector<T*> entries;
    for (const QString& name : names)
        entries.push_back(&context.insert(std::make_unique<T>(name)));
    return entries;
}

void fill(StoreContext& context)
{
    const auto types = insertAll<FilamentType>(context, typeNames());
    const auto brands = insertAll<Brand>(context, brandNames());
    const auto ranges = insertAll<FilamentRange>(context, rangeNames());
    const auto locations = insertAll<Location>(context, locationNames());
    for (const SampleFilament& sample : sampleFilaments()) {
        context.insert(std::make_unique<Filament>(types[sample.type], brands[sample.brand],
            ranges[sample.range], locations[sample.location], sample.spools, sample.opened,
            sample.colorHex, sample.colorName, sample.notes));
    }
}

} // namespace

void SampleData::seed(StoreContext& context, Preferences& preferences)
{
    if (preferences.didSeedSampleData())
        return;
    if (context.count<FilamentType>() + context.count<Filament>() == 0) {
        fill(context);
        // What could not be saved stays pending in the context.
        context.save();
    }
    preferences.setDidSeedSampleData(true);
}

} // namespace reelhouse
