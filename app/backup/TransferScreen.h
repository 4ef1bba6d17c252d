#pragma once

#include "app/ui/StatusLine.h"

#include <QtWidgets/QWidget>

class QPushButton;

namespace reelhouse {

class StoreContainer;
struct SystemError;

/// What the screens that export and import share: a symbol, a title, an explanation, buttons one
/// under the other, and a line that says how the last of them ended.
class TransferScreen : public QWidget {
    Q_OBJECT

public:
    QString statusText() const { return m_status->text(); }
    /// Whether an export or an import is under way.
    bool isBusy() const { return m_isBusy; }

protected:
    struct ButtonTexts {
        QString symbol;
        QString text;
    };

    TransferScreen(const QString& symbol, const QString& title, const QString& explanation,
        const QList<ButtonTexts>& buttons, QWidget* parent);

    /// In the order given to the constructor.
    QPushButton* button(int place) const { return m_buttons.at(place); }

    void showSuccess(const QString& text) { showOutcome(StatusKind::Success, text); }
    void showError(const QString& text) { showOutcome(StatusKind::Error, text); }
    /// Says what is under way, at once. Until the next outcome or endProgress the screen is busy;
    /// its buttons keep the keyboard and do nothing.
    void beginProgress(const QString& text);
    /// Shows the former outcome again.
    void endProgress();
    /// Writes the file on another thread and says how it ended, counting the filaments of
    /// `container`. Who left the screen meanwhile is told of a failure by an alert.
    void writeFile(const QString& path, const QByteArray& bytes, const StoreContainer& container);

private:
    QPushButton* makeButton(const ButtonTexts& texts);
    void showOutcome(StatusKind kind, const QString& text);
    void showWritten(const std::optional<SystemError>& error, const StoreContainer& container);

    QList<QPushButton*> m_buttons;
    StatusLine* m_status;
    StatusKind m_outcomeKind = StatusKind::Success;
    QString m_outcome;
    bool m_isBusy = false;
};

} // namespace reelhouse
