#include "app/library/FilterBarView.h"

#include "app/library/FavoritesMenu.h"
#include "app/library/FilterBarLayout.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/MenuTitle.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/CapsuleButton.h"
#include "app/ui/CapsuleMenu.h"
#include "app/ui/Palette.h"
#include "app/ui/SearchField.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "core/filters/SelectionCriteria.h"
#include "core/model/SortedByName.h"
#include "core/text/Plural.h"

#include <QtGui/QActionGroup>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

QString bucketTitle(qint64 bucket)
{
    return bucket >= fourOrMoreBucket ? u"4+"_s : QString::number(bucket);
}

/// What a type's entry shows before its name; the other kinds show nothing.
QString choiceSymbol(const FilamentContainer& /*entry*/)
{
    return {};
}

QString choiceSymbol(const FilamentType& type)
{
    return type.iconName();
}

} // namespace

FilterBarView::FilterBarView(
    StoreContext& context, const FilterFavoritesStore& favorites, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_favorites(favorites)
{
    auto* bar = new FilterBarLayout(this);
    bar->setContentsMargins(16, 9, 16, 9);
    m_references = {
        addReference(u"cube.fill"_s, u"Type"_s, &Theme::typeTint, &FilterSelection::type),
        addReference(u"tag.fill"_s, u"Marque"_s, &Theme::brandTint, &FilterSelection::brand),
        addReference(u"list.star"_s, u"Gamme"_s, &Theme::rangeTint, &FilterSelection::range),
        addReference(u"map.fill"_s, u"Lieu"_s, &Theme::locationTint, &FilterSelection::location)};
    m_spools = addBucket(u"number.circle.fill"_s, u"Bobines"_s, {1, 2, 3, fourOrMoreBucket},
        &FilterSelection::spools);
    m_opened = addBucket(
        u"scissors"_s, u"Entamées"_s, {0, 1, 2, 3, fourOrMoreBucket}, &FilterSelection::opened);

    bar->beginSearchLine();
    m_searchField = new SearchField(this);
    m_reset = new QPushButton(u"Effacer"_s, this);
    setButtonLook(m_reset, ButtonLook::Link);
    m_reset->setToolTip(u"Réinitialiser les filtres"_s);
    m_star = new CapsuleButton(u"star"_s, u"Filtres favoris"_s, this);
    m_favoritesMenu = new FavoritesMenu(favorites, m_star);
    m_star->setMenu(m_favoritesMenu);
    m_resultCount = new QLabel(this);
    setTextStyle(m_resultCount, TextStyle::Caption);
    setTextTone(m_resultCount, TextTone::Secondary);
    for (QWidget* widget :
        std::initializer_list<QWidget*>{m_searchField, m_reset, m_star, m_resultCount})
        bar->addWidget(widget);

    connect(m_searchField, &SearchField::resultsRequested, this, &FilterBarView::resultsRequested);
    connect(m_searchField, &QLineEdit::textEdited, this, [this](const QString& text) {
        FilterSelection edited = m_selection;
        edited.searchText = text;
        emit selectionEdited(edited);
    });
    connect(m_reset, &QPushButton::clicked, this, [this] {
        focusSearch(); // The button is about to disappear.
        emit resetRequested();
    });
    connect(m_favoritesMenu, &FavoritesMenu::saveRequested, this,
        &FilterBarView::saveFavoriteRequested);
    connect(m_favoritesMenu, &FavoritesMenu::favoriteChosen, this, &FilterBarView::favoriteChosen);
    connect(m_favoritesMenu, &FavoritesMenu::updateRequested, this,
        &FilterBarView::favoriteUpdateRequested);
    connect(m_favoritesMenu, &FavoritesMenu::manageRequested, this,
        &FilterBarView::manageFavoritesRequested);
    connect(&favorites, &FilterFavoritesStore::changed, this, &FilterBarView::refreshFavorites);
    setSelection({});
    setResultCount(0);
    alignReset();
}

void FilterBarView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_reset)
        alignReset();
}

/// Makes "Effacer" no higher than the capsules: the bar stays as high when it comes and goes.
void FilterBarView::alignReset()
{
    m_reset->setFixedHeight(m_star->sizeHint().height());
}

void FilterBarView::setSelection(const FilterSelection& selection)
{
    m_selection = selection;
    m_references[0]->setValue(nameOf(selection.type));
    m_references[1]->setValue(nameOf(selection.brand));
    m_references[2]->setValue(nameOf(selection.range));
    m_references[3]->setValue(nameOf(selection.location));
    m_spools->setValue(selection.spools ? bucketTitle(*selection.spools) : QString());
    m_opened->setValue(selection.opened ? bucketTitle(*selection.opened) : QString());
    if (m_searchField->text() != selection.searchText) // Typing keeps the caret where it is.
        m_searchField->setText(selection.searchText);
    m_reset->setVisible(selection.isActive());
    refreshFavorites();
}

void FilterBarView::setResultCount(qsizetype count)
{
    const QString text = counted(count, u"résultat"_s);
    if (text != m_resultCount->text())
        m_resultCount->setText(text);
}

void FilterBarView::focusSearch()
{
    m_searchField->setFocus(Qt::ShortcutFocusReason);
}

void FilterBarView::refreshFavorites()
{
    const FilterCriteria criteria = criteriaOf(m_context, m_selection);
    const bool isFavorite = m_favorites.matching(criteria).has_value();
    m_star->setSymbol(isFavorite ? u"star.fill"_s : u"star"_s, isFavorite);
    m_favoritesMenu->setCurrent(criteria, m_selection.isActive());
}

CapsuleButton* FilterBarView::addCapsule(const QString& symbol, const QString& field,
    const QString& unsetValue, CapsuleTint Theme::*tint, const Choices& choices)
{
    auto* capsule = new CapsuleButton(symbol, field, unsetValue, tint, this);
    auto* menu = new CapsuleMenu(capsule);
    menu->setToolTipsVisible(true);
    new QActionGroup(menu);
    capsule->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, choices] { fillMenu(*menu, choices); });
    layout()->addWidget(capsule);
    return capsule;
}

template <class T>
CapsuleButton* FilterBarView::addReference(const QString& symbol, const QString& field,
    CapsuleTint Theme::*tint, EntityId<T> FilterSelection::*reference)
{
    return addCapsule(
        symbol, field, u"Tous"_s, tint, [this, reference] { return referenceChoices(reference); });
}

CapsuleButton* FilterBarView::addBucket(const QString& symbol, const QString& field,
    const QList<qint64>& buckets, std::optional<qint64> FilterSelection::*bucket)
{
    return addCapsule(symbol, field, u"Toutes"_s, &Theme::countTint,
        [this, buckets, bucket] { return bucketChoices(buckets, bucket); });
}

template <class T>
std::vector<FilterBarView::Choice> FilterBarView::referenceChoices(
    EntityId<T> FilterSelection::*reference) const
{
    const auto choice = [&](const QString& title, const QString& symbol, EntityId<T> id) {
        FilterSelection selection = m_selection;
        selection.*reference = id;
        return Choice{title, symbol, m_selection.*reference == id, selection};
    };
    std::vector<Choice> choices{choice(u"Tous"_s, {}, {})};
    for (const T* entry : sortedByName<T>(m_context))
        choices.push_back(choice(entry->name(), choiceSymbol(*entry), entry->id()));
    return choices;
}

std::vector<FilterBarView::Choice> FilterBarView::bucketChoices(
    const QList<qint64>& buckets, std::optional<qint64> FilterSelection::*bucket) const
{
    FilterSelection selection = m_selection;
    selection.*bucket = std::nullopt;
    std::vector<Choice> choices{{u"Toutes"_s, {}, !(m_selection.*bucket), selection}};
    for (const qint64 value : buckets) {
        selection.*bucket = value;
        choices.push_back({bucketTitle(value), {},
            m_selection.*bucket && bucketTitle(*(m_selection.*bucket)) == bucketTitle(value),
            selection});
    }
    return choices;
}

void FilterBarView::fillMenu(QMenu& menu, const Choices& choices)
{
    menu.clear();
    auto* group = menu.findChild<QActionGroup*>();
    for (const Choice& choice : choices()) {
        QAction* entry = menu.addAction(menuTitle(choice.title), this,
            [this, selection = choice.selection] { emit selectionEdited(selection); });
        entry->setToolTip(menuToolTip(choice.title));
        if (!choice.symbol.isEmpty())
            entry->setIcon(symbolIcon(choice.symbol));
        entry->setCheckable(true);
        entry->setActionGroup(group);
        entry->setChecked(choice.isChosen);
    }
}

template <class T>
QString FilterBarView::nameOf(EntityId<T> id) const
{
    const T* entry = m_context.find(id);
    return entry ? entry->name() : QString();
}

} // namespace reelhouse
