#include "app/ui/Picker.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/Symbol.h"
#include "app/ui/Theme.h"

#include <QtCore/QAbstractListModel>
#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyleOptionComboBox>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int pickerHeight = 28;
constexpr int pickerPadding = 10;
constexpr int pickerChevronRoom = 30;
constexpr int pickerIconSide = 16;
constexpr int pickerIconGap = 7;
constexpr int leastPickerText = 60;
constexpr int widestPopup = 440;
constexpr int popupRowExtra = 60;
constexpr size_t measuredNames = 20;

} // namespace

/// "None", then the entries. Rows are made when they are looked at.
class Picker::Model final : public QAbstractListModel {
public:
    Model(QString none, QObject* parent)
        : QAbstractListModel(parent)
        , m_none(std::move(none))
    {
    }

    void setEntries(std::vector<PickerEntry> entries)
    {
        beginResetModel();
        m_entries = std::move(entries);
        endResetModel();
    }
    const std::vector<PickerEntry>& entries() const { return m_entries; }
    /// The names with the most characters: one of them is the widest, or nearly so.
    QStringList longestNames() const
    {
        const auto length = [](const PickerEntry& entry) { return entry.name.size(); };
        std::vector<PickerEntry> longest(std::min(m_entries.size(), measuredNames));
        std::ranges::partial_sort_copy(m_entries, longest, std::ranges::greater(), length, length);
        QStringList names{m_none};
        for (const PickerEntry& entry : longest)
            names << entry.name.simplified();
        return names;
    }
    qint64 idAt(int row) const { return row > 0 ? m_entries[size_t(row) - 1].id : 0; }
    int rowOf(qint64 id) const
    {
        const auto found = std::ranges::find(m_entries, id, &PickerEntry::id);
        return found == m_entries.end() ? 0 : int(found - m_entries.begin()) + 1;
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_entries.size()) + 1;
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid())
            return {};
        const bool isNone = index.row() == 0;
        const QString& name = isNone ? m_none : m_entries[size_t(index.row()) - 1].name;
        if (role == Qt::DisplayRole)
            return name.simplified();
        if (role == Qt::ToolTipRole)
            return plainToolTip(name.simplified());
        if (role == Qt::DecorationRole && !isNone) {
            const QString& symbol = m_entries[size_t(index.row()) - 1].symbol;
            return symbol.isEmpty() ? QVariant() : symbolIcon(symbol);
        }
        return {};
    }

private:
    QString m_none;
    std::vector<PickerEntry> m_entries;
};

Picker::Picker(const QString& none, QWidget* parent)
    : QComboBox(parent)
    , m_model(new Model(none, this))
{
    setModel(m_model);
    if (auto* list = qobject_cast<QListView*>(view())) {
        list->setUniformItemSizes(true);
        list->setTextElideMode(Qt::ElideRight);
    }
    view()->window()->installEventFilter(this);
    setFrame(false);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    // The chevron stands flush with the controls of the other rows.
    setContentsMargins(0, 4, 8, 4);
    connect(this, &QComboBox::activated, this, [this] { emit choiceEdited(choice()); });
    connect(this, &QComboBox::currentIndexChanged, this, &Picker::updateGeometry);
}

void Picker::setEntries(std::vector<PickerEntry> entries)
{
    if (entries == m_model->entries())
        return;
    const qint64 chosen = choice();
    const QSignalBlocker blocker(this);
    m_model->setEntries(std::move(entries));
    setCurrentIndex(m_model->rowOf(chosen));
    updateGeometry();
    update();
}

qint64 Picker::choice() const
{
    return m_model->idAt(currentIndex());
}

void Picker::setChoice(qint64 id)
{
    setCurrentIndex(m_model->rowOf(id));
}

QSize Picker::sizeHint() const
{
    const bool hasIcon = !itemIcon(currentIndex()).isNull();
    const int text = fontMetrics().horizontalAdvance(currentText()) + 1;
    return {
        pickerPadding + (hasIcon ? pickerIconSide + pickerIconGap : 0) + text + pickerChevronRoom,
        std::max(pickerHeight, fontMetrics().height() + 12)};
}

QSize Picker::minimumSizeHint() const
{
    return {std::min(sizeHint().width(), pickerPadding + leastPickerText + pickerChevronRoom),
        sizeHint().height()};
}

void Picker::showPopup()
{
    int widest = width();
    const QFontMetrics metrics = view()->fontMetrics();
    for (const QString& name : m_model->longestNames())
        widest = std::max(widest, metrics.horizontalAdvance(name) + popupRowExtra);
    view()->setMinimumWidth(std::min(widest, std::max(widestPopup, width())));
    QComboBox::showPopup();
}

bool Picker::eventFilter(QObject* watched, QEvent* event)
{
    // A wider list ends where the picker does, and not beyond the edge of its sheet.
    if (watched == view()->window() && event->type() == QEvent::Show && isLeftToRight()) {
        QWidget* popup = view()->window();
        const int end = mapToGlobal(rect().topRight()).x() + 1;
        popup->move(std::max(end - popup->width(), screen()->geometry().left()), popup->y());
    }
    return QComboBox::eventFilter(watched, event);
}

QRect Picker::textRect() const
{
    const int icon = itemIcon(currentIndex()).isNull() ? 0 : pickerIconSide + pickerIconGap;
    return rect().adjusted(pickerPadding + icon, 0, -pickerChevronRoom, 0);
}

bool Picker::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool isCut = fontMetrics().horizontalAdvance(currentText()) > textRect().width();
        if (isCut)
            QToolTip::showText(
                static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(currentText()), this);
        else
            QToolTip::hideText();
        return true;
    }
    return QComboBox::event(event);
}

void Picker::changeEvent(QEvent* event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateGeometry();
}

void Picker::keyPressEvent(QKeyEvent* event)
{
    const bool isTyping = m_sinceLetter.isValid()
        && m_sinceLetter.elapsed() < QApplication::keyboardInputInterval();
    if (!event->text().isEmpty() && event->text().front().isPrint())
        m_sinceLetter.start();
    if (isTyping && event->key() == Qt::Key_Space) {
        // A space within a name belongs to it; by its key it would open the list.
        QKeyEvent space(event->type(), Qt::Key_unknown, event->modifiers(), event->text());
        QComboBox::keyPressEvent(&space);
        return;
    }
    if (event->key() == Qt::Key_Space)
        m_sinceLetter.invalidate();
    QComboBox::keyPressEvent(event);
}

void Picker::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // The wheel scrolls the form and changes nothing in passing.
}

void Picker::paintEvent(QPaintEvent*)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const Theme& theme = currentTheme();
    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);

    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const QRect text = textRect();
    const QString shown = fontMetrics().elidedText(currentText(), Qt::ElideRight, text.width());
    const auto placed = [this](const QRect& place) {
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    painter.setPen(choice() == 0 ? theme.textTertiary : theme.textPrimary);
    painter.drawText(placed(text),
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignRight) | Qt::AlignVCenter)
            | Qt::TextSingleLine,
        shown);
    if (const QIcon icon = itemIcon(currentIndex()); !icon.isNull()) {
        const int left = text.right() + 1 - fontMetrics().horizontalAdvance(shown) - pickerIconGap
            - pickerIconSide;
        const QRect place(std::max(left, pickerPadding), (height() - pickerIconSide) / 2,
            pickerIconSide, pickerIconSide);
        icon.paint(&painter, placed(place));
    }
}

} // namespace reelhouse
