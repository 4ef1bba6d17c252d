#pragma once

#include <QtWidgets/QWidget>

class QHBoxLayout;

namespace reelhouse {

class IconView;
class SelectableLabel;

enum class StatusKind {
    Success,
    Warning,
    Error,
    Progress, ///< Something is under way; without an icon, and there at once.
};

/// One line that says how the last action ended, on a ground of its own. Its room is kept while it
/// is empty, so that nothing jumps. The text wraps, can be selected, and is announced; Tab stops at
/// it while there is one. Of a very long one the middle is left out (shownText).
class StatusLine final : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    void showMessage(StatusKind kind, const QString& text);
    void clear();
    /// Puts the line in the middle of its width instead of at the left.
    void setCentred();

    /// What stands there now; empty when nothing does.
    QString text() const { return m_text; }

private:
    void fadeIn();

    class Panel;
    QHBoxLayout* m_row;
    Panel* m_panel;
    IconView* m_icon;
    SelectableLabel* m_label;
    QString m_text;
};

} // namespace reelhouse
