#pragma once

#include "core/preferences/PreferenceFile.h"

#include <QtCore/QSizeF>

#include <optional>

namespace reelhouse {

/// Everything the program remembers about its user, one pair of functions for each key of the
/// preference file. The file is read once; a setter returns when its value is on disk.
/// What cannot be written still counts until the program ends, and goes along with the next write.
class Preferences final {
public:
    /// `filePath` is the INI file; it need not exist.
    explicit Preferences(const QString& filePath);
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;

    /// Where the file lies for the current user: Spoolwright/Spoolwright.ini among the
    /// configuration files.
    static QString userFilePath();

    // Switches: "true" or "false". Absent, or anything else, they count as said here.

    /// "confirmOnQuit", true when absent: ask before quitting.
    bool confirmOnQuit() const;
    void setConfirmOnQuit(bool on);
    /// "autoBackupOnLaunch", true when absent.
    bool autoBackupOnLaunch() const;
    void setAutoBackupOnLaunch(bool on);
    /// "autoBackupOnQuit", true when absent.
    bool autoBackupOnQuit() const;
    void setAutoBackupOnQuit(bool on);
    /// "rememberWindowState", true when absent: keep the window's size and the last view mode.
    bool rememberWindowState() const;
    void setRememberWindowState(bool on);
    /// "didSeedSampleData", false when absent: the sample data has had its one chance.
    bool didSeedSampleData() const;
    void setDidSeedSampleData(bool on);

    /// "maxBackups", 20 when absent: how many backups are kept, 1 to 100. Other numbers count as
    /// the nearer of the two, what is no number as 1.
    int maxBackups() const;
    void setMaxBackups(int count);

    /// "windowWidth" and "windowHeight": the saved size of the window, if both are numbers above 0.
    /// Larger than any window can be counts as the largest.
    std::optional<QSizeF> windowSize() const;
    void setWindowSize(QSizeF size);

    /// "viewMode": the title of the library's view mode; empty when absent.
    QString viewMode() const;
    void setViewMode(const QString& title);

    /// "filterFavorites": the encoded favourites, byte for byte; empty when absent.
    QByteArray filterFavorites() const;
    void setFilterFavorites(const QByteArray& encoded);

private:
    void set(const QVariantMap& values);
    bool isOn(const QString& key, bool whenAbsent) const;

    PreferenceFile m_file;
    QVariantMap m_values; ///< By key.
};

} // namespace reelhouse
