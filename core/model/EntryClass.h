#pragma once

#include "core/model/Brand.h"
#include "core/model/FilamentRange.h"
#include "core/model/FilamentType.h"
#include "core/model/Location.h"

#include <type_traits>

namespace reelhouse {

/// Calls `action` with the class of the entries of one reference list, as a `std::type_identity`.
template <class Action>
auto withEntryClass(ReferenceKind kind, Action action)
{
    switch (kind) {
    case ReferenceKind::Type:
        return action(std::type_identity<FilamentType>{});
    case ReferenceKind::Brand:
        return action(std::type_identity<Brand>{});
    case ReferenceKind::Range:
        return action(std::type_identity<FilamentRange>{});
    case ReferenceKind::Location:
        return action(std::type_identity<Location>{});
    }
    Q_UNREACHABLE();
}

} // namespace reelhouse
