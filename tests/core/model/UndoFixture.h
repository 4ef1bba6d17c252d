#pragma once

#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"

namespace reelhouse::tests {

inline Filament& insertFilament(StoreContext& context, FilamentType* type = nullptr,
    Brand* brand = nullptr, FilamentRange* range = nullptr, Location* location = nullptr)
{
    return context.insert(std::make_unique<Filament>(type, brand, range, location, 2, 1,
        QStringLiteral("#E53935"), QStringLiteral("Rouge"), QStringLiteral("note")));
}

/// Two entries of each list and three filaments, of which the first two use the first entries.
struct UndoFixture {
    RecordingStore store;
    StoreContext context{store};

    UndoFixture()
    {
        for (const QString& name : {QStringLiteral("Un"), QStringLiteral("Deux")}) {
            context.insert(std::make_unique<FilamentType>(name));
            context.insert(std::make_unique<Brand>(name));
            context.insert(std::make_unique<FilamentRange>(name));
            context.insert(std::make_unique<Location>(name));
        }
        for (int count = 0; count < 2; ++count)
            insertFilament(context, context.find(FilamentTypeId{1}), context.find(BrandId{1}),
                context.find(FilamentRangeId{1}), context.find(LocationId{1}));
        insertFilament(context);
        context.save();
        store.commits.clear();
    }

    Filament& filament(qint64 id) { return *context.find(FilamentId{id}); }
    Brand& brand(qint64 id) { return *context.find(BrandId{id}); }
};

} // namespace reelhouse::tests
