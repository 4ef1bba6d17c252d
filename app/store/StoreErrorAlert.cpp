#include "app/store/StoreErrorAlert.h"

#include "app/store/StoreTexts.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

Alert* makeStoreErrorAlert(const QString& message, QWidget* parent)
{
    return new Alert(AlertTone::Warning, storeErrorTitle(),
        temporaryStoreText() + u"\n\n"_s + message,
        {{u"Continuer"_s, AlertRole::Confirm}, {openDataFolderText(), AlertRole::Other}}, parent);
}

} // namespace reelhouse
