#pragma once

#include "core/filters/FilterFavorite.h"

#include <QtCore/QObject>

namespace reelhouse {

class Preferences;

/// The user's favourites in the user's order. Made once, at the start; every change is in the
/// preference file before the call returns. Favourites are named by their identity: one that is no
/// longer there is passed over.
class FilterFavoritesStore final : public QObject {
    Q_OBJECT

public:
    /// Reads the saved favourites: none when they cannot be read, and without those whose name is
    /// blank. Writes nothing.
    explicit FilterFavoritesStore(Preferences& preferences, QObject* parent = nullptr);

    const QList<FilterFavorite>& favorites() const { return m_favorites; }
    /// The favourite with that identity, or nothing.
    std::optional<FilterFavorite> find(const QUuid& id) const;
    /// The first favourite with exactly these criteria, or nothing.
    std::optional<FilterFavorite> matching(const FilterCriteria& criteria) const;

    /// Appends a favourite under the trimmed name and returns it; nothing when the name is not
    /// available.
    std::optional<FilterFavorite> add(const QString& name, const FilterCriteria& criteria);
    /// Whether a favourite could take that name: any, or the one with the identity `excluding`.
    bool isNameAvailable(
        const QString& name, const std::optional<QUuid>& excluding = std::nullopt) const;
    /// Whether the favourite now has the trimmed name.
    bool rename(const QUuid& id, const QString& name);
    /// Gives it other criteria; name and place are kept.
    void update(const QUuid& id, const FilterCriteria& criteria);
    void remove(const QUuid& id);
    /// Puts the favourites at `fromOffsets`, in the order they have, before the one at `toOffset`;
    /// the number of favourites as `toOffset` means the end. Other offsets are passed over.
    void move(const QList<qsizetype>& fromOffsets, qsizetype toOffset);
    /// An available name made from `base`.
    QString uniqueName(const QString& base) const;

signals:
    void changed();

private:
    QStringList names() const;
    qsizetype placeOf(const QUuid& id) const;
    void save();

    Preferences& m_preferences;
    QList<FilterFavorite> m_favorites;
};

} // namespace reelhouse
