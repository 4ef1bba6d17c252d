#include "app/editing/FilamentForm.h"

#include "app/editing/PickerEntries.h"
#include "app/ui/ColorWell.h"
#include "app/ui/EditorSwatch.h"
#include "app/ui/FormGroup.h"
#include "app/ui/NotesField.h"
#include "app/ui/Palette.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/Stepper.h"
#include "app/ui/Swatch.h"
#include "app/ui/TextStyle.h"
#include "core/model/StoreContext.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int newSwatchHeight = 60;
constexpr int stockedSwatchHeight = 80;
constexpr int mostSteppedSpools = 99;
constexpr int colorNameWidth = 230;
constexpr int notesWidth = 290;
constexpr int colorCodeWidth = 180;

struct ReferenceRow {
    ReferenceKind kind;
    QString label;
    QString none;
};

std::array<ReferenceRow, referenceKindCount> referenceRows(FilamentFormKind kind)
{
    switch (kind) {
    case FilamentFormKind::NewFilament:
        return {{{ReferenceKind::Type, u"Type *"_s, u"Sélectionner…"_s},
            {ReferenceKind::Brand, u"Marque *"_s, u"Sélectionner…"_s},
            {ReferenceKind::Range, u"Gamme"_s, u"Sélectionner…"_s},
            {ReferenceKind::Location, u"Lieu"_s, u"Sélectionner…"_s}}};
    case FilamentFormKind::StockedFilament:
        return {{{ReferenceKind::Type, u"Type"_s, u"Aucun"_s},
            {ReferenceKind::Brand, u"Marque"_s, u"Aucune"_s},
            {ReferenceKind::Range, u"Gamme"_s, u"Aucune"_s},
            {ReferenceKind::Location, u"Lieu"_s, u"Aucun"_s}}};
    }
    Q_UNREACHABLE();
}

} // namespace

FilamentForm::FilamentForm(StoreContext& context, FilamentFormKind kind, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_swatch(new EditorSwatch(
          kind == FilamentFormKind::NewFilament ? newSwatchHeight : stockedSwatchHeight, this))
    , m_spools(new Stepper(u"Nombre de bobines: "_s))
    , m_opened(new Stepper(u"Bobines entamées: "_s))
    , m_colorCode(new QLabel)
    , m_colorWell(new ColorWell)
    , m_colorName(new QLineEdit)
    , m_notes(new NotesField)
{
    auto* heading = new QLabel(u"Informations"_s, this);
    QFont headingFont = fontOf(TextStyle::Caption);
    headingFont.setWeight(QFont::DemiBold);
    heading->setFont(headingFont);
    setTextTone(heading, TextTone::Secondary);
    heading->setContentsMargins(14, 0, 0, 0);

    auto* group = new FormGroup(this);
    addPickers(*group, kind);
    addSteppers(*group);
    addColorRows(*group);
    m_notes->setMaximumWidth(notesWidth);
    group->addTallRow(u"Notes"_s, m_notes);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(m_swatch);
    column->addSpacing(4);
    column->addWidget(heading);
    column->addWidget(group);
    column->addStretch();

    connect(m_notes, &NotesField::textEdited, this, [this] {
        m_draft.notes = m_notes->text();
        emit draftChanged();
    });
    connect(&context, &StoreContext::changed, this, &FilamentForm::followStock);
    showEntries();
    setDraft({});
}

void FilamentForm::showEvent(QShowEvent* event)
{
    if (std::exchange(m_isStale, false))
        followStock();
    QWidget::showEvent(event);
}

void FilamentForm::addPickers(FormGroup& group, FilamentFormKind kind)
{
    for (const auto& [reference, label, none] : referenceRows(kind)) {
        auto* picker = new Picker(none);
        group.addRow(label, picker);
        connect(picker, &Picker::choiceEdited, this, [this, reference = reference](qint64 id) {
            m_draft.reference(reference) = id;
            emit draftChanged();
        });
        m_pickers[size_t(reference)] = picker;
    }
}

void FilamentForm::addSteppers(FormGroup& group)
{
    m_spools->setRange(1, mostSteppedSpools);
    group.addRow(m_spools->label(), m_spools);
    group.addRow(m_opened->label(), m_opened);
    connect(m_spools, &Stepper::valueEdited, this, [this](qint64 count) {
        m_draft.setSpoolsCount(count);
        showCounts();
        emit draftChanged();
    });
    connect(m_opened, &Stepper::valueEdited, this, [this](qint64 count) {
        m_draft.openedSpoolsCount = count;
        emit draftChanged();
    });
}

void FilamentForm::addColorRows(FormGroup& group)
{
    setTextStyle(m_colorCode, TextStyle::Code);
    setTextTone(m_colorCode, TextTone::Secondary);
    m_colorCode->setTextFormat(Qt::PlainText);
    group.addRow(u"Couleur"_s, m_colorCode, m_colorWell);
    m_colorName->setMaxLength(std::numeric_limits<int>::max()); // Else a longer name is cut.
    m_colorName->setMaximumWidth(colorNameWidth);
    m_colorName->setMinimumWidth(colorNameWidth);
    group.addRow(u"Nom de la couleur"_s, m_colorName);
    connect(m_colorWell, &ColorWell::colorEdited, this, [this](const QColor& color) {
        m_draft.colorHex = toHex(color);
        showColor();
        emit draftChanged();
    });
    connect(m_colorName, &QLineEdit::textEdited, this, [this](const QString& name) {
        m_draft.colorName = name;
        showColor();
        emit draftChanged();
    });
}

void FilamentForm::setDraft(const FilamentDraft& draft)
{
    m_draft = draft;
    showReferences();
    showCounts();
    showColor();
    m_colorName->setText(draft.colorName);
    m_colorName->setCursorPosition(0);
    m_notes->setText(draft.notes);
}

void FilamentForm::followStock()
{
    if (!isVisible()) {
        m_isStale = true;
        return;
    }
    showEntries();
    showReferences();
    emit draftChanged();
}

void FilamentForm::showEntries()
{
    for (const ReferenceKind kind : everyReferenceKind)
        m_pickers[size_t(kind)]->setEntries(pickerEntries(m_context, kind));
}

void FilamentForm::showReferences()
{
    m_draft.forgetMissingReferences(m_context);
    for (const ReferenceKind kind : everyReferenceKind)
        m_pickers[size_t(kind)]->setChoice(m_draft.reference(kind));
}

void FilamentForm::showCounts()
{
    m_spools->setValue(m_draft.spoolsCount);
    m_opened->setRange(0, std::max(m_draft.spoolsCount, qint64(0)));
    m_opened->setValue(m_draft.openedSpoolsCount);
}

void FilamentForm::showColor()
{
    const QString& code = m_draft.colorHex;
    m_swatch->setColor(code, m_draft.colorName);
    m_colorWell->setColor(colorFromHex(code));
    m_colorWell->setAccessibleDescription(colorDescription(code, m_draft.colorName));
    const QString line = code.simplified();
    const QString shown
        = m_colorCode->fontMetrics().elidedText(line, Qt::ElideRight, colorCodeWidth);
    m_colorCode->setText(shown);
    m_colorCode->setToolTip(shown == line ? QString() : plainToolTip(line));
}

} // namespace reelhouse
