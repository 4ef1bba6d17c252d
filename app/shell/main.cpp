#include "app/shell/ReelhouseApp.h"
#include "app/shell/SingleInstance.h"

#include <QtCore/QLocale>
#include <QtCore/QTranslator>
#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;
using namespace reelhouse;

int main(int argc, char* argv[])
{
    QCoreApplication::setOrganizationName(u"Spoolwright"_s);
    QCoreApplication::setApplicationName(u"Spoolwright"_s);
    QGuiApplication::setDesktopFileName(u"spoolwright"_s);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    const QApplication application(argc, argv);

    const StorePaths paths = StorePaths::ofCurrentUser();
    SingleInstance instance(paths.dataFolder());
    if (!instance.isPrimary())
        return 0;

    // Standard buttons and text menus speak French whatever the session's language.
    QTranslator french;
    if (french.load(u":/translations/qtbase_fr.qm"_s))
        QCoreApplication::installTranslator(&french);
    return ReelhouseApp(paths, Preferences::userFilePath(), instance).run();
}
