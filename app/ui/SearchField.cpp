#include "app/ui/SearchField.h"

#include "app/ui/InputState.h"
#include "app/ui/Symbol.h"

#include <QtGui/QAction>
#include <QtGui/QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int leastWidth = 128;
constexpr int leastHeight = 30;

} // namespace

SearchField::SearchField(QWidget* parent)
    : QLineEdit(parent)
{
    setInputState(this, {.shape = InputShape::Search});
    setPlaceholderText(u"Rechercher…"_s);
    setAccessibleName(u"Rechercher"_s);
    addAction(symbolIcon(u"magnifyingglass"_s), LeadingPosition);

    auto* clearAction
        = new QAction(symbolIcon(u"xmark.circle.fill"_s), u"Effacer la recherche"_s, this);
    addAction(clearAction, TrailingPosition);
    clearAction->setVisible(false); // Only a change that the field hears of hides its button.
    connect(this, &QLineEdit::textChanged, clearAction,
        [clearAction](const QString& text) { clearAction->setVisible(!text.isEmpty()); });
    connect(clearAction, &QAction::triggered, this, &SearchField::empty);
}

void SearchField::empty()
{
    clear();
    emit textEdited(QString());
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        empty();
    else if (event->key() == Qt::Key_Down)
        emit resultsRequested();
    else
        QLineEdit::keyPressEvent(event);
}

QSize SearchField::sizeHint() const
{
    return {leastWidth, std::max(leastHeight, fontMetrics().height() + 12)};
}

} // namespace reelhouse
