#pragma once

#include "app/editing/ReferenceList.h"
#include "app/ui/Sheet.h"

class QLineEdit;

namespace reelhouse {

class DuplicateNameHint;
class IconPicker;

/// The sheet in which an entry of a reference list is added or renamed, and the icon of a type
/// chosen. Nothing is written before it is confirmed. It follows the list while it is open, and
/// closes when the entry that it edits is gone.
class ReferenceSheet final : public Sheet {
    Q_OBJECT

public:
    /// `edited` is the entry to change; nothing's identity adds a new one.
    ReferenceSheet(const ReferenceList& list, ReferenceId edited, QWidget* parent);

    void accept() override;

private:
    void refresh();
    QString iconName() const;

    ReferenceList m_list;
    ReferenceId m_edited;
    QLineEdit* m_nameField;
    DuplicateNameHint* m_hint;
    IconPicker* m_iconPicker = nullptr; ///< Types only.
    QPushButton* m_confirmButton;
};

} // namespace reelhouse
