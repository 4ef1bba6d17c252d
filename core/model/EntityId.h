#pragma once

#include <QtCore/qhashfunctions.h>
#include <compare>

namespace reelhouse {

class Brand;
class Filament;
class FilamentRange;
class FilamentType;
class Location;

/// The persistent identity of one entity: stable for the life of the store, never its field values.
/// The default value (0) is nothing's identity; an entity has it until it is inserted.
template <class Entity>
struct EntityId {
    qint64 value = 0;

    explicit operator bool() const { return value != 0; }
    auto operator<=>(const EntityId&) const = default; // NOLINT(modernize-use-nullptr): misread
    friend size_t qHash(EntityId id, size_t seed = 0) { return ::qHash(id.value, seed); }
};

using BrandId = EntityId<Brand>;
using FilamentId = EntityId<Filament>;
using FilamentRangeId = EntityId<FilamentRange>;
using FilamentTypeId = EntityId<FilamentType>;
using LocationId = EntityId<Location>;

} // namespace reelhouse
