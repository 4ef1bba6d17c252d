#include "app/shell/FileBrowser.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtGui/QDesktopServices>
#include <QtGui/QGuiApplication>

using namespace Qt::StringLiterals;

namespace reelhouse::FileBrowser {

void openFolder(const QString& folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

void showFile(const QString& file, const QDBusConnection& bus,
    const std::function<void(const QString&)>& openFolder)
{
    const QString folder = QFileInfo(file).absolutePath();
    if (!bus.isConnected()) {
        openFolder(folder);
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
        u"/org/freedesktop/FileManager1"_s, u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    message.setArguments({QStringList{QUrl::fromLocalFile(file).toString()}, QString()});
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(message), qApp);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, qApp, [=] {
        if (answer->isError())
            openFolder(folder);
        answer->deleteLater();
    });
}

} // namespace reelhouse::FileBrowser
