#include "core/model/Filament.h"

#include "core/model/StoreContext.h"
#include "core/text/Folding.h"

namespace reelhouse {

namespace {

template <class T>
qint64 idOrZero(const T* entity)
{
    return entity ? entity->id().value : 0;
}

} // namespace

Filament::Filament(FilamentType* type, Brand* brand, FilamentRange* range, Location* location,
    qint64 spoolsCount, qint64 openedSpoolsCount, QString colorHex, QString colorName,
    QString notes)
    : m_spoolsCount(std::max(spoolsCount, qint64{0}))
    , m_openedSpoolsCount(std::clamp(openedSpoolsCount, qint64{0}, m_spoolsCount))
    , m_colorHex(std::move(colorHex))
    , m_colorName(std::move(colorName))
    , m_notes(std::move(notes))
    , m_dateAddedMs(QDateTime::currentMSecsSinceEpoch())
{
    link(ReferenceKind::Type, type);
    link(ReferenceKind::Brand, brand);
    link(ReferenceKind::Range, range);
    link(ReferenceKind::Location, location);
}

Filament::Filament(Values stored)
    : m_spoolsCount(stored.spoolsCount)
    , m_openedSpoolsCount(stored.openedSpoolsCount)
    , m_colorHex(std::move(stored.colorHex))
    , m_colorName(std::move(stored.colorName))
    , m_notes(std::move(stored.notes))
    , m_dateAddedMs(stored.dateAddedMs)
{
}

Filament::~Filament()
{
    for (const ReferenceKind kind : everyReferenceKind)
        unlink(kind);
}

template <class Value>
void Filament::set(Value& field, const Value& value)
{
    if (field == value)
        return;
    willChange(*this);
    field = value;
}

void Filament::setSpoolsCount(qint64 count)
{
    set(m_spoolsCount, count);
}

void Filament::setOpenedSpoolsCount(qint64 count)
{
    set(m_openedSpoolsCount, count);
}

void Filament::setColorHex(const QString& colorHex)
{
    set(m_colorHex, colorHex);
}

void Filament::setColorName(const QString& colorName)
{
    set(m_colorName, colorName);
}

void Filament::setNotes(const QString& notes)
{
    set(m_notes, notes);
}

QDateTime Filament::dateAdded() const
{
    return QDateTime::fromMSecsSinceEpoch(m_dateAddedMs, Qt::UTC);
}

void Filament::setDateAdded(const QDateTime& date)
{
    set(m_dateAddedMs, date.toMSecsSinceEpoch());
}

void Filament::clampOpenedSpools()
{
    if (m_spoolsCount < 0)
        setSpoolsCount(0);
    setOpenedSpoolsCount(std::clamp(m_openedSpoolsCount, qint64{0}, m_spoolsCount));
}

bool Filament::matchesSearch(const QString& text) const
{
    const SearchPattern pattern(text);
    if (pattern.matchesEverything())
        return true;
    const auto isFoundInName = [&](const FilamentContainer* container) {
        return container && pattern.isFoundIn(container->name());
    };
    return pattern.isFoundIn(m_notes) || pattern.isFoundIn(m_colorName)
        || pattern.isFoundIn(m_colorHex) || std::ranges::any_of(m_references, isFoundInName);
}

Filament::Values Filament::values() const
{
    return {m_spoolsCount, m_openedSpoolsCount, m_colorHex, m_colorName, m_notes, m_dateAddedMs,
        {idOrZero(type()), idOrZero(brand()), idOrZero(range()), idOrZero(location())}};
}

void Filament::apply(const Values& from, const Values& to)
{
    if (from.spoolsCount != to.spoolsCount)
        setSpoolsCount(to.spoolsCount);
    if (from.openedSpoolsCount != to.openedSpoolsCount)
        setOpenedSpoolsCount(to.openedSpoolsCount);
    if (from.colorHex != to.colorHex)
        setColorHex(to.colorHex);
    if (from.colorName != to.colorName)
        setColorName(to.colorName);
    if (from.notes != to.notes)
        setNotes(to.notes);
    if (from.dateAddedMs != to.dateAddedMs)
        set(m_dateAddedMs, to.dateAddedMs);
    for (const ReferenceKind kind : everyReferenceKind) {
        const qint64 id = to.references[size_t(kind)];
        if (from.references[size_t(kind)] != id)
            setReference(kind, context() ? context()->find(kind, id) : nullptr);
    }
}

void Filament::setReference(ReferenceKind kind, FilamentContainer* container)
{
    if (reference(kind) == container)
        return;
    Q_ASSERT(!context() || !isRemoved());
    Q_ASSERT(!context() || isFitReference(container));
    willChange(*this);
    unlink(kind);
    link(kind, container);
}

/// Else its identity could not be saved.
bool Filament::isFitReference(const FilamentContainer* container) const
{
    return !container || (container->context() == context() && !container->isRemoved());
}

void Filament::link(ReferenceKind kind, FilamentContainer* container)
{
    m_references[size_t(kind)] = container;
    if (!container)
        return;
    m_slots[size_t(kind)] = quint32(container->m_filaments.size());
    container->m_filaments.push_back(this);
}

void Filament::unlink(ReferenceKind kind)
{
    FilamentContainer* container = std::exchange(m_references[size_t(kind)], nullptr);
    if (!container)
        return;
    const quint32 slot = m_slots[size_t(kind)];
    Filament* last = container->m_filaments.back();
    container->m_filaments[slot] = last;
    last->m_slots[size_t(kind)] = slot;
    container->m_filaments.pop_back();
}

} // namespace reelhouse
