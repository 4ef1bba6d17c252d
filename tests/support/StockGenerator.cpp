#include "tests/support/StockGenerator.h"

#include <QtCore/QDateTime>

#include <random>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

struct Color {
    QString name;
    QString hex;
};

const QList<Color>& colors()
{
    static const QList<Color> known{{u"Rouge"_s, u"#E53935"_s}, {u"Bleu nuit"_s, u"#1A237E"_s},
        {u"Vert forêt"_s, u"#1B5E20"_s}, {u"Jaune"_s, u"#FDD835"_s}, {u"Noir"_s, u"#000000"_s},
        {u"Blanc cassé"_s, u"#FAF3E0"_s}, {u"Gris"_s, u"#9E9E9E"_s}, {u"Orange"_s, u"#FB8C00"_s},
        {u"Violet"_s, u"#6A1B9A"_s}, {u"Doré"_s, u"#D4AF37"_s}, {u"Argenté"_s, u"#C0C0C0"_s},
        {u"Bordeaux"_s, u"#6D0F1F"_s}, {u"Turquoise"_s, u"#00ACC1"_s}, {u"Beige"_s, u"#D7CCC8"_s},
        {u"Éclat de cuivre"_s, u"#B87333"_s}, {u"Forêt d'été"_s, u"#33691E"_s}};
    return known;
}

const QStringList& sentences()
{
    static const QStringList known{u"Sécher 4 h à 50 °C avant usage."_s,
        u"Buse de 0,6 mm conseillée."_s, u"Reste d'un projet, bobine entamée."_s,
        u"Acheté en promotion."_s, u"Plateau à 65 °C, ventilation à fond."_s,
        u"Très cassant par temps sec."_s, u"Éclat irrégulier sur les grandes surfaces."_s,
        u"Réservé aux pièces mécaniques."_s};
    return known;
}

/// Draws the numbers of one stock. Standard distributions differ between libraries, this does not.
class Dice final {
public:
    explicit Dice(quint32 seed)
        : m_engine(seed)
    {
    }

    /// From 0 to `sides` - 1.
    int roll(int sides) { return int(m_engine() % quint32(sides)); }
    bool isOneIn(int sides) { return roll(sides) == 0; }

    template <class List>
    auto& pick(List& list)
    {
        return list[roll(int(list.size()))];
    }

private:
    std::mt19937 m_engine;
};

template <class T>
std::vector<T*> insertEntries(StoreContext& context, const QStringList& names)
{
    std::vector<T*> entries;
    for (const QString& name : names)
        entries.push_back(&context.insert(std::make_unique<T>(name)));
    return entries;
}

QStringList numbered(const QStringList& names, int count)
{
    QStringList result;
    for (int i = 0; i < count; ++i) {
        const QString& name = names[i % names.size()];
        const int round = i / int(names.size());
        result << (round == 0 ? name : name + u' ' + QString::number(round + 1));
    }
    return result;
}

/// The entries that the filaments of one stock refer to.
struct Shelves {
    std::vector<FilamentType*> types;
    std::vector<Brand*> brands;
    std::vector<FilamentRange*> ranges;
    std::vector<Location*> locations;
};

Shelves insertShelves(StoreContext& context)
{
    return {insertEntries<FilamentType>(context,
                {u"PLA"_s, u"PETG"_s, u"ABS"_s, u"ASA"_s, u"TPU"_s, u"Nylon"_s, u"PC"_s, u"PVA"_s,
                    u"HIPS"_s, u"PP"_s}),
        insertEntries<Brand>(context,
            numbered({u"Atelier Bleu"_s, u"Filéo"_s, u"Nord Polymères"_s, u"Écofil"_s,
                         u"Maison du Fil"_s, u"Zénith"_s, u"Trois-D"_s, u"Cœur de Bobine"_s},
                24)),
        insertEntries<FilamentRange>(context,
            numbered(
                {u"Matte"_s, u"Silk"_s, u"Basic"_s, u"Haute Vitesse"_s, u"Bois"_s, u"Carbone"_s,
                    u"Translucide"_s, u"Recyclé"_s, u"Pailleté"_s, u"Résistant à la chaleur"_s},
                40)),
        insertEntries<Location>(context,
            numbered({u"Étagère A"_s, u"Étagère B"_s, u"Boîte sèche"_s, u"Tiroir"_s, u"Cave"_s,
                         u"Grenier"_s},
                30))};
}

template <class T>
T* pickOrNone(Dice& dice, const std::vector<T*>& entries)
{
    return dice.isOneIn(10) ? nullptr : dice.pick(entries);
}

QString makeNotes(Dice& dice)
{
    if (dice.isOneIn(2))
        return {};
    QStringList lines;
    const int count = dice.isOneIn(50) ? 20 : 1 + dice.roll(2);
    for (int i = 0; i < count; ++i)
        lines << dice.pick(sentences());
    return lines.join(u'\n');
}

std::unique_ptr<Filament> makeFilament(Dice& dice, const Shelves& shelves)
{
    const Color& color = dice.pick(colors());
    const int spools = dice.roll(8);
    FilamentType* type = pickOrNone(dice, shelves.types);
    Brand* brand = pickOrNone(dice, shelves.brands);
    FilamentRange* range = pickOrNone(dice, shelves.ranges);
    Location* location = pickOrNone(dice, shelves.locations);
    const int opened = dice.roll(3);
    // Texts of their own, as those read from a file or typed are.
    auto filament = std::make_unique<Filament>(type, brand, range, location, spools, opened,
        QString(color.hex.constData(), color.hex.size()),
        QString(color.name.constData(), color.name.size()), makeNotes(dice));
    filament->setDateAdded(QDateTime::fromMSecsSinceEpoch(
        1600000000000 + qint64(dice.roll(1000000000)) * 150, Qt::UTC));
    return filament;
}

} // namespace

void generateStock(StoreContext& context, int filaments, quint32 seed)
{
    Dice dice(seed);
    const Shelves shelves = insertShelves(context);
    for (int i = 0; i < filaments; ++i)
        context.insert(makeFilament(dice, shelves));
}

} // namespace reelhouse::tests
