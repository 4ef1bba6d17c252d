#pragma once

#include "core/model/StoreContext.h"

#include <QtCore/QStringList>

namespace reelhouse::tests {

/// A store without storage: it writes down what each commit asks for, and fails when told to.
class RecordingStore final : public PersistentStore {
public:
    /// What every commit answers from now on; a failing one records nothing.
    std::optional<StoreError> error;
    /// One list for each successful commit, such as {"+Brand 1", "~Filament 3", "-Location 2"}.
    QList<QStringList> commits;

    std::optional<StoreError> load(StoreContext& /*context*/) override { return error; }

    std::optional<StoreError> commit(const StockChanges& changes) override
    {
        if (error)
            return error;
        QStringList lines;
        note(lines, changes.of<FilamentType>(), QStringLiteral("FilamentType"));
        note(lines, changes.of<Brand>(), QStringLiteral("Brand"));
        note(lines, changes.of<FilamentRange>(), QStringLiteral("FilamentRange"));
        note(lines, changes.of<Location>(), QStringLiteral("Location"));
        note(lines, changes.of<Filament>(), QStringLiteral("Filament"));
        commits.append(lines);
        return std::nullopt;
    }

private:
    template <class T>
    static void note(QStringList& lines, const EntityChanges<T>& changes, const QString& name)
    {
        for (const T* entity : changes.inserted)
            lines += QStringLiteral("+%1 %2").arg(name).arg(entity->id().value);
        for (const T* entity : changes.updated)
            lines += QStringLiteral("~%1 %2").arg(name).arg(entity->id().value);
        for (const EntityId<T> id : changes.removed)
            lines += QStringLiteral("-%1 %2").arg(name).arg(id.value);
    }
};

} // namespace reelhouse::tests
