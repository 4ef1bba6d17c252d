#include "app/shell/TemporaryStoreNotice.h"

#include "app/shell/FileBrowser.h"
#include "app/store/StoreTexts.h"
#include "app/ui/ButtonLook.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

TemporaryStoreNotice::TemporaryStoreNotice(const QString& dataFolder, QWidget* parent)
    : NoticeStrip(parent)
{
    lines()->addWidget(makeText(temporaryStoreText()));
    lines()->addWidget(
        makeText(u"Aucune sauvegarde n'est créée. Dossier des données : "_s + dataFolder));

    auto* open = new QPushButton(openDataFolderText(), this);
    setButtonLook(open, ButtonLook::Link);
    connect(
        open, &QPushButton::clicked, this, [dataFolder] { FileBrowser::openFolder(dataFolder); });
    addWidget(open);
}

} // namespace reelhouse
