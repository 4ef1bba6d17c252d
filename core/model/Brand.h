#pragma once

#include "core/model/NamedContainer.h"

namespace reelhouse {

/// A maker of filament, such as Prusament.
class Brand final : public NamedContainer<Brand, ReferenceKind::Brand> {
public:
    explicit Brand(QString name)
        : NamedContainer(std::move(name))
    {
    }
};

} // namespace reelhouse
