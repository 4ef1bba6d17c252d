#include "app/shell/TemporaryStoreNotice.h"

#include "app/store/StoreTexts.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

using namespace Qt::StringLiterals;

namespace reelhouse {

TemporaryStoreNotice::TemporaryStoreNotice(QWidget* parent)
    : QWidget(parent)
{
    auto* text = new QLabel(temporaryStoreText(), this);
    setTextStyle(text, TextStyle::Callout);
    setTextTone(text, TextTone::Orange);
    text->setWordWrap(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 8, 16, 8);
    row->setSpacing(8);
    row->addWidget(
        new IconView(symbolIcon(u"exclamationmark.triangle.fill"_s, &Theme::orange), 15, this));
    row->addWidget(text, 1);
}

void TemporaryStoreNotice::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), currentTheme().orangeSoft);
}

} // namespace reelhouse
