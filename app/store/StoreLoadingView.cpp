#include "app/store/StoreLoadingView.h"

#include "app/ui/Palette.h"
#include "app/ui/Spinner.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

StoreLoadingView::StoreLoadingView(QWidget* parent)
    : QWidget(parent)
{
    setGround(this, Ground::Window);
    auto* spinner = new Spinner(this);
    auto* text = new QLabel(u"Ouverture de la base de données…"_s, this);
    text->setObjectName(u"text"_s);
    setTextTone(text, TextTone::Secondary);
    spinner->setAccessibleName(text->text());

    auto* column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addStretch();
    column->addWidget(spinner, 0, Qt::AlignHCenter);
    column->addWidget(text, 0, Qt::AlignHCenter);
    column->addStretch();
}

} // namespace reelhouse
