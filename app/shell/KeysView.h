#pragma once

#include "app/ui/Sheet.h"

class QMenuBar;

namespace reelhouse {

/// Keys that belong together, each beside what it does.
struct KeySection {
    struct Line {
        QString command;
        QString key; ///< As the user's keyboard names it.
    };

    QString title;
    QList<Line> lines;
};

/// Every key of the program: those of the commands in the menus, under the titles of their menus,
/// then those that work inside lists and sheets.
QList<KeySection> keySections(const QMenuBar& menuBar);

/// The sheet that lists the keys, in as many columns as the window has room for, three at most.
class KeysView final : public Sheet {
    Q_OBJECT

public:
    KeysView(const QList<KeySection>& sections, QWidget* parent);
};

} // namespace reelhouse
