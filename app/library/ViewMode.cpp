#include "app/library/ViewMode.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

QString viewModeTitle(ViewMode mode)
{
    switch (mode) {
    case ViewMode::List:
        return u"Liste"_s;
    case ViewMode::Cards:
        return u"Cartes"_s;
    case ViewMode::Stats:
        return u"Stats"_s;
    }
    Q_UNREACHABLE();
}

std::optional<ViewMode> viewModeFrom(const QString& title)
{
    for (const ViewMode mode : {ViewMode::List, ViewMode::Cards, ViewMode::Stats}) {
        if (viewModeTitle(mode) == title)
            return mode;
    }
    return std::nullopt;
}

} // namespace reelhouse
