#include "core/preferences/PreferenceFile.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

bool isText(const QByteArray& bytes)
{
    const auto isControl = [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return code < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
    };
    return std::ranges::none_of(bytes, isControl) && bytes.isValidUtf8();
}

/// QSettings would pass over a line that is none, and lose it at the next write.
bool isIniLine(const QByteArray& untrimmed)
{
    const QByteArray line = untrimmed.trimmed();
    if (line.startsWith('['))
        return line.contains(']');
    return line.isEmpty() || line.startsWith(';') || line.contains('=');
}

/// Asks the system to put the file or folder on disk now. Not every file system can.
void syncToDisk(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

PreferenceFile::PreferenceFile(QString path)
    : m_path(std::move(path))
{
}

QVariantMap PreferenceFile::read() const
{
    QVariantMap values;
    if (isDamaged())
        return values;
    const QSettings settings(m_path, QSettings::IniFormat);
    for (const QString& key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

bool PreferenceFile::write(const QVariantMap& values) const
{
    if (isDamaged() && !setAside())
        return false;
    QSettings settings(m_path, QSettings::IniFormat);
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        settings.setValue(value.key(), value.value());
    settings.sync();
    if (settings.status() != QSettings::NoError)
        return false;
    const QFileInfo folder(QFileInfo(m_path).absolutePath());
    syncToDisk(m_path);
    syncToDisk(folder.filePath());
    syncToDisk(folder.path()); // The folder may be new as well.
    return true;
}

bool PreferenceFile::isDamaged() const
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return false;
    QFile file(m_path);
    // Opening a pipe would wait for ever.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return true;
    const QByteArray content = file.readAll();
    return !isText(content) || !std::ranges::all_of(content.split('\n'), isIniLine);
}

/// Renames what lies in the file's place after the moment, never over another file.
bool PreferenceFile::setAside() const
{
    const QString name
        = m_path + QDateTime::currentDateTime().toString(u"'.damaged-'yyyyMMdd-HHmmss-zzz"_s);
    return QFile::rename(m_path, name);
}

} // namespace reelhouse
