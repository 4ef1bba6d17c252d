#include "app/shell/TemporaryStoreNotice.h"

#include "app/shell/FileBrowser.h"
#include "app/shell/PathLabel.h"
#include "app/store/StoreTexts.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

TemporaryStoreNotice::TemporaryStoreNotice(const QString& dataFolder, QWidget* parent)
    : QWidget(parent)
{
    auto* text = new QLabel(temporaryStoreText(), this);
    text->setWordWrap(true);
    auto* backups = new QLabel(u"Aucune sauvegarde n'est créée. Dossier des données :"_s, this);
    auto* folder = new PathLabel(dataFolder, this);
    for (QLabel* label : {text, backups}) {
        setTextStyle(label, TextStyle::Callout);
        setTextTone(label, TextTone::Orange);
    }
    setTextTone(folder, TextTone::Orange);
    auto* open = new QPushButton(openDataFolderText(), this);
    setButtonLook(open, ButtonLook::Link);
    connect(
        open, &QPushButton::clicked, this, [dataFolder] { FileBrowser::openFolder(dataFolder); });

    auto* secondLine = new QHBoxLayout;
    secondLine->setSpacing(6);
    secondLine->addWidget(backups);
    secondLine->addWidget(folder, 1);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addWidget(text);
    lines->addLayout(secondLine);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(16, 8, 16, 8);
    row->setSpacing(8);
    row->addWidget(
        new IconView(symbolIcon(u"exclamationmark.triangle.fill"_s, &Theme::orange), 15, this));
    row->addLayout(lines, 1);
    row->addWidget(open);
}

void TemporaryStoreNotice::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), currentTheme().orangeSoft);
}

} // namespace reelhouse
