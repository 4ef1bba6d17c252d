#pragma once

#include "core/model/Brand.h"
#include "core/model/FilamentRange.h"
#include "core/model/FilamentType.h"
#include "core/model/Location.h"

#include <QtCore/QDateTime>

namespace reelhouse {

/// One reference of filament held in stock: what it is, where it lies and how many spools there
/// are.
///
/// Setting a reference keeps both sides: the filament enters the entry's `filaments()` and leaves
/// the former entry's. A filament in a context may only refer to entries of the same context.
class Filament final : public Entity {
public:
    /// The stored fields, as the store and the undo history keep them.
    struct Values {
        qint64 spoolsCount = 0;
        qint64 openedSpoolsCount = 0;
        QString colorHex;
        QString colorName;
        QString notes;
        qint64 dateAddedMs = 0; ///< Milliseconds since 1970, universal time.
        std::array<qint64, referenceKindCount>
            references{}; ///< Identities, 0 for none, by ReferenceKind.

        bool operator==(const Values&) const = default;
    };

    /// Negative spools count as 0, `openedSpoolsCount` is held between 0 and the spools, texts are
    /// kept as they are, references may be null. `dateAdded` is the moment of the call.
    Filament(FilamentType* type, Brand* brand, FilamentRange* range, Location* location,
        qint64 spoolsCount, qint64 openedSpoolsCount, QString colorHex, QString colorName,
        QString notes);
    /// As the store holds it: nothing is corrected and there are no references yet.
    explicit Filament(Values stored);
    /// Leaves the lists of the entries it refers to.
    ~Filament();

    FilamentId id() const { return {identity()}; }

    /// Spools held, opened or not. Not corrected when set: see `clampOpenedSpools`.
    qint64 spoolsCount() const { return m_spoolsCount; }
    void setSpoolsCount(qint64 count);
    /// How many of those spools are opened.
    qint64 openedSpoolsCount() const { return m_openedSpoolsCount; }
    void setOpenedSpoolsCount(qint64 count);
    /// The colour code as typed, by convention "#" and six hexadecimal digits.
    const QString& colorHex() const { return m_colorHex; }
    void setColorHex(const QString& colorHex);
    const QString& colorName() const { return m_colorName; }
    void setColorName(const QString& colorName);
    const QString& notes() const { return m_notes; }
    void setNotes(const QString& notes);
    /// In universal time, to the millisecond.
    QDateTime dateAdded() const;
    void setDateAdded(const QDateTime& date);

    FilamentType* type() const
    {
        return static_cast<FilamentType*>(reference(ReferenceKind::Type));
    }
    void setType(FilamentType* type) { setReference(ReferenceKind::Type, type); }
    Brand* brand() const { return static_cast<Brand*>(reference(ReferenceKind::Brand)); }
    void setBrand(Brand* brand) { setReference(ReferenceKind::Brand, brand); }
    FilamentRange* range() const
    {
        return static_cast<FilamentRange*>(reference(ReferenceKind::Range));
    }
    void setRange(FilamentRange* range) { setReference(ReferenceKind::Range, range); }
    Location* location() const
    {
        return static_cast<Location*>(reference(ReferenceKind::Location));
    }
    void setLocation(Location* location) { setReference(ReferenceKind::Location, location); }
    FilamentContainer* reference(ReferenceKind kind) const { return m_references[size_t(kind)]; }

    /// Restores 0 ≤ opened ≤ spools in place, lowering opened rather than raising spools.
    void clampOpenedSpools();

    /// Whether one of the notes, colour name, colour code or the names of the four references
    /// contains `text`, both folded; a text that folds to nothing matches everything.
    bool matchesSearch(const QString& text) const;

    Values values() const;
    /// Puts every field to `to` in which `from` differs from it; identities without an entity
    /// become none.
    void apply(const Values& from, const Values& to);

private:
    friend FilamentContainer;
    friend StoreContext;

    void setReference(ReferenceKind kind, FilamentContainer* container);
    bool isFitReference(const FilamentContainer* container) const;
    void link(ReferenceKind kind, FilamentContainer* container);
    void unlink(ReferenceKind kind);
    template <class Value>
    void set(Value& field, const Value& value);

    std::array<FilamentContainer*, referenceKindCount> m_references{};
    std::array<quint32, referenceKindCount> m_slots{}; ///< Its place in each container's list.
    qint64 m_spoolsCount;
    qint64 m_openedSpoolsCount;
    QString m_colorHex;
    QString m_colorName;
    QString m_notes;
    qint64 m_dateAddedMs;
};

} // namespace reelhouse
