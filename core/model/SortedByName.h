#pragma once

#include "core/model/StoreContext.h"
#include "core/text/NameOrder.h"

namespace reelhouse {

/// The entries of one reference list as the user sees them: in the order of a file browser, equal
/// names in store order.
template <class T>
std::vector<const T*> sortedByName(StoreContext& context)
{
    const auto entries = context.fetchAll<T>();
    std::vector<QString> names;
    names.reserve(entries.size());
    for (const auto& entry : entries)
        names.push_back(entry->name());
    std::vector<const T*> sorted;
    sorted.reserve(entries.size());
    for (const size_t place : fileBrowserOrder(names))
        sorted.push_back(entries[place].get());
    return sorted;
}

} // namespace reelhouse
