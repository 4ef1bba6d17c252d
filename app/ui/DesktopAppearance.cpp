#include "app/ui/DesktopAppearance.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

const auto portalService = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto portalInterface = u"org.freedesktop.portal.Settings"_s;
const auto appearanceGroup = u"org.freedesktop.appearance"_s;
const auto colorSchemeKey = u"color-scheme"_s;
const auto contrastKey = u"contrast"_s;

/// The portal wraps the value of Read once more than the value of its signal.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<ColorScheme> colorSchemeOf(uint value)
{
    switch (value) {
    case 1:
        return ColorScheme::Dark;
    case 2:
        return ColorScheme::Light;
    default:
        return std::nullopt;
    }
}

} // namespace

DesktopAppearance::DesktopAppearance(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
{
    if (!bus.isConnected())
        return;
    // Connecting finds the type of the slot's argument only once something has registered it.
    qRegisterMetaType<QDBusVariant>();
    // Where no bus lies between the two ends, no end has a name.
    const QString sender = bus.baseService().isEmpty() ? QString() : portalService;
    QDBusConnection(bus).connect(sender, portalPath, portalInterface, u"SettingChanged"_s, this,
        SLOT(takeSetting(QString, QString, QDBusVariant)));
    ask(bus, colorSchemeKey);
    ask(bus, contrastKey);
}

void DesktopAppearance::ask(const QDBusConnection& bus, const QString& key)
{
    QDBusMessage question
        = QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, u"Read"_s);
    question << appearanceGroup << key;
    ++m_openQuestions;
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, key] {
        const QDBusPendingReply<QDBusVariant> answer = *watcher;
        if (answer.isValid())
            takeValue(key, answer.value().variant());
        watcher->deleteLater();
        if (--m_openQuestions == 0)
            emit settled();
    });
}

void DesktopAppearance::takeSetting(
    const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup)
        takeValue(key, value.variant());
}

void DesktopAppearance::takeValue(const QString& key, const QVariant& value)
{
    Appearance next = m_appearance;
    const uint number = unwrapped(value).toUInt();
    if (key == colorSchemeKey)
        next.colorScheme = colorSchemeOf(number);
    else if (key == contrastKey)
        next.wantsHighContrast = number == 1;
    if (next == m_appearance)
        return;
    m_appearance = next;
    emit changed();
}

} // namespace reelhouse
