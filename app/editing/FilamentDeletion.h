#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QString>

#include <functional>

class QWidget;

namespace reelhouse {

class Filament;
class StoreContext;

/// "Voulez-vous vraiment supprimer PLA ?", by the name of the type, or "ce filament" without one.
QString deletionQuestion(const Filament& filament);

/// Asks over the window of `parent` whether the filament is to be deleted; when it is, deletes it
/// as one action of the user and calls `deleted`, also when it left the stock before the answer.
/// Without such a filament nothing is asked.
void askToDelete(StoreContext& context, FilamentId id, QWidget* parent,
    const std::function<void()>& deleted = {});

} // namespace reelhouse
