#include "app/ui/StatusLine.h"

#include "app/ui/FocusRing.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/SelectableLabel.h"
#include "app/ui/ShownText.h"
#include "app/ui/Symbol.h"

#include <QtCore/QPropertyAnimation>
#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsOpacityEffect>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int widestLine = 640;
constexpr int linePadding = 12;
constexpr int verticalPadding = 8;
constexpr int lineIconSide = 15;
constexpr int iconGap = 8;
constexpr int textRing = int(focusRingInset); ///< What the label leaves around its text.
constexpr qreal panelRadius = 9;
constexpr int lineFadeDuration = 150; // milliseconds

struct Look {
    QString symbol;
    ColorRole color;
    ColorRole ground;
    TextTone tone;
};

Look lookOf(StatusKind kind)
{
    switch (kind) {
    case StatusKind::Success:
        return {u"checkmark.circle.fill"_s, &Theme::green, &Theme::greenSoft, TextTone::Green};
    case StatusKind::Warning:
        return {u"exclamationmark.triangle.fill"_s, &Theme::orange, &Theme::orangeSoft,
            TextTone::Orange};
    case StatusKind::Progress:
        return {{}, &Theme::textSecondary, &Theme::sunken, TextTone::Secondary};
    case StatusKind::Error:
        return {u"exclamationmark.triangle.fill"_s, &Theme::red, &Theme::redSoft, TextTone::Red};
    }
    Q_UNREACHABLE();
}

/// One paragraph that wraps within the line: a label parts no word, however long, and would push
/// its window wider; and a name may consist of line breaks.
QString asWrappingParagraph(const QString& text)
{
    constexpr int usualWord = 40;
    constexpr int pieceOfLongerWord = 8;
    constexpr char16_t zeroWidthSpace = u'\u200B';
    QString paragraph;
    int wordLength = 0;
    for (const QChar letter : text) {
        const bool isSpace = letter.isSpace();
        const bool parts = isSpace && letter != QChar::Nbsp && letter != u'\u202F';
        const bool isSecondHalf = letter.isLowSurrogate();
        if (!isSecondHalf)
            wordLength = parts ? 0 : wordLength + 1;
        if (!isSecondHalf && wordLength > usualWord && wordLength % pieceOfLongerWord == 0)
            paragraph += zeroWidthSpace;
        const bool isBreak = isSpace && letter.category() != QChar::Separator_Space;
        paragraph += isBreak ? QChar(u' ') : letter;
    }
    return paragraph;
}

} // namespace

/// The coloured ground behind icon and text.
class StatusLine::Panel final : public QWidget {
public:
    using QWidget::QWidget;

    void setGround(ColorRole ground)
    {
        m_ground = ground;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        paintRoundedPanel(painter, rect(), panelRadius, currentTheme().*m_ground);
    }

private:
    ColorRole m_ground = &Theme::greenSoft;
};

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
    , m_panel(new Panel(this))
    , m_icon(new IconView(QIcon(), lineIconSide, m_panel))
    , m_label(new SelectableLabel(m_panel))
{

    auto* iconColumn = new QVBoxLayout;
    iconColumn->setContentsMargins(0, textRing, 0, 0);
    iconColumn->addWidget(m_icon, 0, Qt::AlignTop);
    auto* content = new QHBoxLayout(m_panel);
    content->setContentsMargins(linePadding, verticalPadding - textRing, linePadding - textRing,
        verticalPadding - textRing);
    content->setSpacing(iconGap - textRing);
    content->addLayout(iconColumn);
    content->addWidget(m_label, 1);

    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->addWidget(m_panel, 1);
    m_row->addStretch(0);

    QSizePolicy policy = m_panel->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_panel->setSizePolicy(policy);
    m_panel->setVisible(false);
}

void StatusLine::showMessage(StatusKind kind, const QString& text)
{
    const Look look = lookOf(kind);
    m_panel->setGround(look.ground);
    m_icon->setVisible(!look.symbol.isEmpty());
    m_icon->setIcon(symbolIcon(look.symbol, look.color));
    setTextTone(m_label, look.tone);

    m_text = shownText(text);
    const QString paragraph = asWrappingParagraph(m_text);
    const int textWidth = m_label->fontMetrics().size(0, paragraph).width() + 2;
    m_panel->setMaximumWidth(
        std::min(widestLine, 2 * linePadding + lineIconSide + iconGap + textWidth));
    m_label->clear(); // The same sentence once more is news too.
    m_label->setText(paragraph);
    m_panel->setVisible(true);
    if (kind == StatusKind::Progress)
        m_panel->setGraphicsEffect(nullptr);
    else
        fadeIn();

    QAccessibleEvent event(m_label, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void StatusLine::clear()
{
    m_text.clear();
    m_label->clear();
    m_panel->setVisible(false);
}

void StatusLine::setCentred()
{
    m_row->insertStretch(0, 0);
}

void StatusLine::fadeIn()
{
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0)
        return;
    auto* effect = new QGraphicsOpacityEffect(m_panel);
    effect->setOpacity(0);
    m_panel->setGraphicsEffect(effect); // Takes the place of one that may still be running.
    auto* animation = new QPropertyAnimation(effect, "opacity", effect);
    animation->setDuration(lineFadeDuration);
    animation->setEndValue(1.0);
    connect(animation, &QPropertyAnimation::finished, m_panel,
        [this] { m_panel->setGraphicsEffect(nullptr); });
    animation->start();
}

} // namespace reelhouse
