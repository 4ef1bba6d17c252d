#pragma once

#include <QtCore/qglobal.h>
#include <filesystem>
#include <optional>
#include <vector>

/// The files of a backup folder, as the file system lists them.
namespace reelhouse::BackupFolder {

struct Backup {
    std::filesystem::path path;
    /// Nanoseconds since 1970; nothing when it cannot be read.
    std::optional<qint64> created;
};

/// Every file and symbolic link directly in `folder` with the extension "json", in the order of the
/// listing; none when it cannot be listed.
std::vector<Backup> list(const std::filesystem::path& folder);

/// Which of `backups` go so that the `keep` newest remain. Of equal ages the first listed is the
/// newest; `spared` never goes and counts as one that is kept when it is among them.
std::vector<std::filesystem::path> superfluous(
    std::vector<Backup> backups, int keep, const std::filesystem::path& spared = {});

} // namespace reelhouse::BackupFolder
