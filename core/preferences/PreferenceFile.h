#pragma once

#include <QtCore/QString>
#include <QtCore/QVariantMap>

namespace reelhouse {

/// An INI file of values by key, which never gives up what it cannot understand: a damaged file,
/// or anything else that lies in its place, is set aside before a new one is written.
class PreferenceFile final {
public:
    explicit PreferenceFile(QString path);

    /// Every value of the file; none when it is absent or damaged.
    QVariantMap read() const;
    /// Writes `values` beside what the file holds already. When it returns true, they are on disk.
    bool write(const QVariantMap& values) const;

private:
    bool isDamaged() const;
    bool setAside() const;

    QString m_path;
};

} // namespace reelhouse
