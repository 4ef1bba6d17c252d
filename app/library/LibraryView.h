#pragma once

#include "core/filters/FilterSelection.h"

#include <QtWidgets/QWidget>

class QLabel;
class QStackedWidget;

namespace reelhouse {

class ListView;
class Preferences;
class SearchField;
class SpoolActions;
class StatusBarView;
class StoreContainer;

/// The main screen: the stock, narrowed by the search field, with the totals under it.
/// Seeds the sample data the first time it is shown, unless the store is the temporary one.
class LibraryView final : public QWidget {
    Q_OBJECT

public:
    LibraryView(StoreContainer& container, Preferences& preferences, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeFilterBar();
    void seedOnce();
    void refreshWhenShown();
    void refresh();
    void search(const QString& text);
    void clearSearch();

    StoreContainer& m_container;
    Preferences& m_preferences;
    FilterSelection m_selection;
    bool m_didSeed = false;
    bool m_isStale = true;
    SpoolActions* m_actions;
    SearchField* m_searchField;
    QLabel* m_resultCount;
    QStackedWidget* m_body;
    ListView* m_list;
    QWidget* m_emptyStock;
    QWidget* m_noResult;
    StatusBarView* m_statusBar;
};

} // namespace reelhouse
