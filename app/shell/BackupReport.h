#pragma once

#include <QtWidgets/QWidget>

namespace reelhouse {

class IconView;
class SelectableLabel;

enum class BackupOutcome : quint8 { Done, Skipped, Failed };

/// How the last command on the backups ended, in the line of a form: an icon and a sentence at the
/// right of the room that there is, which wraps. Empty at first.
class BackupReport final : public QWidget {
    Q_OBJECT

public:
    explicit BackupReport(QWidget* parent = nullptr);

    void showMessage(BackupOutcome outcome, const QString& text);
    QString text() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitText();

    IconView* m_icon;
    SelectableLabel* m_label;
};

} // namespace reelhouse
