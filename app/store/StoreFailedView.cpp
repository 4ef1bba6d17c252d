#include "app/store/StoreFailedView.h"

#include "app/store/StoreTexts.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/SelectableLabel.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int symbolSide = 54; ///< A symbol of 40 points is that wide.

QLabel* makeTitle(QWidget* parent)
{
    auto* title = new QLabel(storeErrorTitle(), parent);
    title->setObjectName(u"title"_s);
    title->setAlignment(Qt::AlignCenter);
    title->setWordWrap(true);
    setTextStyle(title, TextStyle::Title);
    return title;
}

QLabel* makeMessage(const QString& text, QWidget* parent)
{
    auto* message = new SelectableLabel(parent);
    message->setObjectName(u"message"_s);
    message->setText(text);
    message->setAlignment(Qt::AlignCenter);
    setTextStyle(message, TextStyle::Callout);
    setTextTone(message, TextTone::Secondary);
    return message;
}

} // namespace

StoreFailedView::StoreFailedView(const QString& message, QWidget* parent)
    : QWidget(parent)
{
    setGround(this, Ground::Window);
    auto* symbol = new IconView(
        symbolIcon(u"exclamationmark.triangle.fill"_s, &Theme::orangeGraphic), symbolSide, this);
    auto* button
        = new QPushButton(symbolIcon(u"folder"_s, &Theme::textPrimary), openDataFolderText(), this);
    button->setObjectName(u"openDataFolder"_s);
    connect(button, &QPushButton::clicked, this, &StoreFailedView::openDataFolderRequested);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(40, 40, 40, 40);
    column->setSpacing(16);
    column->addStretch();
    column->addWidget(symbol, 0, Qt::AlignHCenter);
    column->addWidget(makeTitle(this));
    column->addWidget(makeMessage(message, this));
    column->addWidget(button, 0, Qt::AlignHCenter);
    column->addStretch();
}

} // namespace reelhouse
