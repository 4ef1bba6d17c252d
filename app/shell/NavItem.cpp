#include "app/shell/NavItem.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

QString navItemTitle(NavItem item)
{
    switch (item) {
    case NavItem::Library:
        return u"Stock de filaments"_s;
    case NavItem::Types:
        return u"Types de filament"_s;
    case NavItem::Brands:
        return u"Marques"_s;
    case NavItem::Ranges:
        return u"Gammes"_s;
    case NavItem::Locations:
        return u"Lieux"_s;
    case NavItem::ExportImport:
        return u"Export / Import"_s;
    case NavItem::CsvExport:
        return u"Export CSV"_s;
    }
    Q_UNREACHABLE();
}

QString navItemIcon(NavItem item)
{
    switch (item) {
    case NavItem::Library:
        return u"books.vertical.fill"_s;
    case NavItem::Types:
        return u"square.3.layers.3d.down.right"_s;
    case NavItem::Brands:
        return u"tag.fill"_s;
    case NavItem::Ranges:
        return u"list.star"_s;
    case NavItem::Locations:
        return u"map.fill"_s;
    case NavItem::ExportImport:
        return u"square.and.arrow.down.on.square"_s;
    case NavItem::CsvExport:
        return u"tablecells"_s;
    }
    Q_UNREACHABLE();
}

} // namespace reelhouse
