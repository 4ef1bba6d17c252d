#include "app/store/StoreErrorAlert.h"

#include "app/store/StoreTexts.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

Alert* makeStoreErrorAlert(const QString& message, QWidget* parent)
{
    const QString explanation
        = u"Spoolwright fonctionne en mode temporaire : les modifications ne seront pas "
          "conservées après la fermeture.\n\n"_s;
    return new Alert(AlertTone::Warning, storeErrorTitle(), explanation + message,
        {{u"Continuer"_s, AlertRole::Confirm}, {openDataFolderText(), AlertRole::Other}}, parent);
}

} // namespace reelhouse
