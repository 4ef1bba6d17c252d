#include "app/store/DurableFiles.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace reelhouse::DurableFiles {

namespace {

/// An open file of the system, closed at the end of the scope.
class Descriptor final {
public:
    Descriptor(const QString& path, int flags)
        : m_value(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, 0666))
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (isOpen())
            ::close(m_value);
    }

    bool isOpen() const { return m_value >= 0; }
    int value() const { return m_value; }

private:
    int m_value;
};

std::optional<SystemError> syncFolderOf(const QString& path)
{
    const Descriptor folder(QFileInfo(path).path(), O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen() || ::fsync(folder.value()) != 0)
        return lastSystemError();
    return std::nullopt;
}

std::optional<SystemError> writeAll(int file, const char* bytes, ssize_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(file, bytes, size_t(size));
        if (written < 0 && errno != EINTR)
            return lastSystemError();
        bytes += std::max(written, ssize_t{0});
        size -= std::max(written, ssize_t{0});
    }
    return std::nullopt;
}

std::optional<SystemError> copyBytes(int from, int to)
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
        if (const auto error = writeAll(to, buffer.data(), size))
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
    if (const auto error = copyBytes(source.value(), target.value()))
        return error;
    if (::fsync(target.value()) != 0)
        return lastSystemError();
    return std::nullopt;
}

} // namespace

bool isTaken(const QString& path)
{
    struct stat status {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
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

std::optional<SystemError> rename(const QString& from, const QString& to)
{
    const int result
        = ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData());
    return result == 0 ? syncFolderOf(to) : lastSystemError();
}

std::optional<SystemError> remove(const QString& path)
{
    if (::unlink(QFile::encodeName(path).constData()) == 0 || errno == ENOENT)
        return std::nullopt;
    return lastSystemError();
}

} // namespace reelhouse::DurableFiles
