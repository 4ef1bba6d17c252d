#pragma once

#include "core/model/Brand.h"
#include "core/model/Filament.h"
#include "core/model/FilamentRange.h"
#include "core/model/FilamentType.h"
#include "core/model/Location.h"

#include <deque>
#include <memory>
#include <tuple>
#include <vector>

namespace reelhouse {

/// What an action of the user did to one entity.
template <class T>
struct UndoChange {
    T* entity;
    std::unique_ptr<typename T::Values> before; ///< Null: not in the stock.
    std::unique_ptr<typename T::Values> after;
};

/// One action of the user, named in French as the menu shows it.
struct UndoAction {
    QString name;
    std::tuple<std::vector<UndoChange<FilamentType>>, std::vector<UndoChange<Brand>>,
        std::vector<UndoChange<FilamentRange>>, std::vector<UndoChange<Location>>,
        std::vector<UndoChange<Filament>>>
        changes; ///< The reference lists before the filaments.
};

/// Whether an action stays by itself or goes on with the latest one.
enum class Repetition : quint8 { Apart, Joined };

/// The last 100 actions of the user, those to undo and those to do again. It remembers them and
/// keeps what they speak of from being freed; putting values back is for the StoreContext.
class UndoHistory final {
public:
    /// Takes in what was just done and forgets what had been undone. A joined action becomes part
    /// of the latest one when that has the same name and changed the same filaments. An action that
    /// changed nothing is passed over.
    void add(UndoAction action, Repetition repetition);

    /// The names of the actions that come next; empty when there is none.
    QString undoName() const;
    QString redoName() const;
    bool isEmpty() const { return m_undoable.empty() && m_redoable.empty(); }

    /// The latest action, to be put back; from now on it is one to do again. Null when there is
    /// none. Not to be kept.
    UndoAction* undo();
    /// The action that was put back last, to be done again. Null when there is none.
    UndoAction* redo();
    void clear();

private:
    bool joinLatest(UndoAction& action);
    static void countUses(const UndoAction& action, int difference);

    std::deque<UndoAction> m_undoable;
    std::deque<UndoAction> m_redoable;
};

} // namespace reelhouse
