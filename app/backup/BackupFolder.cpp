#include "app/backup/BackupFolder.h"

#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>

namespace reelhouse::BackupFolder {

namespace {

std::optional<qint64> creationTime(const std::filesystem::path& path)
{
    struct statx status {};
    const unsigned wanted = STATX_BTIME | STATX_MTIME;
    if (::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &status) != 0)
        return std::nullopt;
    const auto nanoseconds = [](const statx_timestamp& time) {
        return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
    };
    if ((status.stx_mask & STATX_BTIME) != 0)
        return nanoseconds(status.stx_btime);
    if ((status.stx_mask & STATX_MTIME) != 0)
        return nanoseconds(status.stx_mtime);
    return std::nullopt;
}

bool isBackup(const std::filesystem::directory_entry& entry)
{
    if (entry.path().extension() != ".json")
        return false;
    std::error_code error;
    const auto status = entry.symlink_status(error);
    return !error && (is_regular_file(status) || is_symlink(status));
}

} // namespace

std::vector<Backup> list(const std::filesystem::path& folder)
{
    std::vector<Backup> backups;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    while (!error && entry != std::filesystem::directory_iterator()) {
        if (isBackup(*entry))
            backups.push_back({entry->path(), creationTime(entry->path())});
        entry.increment(error);
    }
    return backups;
}

std::vector<std::filesystem::path> superfluous(
    std::vector<Backup> backups, int keep, const std::filesystem::path& spared)
{
    const auto isSpared = [&](const Backup& backup) { return backup.path == spared; };
    size_t kept = size_t(std::max(keep, 0));
    if (std::erase_if(backups, isSpared) > 0 && kept > 0)
        --kept;
    std::ranges::stable_sort(backups, std::ranges::greater(), [](const Backup& backup) {
        return backup.created.value_or(std::numeric_limits<qint64>::min());
    });
    std::vector<std::filesystem::path> paths;
    for (size_t place = kept; place < backups.size(); ++place)
        paths.push_back(backups[place].path);
    return paths;
}

} // namespace reelhouse::BackupFolder
