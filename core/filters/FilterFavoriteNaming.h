#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/// The names of favourites: no two of them are alike when case and accents are disregarded.
namespace reelhouse::FilterFavoriteNaming {

/// Equal for names that are alike.
QString normalized(const QString& name);

/// Whether `name` says something and none of the `existing` names is like it, `excluded` apart:
/// the name of the favourite that is being renamed.
bool isNameAvailable(const QString& name, const QStringList& existing,
    const std::optional<QString>& excluded = std::nullopt);

/// `base`, or "Favori" when it is blank; with " (2)", " (3)" and so on where that is taken.
QString uniqueName(const QString& base, const QStringList& existing);

} // namespace reelhouse::FilterFavoriteNaming
