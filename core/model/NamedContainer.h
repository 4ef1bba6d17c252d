#pragma once

#include "core/model/EntityId.h"
#include "core/model/FilamentContainer.h"

namespace reelhouse {

/// An entry of a reference list that has a name and nothing else.
template <class Self, ReferenceKind kind>
class NamedContainer : public FilamentContainer {
public:
    /// The stored fields, as the store and the undo history keep them.
    struct Values {
        QString name;

        bool operator==(const Values&) const = default;
    };

    EntityId<Self> id() const { return {identity()}; }

    void setName(const QString& newName)
    {
        if (newName == name())
            return;
        willChange(static_cast<Self&>(*this));
        writeName(newName);
    }

    Values values() const { return {name()}; }
    /// Puts the name to `to` when `from` differs from it.
    void apply(const Values& from, const Values& to)
    {
        if (from.name != to.name)
            setName(to.name);
    }

protected:
    explicit NamedContainer(QString name)
        : FilamentContainer(kind, std::move(name))
    {
    }
    ~NamedContainer() = default;
};

} // namespace reelhouse
