#include "app/editing/ReferenceTexts.h"

#include "core/text/Plural.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

ReferenceTexts typeTexts()
{
    return {
        .title = u"Types de filament"_s,
        .addCommand = u"Ajouter un type"_s,
        .rowSymbol = {},
        .emptyTitle = u"Aucun type"_s,
        .emptySymbol = u"square.3.layers.3d.down.right"_s,
        .emptyDescription = u"Ajoutez votre premier type de filament."_s,
        .addTitle = u"Nouveau type"_s,
        .namePlaceholder = u"Nom du type"_s,
        .editTitle = u"Modifier le type"_s,
        .deleteAction = u"Supprimer le type"_s,
        .deleteTitle = u"Supprimer ce type ?"_s,
        .deleteUnused = u"Voulez-vous vraiment supprimer ce type ?"_s,
        .deleteUsedBeforeCount = u"Ce type est utilisé par "_s,
        .deleteUsedAfterCount = u". Ils perdront leur type."_s,
    };
}

ReferenceTexts brandTexts()
{
    return {
        .title = u"Marques"_s,
        .addCommand = u"Ajouter une marque"_s,
        .rowSymbol = u"tag.fill"_s,
        .emptyTitle = u"Aucune marque"_s,
        .emptySymbol = u"tag.fill"_s,
        .emptyDescription = u"Ajoutez votre première marque de filament."_s,
        .addTitle = u"Nouvelle marque"_s,
        .namePlaceholder = u"Nom de la marque"_s,
        .editTitle = u"Modifier la marque"_s,
        .deleteAction = u"Supprimer la marque"_s,
        .deleteTitle = u"Supprimer cette marque ?"_s,
        .deleteUnused = u"Voulez-vous vraiment supprimer cette marque ?"_s,
        .deleteUsedBeforeCount = u"Cette marque est utilisée par "_s,
        .deleteUsedAfterCount = u". Ils perdront leur marque."_s,
    };
}

ReferenceTexts rangeTexts()
{
    return {
        .title = u"Gammes"_s,
        .addCommand = u"Ajouter une gamme"_s,
        .rowSymbol = u"list.star"_s,
        .emptyTitle = u"Aucune gamme"_s,
        .emptySymbol = u"list.star"_s,
        .emptyDescription = u"Ajoutez votre première gamme de filament."_s,
        .addTitle = u"Nouvelle gamme"_s,
        .namePlaceholder = u"Nom de la gamme"_s,
        .editTitle = u"Modifier la gamme"_s,
        .deleteAction = u"Supprimer la gamme"_s,
        .deleteTitle = u"Supprimer cette gamme ?"_s,
        .deleteUnused = u"Voulez-vous vraiment supprimer cette gamme ?"_s,
        .deleteUsedBeforeCount = u"Cette gamme est utilisée par "_s,
        .deleteUsedAfterCount = u". Ils perdront leur gamme."_s,
    };
}

ReferenceTexts locationTexts()
{
    return {
        .title = u"Lieux"_s,
        .addCommand = u"Ajouter un lieu"_s,
        .rowSymbol = u"map.fill"_s,
        .emptyTitle = u"Aucun lieu"_s,
        .emptySymbol = u"map.fill"_s,
        .emptyDescription = u"Ajoutez votre premier lieu de stockage."_s,
        .addTitle = u"Nouveau lieu"_s,
        .namePlaceholder = u"Nom du lieu"_s,
        .editTitle = u"Modifier le lieu"_s,
        .deleteAction = u"Supprimer le lieu"_s,
        .deleteTitle = u"Supprimer ce lieu ?"_s,
        .deleteUnused = u"Voulez-vous vraiment supprimer ce lieu ?"_s,
        .deleteUsedBeforeCount = u"Ce lieu est utilisé par "_s,
        .deleteUsedAfterCount = u". Ils perdront leur lieu."_s,
    };
}

} // namespace

ReferenceTexts referenceTexts(ReferenceKind kind)
{
    switch (kind) {
    case ReferenceKind::Type:
        return typeTexts();
    case ReferenceKind::Brand:
        return brandTexts();
    case ReferenceKind::Range:
        return rangeTexts();
    case ReferenceKind::Location:
        return locationTexts();
    }
    Q_UNREACHABLE();
}

QString deletionQuestion(const ReferenceTexts& texts, qint64 filamentCount)
{
    if (filamentCount < 1)
        return texts.deleteUnused;
    return texts.deleteUsedBeforeCount + counted(filamentCount, u"filament"_s)
        + texts.deleteUsedAfterCount;
}

} // namespace reelhouse
