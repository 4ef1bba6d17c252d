#include "app/store/DurableFiles.h"

#include "app/store/Descriptor.h"

#include <QtCore/QFileInfo>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace reelhouse::DurableFiles {

namespace {

/// Some file systems cannot sync a folder, and one that may be written but not listed cannot be
/// opened: what was renamed in it is renamed all the same.
std::optional<SystemError> unlessBeyondReach(const std::optional<SystemError>& error)
{
    constexpr std::array beyondReach{EINVAL, ENOTSUP, EACCES};
    const bool isBeyondReach
        = error && std::ranges::find(beyondReach, error->code) != beyondReach.end();
    return isBeyondReach ? std::nullopt : error;
}

std::optional<SystemError> syncFolderOf(const QString& path)
{
    const Descriptor folder(QFileInfo(path).path(), O_RDONLY | O_DIRECTORY);
    return unlessBeyondReach(folder.isOpen() ? folder.sync() : lastSystemError());
}

std::optional<SystemError> copyBytes(int from, const Descriptor& to)
{
    std::array<char, 65536> buffer;
    while (true) {
        const ssize_t size = ::read(from, buffer.data(), buffer.size());
        if (size == 0)
            return std::nullopt;
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0)
            return lastSystemError();
        if (const auto error = to.write(QByteArrayView(buffer.data(), size)))
            return error;
    }
}

std::optional<SystemError> copyAndSync(const QString& from, const QString& to)
{
    // Without O_NONBLOCK a pipe of that name would never open.
    const Descriptor source(from, O_RDONLY | O_NONBLOCK);
    if (!source.isOpen())
        return lastSystemError();
    struct stat status {};
    if (::fstat(source.value(), &status) != 0)
        return lastSystemError();
    if (!S_ISREG(status.st_mode))
        return SystemError{S_ISDIR(status.st_mode) ? EISDIR : EINVAL};
    const Descriptor target(to, O_WRONLY | O_CREAT | O_EXCL);
    if (!target.isOpen())
        return lastSystemError();
    if (const auto error = copyBytes(source.value(), target))
        return error;
    return target.sync();
}

/// Why the name cannot be given to a file: something has it (EEXIST), or the system cannot say.
std::optional<SystemError> obstacleAt(const QString& path)
{
    struct stat status {};
    if (::lstat(QFile::encodeName(path).constData(), &status) == 0)
        return SystemError{EEXIST};
    return errno == ENOENT || errno == ENOTDIR ? std::nullopt : std::optional(lastSystemError());
}

std::optional<SystemError> writeAndSync(const QString& path, QByteArrayView bytes)
{
    if (const auto error = remove(path))
        return error;
    const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.isOpen())
        return lastSystemError();
    if (const auto error = file.write(bytes))
        return error;
    return file.sync();
}

} // namespace

bool isTaken(const QString& path)
{
    return obstacleAt(path).has_value();
}

std::optional<SystemError> copy(const QString& from, const QString& to)
{
    if (const auto error = remove(to))
        return error;
    auto error = copyAndSync(from, to);
    if (error)
        remove(to); // The first error is the one to report.
    return error;
}

Result<QString, SystemError> write(
    const QString& folder, const std::function<QString(int attempt)>& nameOf, QByteArrayView bytes)
{
    const QString draft = folder + u"/.Spoolwright.new"_s;
    auto error = writeAndSync(draft, bytes);
    QString path;
    for (int attempt = 0; !error; ++attempt) {
        path = folder + u'/' + nameOf(attempt);
        error = renameToFreeName(draft, path);
        if (!error)
            return path;
        if (error->code == EEXIST)
            error.reset();
    }
    remove(draft); // The first error is the one to report.
    return Failure{*error};
}

std::optional<SystemError> makeFolder(const QString& path)
{
    if (::mkdir(QFile::encodeName(path).constData(), 0777) == 0)
        return syncFolderOf(path);
    if (errno == EEXIST)
        return QFileInfo(path).isDir() ? std::nullopt : std::optional(SystemError{ENOTDIR});
    const QString parent = QFileInfo(path).path();
    if (errno != ENOENT || parent == path)
        return lastSystemError();
    if (const auto error = makeFolder(parent))
        return error;
    return ::mkdir(QFile::encodeName(path).constData(), 0777) == 0 ? syncFolderOf(path)
                                                                   : lastSystemError();
}

std::optional<SystemError> renameToFreeName(const QString& from, const QString& to)
{
    const QByteArray former = QFile::encodeName(from);
    const QByteArray name = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, former.constData(), AT_FDCWD, name.constData(), RENAME_NOREPLACE)
        == 0)
        return syncFolderOf(to);
    if (errno != EINVAL && errno != ENOSYS)
        return lastSystemError();
    // A file system that cannot do it in one step.
    if (const auto obstacle = obstacleAt(to))
        return obstacle;
    return ::rename(former.constData(), name.constData()) == 0 ? syncFolderOf(to)
                                                               : lastSystemError();
}

std::optional<SystemError> remove(const QString& path)
{
    if (::unlink(QFile::encodeName(path).constData()) == 0 || errno == ENOENT)
        return std::nullopt;
    return lastSystemError();
}

} // namespace reelhouse::DurableFiles
