#include "app/ui/EmptyState.h"

#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace reelhouse {

namespace {

constexpr int largeSymbolSide = 32;
constexpr int largeTileSide = 76;
constexpr qreal largeTileRadius = 22;
constexpr int widestText = 420;

QLabel* centredLabel(const QString& text, TextStyle style, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setMinimumWidth(widestText);
    setTextStyle(label, style);
    // The column would give a text that wraps the height that it has at the column's full width.
    label->setMinimumHeight(label->heightForWidth(widestText));
    return label;
}

} // namespace

EmptyState::EmptyState(
    const QString& symbol, const QString& title, const QString& description, QWidget* parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout(this))
{
    auto* icon = new IconView(symbolIcon(symbol), largeSymbolSide, this);
    icon->setTile(largeTileSide, largeTileRadius, &Theme::sunken);

    m_column->setSpacing(0);
    m_column->addStretch(1);
    m_column->addWidget(icon, 0, Qt::AlignHCenter);
    m_column->addSpacing(16);
    m_column->addWidget(centredLabel(title, TextStyle::Title, this), 0, Qt::AlignHCenter);
    if (!description.isEmpty()) {
        QLabel* text = centredLabel(description, TextStyle::Body, this);
        setTextTone(text, TextTone::Secondary);
        m_column->addSpacing(8);
        m_column->addWidget(text, 0, Qt::AlignHCenter);
    }
    m_column->addStretch(1);
}

void EmptyState::setButton(QAbstractButton* button)
{
    const int end = m_column->count() - 1;
    m_column->insertSpacing(end, 12);
    m_column->insertWidget(end + 1, button, 0, Qt::AlignHCenter);
}

} // namespace reelhouse
