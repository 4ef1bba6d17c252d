#pragma once

#include "core/model/NamedContainer.h"

namespace reelhouse {

/// A storage place, such as a shelf or a drawer.
class Location final : public NamedContainer<Location, ReferenceKind::Location> {
public:
    explicit Location(QString name)
        : NamedContainer(std::move(name))
    {
    }
};

} // namespace reelhouse
