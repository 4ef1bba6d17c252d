#include "app/library/FavoriteRow.h"

#include "app/library/FavoriteTexts.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/ColorMath.h"
#include "app/ui/IconView.h"
#include "app/ui/InputState.h"
#include "app/ui/Palette.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int gripSide = 14;
constexpr int rowStarSide = 16;
constexpr int rowButtonSide = 30;
constexpr int leastRowHeight = 54;

/// A label that is cut at the right rather than widening its row.
class RowText final : public QLabel {
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setFont(font());
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
};

QLabel* rowText(TextStyle style, TextTone tone, QWidget* parent)
{
    auto* label = new RowText(parent);
    label->setTextFormat(Qt::PlainText);
    setTextStyle(label, style);
    setTextTone(label, tone);
    return label;
}

QPushButton* rowButton(const QString& symbol, ColorRole color, QWidget* parent)
{
    auto* button = new QPushButton(symbolIcon(symbol, color), {}, parent);
    setButtonLook(button, ButtonLook::Ghost);
    button->setIconSize({15, 15});
    button->setFixedSize(rowButtonSide, rowButtonSide);
    button->setAutoDefault(false);
    return button;
}

} // namespace

FavoriteRow::FavoriteRow(const FilterFavorite& favorite, QWidget* parent)
    : QWidget(parent)
    , m_name(nullptr)
    , m_summary(nullptr)
    , m_renameButton(nullptr)
    , m_deleteButton(nullptr)
    , m_shownPart(makeShownPart())
    , m_field(nullptr)
    , m_error(nullptr)
    , m_confirmButton(nullptr)
    , m_renamingPart(makeRenamingPart())
{
    auto* grip = new IconView(symbolIcon(u"grip"_s, &Theme::textTertiary), gripSide, this);
    grip->setCursor(Qt::SizeVerCursor);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 8, 10, 8);
    row->setSpacing(8);
    row->addWidget(grip);
    row->addWidget(new IconView(symbolIcon(u"star.fill"_s, &Theme::accentText), rowStarSide, this));
    row->addSpacing(4);
    row->addWidget(m_shownPart, 1);
    row->addWidget(m_renamingPart, 1);
    setMinimumHeight(leastRowHeight);
    m_renamingPart->hide();
    setFavorite(favorite);

    addKey(Qt::CTRL | Qt::Key_Up, &FavoriteRow::stepUp);
    addKey(Qt::CTRL | Qt::Key_Down, &FavoriteRow::stepDown);
    addKey(Qt::Key_F2, &FavoriteRow::beginRenaming);
}

void FavoriteRow::addKey(const QKeySequence& key, void (FavoriteRow::*action)())
{
    auto* shortcut = new QShortcut(key, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, action);
}

QWidget* FavoriteRow::makeShownPart()
{
    auto* part = new QWidget(this);
    m_name = rowText(TextStyle::Name, TextTone::Primary, part);
    m_summary = rowText(TextStyle::Caption, TextTone::Secondary, part);
    m_renameButton = rowButton(u"pencil"_s, &Theme::textSecondary, part);
    m_deleteButton = rowButton(u"trash"_s, &Theme::red, part);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(m_name);
    texts->addWidget(m_summary);
    auto* row = new QHBoxLayout(part);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    row->addLayout(texts, 1);
    row->addWidget(m_renameButton);
    row->addWidget(m_deleteButton);
    connect(m_renameButton, &QPushButton::clicked, this, &FavoriteRow::beginRenaming);
    connect(m_deleteButton, &QPushButton::clicked, this, &FavoriteRow::deletionRequested);
    return part;
}

QWidget* FavoriteRow::makeRenamingPart()
{
    auto* part = new QWidget(this);
    m_field = new QLineEdit(part);
    m_field->setPlaceholderText(u"Nom du favori"_s);
    m_field->setAccessibleName(u"Nom du favori"_s);
    auto* cancel = new QPushButton(u"Annuler"_s, part);
    m_confirmButton = new QPushButton(u"Renommer"_s, part);
    setButtonLook(m_confirmButton, ButtonLook::Default);
    for (QPushButton* button : {cancel, m_confirmButton}) {
        button->setAutoDefault(false);
        setSmallButton(button);
    }
    m_error = new QLabel(part);
    setTextStyle(m_error, TextStyle::Caption);
    setTextTone(m_error, TextTone::Red);
    m_error->hide();
    auto* grid = new QGridLayout(part);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->addWidget(m_field, 0, 0);
    grid->addWidget(cancel, 0, 1);
    grid->addWidget(m_confirmButton, 0, 2);
    grid->addWidget(m_error, 1, 0, 1, 3);
    connect(m_field, &QLineEdit::textEdited, this, [this] { showError({}); });
    connect(m_field, &QLineEdit::returnPressed, this, &FavoriteRow::commit);
    connect(m_confirmButton, &QPushButton::clicked, this, &FavoriteRow::commit);
    connect(cancel, &QPushButton::clicked, this, &FavoriteRow::endRenaming);
    return part;
}

void FavoriteRow::setFavorite(const FilterFavorite& favorite)
{
    m_favorite = favorite;
    const QString summary = FavoriteTexts::summary(favorite.criteria);
    m_name->setText(favorite.name);
    m_name->setToolTip(plainToolTip(favorite.name));
    m_summary->setText(summary);
    m_summary->setToolTip(plainToolTip(summary));
    m_renameButton->setAccessibleName(u"Renommer « "_s + favorite.name + u" »"_s);
    m_deleteButton->setAccessibleName(u"Supprimer « "_s + favorite.name + u" »"_s);
}

bool FavoriteRow::isRenaming() const
{
    return m_renamingPart->isVisibleTo(this);
}

void FavoriteRow::beginRenaming()
{
    if (isRenaming())
        return;
    emit renamingBegan();
    m_field->setText(m_favorite.name);
    m_field->selectAll();
    m_shownPart->hide();
    m_renamingPart->show();
    m_field->setFocus();
    emit resized();
}

void FavoriteRow::endRenaming()
{
    if (!isRenaming())
        return;
    const bool hadFocus = m_renamingPart->isAncestorOf(QApplication::focusWidget());
    showError({});
    m_renamingPart->hide();
    m_shownPart->show();
    if (hadFocus)
        m_renameButton->setFocus();
    emit resized();
}

void FavoriteRow::showError(const QString& message)
{
    setInputState(m_field, {.isRefused = !message.isEmpty()});
    m_error->setText(message);
    m_error->setVisible(!message.isEmpty());
    emit resized();
}

QWidget* FavoriteRow::firstControl() const
{
    return m_renameButton;
}

QWidget* FavoriteRow::lastControl() const
{
    return m_confirmButton;
}

void FavoriteRow::commit()
{
    emit renameRequested(m_field->text());
}

void FavoriteRow::keyPressEvent(QKeyEvent* event)
{
    // Otherwise Escape would close the whole sheet.
    if (event->key() == Qt::Key_Escape && isRenaming())
        endRenaming();
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && isRenaming())
        event->accept(); // The field has seen it.
    else if (event->key() == Qt::Key_Delete && !isRenaming())
        emit deletionRequested();
    else
        QWidget::keyPressEvent(event);
}

void FavoriteRow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !isRenaming())
        m_pressedAt = int(event->position().y());
}

void FavoriteRow::mouseMoveEvent(QMouseEvent* event)
{
    if (m_pressedAt < 0)
        return;
    const int y = int(event->position().y());
    m_isDragged = m_isDragged || std::abs(y - m_pressedAt) >= QApplication::startDragDistance();
    if (m_isDragged)
        emit dragged(mapToParent(QPoint(0, y)).y());
    update();
}

void FavoriteRow::mouseReleaseEvent(QMouseEvent* event)
{
    m_pressedAt = -1;
    if (std::exchange(m_isDragged, false))
        emit dropped(mapToParent(event->position().toPoint()).y());
    update();
}

void FavoriteRow::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QRect name(m_name->mapTo(this, QPoint()), m_name->size());
    if (event->button() == Qt::LeftButton && name.contains(event->position().toPoint()))
        beginRenaming();
}

void FavoriteRow::paintEvent(QPaintEvent*)
{
    if (m_isDragged)
        QPainter(this).fillRect(rect(), currentTheme().selection);
}

} // namespace reelhouse
