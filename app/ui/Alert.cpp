#include "app/ui/Alert.h"

#include "app/ui/ButtonLook.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/ShownText.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/WrappingLabel.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int narrowest = 420;
constexpr int widest = 500;
constexpr int alertPadding = 22;
constexpr int tileSide = 44;
constexpr int questionIconSide = tileSide + 4;
constexpr int tileGap = 16;
constexpr int symbolSide = 20;
constexpr qreal tileRadius = 12;

/// The icon beside the texts.
QWidget* iconFor(AlertTone tone, QWidget* parent)
{
    if (tone == AlertTone::Question)
        return new IconView(applicationIcon(), questionIconSide, parent);
    const bool isWarning = tone == AlertTone::Warning;
    const QIcon symbol = isWarning ? symbolIcon(u"exclamationmark.triangle.fill"_s, &Theme::orange)
                                   : symbolIcon(u"trash"_s, &Theme::red);
    auto* icon = new IconView(symbol, symbolSide, parent);
    icon->setTile(tileSide, tileRadius, isWarning ? &Theme::orangeSoft : &Theme::redSoft);
    return icon;
}

ButtonLook lookOf(AlertRole role)
{
    switch (role) {
    case AlertRole::Confirm:
        return ButtonLook::Default;
    case AlertRole::Destroy:
        return ButtonLook::DestructiveFilled;
    case AlertRole::Cancel:
    case AlertRole::Other:
        return ButtonLook::Normal;
    }
    Q_UNREACHABLE();
}

/// Wide enough for the longest line of its texts, within limits.
int widthFor(const Alert& alert)
{
    int longestLine = 0;
    for (const WrappingLabel* label : alert.findChildren<WrappingLabel*>())
        longestLine = std::max(longestLine, label->fontMetrics().size(0, label->text()).width());
    return std::clamp(
        2 * alertPadding + questionIconSide + tileGap + longestLine + 2, narrowest, widest);
}

} // namespace

Alert::Alert(AlertTone tone, const QString& title, const QString& message,
    const QList<AlertButton>& buttons, QWidget* parent)
    : Sheet(shownText(title), narrowest, parent)
    , m_texts(new QVBoxLayout)
{
    setPadding(alertPadding);
    addTexts(tone, title, message);
    addButtons(buttons);
}

void Alert::addTexts(AlertTone tone, const QString& title, const QString& message)
{
    auto* titleLabel = new WrappingLabel(shownText(title), this);
    setTextStyle(titleLabel, TextStyle::Headline);
    auto* messageLabel = new WrappingLabel(shownText(message), this);
    setTextTone(messageLabel, TextTone::Secondary);
    setAccessibleDescription(messageLabel->text());

    m_texts->setSpacing(8);
    m_texts->addWidget(titleLabel);
    m_texts->addWidget(messageLabel);
    m_texts->addStretch(1);
    auto* row = new QHBoxLayout;
    row->setSpacing(tileGap);
    row->addWidget(iconFor(tone, this), 0, Qt::AlignTop);
    row->addLayout(m_texts, 1);
    body()->addLayout(row);

    setPanelSize(widthFor(*this));
}

void Alert::addNote(const QString& text)
{
    auto* note = new WrappingLabel(shownText(text), this);
    setTextTone(note, TextTone::Orange);
    m_texts->insertWidget(m_texts->count() - 1, note); // above the stretch
    setPanelSize(widthFor(*this));
    setAccessibleDescription(accessibleDescription() + u' ' + note->text());
}

void Alert::addButtons(const QList<AlertButton>& buttons)
{
    const bool isDestructive = std::any_of(buttons.begin(), buttons.end(),
        [](const AlertButton& button) { return button.role == AlertRole::Destroy; });
    const AlertRole focused = isDestructive ? AlertRole::Cancel : AlertRole::Confirm;
    buttonRow()->addStretch(1);
    for (int index = static_cast<int>(buttons.size()) - 1; index >= 0; --index) {
        const AlertButton& answer = buttons.at(index);
        auto* button = new QPushButton(answer.text, this);
        setButtonLook(button, lookOf(answer.role));
        connect(button, &QPushButton::clicked, this, [this, index] { done(index); });
        buttonRow()->addWidget(button);
        if (answer.role == AlertRole::Cancel)
            m_dismissed = index;
        if (answer.role == focused) {
            button->setDefault(true);
            button->setFocus();
        }
    }
}

void Alert::reject()
{
    done(m_dismissed);
}

void askBeforeDestroying(const QString& title, const QString& message, const QString& confirmText,
    QWidget* parent, const std::function<void()>& destroy)
{
    constexpr int confirmed = 0;
    auto* alert = new Alert(AlertTone::Destructive, title, message,
        {{confirmText, AlertRole::Destroy}, {u"Annuler"_s, AlertRole::Cancel}}, parent);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(alert, &QDialog::finished, parent, [destroy](int answer) {
        if (answer == confirmed)
            destroy();
    });
    alert->open();
}

} // namespace reelhouse
