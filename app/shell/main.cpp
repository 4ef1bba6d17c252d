#include "app/shell/FrenchTexts.h"
#include "app/shell/ReelhouseApp.h"
#include "app/shell/SingleInstance.h"

#include <QtCore/QLocale>
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

    const FrenchTexts french;
    return ReelhouseApp(paths, Preferences::userFilePath(), instance).run();
}
