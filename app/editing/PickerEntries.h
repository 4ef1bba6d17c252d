#pragma once

#include "app/ui/Picker.h"
#include "core/model/FilamentContainer.h"

namespace reelhouse {

class StoreContext;

/// The entries of one reference list as a picker shows them: in the order of a file browser, equal
/// names in store order, types with their symbol.
std::vector<PickerEntry> pickerEntries(StoreContext& context, ReferenceKind kind);

} // namespace reelhouse
