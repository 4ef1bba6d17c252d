#include "app/editing/AddFilamentView.h"

#include "app/editing/CommandTexts.h"
#include "app/editing/FilamentForm.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

AddFilamentView::AddFilamentView(StoreContext& context, QWidget* parent)
    : Sheet(addFilamentText(), 480, parent)
    , m_context(context)
    , m_form(new FilamentForm(context, FilamentFormKind::NewFilament))
{
    setPanelSize(480, 620);
    m_form->setDraft(newFilamentDraft());
    body()->addWidget(m_form);

    auto* cancel = new QPushButton(u"Annuler"_s, this);
    auto* confirm = new QPushButton(u"Ajouter"_s, this);
    confirm->setEnabled(false);
    buttonRow()->addWidget(cancel);
    buttonRow()->addStretch();
    buttonRow()->addWidget(confirm);
    setConfirmButton(confirm, ConfirmKey::ControlReturn);

    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(confirm, &QPushButton::clicked, this, &AddFilamentView::add);
    connect(m_form, &FilamentForm::draftChanged, this,
        [this, confirm] { confirm->setEnabled(canBeAdded(m_form->draft())); });
}

void AddFilamentView::add()
{
    addFilament(m_context, m_form->draft());
    accept();
}

} // namespace reelhouse
