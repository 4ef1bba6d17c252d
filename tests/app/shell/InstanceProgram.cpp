#include "app/shell/SingleInstance.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <cstdio>

/// Runs on the data folder `argv[1]` as the real program does, and says what it sees, a line each:
/// "first" or "later", then "raise TOKEN" whenever another one asks for it.
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const reelhouse::SingleInstance instance(QFile::decodeName(argv[1]));
    std::puts(instance.isPrimary() ? "first" : "later");
    std::fflush(stdout);
    if (!instance.isPrimary())
        return 0;
    QObject::connect(&instance, &reelhouse::SingleInstance::raiseRequested, &application,
        [](const QString& token) {
            std::printf("raise %s\n", token.toUtf8().constData());
            std::fflush(stdout);
        });
    return QCoreApplication::exec();
}
