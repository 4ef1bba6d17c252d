#include "app/store/StorePaths.h"

#include <QtCore/QStandardPaths>

using namespace Qt::StringLiterals;

namespace reelhouse {

StorePaths StorePaths::ofCurrentUser()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (documents.isEmpty())
        qFatal("The system names no Documents folder.");
    return StorePaths(documents);
}

QString StorePaths::dataFolder() const
{
    return m_documents + u"/Spoolwright"_s;
}

QString StorePaths::storeFile() const
{
    return dataFolder() + u"/Spoolwright.store"_s;
}

QString StorePaths::olderStoreFile() const
{
    return m_documents + u"/Reelhouse/Reelhouse.store"_s;
}

} // namespace reelhouse
