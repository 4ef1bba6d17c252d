#include "app/backup/TransferTexts.h"

#include "app/store/StoreContainer.h"

#include <QtCore/QFileInfo>

using namespace Qt::StringLiterals;

namespace reelhouse {

QString TransferTexts::proposedFileName(const QString& suffix, const QDateTime& now)
{
    return u"stock_filaments_"_s + now.toString(u"yyyy-MM-dd_HHmmss"_s) + u'.' + suffix;
}

QString TransferTexts::exporting()
{
    return u"Export en cours…"_s;
}

QString TransferTexts::exported(const StoreContainer& container)
{
    return u"Export réussi ! ("_s + QString::number(container.context().count<Filament>())
        + u" filaments)"_s;
}

QString TransferTexts::writeFailed(const QString& reason)
{
    return u"Erreur d'écriture : "_s + reason;
}

QString TransferTexts::exportFailed(const QString& path)
{
    return u"L'export vers « "_s + QFileInfo(path).fileName() + u" » a échoué"_s;
}

QString TransferTexts::imported(qint64 filaments, bool isBackedUp)
{
    const QString backup = isBackedUp
        ? u"une sauvegarde de sécurité a été créée avant le remplacement."_s
        : u"aucune sauvegarde n'a été créée (mode base temporaire)."_s;
    return u"Import réussi ! ("_s + QString::number(filaments) + u" filaments) — "_s + backup;
}

QString TransferTexts::importFailed(const QString& reason)
{
    return u"Erreur d'import : "_s + reason;
}

} // namespace reelhouse
