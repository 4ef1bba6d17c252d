#include <QtDBus/QDBusConnection>
#include <QtGui/QGenericPlugin>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSplitter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

QString described(const QWidget& widget)
{
    QString text = widget.accessibleName();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        text = label->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        text = button->text().isEmpty() ? text : button->text();
    return QString::fromLatin1(widget.metaObject()->className()) + u" \""_s + text + u'"';
}

QString described(QSize size)
{
    return u"%1 x %2"_s.arg(size.width()).arg(size.height());
}

/// The room that a widget needs to show all of its text at the width that it has; none without a
/// text.
QSize neededSize(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->wordWrap())
            return {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
        return label->sizeHint();
    }
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    const bool isIconAlone
        = !button || button->text().isEmpty() || button->inherits("QLineEditIconButton");
    return isIconAlone ? QSize() : button->sizeHint();
}

/// Or above one, as the card among the others that is a button, and moves with it.
bool isInScrolledView(const QWidget& widget)
{
    const QWidget* parent = widget.parentWidget();
    const auto* area = qobject_cast<const QAbstractScrollArea*>(parent->parentWidget());
    if (area && area->viewport() == parent)
        return true;
    const auto isCovered = [&](const QObject* sibling) {
        const auto* view = qobject_cast<const QAbstractScrollArea*>(sibling);
        return view && view != &widget && view->geometry() == parent->rect();
    };
    return std::ranges::any_of(parent->children(), isCovered);
}

void judgePlace(const QWidget& widget, QStringList& found)
{
    const QWidget& parent = *widget.parentWidget();
    // The line between two columns is thinner than what the mouse grasps of it.
    if (qobject_cast<const QSplitter*>(&parent))
        return;
    if (isInScrolledView(widget))
        return;
    if (!parent.rect().contains(widget.geometry()))
        found += described(widget) + u" lies outside of "_s + described(parent);
    for (const QObject* other : parent.children()) {
        if (other == &widget)
            break;
        const auto* sibling = qobject_cast<const QWidget*>(other);
        if (sibling && sibling->isVisible() && !sibling->isWindow()
            && sibling->geometry().intersects(widget.geometry()))
            found += described(widget) + u" lies over "_s + described(*sibling);
    }
}

void judgeSize(const QWidget& widget, QStringList& found)
{
    const QSize needed = neededSize(widget);
    if (needed.width() > widget.width() || needed.height() > widget.height())
        found += described(widget) + u" has "_s + described(widget.size()) + u" and needs "_s
            + described(needed);
}

/// A sheet chooses its size: what scrolls there by next to nothing was to be seen whole.
void judgeScrolling(const QWidget& widget, QStringList& found)
{
    constexpr int leastScrolling = 8;
    const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget);
    if (!area || !qobject_cast<const QDialog*>(area->window()))
        return;
    const auto judge = [&](const QScrollBar& bar, Qt::ScrollBarPolicy policy) {
        const int range = bar.maximum() - bar.minimum();
        if (policy == Qt::ScrollBarAsNeeded && bar.isVisible() && range < leastScrolling)
            found += described(widget) + u" scrolls by %1"_s.arg(range);
    };
    judge(*area->verticalScrollBar(), area->verticalScrollBarPolicy());
    judge(*area->horizontalScrollBar(), area->horizontalScrollBarPolicy());
}

} // namespace

/// Lives in the real program and sees its widgets: tells, when asked over the session bus, which of
/// them are cut off, lie over one another or outside of what they are in.
class LayoutWitness final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "spoolwright.LayoutWitness")

public:
    explicit LayoutWitness(QObject* parent)
        : QObject(parent)
    {
        // Not before the application is whole.
        QMetaObject::invokeMethod(
            this,
            [this] {
                QDBusConnection bus = QDBusConnection::sessionBus();
                bus.registerObject(u"/"_s, this, QDBusConnection::ExportAllSlots);
                bus.registerService(u"spoolwright.LayoutWitness"_s);
            },
            Qt::QueuedConnection);
    }

public slots: // What can be asked.
    /// Of the window that has the keyboard; one line for each widget.
    QStringList problems() const
    {
        const QWidget* window = QApplication::activeWindow();
        if (!window)
            return {u"No window has the keyboard."_s};
        QStringList found;
        for (const QWidget* widget : window->findChildren<const QWidget*>()) {
            if (widget->window() != window || !widget->isVisible())
                continue;
            judgePlace(*widget, found);
            judgeSize(*widget, found);
            judgeScrolling(*widget, found);
        }
        return found;
    }
};

class LayoutWitnessPlugin final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "LayoutWitness.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        return new LayoutWitness(nullptr); // The caller owns it.
    }
};

} // namespace reelhouse::tests

#include "LayoutWitness.moc"
