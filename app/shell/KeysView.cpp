#include "app/shell/KeysView.h"

#include "app/ui/FormGroup.h"
#include "app/ui/Palette.h"
#include "app/ui/TextStyle.h"

#include <QtGui/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int keysPadding = 20;
constexpr int keysColumnGap = 16;
constexpr int keysBesideSheet = 48;
constexpr int mostKeysColumns = 3;
constexpr int leastKeysColumn = 300;
constexpr int aroundKeysTexts = 48; // In a line: its margins, and a gap between the two texts.
constexpr int keysGap = 4;
constexpr qsizetype headingLines = 1; // The height of a heading, in lines.

QString keyName(const QKeySequence& key)
{
    return key.toString(QKeySequence::NativeText);
}

/// Without the marks of mnemonics, which `iconText` leaves out.
KeySection sectionOf(const QMenu& menu)
{
    KeySection section{menu.menuAction()->iconText(), {}};
    for (const QAction* action : menu.actions()) {
        if (!action->shortcut().isEmpty())
            section.lines += {action->iconText(), keyName(action->shortcut())};
    }
    return section;
}

QList<KeySection> keysOutsideMenus()
{
    return {
        {u"Liste du stock"_s,
            {{u"Ouvrir la fiche"_s, keyName(Qt::Key_Return)},
                {u"Ajouter ou retirer une bobine"_s, u"+  −"_s},
                {u"Menu contextuel"_s, keyName(Qt::SHIFT | Qt::Key_F10)}}},
        {u"Types, marques, gammes et lieux"_s,
            {{u"Modifier"_s, keyName(Qt::Key_F2)}, {u"Supprimer"_s, keyName(Qt::Key_Delete)}}},
        {u"Fiches et questions"_s,
            {{u"Confirmer"_s, keyName(Qt::CTRL | Qt::Key_Return)},
                {u"Annuler"_s, keyName(Qt::Key_Escape)}}},
    };
}

void addSection(QVBoxLayout& column, const KeySection& section)
{
    auto* title = new QLabel(section.title);
    QFont font = fontOf(TextStyle::Caption);
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    setTextTone(title, TextTone::Secondary);
    title->setContentsMargins(14, 8, 0, 0);
    title->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    column.addWidget(title);
    auto* group = new FormGroup;
    for (const KeySection::Line& line : section.lines) {
        auto* key = new QLabel(line.key);
        setTextTone(key, TextTone::Secondary);
        group->addRow(line.command, key);
    }
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    column.addWidget(group);
}

/// The width that every line has room in.
int columnWidth(const QList<KeySection>& sections, const QFontMetrics& metrics)
{
    int widest = leastKeysColumn;
    for (const KeySection& section : sections) {
        for (const KeySection::Line& line : section.lines) {
            widest = std::max(widest,
                metrics.horizontalAdvance(line.command) + metrics.horizontalAdvance(line.key)
                    + aroundKeysTexts);
        }
    }
    return widest;
}

} // namespace

QList<KeySection> keySections(const QMenuBar& menuBar)
{
    QList<KeySection> sections;
    for (const QAction* entry : menuBar.actions()) {
        const KeySection section
            = entry->menu() && entry->isVisible() ? sectionOf(*entry->menu()) : KeySection();
        if (!section.lines.isEmpty())
            sections += section;
    }
    return sections + keysOutsideMenus();
}

KeysView::KeysView(const QList<KeySection>& sections, QWidget* parent)
    : Sheet(u"Raccourcis clavier"_s, 0, parent)
{
    const int width = columnWidth(sections, fontMetrics());
    const int room = parent->window()->width() - keysBesideSheet - 2 * keysPadding;
    const int count
        = std::clamp((room + keysColumnGap) / (width + keysColumnGap), 1, mostKeysColumns);
    setPadding(keysPadding);
    setPanelSize(count * width + (count - 1) * keysColumnGap + 2 * keysPadding);

    auto* title = new QLabel(windowTitle());
    setTextStyle(title, TextStyle::Headline);
    body()->addWidget(title);
    auto* row = new QHBoxLayout;
    row->setSpacing(keysColumnGap);
    body()->addLayout(row);
    QList<QVBoxLayout*> columns;
    QList<qsizetype> lines; // How many each column has, its headings included.
    for (int index = 0; index < count; ++index) {
        columns += new QVBoxLayout;
        columns.last()->setSpacing(keysGap);
        row->addLayout(columns.last(), 1);
        lines += 0;
    }
    for (const KeySection& section : sections) {
        const auto shortest = std::ranges::min_element(lines) - lines.begin();
        addSection(*columns.at(shortest), section);
        lines[shortest] += section.lines.size() + headingLines;
    }
    for (QVBoxLayout* column : columns)
        column->addStretch(1);

    auto* closeButton = new QPushButton(u"Fermer"_s, this);
    buttonRow()->addStretch(1);
    buttonRow()->addWidget(closeButton);
    setConfirmButton(closeButton);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    closeButton->setFocus();
}

} // namespace reelhouse
