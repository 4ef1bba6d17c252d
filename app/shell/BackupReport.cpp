#include "app/shell/BackupReport.h"

#include "app/ui/FocusRing.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/SelectableLabel.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QHBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int reportIconSide = 13;
constexpr int reportGap = 6;
constexpr int reportRing = int(focusRingInset); ///< What the label leaves around its text.

struct ReportLook {
    QString symbol;
    ColorRole color;
    TextTone tone;
};

ReportLook reportLook(BackupOutcome outcome)
{
    switch (outcome) {
    case BackupOutcome::Done:
        return {u"checkmark.circle.fill"_s, &Theme::green, TextTone::Green};
    case BackupOutcome::Skipped:
        return {u"exclamationmark.triangle.fill"_s, &Theme::orange, TextTone::Orange};
    case BackupOutcome::Failed:
        return {u"exclamationmark.triangle.fill"_s, &Theme::red, TextTone::Red};
    }
    Q_UNREACHABLE();
}

} // namespace

BackupReport::BackupReport(QWidget* parent)
    : QWidget(parent)
    , m_icon(new IconView(QIcon(), reportIconSide, this))
    , m_label(new SelectableLabel(this))
{
    setTextStyle(m_label, TextStyle::Caption);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(reportGap - reportRing);
    row->addStretch(1);
    row->addWidget(m_icon);
    row->addWidget(m_label, 0, Qt::AlignVCenter);
    m_icon->hide();
    m_label->hide();
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void BackupReport::showMessage(BackupOutcome outcome, const QString& text)
{
    const ReportLook look = reportLook(outcome);
    m_icon->setIcon(symbolIcon(look.symbol, look.color));
    setTextTone(m_label, look.tone);
    m_label->clear(); // The same sentence once more is news too.
    m_label->setText(text);
    fitText();
    m_icon->show();
    m_label->show();
    QAccessibleEvent event(m_label, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void BackupReport::resizeEvent(QResizeEvent* event)
{
    fitText();
    QWidget::resizeEvent(event);
}

void BackupReport::fitText()
{
    const int room = width() - reportIconSide - reportGap + reportRing;
    const int wanted
        = m_label->fontMetrics().horizontalAdvance(m_label->text()) + 2 + 2 * reportRing;
    m_label->setFixedWidth(std::max(0, std::min(room, wanted)));
}

QString BackupReport::text() const
{
    return m_label->text();
}

} // namespace reelhouse
