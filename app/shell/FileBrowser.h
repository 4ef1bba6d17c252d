#pragma once

#include <QtDBus/QDBusConnection>

#include <functional>

namespace reelhouse::FileBrowser {

/// Opens a folder in the desktop's file browser.
void openFolder(const QString& folder);

/// Shows a file selected in the desktop's file browser, asked over `bus`; where nobody answers
/// there, `openFolder` is called with the folder of the file. Returns at once.
void showFile(const QString& file, const QDBusConnection& bus,
    const std::function<void(const QString&)>& openFolder);

} // namespace reelhouse::FileBrowser
