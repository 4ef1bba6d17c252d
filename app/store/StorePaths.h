#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// Where the stock lies on disk: everything hangs below one Documents folder.
class StorePaths final {
public:
    explicit StorePaths(QString documentsFolder)
        : m_documents(std::move(documentsFolder))
    {
    }

    /// The paths of the user who runs the program, read from the system at each call.
    /// A system that knows no Documents folder ends the program.
    static StorePaths ofCurrentUser();

    QString dataFolder() const;
    QString storeFile() const;
    /// The store of the time before the program had its present name.
    QString olderStoreFile() const;

private:
    QString m_documents;
};

} // namespace reelhouse
