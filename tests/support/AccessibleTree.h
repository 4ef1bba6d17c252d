#pragma once

#include <QtCore/QStringList>
#include <QtGui/QAccessible>

namespace reelhouse::tests {

/// What a screen reader can call the object: its own name, or that of the label in front of it.
/// A picker's own name is only the choice that it shows, so for it the label alone counts.
inline QString callableName(QAccessibleInterface& object)
{
    QString name;
    if (object.role() != QAccessible::ComboBox)
        name = object.text(QAccessible::Name);
    for (const auto& [label, relation] : object.relations(QAccessible::Label)) {
        if (name.isEmpty() && label)
            name = label->text(QAccessible::Name);
    }
    return name.trimmed();
}

inline void collectUnnamed(QAccessibleInterface& object, QStringList& found)
{
    const QAccessible::State state = object.state();
    if (state.invisible)
        return;
    if (state.focusable && callableName(object).isEmpty()) {
        const QObject* owner = object.object();
        found += QStringLiteral("%1 %2 (role %3)")
                     .arg(owner ? QString::fromLatin1(owner->metaObject()->className()) : QString(),
                         owner ? owner->objectName() : QString())
                     .arg(object.role(), 0, 16);
    }
    for (int child = 0; child < object.childCount(); ++child) {
        if (QAccessibleInterface* inner = object.child(child))
            collectUnnamed(*inner, found);
    }
}

/// Every visible control under `root`, itself included, that takes the focus and has nothing by
/// which a screen reader could call it. What is to be empty: compare with `QStringList()`.
inline QStringList unnamedControls(QObject* root)
{
    QStringList found;
    if (QAccessibleInterface* object = QAccessible::queryAccessibleInterface(root))
        collectUnnamed(*object, found);
    else
        found += QStringLiteral("Assistive technology does not see it at all.");
    return found;
}

} // namespace reelhouse::tests
