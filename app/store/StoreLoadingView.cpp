#include "app/store/StoreLoadingView.h"

#include "app/ui/Palette.h"
#include "app/ui/Spinner.h"

#include <QtCore/QTimer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse {

namespace {

/// A store that is open by then was never waited for: nothing flashes up.
constexpr auto unnoticed = 200ms;

} // namespace

StoreLoadingView::StoreLoadingView(QWidget* parent)
    : QWidget(parent)
{
    setGround(this, Ground::Window);
    auto* news = new QWidget(this);
    auto* spinner = new Spinner(news);
    auto* text = new QLabel(u"Ouverture de la base de données…"_s, news);
    text->setObjectName(u"text"_s);
    setTextTone(text, TextTone::Secondary);
    spinner->setAccessibleName(text->text());

    auto* lines = new QVBoxLayout(news);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(12);
    lines->addWidget(spinner, 0, Qt::AlignHCenter);
    lines->addWidget(text, 0, Qt::AlignHCenter);
    auto* middle = new QVBoxLayout(this);
    middle->addWidget(news, 0, Qt::AlignCenter);
    news->hide();
    QTimer::singleShot(unnoticed, news, &QWidget::show);
}

} // namespace reelhouse
