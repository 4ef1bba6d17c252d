#include "app/backup/TransferScreen.h"

#include "app/backup/BackgroundWork.h"
#include "app/backup/GradientSymbol.h"
#include "app/backup/TransferTexts.h"
#include "app/store/StoreCompanions.h"
#include "app/store/StoreContainer.h"
#include "app/store/StoreTexts.h"
#include "app/store/UserFiles.h"
#include "app/ui/Alert.h"
#include "app/ui/Palette.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtCore/QPointer>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int transferSymbolSide = 64;
constexpr int transferButtonHeight = 36;
constexpr int transferMargin = 24;
constexpr int roomForStatus = 100; ///< Four lines of text.

QLabel* centredText(const QString& text, TextStyle style, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    setTextStyle(label, style);
    return label;
}

/// Over the window of a screen that is not there any more.
void tellFailedExport(const QString& path, const SystemError& error, QWidget* window)
{
    auto* alert = new Alert(AlertTone::Warning, TransferTexts::exportFailed(path),
        TransferTexts::writeFailed(error.description()), {{u"Fermer"_s, AlertRole::Confirm}},
        window);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->open();
}

} // namespace

TransferScreen::TransferScreen(const QString& symbol, const QString& title,
    const QString& explanation, const QList<ButtonTexts>& buttons, QWidget* parent)
    : QWidget(parent)
    , m_status(nullptr)
{
    // Children come into being in reading order: that is the order assistive technology reads, and
    // the one of Tab.
    auto* icon = new GradientSymbol(symbol, transferSymbolSide, this);
    QLabel* titleLabel = centredText(title, TextStyle::Display, this);
    QLabel* explanationLabel = centredText(explanation, TextStyle::Body, this);
    setTextTone(explanationLabel, TextTone::Secondary);
    auto* buttonColumn = new QVBoxLayout;
    buttonColumn->setSpacing(8);
    for (const ButtonTexts& texts : buttons) {
        m_buttons << makeButton(texts);
        buttonColumn->addWidget(m_buttons.last());
    }
    m_status = new StatusLine(this);
    m_status->setCentred();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(transferMargin, transferMargin, transferMargin, transferMargin);
    column->setSpacing(0);
    column->addStretch(1);
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addSpacing(28);
    column->addWidget(titleLabel);
    column->addSpacing(10);
    column->addWidget(explanationLabel);
    column->addSpacing(26);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    buttonRow->addLayout(buttonColumn);
    buttonRow->addStretch(1);
    column->addLayout(buttonRow);
    column->addSpacing(22);
    auto* statusRow = new QHBoxLayout;
    statusRow->addStrut(roomForStatus);
    statusRow->addWidget(m_status, 1, Qt::AlignTop);
    column->addLayout(statusRow);
    column->addStretch(1);
}

QPushButton* TransferScreen::makeButton(const ButtonTexts& texts)
{
    auto* button = new QPushButton(symbolIcon(texts.symbol, &Theme::textPrimary), texts.text, this);
    setTextStyle(button, TextStyle::Name);
    button->setMinimumHeight(transferButtonHeight);
    return button;
}

void TransferScreen::showOutcome(StatusKind kind, const QString& text)
{
    m_isBusy = false;
    m_outcomeKind = kind;
    m_outcome = text;
    m_status->showMessage(kind, text);
}

void TransferScreen::beginProgress(const QString& text)
{
    m_isBusy = true;
    m_status->showMessage(StatusKind::Progress, text);
}

void TransferScreen::endProgress()
{
    m_isBusy = false;
    if (m_outcome.isEmpty())
        m_status->clear();
    else
        m_status->showMessage(m_outcomeKind, m_outcome);
}

void TransferScreen::writeFile(
    const QString& path, const QByteArray& bytes, const StoreContainer& container)
{
    if (belongsToStore(path, container.storeFile()))
        return showError(TransferTexts::writeFailed(belongsToStoreText()));
    beginProgress(TransferTexts::exporting());
    const QPointer<TransferScreen> screen(this);
    runInBackground(
        window(), [=] { return UserFiles::overwrite(path, bytes); },
        [screen, path, &container, window = window()](const std::optional<SystemError>& error) {
            const bool isLeft = !screen || (screen != window && screen->isHidden());
            if (!isLeft)
                screen->showWritten(error, container);
            else if (error)
                tellFailedExport(path, *error, window);
        });
}

void TransferScreen::showWritten(
    const std::optional<SystemError>& error, const StoreContainer& container)
{
    if (error)
        showError(TransferTexts::writeFailed(error->description()));
    else
        showSuccess(TransferTexts::exported(container));
}

} // namespace reelhouse
