#pragma once

#include "app/ui/Sheet.h"

#include <QtCore/QList>

#include <functional>

class QVBoxLayout;

namespace reelhouse {

/// What an alert is about; decides its icon and the ground of it.
enum class AlertTone {
    Question, ///< The application's own icon.
    Warning,
    Destructive,
};

enum class AlertRole {
    Confirm, ///< Does what is asked; Return presses it.
    Destroy, ///< Does what cannot be taken back; never pressed by an unthinking Return.
    Cancel, ///< Leaves everything as it was; so does dismissing the alert.
    Other,
};

struct AlertButton {
    QString text;
    AlertRole role;
};

/// A question or a warning with ordered buttons. They are named from the most important on and
/// stand from right to left. Ask with `open()` and listen to `finished(int)`, or, for the few that
/// block the whole program, with `exec()`: both give the index of the chosen button. Dismissing it
/// gives the index of the Cancel button, or else of the first. Of very long texts the middle is
/// left out (shownText).
class Alert final : public Sheet {
    Q_OBJECT

public:
    Alert(AlertTone tone, const QString& title, const QString& message,
        const QList<AlertButton>& buttons, QWidget* parent = nullptr);

    /// Adds a sentence of its own below the message.
    void addNote(const QString& text);
    void reject() override;

private:
    void addTexts(AlertTone tone, const QString& title, const QString& message);
    void addButtons(const QList<AlertButton>& buttons);

    QVBoxLayout* m_texts;
    int m_dismissed = 0;
};

/// Asks over the window of `parent` before something is destroyed, with "Annuler" as the way out,
/// and calls `destroy` when the user chooses `confirmText`. The question goes with `parent`.
void askBeforeDestroying(const QString& title, const QString& message, const QString& confirmText,
    QWidget* parent, const std::function<void()>& destroy);

} // namespace reelhouse
