#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace reelhouse {

/// The colour of what an editor edits, as a wide field. Its accessible name is "Couleur", its
/// description the colour's name and code.
class EditorSwatch final : public QWidget {
    Q_OBJECT

public:
    /// `height` in pixels.
    explicit EditorSwatch(int height, QWidget* parent = nullptr);

    /// `code` is read as a colour code; `name` may be empty.
    void setColor(const QString& code, const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color = Qt::black;
};

/// "Rouge, #E53935"; the code alone without a name.
QString colorDescription(const QString& code, const QString& name);

} // namespace reelhouse
