#include "app/shell/NoticeStrip.h"

#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"
#include "app/ui/WrappingLabel.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

NoticeStrip::NoticeStrip(QWidget* parent)
    : QWidget(parent)
    , m_lines(new QVBoxLayout)
{
    m_lines->setSpacing(2);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 8, 16, 8);
    row->setSpacing(8);
    row->addWidget(
        new IconView(symbolIcon(u"exclamationmark.triangle.fill"_s, &Theme::orange), 15, this));
    row->addLayout(m_lines, 1);
}

QLabel* NoticeStrip::makeText(const QString& text)
{
    auto* label = new WrappingLabel(text, this);
    setTextStyle(label, TextStyle::Callout);
    setTextTone(label, TextTone::Orange);
    return label;
}

void NoticeStrip::addWidget(QWidget* widget)
{
    layout()->addWidget(widget);
}

void NoticeStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), currentTheme().orangeSoft);
}

} // namespace reelhouse
