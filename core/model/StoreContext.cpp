#include "core/model/StoreContext.h"

#include "core/model/EntryClass.h"

namespace reelhouse {

namespace {

/// Calls `visit` with each of the five lists of a tuple, the reference lists before the filaments.
template <class Tuple, class Visitor>
void forEach(Tuple& lists, Visitor visit)
{
    std::apply([&](auto&... list) { (visit(list), ...); }, lists);
}

template <class Values>
bool isToBeUpdated(const Values& before, const Values& after, const StockChanges& /*stock*/)
{
    return before != after;
}

/// A reference that only went with its entry is taken away by the store.
bool isToBeUpdated(
    const Filament::Values& before, const Filament::Values& after, const StockChanges& stock)
{
    if (before == after)
        return false;
    Filament::Values withoutRemoved = before;
    for (const ReferenceKind kind : everyReferenceKind) {
        qint64& id = withoutRemoved.references[size_t(kind)];
        const bool isRemoved = withEntryClass(kind, [&]<class T>(std::type_identity<T>) {
            return std::ranges::binary_search(stock.of<T>().removed, EntityId<T>{id});
        });
        if (isRemoved)
            id = 0;
    }
    return withoutRemoved != after;
}

} // namespace

StoreContext::StoreContext(PersistentStore& store)
    : m_store(store)
{
}

StoreContext::~StoreContext() = default;

template <class T>
T& StoreContext::insert(std::unique_ptr<T> entity)
{
    Q_ASSERT(!entity->context());
    T& inserted = shelf<T>().table.insert(*this, std::move(entity));
    if constexpr (std::is_same_v<T, Filament>)
        Q_ASSERT(std::ranges::all_of(inserted.m_references,
            [&](const auto* entry) { return inserted.isFitReference(entry); }));
    willAppear(inserted);
    return inserted;
}

template <class T>
void StoreContext::remove(T& entity)
{
    Q_ASSERT(entity.context() == this);
    if (entity.isRemoved())
        return;
    willChange(entity);
    if constexpr (std::is_same_v<T, Filament>) {
        for (const ReferenceKind kind : everyReferenceKind)
            entity.unlink(kind);
    } else {
        entity.releaseFilaments();
    }
    shelf<T>().table.remove(entity);
}

FilamentContainer* StoreContext::find(ReferenceKind kind, qint64 id)
{
    return withEntryClass(kind, [&]<class T>(std::type_identity<T>) -> FilamentContainer* {
        return find(EntityId<T>{id});
    });
}

template <class T>
void StoreContext::restore(T& entity)
{
    shelf<T>().table.restore(entity);
    willAppear(entity);
}

template <class T>
void StoreContext::willChange(T& entity)
{
    shelf<T>().sinceCommit.noteExisting(entity);
    if (m_performDepth > 0)
        shelf<T>().sinceActionBegan.noteExisting(entity);
    noteChange();
}

template <class T>
void StoreContext::willAppear(T& entity)
{
    shelf<T>().sinceCommit.noteAbsent(entity);
    if (m_performDepth > 0)
        shelf<T>().sinceActionBegan.noteAbsent(entity);
    noteChange();
}

void StoreContext::noteChange()
{
    m_isChangedSinceDelivery = true;
    if (std::exchange(m_isDeliveryQueued, true))
        return;
    QMetaObject::invokeMethod(this, &StoreContext::processPendingChanges, Qt::QueuedConnection);
}

void StoreContext::perform(const QString& actionName, const std::function<void()>& edit)
{
    run(actionName, edit, Repetition::Apart);
}

void StoreContext::performRepeated(const QString& actionName, const std::function<void()>& edit)
{
    run(actionName, edit, Repetition::Joined);
}

void StoreContext::run(
    const QString& actionName, const std::function<void()>& edit, Repetition repetition)
{
    ++m_performDepth;
    edit();
    if (--m_performDepth > 0)
        return;
    m_history.add({actionName,
                      {takeAction<FilamentType>(), takeAction<Brand>(), takeAction<FilamentRange>(),
                          takeAction<Location>(), takeAction<Filament>()}},
        repetition);
}

template <class T>
std::vector<UndoChange<T>> StoreContext::takeAction()
{
    std::vector<UndoChange<T>> changes;
    for (Note<T>& note : shelf<T>().sinceActionBegan.take()) {
        auto after = note.entity->isRemoved()
            ? nullptr
            : std::make_unique<typename T::Values>(note.entity->values());
        const bool isUnchanged
            = note.before && after ? *note.before == *after : !note.before && !after;
        if (!isUnchanged)
            changes.push_back({note.entity, std::move(note.before), std::move(after)});
    }
    return changes;
}

QString StoreContext::undoActionName() const
{
    return m_history.undoName();
}

QString StoreContext::redoActionName() const
{
    return m_history.redoName();
}

void StoreContext::undo()
{
    Q_ASSERT(m_performDepth == 0);
    if (UndoAction* action = m_history.undo())
        replay(*action, Direction::Back);
}

void StoreContext::redo()
{
    Q_ASSERT(m_performDepth == 0);
    if (UndoAction* action = m_history.redo())
        replay(*action, Direction::Forward);
}

void StoreContext::clearHistory()
{
    if (m_history.isEmpty())
        return;
    m_history.clear();
    noteChange();
}

void StoreContext::replay(UndoAction& action, Direction direction)
{
    // What others refer to comes back first and goes last.
    forEach(action.changes, [&](const auto& changes) { putBack(changes, direction); });
    takeOut(std::get<std::vector<UndoChange<Filament>>>(action.changes), direction);
    forEach(action.changes, [&](auto& changes) { takeOut(changes, direction); });
}

template <class T>
void StoreContext::putBack(const std::vector<UndoChange<T>>& changes, Direction direction)
{
    for (const UndoChange<T>& change : changes) {
        const auto& from = direction == Direction::Back ? change.after : change.before;
        const auto& to = direction == Direction::Back ? change.before : change.after;
        // What was only edited, and then removed by no action, stays away.
        if (!to || bool(from) == change.entity->isRemoved())
            continue;
        if (!from)
            restore(*change.entity);
        change.entity->apply(from ? *from : change.entity->values(), *to);
    }
}

template <class T>
void StoreContext::takeOut(std::vector<UndoChange<T>>& changes, Direction direction)
{
    for (UndoChange<T>& change : changes) {
        const auto& from = direction == Direction::Back ? change.after : change.before;
        const auto& to = direction == Direction::Back ? change.before : change.after;
        if (to || change.entity->isRemoved())
            continue;
        // It comes back as it goes, with what was changed by no action.
        *from = change.entity->values();
        remove(*change.entity);
    }
}

bool StoreContext::hasUnsavedChanges() const
{
    return std::apply(
        [](const auto&... shelf) { return (!shelf.sinceCommit.isEmpty() || ...); }, m_shelves);
}

std::optional<StoreError> StoreContext::save()
{
    Q_ASSERT(m_performDepth == 0);
    deliver();
    auto error = commit();
    sweep();
    return error;
}

void StoreContext::processPendingChanges()
{
    m_isDeliveryQueued = false;
    deliver();
    // Nobody waits for this save: what failed stays pending and the next save takes it along.
    commit();
    sweep();
}

void StoreContext::deliver()
{
    if (std::exchange(m_isChangedSinceDelivery, false))
        emit changed();
}

template <class T>
void StoreContext::addChanges(StockChanges& stock)
{
    EntityChanges<T>& changes = stock.of<T>();
    for (const Note<T>& note : shelf<T>().sinceCommit.notes()) {
        const bool isInStock = !note.entity->isRemoved();
        if (!note.before && isInStock)
            changes.inserted.push_back(note.entity);
        else if (note.before && !isInStock)
            changes.removed.push_back(note.entity->id());
        else if (note.before && isToBeUpdated(*note.before, note.entity->values(), stock))
            changes.updated.push_back(note.entity);
    }
    const auto idOf = [](const T* entity) { return entity->id(); };
    std::ranges::sort(changes.inserted, {}, idOf);
    std::ranges::sort(changes.updated, {}, idOf);
    std::ranges::sort(changes.removed);
}

std::optional<StoreError> StoreContext::commit()
{
    StockChanges changes;
    addChanges<FilamentType>(changes);
    addChanges<Brand>(changes);
    addChanges<FilamentRange>(changes);
    addChanges<Location>(changes);
    addChanges<Filament>(changes);
    if (!changes.isEmpty()) {
        auto error = m_store.commit(changes);
        emit committed(error ? error->description() : QString());
        if (error)
            return error;
    }
    forEach(m_shelves, [](auto& shelf) { shelf.sinceCommit.take(); });
    return std::nullopt;
}

void StoreContext::sweep()
{
    forEach(m_shelves, [](auto& shelf) {
        shelf.table.sweep([&shelf](const auto& entity) {
            return entity.m_historyUses > 0 || shelf.sinceCommit.isNoted(entity)
                || shelf.sinceActionBegan.isNoted(entity);
        });
    });
}

template <class T>
void Entity::willChange(T& entity)
{
    if (entity.m_context && !entity.m_removed)
        entity.m_context->willChange(entity);
}

template void Entity::willChange(FilamentType&);
template void Entity::willChange(Brand&);
template void Entity::willChange(FilamentRange&);
template void Entity::willChange(Location&);
template void Entity::willChange(Filament&);

template FilamentType& StoreContext::insert(std::unique_ptr<FilamentType>);
template Brand& StoreContext::insert(std::unique_ptr<Brand>);
template FilamentRange& StoreContext::insert(std::unique_ptr<FilamentRange>);
template Location& StoreContext::insert(std::unique_ptr<Location>);
template Filament& StoreContext::insert(std::unique_ptr<Filament>);

template void StoreContext::remove(FilamentType&);
template void StoreContext::remove(Brand&);
template void StoreContext::remove(FilamentRange&);
template void StoreContext::remove(Location&);
template void StoreContext::remove(Filament&);

} // namespace reelhouse
