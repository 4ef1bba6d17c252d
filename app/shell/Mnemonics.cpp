#include "app/shell/Mnemonics.h"

#include <QtGui/QAction>
#include <QtWidgets/QMenu>

namespace reelhouse {

namespace {

QString withMnemonic(const QString& text, QChar letter)
{
    const qsizetype place = text.indexOf(letter, 0, Qt::CaseInsensitive);
    Q_ASSERT(place >= 0);
    return text.left(place) + u'&' + text.mid(place);
}

} // namespace

void setMnemonics(QMenu& menu, const QString& letters)
{
    auto letter = letters.cbegin();
    for (QAction* entry : menu.actions()) {
        if (entry->isSeparator())
            continue;
        Q_ASSERT(letter != letters.cend());
        if (*letter != u' ')
            entry->setText(withMnemonic(entry->text(), *letter));
        ++letter;
    }
}

} // namespace reelhouse
