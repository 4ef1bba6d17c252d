#pragma once

#include "core/model/Entity.h"

#include <QtCore/QString>

#include <vector>

namespace reelhouse {

class Filament;

/// Which of a filament's four references.
enum class ReferenceKind : quint8 { Type, Brand, Range, Location };

inline constexpr std::array everyReferenceKind{
    ReferenceKind::Type, ReferenceKind::Brand, ReferenceKind::Range, ReferenceKind::Location};
inline constexpr int referenceKindCount = int(everyReferenceKind.size());

/// What the four reference lists share: a name, and the filaments that refer to the entry.
class FilamentContainer : public Entity {
public:
    const QString& name() const { return m_name; }

    /// The filaments that refer to this entry, in no particular order. Kept by the filaments' own
    /// setters.
    const std::vector<Filament*>& filaments() const { return m_filaments; }
    qint64 filamentCount() const { return qint64(m_filaments.size()); }
    /// The sum of the filaments' spools; 0 without filaments. A sum beyond 64 bits ends the
    /// program.
    qint64 spoolCount() const;

protected:
    FilamentContainer(ReferenceKind kind, QString name);
    /// Filaments that still refer to it lose that reference.
    ~FilamentContainer();

    void writeName(const QString& name) { m_name = name; }

private:
    friend Filament;
    friend StoreContext;

    void releaseFilaments();

    QString m_name;
    ReferenceKind m_kind;
    std::vector<Filament*> m_filaments;
};

} // namespace reelhouse
