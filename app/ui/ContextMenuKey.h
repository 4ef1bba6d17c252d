#pragma once

#include <QtCore/QObject>

namespace reelhouse {

/// While it lives, Shift+F10 opens the context menu of what has the keyboard, as the menu key does
/// on keyboards that have one. On X11 and Wayland nobody else does it.
class ContextMenuKey final : public QObject {
    Q_OBJECT

public:
    explicit ContextMenuKey(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace reelhouse
