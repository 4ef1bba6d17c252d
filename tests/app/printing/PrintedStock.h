#pragma once

#include "core/model/Filament.h"

#include <memory>
#include <vector>

namespace reelhouse::tests {

/// Filaments to print, with the entries that they refer to.
class PrintedStock final {
public:
    /// One filament; an empty name stands for no reference.
    void add(const QString& type, const QString& brand, const QString& range,
        const QString& location, int spools, int opened, const QString& colorName,
        const QString& notes = {});

    /// In the order in which they were added.
    std::vector<const Filament*> filaments() const;

private:
    template <class T>
    T* entry(std::vector<std::unique_ptr<T>>& entries, const QString& name);

    std::vector<std::unique_ptr<FilamentType>> m_types;
    std::vector<std::unique_ptr<Brand>> m_brands;
    std::vector<std::unique_ptr<FilamentRange>> m_ranges;
    std::vector<std::unique_ptr<Location>> m_locations;
    std::vector<std::unique_ptr<Filament>> m_filaments;
};

/// Ten filaments of a small workshop: some without references, notes short, long and none.
PrintedStock makeWorkshop();

/// `count` filaments, all different.
PrintedStock makeLongStock(int count);

} // namespace reelhouse::tests
