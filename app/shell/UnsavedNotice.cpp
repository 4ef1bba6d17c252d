#include "app/shell/UnsavedNotice.h"

#include "app/store/StoreTexts.h"
#include "app/ui/Announcement.h"
#include "core/model/StoreContext.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

UnsavedNotice::UnsavedNotice(const StoreContext& context, QWidget* parent)
    : NoticeStrip(parent)
    , m_text(makeText({}))
{
    lines()->addWidget(m_text);
    hide();
    connect(&context, &StoreContext::committed, this, &UnsavedNotice::showOutcome);
}

void UnsavedNotice::showOutcome(const QString& failure)
{
    if (failure.isEmpty())
        return hide();
    const QString text = unsavedText(failure) + u" Spoolwright continue d'essayer."_s;
    if (text == m_text->text() && !isHidden())
        return;
    m_text->setText(text);
    show();
    announce(m_text);
}

} // namespace reelhouse
