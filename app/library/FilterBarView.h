#pragma once

#include "core/filters/FilterFavorite.h"
#include "core/filters/FilterSelection.h"

#include <QtWidgets/QWidget>

#include <array>
#include <functional>

class QLabel;
class QMenu;
class QPushButton;

namespace reelhouse {

class CapsuleButton;
struct CapsuleTint;
class FavoritesMenu;
class FilterFavoritesStore;
class SearchField;
class StoreContext;
struct Theme;

/// Shows one FilterSelection (identities, buckets, text) and reports what the user makes of it. It
/// filters nothing.
class FilterBarView final : public QWidget {
    Q_OBJECT

public:
    FilterBarView(
        StoreContext& context, const FilterFavoritesStore& favorites, QWidget* parent = nullptr);

    /// Makes every control show `selection`, under the names that the stock has now. Emits nothing.
    void setSelection(const FilterSelection& selection);
    /// Shows how many filaments the selection lets through.
    void setResultCount(qsizetype count);
    void focusSearch();

signals:
    /// The user changed one control; `selection` is the whole new value.
    void selectionEdited(const FilterSelection& selection);
    void resetRequested();
    /// The keyboard is to go to what is shown.
    void resultsRequested();
    void saveFavoriteRequested();
    void favoriteChosen(const FilterFavorite& favorite);
    /// The favourite is to take the criteria shown.
    void favoriteUpdateRequested(const FilterFavorite& favorite);
    void manageFavoritesRequested();

protected:
    void changeEvent(QEvent* event) override;

private:
    /// One entry of a capsule's menu: its title, its symbol or none, whether it is the chosen one,
    /// and the selection that choosing it makes.
    struct Choice {
        QString title;
        QString symbol;
        bool isChosen;
        FilterSelection selection;
    };
    using Choices = std::function<std::vector<Choice>()>;

    CapsuleButton* addCapsule(const QString& symbol, const QString& field,
        const QString& unsetValue, CapsuleTint Theme::*tint, const Choices& choices);
    template <class T>
    CapsuleButton* addReference(const QString& symbol, const QString& field,
        CapsuleTint Theme::*tint, EntityId<T> FilterSelection::*reference);
    CapsuleButton* addBucket(const QString& symbol, const QString& field,
        const QList<qint64>& buckets, std::optional<qint64> FilterSelection::*bucket);
    template <class T>
    std::vector<Choice> referenceChoices(EntityId<T> FilterSelection::*reference) const;
    std::vector<Choice> bucketChoices(
        const QList<qint64>& buckets, std::optional<qint64> FilterSelection::*bucket) const;
    void fillMenu(QMenu& menu, const Choices& choices);
    void refreshFavorites();
    void alignReset();
    template <class T>
    QString nameOf(EntityId<T> id) const;

    StoreContext& m_context;
    const FilterFavoritesStore& m_favorites;
    FilterSelection m_selection;
    std::array<CapsuleButton*, 4> m_references;
    CapsuleButton* m_spools;
    CapsuleButton* m_opened;
    SearchField* m_searchField;
    QPushButton* m_reset = nullptr;
    CapsuleButton* m_star;
    FavoritesMenu* m_favoritesMenu;
    QLabel* m_resultCount;
};

} // namespace reelhouse
