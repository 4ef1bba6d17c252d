#include "app/editing/PickerEntries.h"

#include "core/model/EntryClass.h"
#include "core/model/StoreContext.h"
#include "core/text/NameOrder.h"

#include <algorithm>

namespace reelhouse {

namespace {

template <class T>
std::vector<PickerEntry> entriesOf(StoreContext& context)
{
    std::vector<PickerEntry> entries;
    entries.reserve(size_t(context.count<T>()));
    for (const auto& entry : context.fetchAll<T>()) {
        QString symbol;
        if constexpr (std::is_same_v<T, FilamentType>)
            symbol = entry->iconName();
        entries.push_back({entry->id().value, entry->name(), symbol});
    }
    return entries;
}

} // namespace

std::vector<PickerEntry> pickerEntries(StoreContext& context, ReferenceKind kind)
{
    std::vector<PickerEntry> entries = withEntryClass(
        kind, [&]<class T>(std::type_identity<T>) { return entriesOf<T>(context); });
    std::ranges::stable_sort(entries, FileBrowserOrder(), &PickerEntry::name);
    return entries;
}

} // namespace reelhouse
