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

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int keysWidth = 780;
constexpr int keysColumnGap = 20;
constexpr int keysGap = 4;
constexpr qsizetype headingLines = 1; // The height of a heading, in lines.

QString keyName(const QKeySequence& key)
{
    return key.toString(QKeySequence::NativeText);
}

KeySection sectionOf(const QMenu& menu)
{
    KeySection section{menu.title(), {}};
    for (const QAction* action : menu.actions()) {
        if (!action->shortcut().isEmpty())
            section.lines += {action->text(), keyName(action->shortcut())};
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
    : Sheet(u"Raccourcis clavier"_s, keysWidth, parent)
{
    auto* title = new QLabel(windowTitle());
    setTextStyle(title, TextStyle::Headline);
    body()->addWidget(title);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(keysColumnGap);
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    qsizetype leftLines = 0;
    qsizetype rightLines = 0;
    for (const KeySection& section : sections) {
        const bool isLeft = leftLines <= rightLines; // each column grows where it is shorter
        addSection(isLeft ? *left : *right, section);
        (isLeft ? leftLines : rightLines) += section.lines.size() + headingLines;
    }
    left->setSpacing(keysGap);
    right->setSpacing(keysGap);
    left->addStretch(1);
    right->addStretch(1);
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    body()->addLayout(columns);

    auto* closeButton = new QPushButton(u"Fermer"_s, this);
    buttonRow()->addStretch(1);
    buttonRow()->addWidget(closeButton);
    setConfirmButton(closeButton);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    closeButton->setFocus();
}

} // namespace reelhouse
