#include "app/editing/DuplicateNameHint.h"

#include "app/ui/Announcement.h"
#include "app/ui/Palette.h"
#include "app/ui/TextStyle.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

DuplicateNameHint::DuplicateNameHint(QWidget* parent)
    : QLabel(u"Ce nom existe déjà."_s, parent)
{
    setTextStyle(this, TextStyle::Caption);
    setTextTone(this, TextTone::Red);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
}

void DuplicateNameHint::setDuplicate(bool isDuplicate)
{
    if (isDuplicate == !isHidden())
        return;
    setVisible(isDuplicate);
    if (isDuplicate)
        announce(this);
}

} // namespace reelhouse
