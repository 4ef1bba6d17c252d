#include "app/editing/ReferenceManagementView.h"

#include "app/editing/ReferenceListView.h"
#include "app/editing/ReferenceRowDelegate.h"
#include "app/editing/ReferenceSheet.h"
#include "app/editing/ReferenceTexts.h"
#include "app/ui/Alert.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/EmptyState.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Separator.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"
#include "core/model/StoreContext.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int listSideMargin = 24;
constexpr int listTopMargin = 20;

/// The ground that the rows lie on.
class ReferencePanel final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Theme& theme = currentTheme();
        QPainter painter(this);
        paintRoundedPanel(
            painter, rect(), ReferenceRowDelegate::panelRadius, theme.surface, theme.hairline);
    }
};

} // namespace

ReferenceManagementView::ReferenceManagementView(
    StoreContext& context, ReferenceKind kind, QWidget* parent)
    : QWidget(parent)
    , m_list(context, kind)
    , m_body(nullptr)
    , m_listView(nullptr)
{
    // Children come into being in reading order: that is the order assistive technology reads.
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeHeader());
    column->addWidget(new Separator(this));
    m_body = new QStackedWidget(this);
    column->addWidget(m_body, 1);
    const ReferenceTexts texts = referenceTexts(kind);
    m_body->addWidget(makePanel());
    m_body->addWidget(new EmptyState(texts.emptySymbol, texts.emptyTitle, texts.emptyDescription));

    connect(
        m_listView, &ReferenceListView::editRequested, this, &ReferenceManagementView::openSheet);
    connect(m_listView, &ReferenceListView::deletionRequested, this,
        &ReferenceManagementView::confirmDeletion);
    connect(&context, &StoreContext::changed, this, &ReferenceManagementView::refresh);
    refresh();
}

QWidget* ReferenceManagementView::makeHeader()
{
    const ReferenceTexts texts = referenceTexts(m_list.kind());
    auto* header = new QWidget(this);
    auto* title = new QLabel(texts.title, header);
    setTextStyle(title, TextStyle::ScreenTitle);
    auto* add = new QPushButton(symbolIcon(u"plus"_s, &Theme::onAccent), texts.addCommand, header);
    setButtonLook(add, ButtonLook::Default);
    connect(add, &QPushButton::clicked, this, [this] { openSheet({}); });
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(16, 10, 16, 10);
    row->addWidget(title);
    row->addStretch();
    row->addWidget(add);
    return header;
}

QWidget* ReferenceManagementView::makePanel()
{
    auto* page = new QWidget;
    auto* panel = new ReferencePanel(page);
    m_listView = new ReferenceListView(m_list, panel);
    auto* inside = new QVBoxLayout(panel);
    inside->setContentsMargins(1, 1, 1, 1);
    inside->addWidget(m_listView);
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(listSideMargin, listTopMargin, listSideMargin, listTopMargin);
    column->addWidget(panel);
    column->addStretch(1);
    return page;
}

void ReferenceManagementView::refresh()
{
    m_listView->refresh();
    m_body->setCurrentIndex(m_listView->model()->rowCount() == 0 ? 1 : 0);
}

void ReferenceManagementView::openSheet(ReferenceId edited)
{
    if (edited && !m_list.find(edited))
        return;
    auto* sheet = new ReferenceSheet(m_list, edited, this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void ReferenceManagementView::confirmDeletion(ReferenceId id)
{
    const FilamentContainer* entry = m_list.find(id);
    if (!entry)
        return;
    const ReferenceTexts texts = referenceTexts(m_list.kind());
    askBeforeDestroying(texts.deleteTitle, deletionQuestion(texts, entry->filamentCount()),
        u"Supprimer"_s, this, [this, id] { m_list.remove(id); });
}

} // namespace reelhouse
