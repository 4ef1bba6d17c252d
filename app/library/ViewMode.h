#pragma once

#include <QtCore/QString>

#include <optional>

namespace reelhouse {

/// How the library shows the stock.
enum class ViewMode : quint8 { List, Cards, Stats };

/// "Liste", "Cartes" or "Stats": its label, and what the preferences keep.
QString viewModeTitle(ViewMode mode);
/// The mode with exactly that title, or nothing.
std::optional<ViewMode> viewModeFrom(const QString& title);

} // namespace reelhouse
