#include "app/editing/ReferenceList.h"

#include "app/editing/ReferenceTexts.h"
#include "core/model/EntryClass.h"
#include "core/model/SortedByName.h"
#include "core/text/Folding.h"

#include <algorithm>
#include <functional>

namespace reelhouse {

namespace {

QString trimmedName(const QString& typed)
{
    return trimmed(typed).toString();
}

/// Runs `edit` as one action of the user and saves. What could not be saved goes with the next
/// save.
void performAndSave(
    StoreContext& context, const QString& actionName, const std::function<void()>& edit)
{
    context.perform(actionName, edit);
    static_cast<void>(context.save());
}

} // namespace

ReferenceList::ReferenceList(StoreContext& context, ReferenceKind kind)
    : m_context(context)
    , m_kind(kind)
{
}

std::vector<ReferenceId> ReferenceList::sortedEntries() const
{
    std::vector<ReferenceId> ids;
    withEntryClass(m_kind, [&]<class T>(std::type_identity<T>) {
        for (const T* entry : sortedByName<T>(m_context))
            ids.push_back({entry->id().value});
    });
    return ids;
}

FilamentContainer* ReferenceList::find(ReferenceId id) const
{
    return m_context.find(m_kind, id.value);
}

QString ReferenceList::symbol(const FilamentContainer& entry) const
{
    if (m_kind == ReferenceKind::Type)
        return static_cast<const FilamentType&>(entry).iconName();
    return referenceTexts(m_kind).rowSymbol;
}

NameCheck ReferenceList::check(const QString& typed, ReferenceId edited) const
{
    const QString name = trimmedName(typed);
    if (name.isEmpty())
        return NameCheck::Blank;
    const QString key = normalizedForKey(name);
    if (key.isEmpty())
        return NameCheck::Free;
    const bool isTaken = withEntryClass(m_kind, [&]<class T>(std::type_identity<T>) {
        return std::ranges::any_of(m_context.fetchAll<T>(), [&](const auto& entry) {
            return entry->id().value != edited.value && normalizedForKey(entry->name()) == key;
        });
    });
    return isTaken ? NameCheck::Taken : NameCheck::Free;
}

void ReferenceList::add(const QString& typed, const QString& iconName)
{
    const QString name = trimmedName(typed);
    performAndSave(m_context, referenceTexts(m_kind).addCommand, [&] {
        withEntryClass(m_kind, [&]<class T>(std::type_identity<T>) {
            if constexpr (std::is_same_v<T, FilamentType>)
                m_context.insert(std::make_unique<T>(name, iconName));
            else
                m_context.insert(std::make_unique<T>(name));
        });
    });
}

void ReferenceList::edit(ReferenceId id, const QString& typed, const QString& iconName)
{
    const QString name = trimmedName(typed);
    performAndSave(m_context, referenceTexts(m_kind).editTitle, [&] {
        withEntryClass(m_kind, [&]<class T>(std::type_identity<T>) {
            T* entry = m_context.find(EntityId<T>{id.value});
            if (!entry)
                return;
            entry->setName(name);
            if constexpr (std::is_same_v<T, FilamentType>)
                entry->setIconName(iconName);
        });
    });
}

void ReferenceList::remove(ReferenceId id)
{
    performAndSave(m_context, referenceTexts(m_kind).deleteAction, [&] {
        withEntryClass(m_kind, [&]<class T>(std::type_identity<T>) {
            if (T* entry = m_context.find(EntityId<T>{id.value}))
                m_context.remove(*entry);
        });
    });
}

} // namespace reelhouse
