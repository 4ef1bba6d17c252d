#include "app/editing/PickerEntries.h"

#include "core/model/EntryClass.h"
#include "core/model/SortedByName.h"

namespace reelhouse {

std::vector<PickerEntry> pickerEntries(StoreContext& context, ReferenceKind kind)
{
    std::vector<PickerEntry> entries;
    withEntryClass(kind, [&]<class T>(std::type_identity<T>) {
        for (const T* entry : sortedByName<T>(context)) {
            QString symbol;
            if constexpr (std::is_same_v<T, FilamentType>)
                symbol = entry->iconName();
            entries.push_back({entry->id().value, entry->name(), symbol});
        }
    });
    return entries;
}

} // namespace reelhouse
