#include "app/ui/NotesField.h"

#include "app/ui/InputPainting.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

#include <algorithm>

namespace reelhouse {

namespace {

constexpr int leastNoteLines = 4;
constexpr int mostNoteLines = 8;
constexpr int notesPadding = 8;
constexpr int notesFrame = 3;
constexpr int notesSidePadding = 7; // The document's own margin comes on top.

} // namespace

NotesField::NotesField(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    // Never drawn: it keeps the scroll bar off the border of the field.
    setFrameStyle(int(Box) | int(Plain));
    setLineWidth(notesFrame);
    setLineWrapMode(WidgetWidth);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    document()->setDocumentMargin(3);
    // The editor takes one pixel more than its lines have, and would scroll without it.
    setViewportMargins(notesSidePadding - notesFrame, notesPadding - 3 - notesFrame, 0, 0);
    // The field behind is one rounded shape.
    viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    connect(document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, this,
        &NotesField::grow);
    connect(this, &QPlainTextEdit::textChanged, this, &NotesField::textEdited);
    grow();
}

QString NotesField::text() const
{
    // The document knows one kind of line break and toPlainText() no narrow spaces: a text that was
    // not edited comes back as it went in.
    QString raw = document()->toRawText();
    if (raw == m_setRawText)
        return m_setText;
    return raw.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void NotesField::setText(const QString& text)
{
    const QSignalBlocker blocker(this);
    setPlainText(text);
    m_setText = text;
    m_setRawText = document()->toRawText();
}

int NotesField::shownLines() const
{
    // A plain text's layout measures in lines.
    const int lines = qCeil(document()->documentLayout()->documentSize().height());
    return std::clamp(lines, leastNoteLines, mostNoteLines);
}

QSize NotesField::sizeHint() const
{
    // In lines as the layout has them: each ends on a whole pixel.
    const int line = qCeil(QFontMetricsF(font()).lineSpacing());
    return {290, shownLines() * line + 2 * notesPadding};
}

void NotesField::grow()
{
    const int wanted = sizeHint().height();
    if (wanted != height() || minimumHeight() != wanted)
        setFixedHeight(wanted);
}

bool NotesField::event(QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        QStyleOption option;
        option.initFrom(this);
        QPainter painter(this);
        InputPainting::paintField(painter, option, this);
        return true;
    }
    return QPlainTextEdit::event(event);
}

void NotesField::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        grow();
}

void NotesField::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    update();
}

void NotesField::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    update();
}

void NotesField::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    grow();
}

} // namespace reelhouse
