#pragma once

#include <QtCore/QString>

#include <optional>

class QPagedPaintDevice;

namespace reelhouse {

/// Why a report could not be printed or written.
struct PrintError {
    QString description; ///< A French sentence.

    bool operator==(const PrintError&) const = default;
};

/// Where the pages of a report go. Opened once, painted on, then committed or abandoned.
class PrintTarget {
public:
    PrintTarget() = default;
    PrintTarget(const PrintTarget&) = delete;
    PrintTarget& operator=(const PrintTarget&) = delete;
    virtual ~PrintTarget() = default;

    /// To be called once, before painting.
    virtual std::optional<PrintError> open() = 0;
    virtual QPagedPaintDevice& device() = 0;
    /// What has gone wrong so far.
    virtual std::optional<PrintError> error() const = 0;
    /// To be called once, after the painting has ended.
    virtual std::optional<PrintError> commit() = 0;
    /// Instead of `commit`, while the painting still goes on: nothing of it shall be left.
    virtual void abandon() = 0;
};

} // namespace reelhouse
