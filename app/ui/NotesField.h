#pragma once

#include <QtWidgets/QPlainTextEdit>

namespace reelhouse {

/// A field for several lines of plain text: four lines high, growing with the text up to eight,
/// then it scrolls. Return breaks the line, Tab goes to the next control.
class NotesField final : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit NotesField(QWidget* parent = nullptr);

    /// The text as it was set, to the character, unless the user made it another one.
    QString text() const;
    /// Shows another text, at its start. Emits nothing.
    void setText(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The user changed the text.
    void textEdited();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int shownLines() const;
    void grow();

    QString m_setText;
    QString m_setRawText; ///< The same as the document holds it.
};

} // namespace reelhouse
