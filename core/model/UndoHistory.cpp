#include "core/model/UndoHistory.h"

#include <algorithm>

namespace reelhouse {

namespace {

constexpr size_t keptActions = 100;

using FilamentChanges = std::vector<UndoChange<Filament>>;

size_t changeCount(const UndoAction& action)
{
    return std::apply(
        [](const auto&... changes) { return (changes.size() + ...); }, action.changes);
}

bool changesFilamentsOnly(const UndoAction& action)
{
    return changeCount(action) == std::get<FilamentChanges>(action.changes).size();
}

/// What was changed by no action in between is not the later one's to undo.
bool goesOn(const UndoChange<Filament>& former, const UndoChange<Filament>& added)
{
    return former.entity == added.entity && former.before && former.after && added.before
        && added.after && *former.after == *added.before;
}

/// Moves the last action from one list to the end of the other.
UndoAction* moveLast(std::deque<UndoAction>& from, std::deque<UndoAction>& to)
{
    if (from.empty())
        return nullptr;
    to.push_back(std::move(from.back()));
    from.pop_back();
    return &to.back();
}

} // namespace

void UndoHistory::add(UndoAction action, Repetition repetition)
{
    if (changeCount(action) == 0 || (repetition == Repetition::Joined && joinLatest(action)))
        return;
    for (const UndoAction& undone : std::exchange(m_redoable, {}))
        countUses(undone, -1);
    countUses(action, 1);
    m_undoable.push_back(std::move(action));
    if (m_undoable.size() > keptActions) {
        countUses(m_undoable.front(), -1);
        m_undoable.pop_front();
    }
}

bool UndoHistory::joinLatest(UndoAction& action)
{
    if (!m_redoable.empty() || m_undoable.empty() || m_undoable.back().name != action.name)
        return false;
    UndoAction& latest = m_undoable.back();
    auto& former = std::get<FilamentChanges>(latest.changes);
    auto& added = std::get<FilamentChanges>(action.changes);
    if (!changesFilamentsOnly(latest) || !changesFilamentsOnly(action)
        || !std::ranges::equal(former, added, goesOn))
        return false;
    for (size_t place = 0; place < former.size(); ++place)
        former[place].after = std::move(added[place].after);
    return true;
}

QString UndoHistory::undoName() const
{
    return m_undoable.empty() ? QString() : m_undoable.back().name;
}

QString UndoHistory::redoName() const
{
    return m_redoable.empty() ? QString() : m_redoable.back().name;
}

UndoAction* UndoHistory::undo()
{
    return moveLast(m_undoable, m_redoable);
}

UndoAction* UndoHistory::redo()
{
    return moveLast(m_redoable, m_undoable);
}

void UndoHistory::clear()
{
    for (auto* actions : {&m_undoable, &m_redoable}) {
        for (const UndoAction& action : std::exchange(*actions, {}))
            countUses(action, -1);
    }
}

void UndoHistory::countUses(const UndoAction& action, int difference)
{
    std::apply(
        [difference](const auto&... lists) {
            const auto count = [difference](const auto& changes) {
                for (const auto& change : changes)
                    change.entity->m_historyUses += quint32(difference);
            };
            (count(lists), ...);
        },
        action.changes);
}

} // namespace reelhouse
