#pragma once

#include "app/ui/Alert.h"

namespace reelhouse {

/// The answers of the store alert, in the order of its buttons.
enum class StoreErrorAnswer { Continue, OpenDataFolder };

/// Says that the stock is the temporary one in memory, and why. Its result is the index of the
/// answer.
Alert* makeStoreErrorAlert(const QString& message, QWidget* parent);

} // namespace reelhouse
