#include "app/library/FilamentTexts.h"

#include "core/model/Filament.h"
#include "core/text/Plural.h"

using namespace Qt::StringLiterals;

namespace reelhouse::FilamentTexts {

QString typeName(const Filament& filament)
{
    return filament.type() ? filament.type()->name() : u"Sans type"_s;
}

QString brandName(const Filament& filament)
{
    return filament.brand() ? filament.brand()->name() : u"Sans marque"_s;
}

QString brandAndRange(const Filament& filament)
{
    if (!filament.range())
        return brandName(filament);
    return brandName(filament) + u" · "_s + filament.range()->name();
}

QString typeIconName(const Filament& filament)
{
    return filament.type() ? filament.type()->iconName() : filamentTypeDefaultIcon();
}

QString place(const Filament& filament)
{
    return filament.location() ? filament.location()->name() : u"—"_s;
}

QString colorName(const Filament& filament)
{
    return filament.colorName().isEmpty() ? u"—"_s : filament.colorName();
}

QString openedInParentheses(const Filament& filament)
{
    if (filament.openedSpoolsCount() < 1)
        return {};
    return u'(' + counted(filament.openedSpoolsCount(), u"entamée"_s) + u')';
}

QString notesOnOneLine(const Filament& filament)
{
    return filament.notes().simplified();
}

} // namespace reelhouse::FilamentTexts
