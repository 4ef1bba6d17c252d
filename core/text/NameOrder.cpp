#include "core/text/NameOrder.h"

#include <algorithm>
#include <numeric>

namespace reelhouse {

namespace {

QString composed(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C);
}

/// UTF-16 puts the letters beyond U+FFFF, which are pairs of surrogates, before U+E000 to U+FFFF.
unsigned inCodePointOrder(QChar unit)
{
    return unit.isSurrogate() ? 0x10000U + unit.unicode() : unit.unicode();
}

std::strong_ordering compareComposed(QStringView left, QStringView right)
{
    return std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(),
        right.end(), [](QChar a, QChar b) { return inCodePointOrder(a) <=> inCodePointOrder(b); });
}

} // namespace

std::strong_ordering compareByCodePoints(const QString& left, const QString& right)
{
    return compareComposed(composed(left), composed(right));
}

std::vector<quint32> nameRanks(const std::vector<QString>& names)
{
    std::vector<QString> keys;
    keys.reserve(names.size());
    std::ranges::transform(names, std::back_inserter(keys), composed);

    std::vector<quint32> order(names.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, [&](quint32 left, quint32 right) {
        return std::is_lt(compareComposed(keys[left], keys[right]));
    });

    std::vector<quint32> ranks(names.size());
    quint32 rank = 0;
    QStringView previous;
    for (const quint32 place : order) {
        if (keys[place] != previous)
            ++rank;
        previous = keys[place];
        ranks[place] = rank;
    }
    return ranks;
}

FileBrowserOrder::FileBrowserOrder()
    : m_collator(QLocale(QLocale::French, QLocale::France))
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

bool FileBrowserOrder::operator()(const QString& left, const QString& right) const
{
    return m_collator.compare(left, right) < 0;
}

std::vector<size_t> fileBrowserOrder(const std::vector<QString>& names)
{
    const FileBrowserOrder order;
    std::vector<QCollatorSortKey> keys;
    keys.reserve(names.size());
    for (const QString& name : names)
        keys.push_back(order.keyOf(name));
    std::vector<size_t> places(names.size());
    std::iota(places.begin(), places.end(), 0);
    std::ranges::stable_sort(
        places, [&](size_t left, size_t right) { return keys[left].compare(keys[right]) < 0; });
    return places;
}

} // namespace reelhouse
