#include "app/shell/NoticesView.h"

#include "app/ui/Palette.h"
#include "app/ui/TextStyle.h"

#include <QtCore/QFile>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int noticesWidth = 600;
constexpr int noticesHeight = 560;

QString notices()
{
    QFile file(u":/licences/third-party.txt"_s);
    [[maybe_unused]] const bool isOpen = file.open(QFile::ReadOnly);
    Q_ASSERT(isOpen); // It is in the program.
    return QString::fromUtf8(file.readAll());
}

} // namespace

NoticesView::NoticesView(QWidget* parent)
    : Sheet(u"Composants tiers"_s, noticesWidth, parent)
{
    setPanelSize(noticesWidth, noticesHeight);
    auto* title = new QLabel(windowTitle(), this);
    setTextStyle(title, TextStyle::Headline);
    auto* text = new QPlainTextEdit(notices(), this);
    text->setReadOnly(true);
    // Read-only means the mouse alone, unless said otherwise.
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setFrameShape(QFrame::NoFrame);
    text->setAccessibleName(windowTitle());
    setTextStyle(text, TextStyle::Callout);
    setGround(text->viewport(), Ground::Canvas);
    body()->setSpacing(12);
    body()->addWidget(title);
    body()->addWidget(text, 1);

    auto* closeButton = new QPushButton(u"Fermer"_s, this);
    buttonRow()->addStretch(1);
    buttonRow()->addWidget(closeButton);
    setConfirmButton(closeButton);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    closeButton->setFocus();
}

} // namespace reelhouse
