#pragma once

#include "core/model/EntityId.h"
#include "core/model/FilamentContainer.h"

#include <QtCore/QStringList>

namespace reelhouse {

/// The symbol of a type for which none was chosen: "cube.fill".
QString filamentTypeDefaultIcon();

/// The symbol names offered for a type, in the order of the picker.
QStringList typeIconOptions();

/// A material, such as PLA or PETG.
class FilamentType final : public FilamentContainer {
public:
    /// The stored fields, as the store and the undo history keep them.
    struct Values {
        QString name;
        QString iconName;

        bool operator==(const Values&) const = default;
    };

    explicit FilamentType(QString name, QString iconName = filamentTypeDefaultIcon());

    FilamentTypeId id() const { return {identity()}; }
    void setName(const QString& newName);
    const QString& iconName() const { return m_iconName; }
    void setIconName(const QString& iconName);

    Values values() const { return {name(), m_iconName}; }
    /// Puts every field to `to` in which `from` differs from it.
    void apply(const Values& from, const Values& to);

private:
    QString m_iconName;
};

} // namespace reelhouse
