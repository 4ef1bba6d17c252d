#include "app/store/StoreTexts.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

QString storeErrorTitle()
{
    return u"Impossible d'ouvrir la base de données"_s;
}

QString openDataFolderText()
{
    return u"Ouvrir le dossier des données"_s;
}

} // namespace reelhouse
