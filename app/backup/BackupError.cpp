#include "app/backup/BackupError.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

QString BackupError::description() const
{
    switch (kind) {
    case Kind::WriteFailed:
        return u"La sauvegarde n'a pas pu être écrite : "_s + message;
    case Kind::EncodingFailed:
        return u"Les données n'ont pas pu être encodées pour la sauvegarde."_s;
    }
    Q_UNREACHABLE();
}

} // namespace reelhouse
