#pragma once

#include "app/editing/ReferenceList.h"

#include <QtWidgets/QWidget>

class QStackedWidget;

namespace reelhouse {

class ReferenceListView;

/// The screen of one reference list: its entries with their usage, to be added, renamed and
/// deleted. Follows every change of the stock. Its sheets and its question go with it.
class ReferenceManagementView : public QWidget {
    Q_OBJECT

public:
    ReferenceManagementView(StoreContext& context, ReferenceKind kind, QWidget* parent);

private:
    QWidget* makeHeader();
    QWidget* makePanel();
    void refresh();
    void openSheet(ReferenceId edited);
    void confirmDeletion(ReferenceId id);

    ReferenceList m_list;
    QStackedWidget* m_body;
    ReferenceListView* m_listView;
};

class TypesManagementView final : public ReferenceManagementView {
    Q_OBJECT

public:
    explicit TypesManagementView(StoreContext& context, QWidget* parent = nullptr)
        : ReferenceManagementView(context, ReferenceKind::Type, parent)
    {
    }
};

class BrandsManagementView final : public ReferenceManagementView {
    Q_OBJECT

public:
    explicit BrandsManagementView(StoreContext& context, QWidget* parent = nullptr)
        : ReferenceManagementView(context, ReferenceKind::Brand, parent)
    {
    }
};

class RangesManagementView final : public ReferenceManagementView {
    Q_OBJECT

public:
    explicit RangesManagementView(StoreContext& context, QWidget* parent = nullptr)
        : ReferenceManagementView(context, ReferenceKind::Range, parent)
    {
    }
};

class LocationsManagementView final : public ReferenceManagementView {
    Q_OBJECT

public:
    explicit LocationsManagementView(StoreContext& context, QWidget* parent = nullptr)
        : ReferenceManagementView(context, ReferenceKind::Location, parent)
    {
    }
};

} // namespace reelhouse
