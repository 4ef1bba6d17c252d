#pragma once

#include "app/editing/FilamentDraft.h"

#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;

namespace reelhouse {

class ColorWell;
class EditorSwatch;
class FormGroup;
class NotesField;
class Picker;
class Stepper;

/// Whose fields a FilamentForm shows; they differ in a few texts and in the height of the swatch.
enum class FilamentFormKind : quint8 { NewFilament, StockedFilament };

/// The fields of one filament, below its colour. Holds a FilamentDraft and writes nothing into the
/// stock; its pickers follow the four reference lists as they change, once they are seen.
class FilamentForm final : public QWidget {
    Q_OBJECT

public:
    FilamentForm(StoreContext& context, FilamentFormKind kind, QWidget* parent = nullptr);

    const FilamentDraft& draft() const { return m_draft; }
    /// Shows another draft. Emits nothing.
    void setDraft(const FilamentDraft& draft);

signals:
    /// The user changed a field, or the stock changed under it.
    void draftChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addPickers(FormGroup& group, FilamentFormKind kind);
    void addSteppers(FormGroup& group);
    void addColorRows(FormGroup& group);
    void followStock();
    void showEntries();
    void showReferences();
    void showCounts();
    void showColor();

    StoreContext& m_context;
    FilamentDraft m_draft;
    EditorSwatch* m_swatch;
    std::array<Picker*, referenceKindCount> m_pickers{};
    Stepper* m_spools;
    Stepper* m_opened;
    QLabel* m_colorCode;
    ColorWell* m_colorWell;
    QLineEdit* m_colorName;
    NotesField* m_notes;
    bool m_isStale = false; ///< The stock changed while the form was not seen.
};

} // namespace reelhouse
