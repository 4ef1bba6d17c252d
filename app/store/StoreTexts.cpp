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

QString temporaryStoreText()
{
    return u"Spoolwright fonctionne en mode temporaire : les modifications ne seront pas "
           "conservées après la fermeture."_s;
}

QString unsavedText(const QString& reason)
{
    return u"Les dernières modifications ne sont pas enregistrées : "_s + reason;
}

QString belongsToStoreText()
{
    return u"Ce fichier appartient à la base de données de Spoolwright."_s;
}

} // namespace reelhouse
