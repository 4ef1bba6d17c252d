#include "app/shell/TemporaryStoreNotice.h"

#include "app/shell/FileBrowser.h"
#include "app/shell/PathLabel.h"
#include "app/store/StoreTexts.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/Palette.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

TemporaryStoreNotice::TemporaryStoreNotice(const QString& dataFolder, QWidget* parent)
    : NoticeStrip(parent)
{
    QLabel* text = makeText(temporaryStoreText());
    text->setWordWrap(true);
    auto* folder = new PathLabel(dataFolder, this);
    setTextTone(folder, TextTone::Orange);
    auto* secondLine = new QHBoxLayout;
    secondLine->setSpacing(6);
    secondLine->addWidget(makeText(u"Aucune sauvegarde n'est créée. Dossier des données :"_s));
    secondLine->addWidget(folder, 1);
    lines()->addWidget(text);
    lines()->addLayout(secondLine);

    auto* open = new QPushButton(openDataFolderText(), this);
    setButtonLook(open, ButtonLook::Link);
    connect(
        open, &QPushButton::clicked, this, [dataFolder] { FileBrowser::openFolder(dataFolder); });
    addWidget(open);
}

} // namespace reelhouse
