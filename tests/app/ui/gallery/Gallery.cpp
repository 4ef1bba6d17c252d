#include "tests/app/ui/gallery/Gallery.h"

#include "app/ui/Alert.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/CapsuleButton.h"
#include "app/ui/ColorWell.h"
#include "app/ui/EditorSwatch.h"
#include "app/ui/EmptyState.h"
#include "app/ui/FormGroup.h"
#include "app/ui/InputState.h"
#include "app/ui/NotesField.h"
#include "app/ui/Palette.h"
#include "app/ui/Picker.h"
#include "app/ui/SearchField.h"
#include "app/ui/SegmentedPicker.h"
#include "app/ui/Spinner.h"
#include "app/ui/StatusLine.h"
#include "app/ui/Stepper.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Toggle.h"
#include "tests/app/ui/gallery/FrozenState.h"
#include "tests/app/ui/gallery/SwatchView.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

constexpr QStyle::State keyboardFocus = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;

QWidget* button(const QString& text, ButtonLook look, QStyle::State state = QStyle::State_None)
{
    auto* result = new Frozen<QPushButton>(state, text);
    setButtonLook(result, look);
    return result;
}

QWidget* iconButton(const QString& symbol, QStyle::State state = QStyle::State_None)
{
    auto* result = new Frozen<QPushButton>(state);
    result->setIcon(symbolIcon(symbol, &Theme::textPrimary));
    result->setIconSize({17, 17});
    setButtonLook(result, ButtonLook::Ghost);
    return result;
}

QWidget* disabled(QWidget* widget)
{
    widget->setEnabled(false);
    return widget;
}

QWidget* capsule(const QString& symbol, const QString& field, CapsuleTint Theme::*tint,
    const QString& value = {}, QStyle::State state = QStyle::State_None)
{
    auto* result = new Frozen<CapsuleButton>(state, symbol, field, u"Tous"_s, tint);
    result->setValue(value);
    return result;
}

QLabel* label(const QString& text, TextTone tone, TextStyle style = TextStyle::Body)
{
    auto* result = new QLabel(text);
    setTextStyle(result, style);
    setTextTone(result, tone);
    return result;
}

/// Shows what would be a window of its own.
QLabel* snapshot(QWidget& window)
{
    window.ensurePolished();
    window.resize(window.sizeHint());
    auto* result = new QLabel;
    result->setPixmap(window.grab());
    return result;
}

QLabel* menuSnapshot()
{
    QMenu menu;
    const auto add = [&menu](const QString& symbol, const QString& title, const QKeySequence& key) {
        QAction* action = menu.addAction(symbolIcon(symbol), title);
        action->setShortcut(key);
        return action;
    };
    add(u"plus"_s, u"Ajouter un filament"_s, Qt::CTRL | Qt::Key_N);
    menu.addSeparator();
    menu.setActiveAction(add(u"plus.circle"_s, u"Ajouter une bobine"_s, Qt::ALT | Qt::Key_Up));
    add(u"minus.circle"_s, u"Retirer une bobine"_s, Qt::ALT | Qt::Key_Down)->setEnabled(false);
    QAction* chosen = menu.addAction(u"Tous"_s);
    chosen->setCheckable(true);
    chosen->setChecked(true);
    menu.addMenu(u"Autres"_s);
    menu.addSeparator();
    add(u"trash"_s, u"Supprimer"_s, Qt::Key_Delete);
    return snapshot(menu);
}

QLabel* alertSnapshot(
    AlertTone tone, const QString& title, const QString& message, const QList<AlertButton>& buttons)
{
    Alert alert(tone, title, message, buttons);
    alert.show();
    auto* result = new QLabel;
    result->setPixmap(alert.grab());
    return result;
}

} // namespace

Gallery::Gallery(QWidget* parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout(this))
{
    setGround(this, Ground::Canvas);
    m_column->setContentsMargins(28, 28, 28, 28);
    m_column->setSpacing(8);
    addButtons();
    addCapsules();
    addSearchFields();
    addSwatches();
    addSmallControls();
    addForm();
    addTexts();
    addStatusLines();
    addEmptyState();
    addMenuAndAlerts();
    m_column->addStretch(1);
}

void Gallery::addSection(const QString& title, const QList<QList<QWidget*>>& rows)
{
    m_column->addWidget(label(title, TextTone::Tertiary, TextStyle::Header));
    for (const QList<QWidget*>& row : rows) {
        auto* line = new QHBoxLayout;
        line->setSpacing(12);
        for (QWidget* widget : row)
            line->addWidget(widget, 0, Qt::AlignVCenter);
        line->addStretch(1);
        m_column->addLayout(line);
    }
    m_column->addSpacing(10);
}

void Gallery::addButtons()
{
    const auto row = [](const QString& text, ButtonLook look) {
        return QList<QWidget*>{button(text, look), button(text, look, QStyle::State_MouseOver),
            button(text, look, QStyle::State_Sunken), button(text, look, keyboardFocus),
            disabled(button(text, look))};
    };
    QList<QWidget*> third = row(u"Effacer"_s, ButtonLook::Link);
    third << iconButton(u"gearshape"_s) << iconButton(u"info.circle"_s, QStyle::State_MouseOver)
          << iconButton(u"gearshape"_s, keyboardFocus) << disabled(iconButton(u"gearshape"_s));
    addSection(u"Boutons : repos · survol · enfoncé · focus · désactivé"_s,
        {row(u"Ajouter"_s, ButtonLook::Default),
            row(u"Annuler"_s, ButtonLook::Normal) << button(u"Supprimer"_s,
                ButtonLook::Destructive) << button(u"Supprimer"_s, ButtonLook::DestructiveFilled),
            third});
}

void Gallery::addCapsules()
{
    auto* star = new CapsuleButton(u"star"_s, u"Filtres favoris"_s);
    auto* activeStar = new CapsuleButton(u"star"_s, u"Filtres favoris"_s);
    activeStar->setSymbol(u"star.fill"_s, true);
    addSection(u"Capsules : repos · survol · ouverte · focus · désactivée, puis valeur choisie"_s,
        {{capsule(u"cube.fill"_s, u"Type"_s, &Theme::typeTint),
             capsule(u"tag.fill"_s, u"Marque"_s, &Theme::brandTint, {}, QStyle::State_MouseOver),
             capsule(u"map.fill"_s, u"Lieu"_s, &Theme::locationTint, {}, QStyle::State_Sunken),
             capsule(u"list.star"_s, u"Gamme"_s, &Theme::rangeTint, {}, keyboardFocus),
             disabled(capsule(u"scissors"_s, u"Entamées"_s, &Theme::countTint)), star, activeStar},
            {capsule(u"cube.fill"_s, u"Type"_s, &Theme::typeTint, u"PLA"_s),
                capsule(u"tag.fill"_s, u"Marque"_s, &Theme::brandTint, u"Atelier"_s),
                capsule(u"list.star"_s, u"Gamme"_s, &Theme::rangeTint, u"PLA Matte"_s),
                capsule(u"map.fill"_s, u"Lieu"_s, &Theme::locationTint,
                    u"Boîte étanche du sous-sol, rayon de gauche"_s),
                capsule(u"number.circle.fill"_s, u"Bobines"_s, &Theme::countTint, u"4+"_s),
                capsule(u"scissors"_s, u"Entamées"_s, &Theme::countTint, u"0"_s, keyboardFocus)}});
}

void Gallery::addSearchFields()
{
    auto* empty = new SearchField;
    empty->setFixedWidth(200);
    auto* typing = new FrozenField<SearchField>;
    typing->setFixedWidth(220);
    typing->setText(u"rouge"_s);
    auto* field = new QLineEdit(u"PLA"_s);
    auto* focused = new FrozenField<QLineEdit>(u"PLA"_s);
    auto* refused = new FrozenField<QLineEdit>(u"PLA"_s);
    setInputState(refused, {.isRefused = true});
    for (QWidget* widget :
        {field, static_cast<QLineEdit*>(focused), static_cast<QLineEdit*>(refused)})
        widget->setFixedWidth(70);
    addSection(u"Recherche et champs : repos · saisie · refusé"_s,
        {{empty, typing, field, focused, refused}});
}

void Gallery::addSwatches()
{
    QList<QWidget*> spools;
    for (const QString& code : {u"#FFFFFF"_s, u"#F5F0E1"_s, u"#F4F4F4"_s, u"#C9CDD2"_s,
             u"#E53935"_s, u"#1E88E5"_s, u"#2B2B2D"_s, u"#212226"_s, u"#000000"_s})
        spools << new SwatchView(code, SwatchView::Shape::Spool);
    QList<QWidget*> fields;
    for (const QString& code : {u"#FFFFFF"_s, u"#F5F0E1"_s, u"#FDD835"_s, u"#80E53935"_s})
        fields << new SwatchView(code, SwatchView::Shape::Field);
    for (const QString& code : {u"#FFFFFF"_s, u"#00A88F"_s, u"#8E24AA"_s, u"#000000"_s})
        fields << new SwatchView(code, SwatchView::Shape::Chip);
    addSection(u"Pastilles : anneau fin, renforcé quand la couleur se confond avec le fond"_s,
        {spools, fields});
}

void Gallery::addSmallControls()
{
    auto* ticked = new QCheckBox(u"Type"_s);
    ticked->setChecked(true);
    auto* unticked = new QCheckBox(u"Notes"_s);
    auto* offBox = new QCheckBox(u"Lieu"_s);
    offBox->setChecked(true);
    offBox->setEnabled(false);
    auto* focusedBox = new Frozen<QCheckBox>(keyboardFocus, u"Date"_s);
    auto* chosen = new QRadioButton(u"Portrait"_s);
    chosen->setChecked(true);
    auto* picker = new SegmentedPicker({{u"view.list"_s, u"Liste"_s},
        {u"view.cards"_s, u"Cartes"_s}, {u"view.statistics"_s, u"Stats"_s}});
    auto* combo = new QComboBox;
    combo->addItem(symbolIcon(u"leaf.fill"_s), u"PLA"_s);
    auto* bar = new QProgressBar;
    bar->setRange(0, 28);
    bar->setValue(13);
    bar->setFixedWidth(80);
    addSection(u"Cases, choix, sélecteur de vue, liste, attente, barre"_s,
        {{ticked, unticked, focusedBox, offBox, chosen, picker, combo, new Spinner, bar}});
}

void Gallery::addForm()
{
    auto* on = new Toggle;
    on->setChecked(true);
    auto* offSwitch = new Toggle;
    auto* idle = new Toggle;
    idle->setChecked(true);
    idle->setEnabled(false);
    auto* lowest = new Stepper(u"Bobines: "_s);
    auto* idleStepper = new Stepper(u"Bobines: "_s);
    idleStepper->setEnabled(false);
    auto* swatch = new EditorSwatch(60);
    swatch->setFixedWidth(120);
    swatch->setColor(u"#4CAF50"_s, {});

    auto* group = new FormGroup;
    group->setFixedWidth(440);
    auto* type = new Picker(u"Aucun"_s);
    type->setEntries({{1, u"PLA"_s, u"leaf.fill"_s}});
    type->setChoice(1);
    group->addRow(u"Type"_s, type);
    group->addRow(u"Marque *"_s, new Picker(u"Sélectionner…"_s));
    auto* place = new Picker(u"Aucun"_s);
    place->setEntries({{1, u"Boîte étanche du sous-sol, rayon de gauche, tout au fond"_s, {}}});
    place->setChoice(1);
    group->addRow(u"Lieu"_s, place);
    auto* spools = new Stepper(u"Nombre de bobines: "_s);
    spools->setValue(3);
    group->addRow(spools->label(), spools);
    auto* well = new ColorWell;
    well->setColor(QColor(0x4CAF50));
    auto* code = new QLabel(u"#4CAF50"_s);
    setTextStyle(code, TextStyle::Code);
    group->addRow(u"Couleur"_s, code, well);
    auto* notes = new NotesField;
    notes->setMaximumWidth(290);
    notes->setText(u"Sécher 6 h à 80 °C avant usage"_s);
    group->addTallRow(u"Notes"_s, notes);
    addSection(u"Formulaire : bascules, pas à pas, champ de couleur, groupe"_s,
        {{on, offSwitch, idle, lowest, idleStepper, swatch}, {group}});
}

void Gallery::addTexts()
{
    addSection(u"Textes : principal · secondaire · tertiaire · accent · rouge · orange · vert"_s,
        {{label(u"Principal"_s, TextTone::Primary), label(u"Secondaire"_s, TextTone::Secondary),
            label(u"Tertiaire"_s, TextTone::Tertiary), label(u"Accent"_s, TextTone::Accent),
            label(u"Ce nom existe déjà."_s, TextTone::Red), label(u"1 entamée"_s, TextTone::Orange),
            label(u"Sauvegarde effectuée"_s, TextTone::Green)}});
}

void Gallery::addStatusLines()
{
    QList<QList<QWidget*>> rows;
    const auto add = [&rows](StatusKind kind, const QString& text) {
        auto* line = new StatusLine;
        line->setMinimumWidth(680);
        line->showMessage(kind, text);
        rows << QList<QWidget*>{line};
    };
    add(StatusKind::Success, u"Export réussi ! (28 filaments)"_s);
    add(StatusKind::Error,
        u"Erreur d'import : Le fichier contient plusieurs types nommés « pla »."_s);
    add(StatusKind::Warning, u"Les modifications ne seront pas conservées."_s);
    addSection(u"Lignes d'état"_s, rows);
}

void Gallery::addEmptyState()
{
    auto* add
        = new QPushButton(symbolIcon(u"plus"_s, &Theme::textPrimary), u"Ajouter un filament"_s);
    auto* empty = new EmptyState(u"spool"_s, u"Stock vide"_s);
    empty->setButton(add);
    addSection(u"État vide"_s, {{empty}});
}

void Gallery::addMenuAndAlerts()
{
    QLabel* deletion = alertSnapshot(AlertTone::Destructive, u"Supprimer ce filament ?"_s,
        u"Voulez-vous vraiment supprimer PLA ?"_s,
        {{u"Supprimer"_s, AlertRole::Destroy}, {u"Annuler"_s, AlertRole::Cancel}});
    QLabel* quit = alertSnapshot(AlertTone::Question, u"Quitter Spoolwright ?"_s,
        u"Voulez-vous vraiment quitter l'application ?"_s,
        {{u"Quitter"_s, AlertRole::Confirm}, {u"Annuler"_s, AlertRole::Cancel}});
    auto* alerts = new QWidget;
    auto* column = new QVBoxLayout(alerts);
    column->setContentsMargins({});
    column->addWidget(deletion);
    column->addWidget(quit);
    addSection(u"Menu et alertes"_s, {{menuSnapshot(), alerts}});
}

} // namespace reelhouse::tests
