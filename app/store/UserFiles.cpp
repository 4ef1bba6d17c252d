#include "app/store/UserFiles.h"

#include "app/store/Descriptor.h"

#include <new>
#include <sys/stat.h>

namespace reelhouse::UserFiles {

namespace {

/// The length of the open file, if it is an ordinary one.
Result<qint64, SystemError> ordinaryLength(const Descriptor& file)
{
    struct stat status {};
    if (::fstat(file.value(), &status) != 0)
        return Failure{lastSystemError()};
    if (S_ISDIR(status.st_mode))
        return Failure{SystemError{EISDIR}};
    if (!S_ISREG(status.st_mode))
        return Failure{SystemError{ENXIO}};
    return qint64{status.st_size};
}

Result<QByteArray, SystemError> readAll(const QString& path, qint64 largest)
{
    // Without O_NONBLOCK a pipe of that name would never open.
    const Descriptor file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!file.isOpen())
        return Failure{lastSystemError()};
    const auto length = ordinaryLength(file);
    if (!length)
        return Failure{length.error()};
    if (length.value() > largest)
        return Failure{SystemError{EFBIG}};
    QByteArray bytes;
    // Some files say that they are empty and are not; others grow.
    bytes.resize(length.value() + 1);
    qsizetype size = 0;
    while (true) {
        if (size > largest)
            return Failure{SystemError{EFBIG}};
        if (size == bytes.size())
            bytes.resize(2 * size);
        const ssize_t count
            = ::read(file.value(), bytes.data() + size, size_t(bytes.size() - size));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return Failure{lastSystemError()};
        if (count == 0)
            break;
        size += count;
    }
    bytes.truncate(size);
    return bytes;
}

} // namespace

Result<QByteArray, SystemError> read(const QString& path, qint64 largest)
{
    try {
        return readAll(path, largest);
    } catch (const std::bad_alloc&) {
        return Failure{SystemError{ENOMEM}};
    }
}

std::optional<SystemError> overwrite(const QString& path, QByteArrayView bytes)
{
    const Descriptor file(path, O_WRONLY | O_CREAT | O_NONBLOCK | O_NOCTTY);
    if (!file.isOpen())
        return lastSystemError();
    const auto length = ordinaryLength(file);
    if (!length)
        return length.error();
    if (::ftruncate(file.value(), 0) != 0)
        return lastSystemError();
    if (const auto error = file.write(bytes))
        return error;
    return file.sync();
}

} // namespace reelhouse::UserFiles
