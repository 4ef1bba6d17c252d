#pragma once

#include "app/store/SystemErrors.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace reelhouse {

/// An open file of the system, closed at the end of the scope.
class Descriptor final {
public:
    /// `flags` are those of open(2). When it fails, lastSystemError() says why.
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

    /// Writes every byte, in as many steps as the system wants.
    std::optional<SystemError> write(QByteArrayView bytes) const
    {
        while (!bytes.isEmpty()) {
            const ssize_t written = ::write(m_value, bytes.data(), size_t(bytes.size()));
            if (written < 0 && errno != EINTR)
                return lastSystemError();
            bytes = bytes.sliced(std::max(written, ssize_t{0}));
        }
        return std::nullopt;
    }

    /// Returns when the disk has what was written.
    std::optional<SystemError> sync() const
    {
        return ::fsync(m_value) == 0 ? std::nullopt : std::optional(lastSystemError());
    }

private:
    int m_value;
};

} // namespace reelhouse
