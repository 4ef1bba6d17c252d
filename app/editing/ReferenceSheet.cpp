#include "app/editing/ReferenceSheet.h"

#include "app/editing/DuplicateNameHint.h"
#include "app/editing/IconPicker.h"
#include "app/editing/ReferenceTexts.h"
#include "app/ui/InputState.h"
#include "app/ui/TextStyle.h"
#include "core/model/StoreContext.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <limits>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int nameSheetWidth = 320;
constexpr int iconSheetWidth = 380;
constexpr int nameSheetPadding = 16;

int sheetWidth(ReferenceKind kind)
{
    return kind == ReferenceKind::Type ? iconSheetWidth : nameSheetWidth;
}

QString sheetTitle(const ReferenceTexts& texts, ReferenceId edited)
{
    return edited ? texts.editTitle : texts.addTitle;
}

} // namespace

ReferenceSheet::ReferenceSheet(const ReferenceList& list, ReferenceId edited, QWidget* parent)
    : Sheet(sheetTitle(referenceTexts(list.kind()), edited), sheetWidth(list.kind()), parent)
    , m_list(list)
    , m_edited(edited)
    , m_nameField(new QLineEdit(this))
    , m_hint(new DuplicateNameHint(this))
    , m_confirmButton(nullptr)
{
    const FilamentContainer* entry = list.find(edited);
    const ReferenceTexts texts = referenceTexts(list.kind());
    setPadding(nameSheetPadding);
    auto* title = new QLabel(sheetTitle(texts, edited), this);
    setTextStyle(title, TextStyle::Headline);
    m_nameField->setMaxLength(std::numeric_limits<int>::max()); // Else a longer name is cut.
    m_nameField->setPlaceholderText(texts.namePlaceholder);
    m_nameField->setAccessibleName(texts.namePlaceholder);
    m_nameField->setText(entry ? entry->name() : QString());
    m_nameField->selectAll();

    body()->setSpacing(0);
    body()->addWidget(title);
    body()->addSpacing(12);
    body()->addWidget(m_nameField);
    body()->addSpacing(5);
    body()->addWidget(m_hint);
    if (list.kind() == ReferenceKind::Type) {
        m_iconPicker
            = new IconPicker(entry ? list.symbol(*entry) : filamentTypeDefaultIcon(), this);
        body()->addSpacing(9);
        body()->addWidget(m_iconPicker);
    }

    auto* cancel = new QPushButton(u"Annuler"_s, this);
    cancel->setAutoDefault(false);
    m_confirmButton = new QPushButton(edited ? u"Enregistrer"_s : u"Ajouter"_s, this);
    buttonRow()->addStretch(1);
    buttonRow()->addWidget(cancel);
    buttonRow()->addWidget(m_confirmButton);
    setConfirmButton(m_confirmButton);

    connect(m_nameField, &QLineEdit::textChanged, this, &ReferenceSheet::refresh);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_confirmButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(&list.context(), &StoreContext::changed, this, &ReferenceSheet::refresh);
    m_nameField->setFocus();
    refresh();
}

void ReferenceSheet::refresh()
{
    if (m_edited && !m_list.find(m_edited)) {
        reject();
        return;
    }
    const NameCheck check = m_list.check(m_nameField->text(), m_edited);
    m_hint->setDuplicate(check == NameCheck::Taken);
    setInputState(m_nameField, {InputShape::Field, check == NameCheck::Taken});
    m_confirmButton->setEnabled(check == NameCheck::Free);
}

void ReferenceSheet::accept()
{
    // From here on the name is its own: checked once more, it would be called taken.
    disconnect(&m_list.context(), nullptr, this, nullptr);
    if (m_edited)
        m_list.edit(m_edited, m_nameField->text(), iconName());
    else
        m_list.add(m_nameField->text(), iconName());
    Sheet::accept();
}

QString ReferenceSheet::iconName() const
{
    return m_iconPicker ? m_iconPicker->selection() : QString();
}

} // namespace reelhouse
