#pragma once

#include <QtCore/QString>

#include <array>

namespace reelhouse {

/// The screens of the application, in the order in which they are listed.
enum class NavItem : quint8 { Library, Types, Brands, Ranges, Locations, ExportImport, CsvExport };

inline constexpr std::array allNavItems{NavItem::Library, NavItem::Types, NavItem::Brands,
    NavItem::Ranges, NavItem::Locations, NavItem::ExportImport, NavItem::CsvExport};

QString navItemTitle(NavItem item);
/// The symbol shown beside the title.
QString navItemIcon(NavItem item);

} // namespace reelhouse
