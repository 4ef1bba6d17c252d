#pragma once

#include "core/model/NamedContainer.h"

namespace reelhouse {

/// A product line, such as PLA Matte. Not tied to a brand: any filament may combine any two.
class FilamentRange final : public NamedContainer<FilamentRange, ReferenceKind::Range> {
public:
    explicit FilamentRange(QString name)
        : NamedContainer(std::move(name))
    {
    }
};

} // namespace reelhouse
