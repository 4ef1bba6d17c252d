#include "core/preferences/Preferences.h"

#include <QtCore/QStandardPaths>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// Qt's windows end there, and whole numbers not far beyond.
constexpr QSizeF largestWindow(16777215, 16777215);

std::optional<double> finiteNumber(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toString().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace

Preferences::Preferences(const QString& filePath)
    : m_file(filePath)
    , m_values(m_file.read())
{
}

QString Preferences::userFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + u"/Spoolwright/Spoolwright.ini"_s;
}

void Preferences::set(const QVariantMap& values)
{
    m_values.insert(values);
    // Nobody can do anything about a failure; every value is written again the next time.
    m_file.write(m_values);
}

bool Preferences::isOn(const QString& key, bool whenAbsent) const
{
    const QVariant value = m_values.value(key);
    // As the file spells it, or as a setter left it.
    if (value.typeId() != QMetaType::QString && value.typeId() != QMetaType::Bool)
        return whenAbsent;
    const QString text = value.toString();
    return text == u"true" || (whenAbsent && text != u"false");
}

bool Preferences::confirmOnQuit() const
{
    return isOn(u"confirmOnQuit"_s, true);
}

void Preferences::setConfirmOnQuit(bool on)
{
    set({{u"confirmOnQuit"_s, on}});
}

bool Preferences::autoBackupOnLaunch() const
{
    return isOn(u"autoBackupOnLaunch"_s, true);
}

void Preferences::setAutoBackupOnLaunch(bool on)
{
    set({{u"autoBackupOnLaunch"_s, on}});
}

bool Preferences::autoBackupOnQuit() const
{
    return isOn(u"autoBackupOnQuit"_s, true);
}

void Preferences::setAutoBackupOnQuit(bool on)
{
    set({{u"autoBackupOnQuit"_s, on}});
}

bool Preferences::rememberWindowState() const
{
    return isOn(u"rememberWindowState"_s, true);
}

void Preferences::setRememberWindowState(bool on)
{
    set({{u"rememberWindowState"_s, on}});
}

bool Preferences::didSeedSampleData() const
{
    return isOn(u"didSeedSampleData"_s, false);
}

void Preferences::setDidSeedSampleData(bool on)
{
    set({{u"didSeedSampleData"_s, on}});
}

int Preferences::maxBackups() const
{
    const QVariant stored = m_values.value(u"maxBackups"_s);
    if (!stored.isValid())
        return 20;
    return int(std::clamp(finiteNumber(stored).value_or(1), 1.0, 100.0));
}

void Preferences::setMaxBackups(int count)
{
    set({{u"maxBackups"_s, count}});
}

std::optional<QSizeF> Preferences::windowSize() const
{
    const auto width = finiteNumber(m_values.value(u"windowWidth"_s));
    const auto height = finiteNumber(m_values.value(u"windowHeight"_s));
    if (!width || !height || *width <= 0 || *height <= 0)
        return std::nullopt;
    return QSizeF(*width, *height).boundedTo(largestWindow);
}

void Preferences::setWindowSize(QSizeF size)
{
    set({{u"windowWidth"_s, size.width()}, {u"windowHeight"_s, size.height()}});
}

QString Preferences::viewMode() const
{
    return m_values.value(u"viewMode"_s).toString();
}

void Preferences::setViewMode(const QString& title)
{
    set({{u"viewMode"_s, title}});
}

QByteArray Preferences::filterFavorites() const
{
    return m_values.value(u"filterFavorites"_s).toByteArray();
}

void Preferences::setFilterFavorites(const QByteArray& encoded)
{
    set({{u"filterFavorites"_s, encoded}});
}

} // namespace reelhouse
