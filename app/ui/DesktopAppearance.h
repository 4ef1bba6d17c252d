#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVariant>

#include <optional>

class QDBusPendingCallWatcher;

namespace reelhouse {

enum class ColorScheme { Light, Dark };

/// What the desktop asks of programs, as far as it says so.
struct Appearance {
    std::optional<ColorScheme> colorScheme; ///< Nothing: no preference, or no answer.
    bool wantsHighContrast = false;

    bool operator==(const Appearance&) const = default;
};

/// Asks the desktop portal for the appearance and follows it. Asking never waits: until an answer
/// comes, and for good where there is no bus or no portal, nothing is known.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    explicit DesktopAppearance(const QDBusConnection& bus, QObject* parent = nullptr);

    const Appearance& appearance() const { return m_appearance; }

    /// Every question has had its answer, a refusal included; true at once where nobody is asked.
    bool isSettled() const { return m_openQuestions == 0; }

signals:
    /// The appearance is another one than before.
    void changed();
    /// The last open question has had its answer; after the `changed()` that it brought.
    void settled();

private slots:
    void takeSetting(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QDBusConnection& bus, const QString& key);
    void takeValue(const QString& key, const QVariant& value);

    Appearance m_appearance;
    int m_openQuestions = 0;
};

} // namespace reelhouse
