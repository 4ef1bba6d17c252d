#include "core/model/FilamentContainer.h"

#include "core/model/Filament.h"

namespace reelhouse {

FilamentContainer::FilamentContainer(ReferenceKind kind, QString name)
    : m_name(std::move(name))
    , m_kind(kind)
{
}

FilamentContainer::~FilamentContainer()
{
    for (Filament* filament : m_filaments)
        filament->m_references[size_t(m_kind)] = nullptr;
}

qint64 FilamentContainer::spoolCount() const
{
    qint64 sum = 0;
    for (const Filament* filament : m_filaments) {
        if (__builtin_add_overflow(sum, filament->spoolsCount(), &sum))
            qFatal("The spools of one reference entry exceed 64 bits.");
    }
    return sum;
}

void FilamentContainer::releaseFilaments()
{
    while (!m_filaments.empty())
        m_filaments.back()->setReference(m_kind, nullptr);
}

} // namespace reelhouse
