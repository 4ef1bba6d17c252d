#include "app/editing/FilamentDetailView.h"

#include "app/editing/FilamentDeletion.h"
#include "app/editing/FilamentForm.h"
#include "app/ui/ButtonLook.h"
#include "core/model/StoreContext.h"
#include "core/text/Folding.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// What assistive technology calls the sheet of a filament.
QString detailTitle(const Filament* filament)
{
    if (filament && !trimmed(filament->colorName()).isEmpty())
        return filament->colorName().simplified();
    return filament && filament->type() ? filament->type()->name() : u"Filament"_s;
}

} // namespace

FilamentDetailView::FilamentDetailView(StoreContext& context, FilamentId filament, QWidget* parent)
    : Sheet(detailTitle(context.find(filament)), 480, parent)
    , m_context(context)
    , m_filament(filament)
    , m_form(new FilamentForm(context, FilamentFormKind::StockedFilament))
{
    setPanelSize(480, 620);
    FilamentDraft empty;
    empty.colorHex = u"#FFFFFF"_s;
    m_form->setDraft(empty);
    body()->addWidget(m_form);
    hideScrollBar();

    // Made after the form, and in this order: so does Tab go.
    m_deleteButton = new QPushButton(u"Supprimer"_s, this);
    auto* cancel = new QPushButton(u"Annuler"_s, this);
    m_saveButton = new QPushButton(u"Enregistrer"_s, this);
    setButtonLook(m_deleteButton, ButtonLook::Destructive);
    m_deleteButton->setAutoDefault(false);
    buttonRow()->addWidget(m_deleteButton);
    buttonRow()->addStretch();
    buttonRow()->addWidget(cancel);
    buttonRow()->addWidget(m_saveButton);
    setConfirmButton(m_saveButton);

    connect(m_deleteButton, &QPushButton::clicked, this, &FilamentDetailView::confirmDeletion);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_saveButton, &QPushButton::clicked, this, &FilamentDetailView::save);
    connect(m_form, &FilamentForm::draftChanged, this, &FilamentDetailView::refreshButtons);
    refreshButtons();
}

void FilamentDetailView::showEvent(QShowEvent* event)
{
    loadOnce();
    Sheet::showEvent(event);
}

void FilamentDetailView::loadOnce()
{
    if (std::exchange(m_didLoad, true))
        return;
    if (const Filament* filament = m_context.find(m_filament))
        m_form->setDraft(loadedDraft(*filament));
    refreshButtons();
}

void FilamentDetailView::refreshButtons()
{
    const Filament* filament = m_context.find(m_filament);
    m_deleteButton->setEnabled(filament);
    m_saveButton->setEnabled(filament && m_didLoad && hasChanges(m_form->draft(), *filament));
}

void FilamentDetailView::save()
{
    saveFilament(m_context, m_filament, m_form->draft());
    accept();
}

void FilamentDetailView::confirmDeletion()
{
    askToDelete(m_context, m_filament, this, [this] { accept(); });
}

} // namespace reelhouse
