#pragma once

#include "core/model/StoreContext.h"

#include <QtCore/QStringList>

namespace reelhouse::tests {

template <class T>
void describeEntries(QStringList& lines, StoreContext& context)
{
    for (const auto& entry : context.fetchAll<T>()) {
        QList<qint64> filaments;
        for (const Filament* filament : entry->filaments())
            filaments += filament->id().value;
        std::ranges::sort(filaments);
        QString line = QString::number(entry->id().value) + u' ' + entry->name() + u':';
        if constexpr (std::is_same_v<T, FilamentType>)
            line += entry->iconName() + u':';
        for (const qint64 filament : filaments)
            line += u' ' + QString::number(filament);
        lines += line;
    }
    lines += QStringLiteral("--");
}

/// Everything that there is to know about a stock, in order.
inline QStringList pictureOf(StoreContext& context)
{
    QStringList lines;
    describeEntries<FilamentType>(lines, context);
    describeEntries<Brand>(lines, context);
    describeEntries<FilamentRange>(lines, context);
    describeEntries<Location>(lines, context);
    for (const auto& filament : context.fetchAll<Filament>()) {
        const Filament::Values values = filament->values();
        QString line = QString::number(filament->id().value);
        for (const qint64 number :
            {values.spoolsCount, values.openedSpoolsCount, values.dateAddedMs, values.references[0],
                values.references[1], values.references[2], values.references[3]})
            line += u' ' + QString::number(number);
        lines += line + u'|' + values.colorHex + u'|' + values.colorName + u'|' + values.notes;
    }
    return lines;
}

} // namespace reelhouse::tests
