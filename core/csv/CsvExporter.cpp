#include "core/csv/CsvExporter.h"

#include "core/model/Filament.h"

#include <QtCore/QStringConverter>

#include <algorithm>
#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qsizetype usualLine = 160; ///< Characters, with a note.

/// Looks at every letter, without branches, so that many are looked at at once.
bool isQuoted(QStringView cell)
{
    unsigned found = 0;
    for (const QChar letter : cell)
        found |= unsigned(letter == u';') | unsigned(letter == u'"') | unsigned(letter == u'\n')
            | unsigned(letter == u'\r');
    return found != 0;
}

/// Appends to one text that grows by doubling.
class TableText final {
public:
    explicit TableText(qsizetype expectedSize)
        : m_text(expectedSize, Qt::Uninitialized)
    {
    }

    void plain(QStringView text)
    {
        std::copy(text.begin(), text.end(), room(text.size()));
        m_size += text.size();
    }

    void letter(QChar letter)
    {
        *room(1) = letter;
        ++m_size;
    }

    void cell(QStringView cell)
    {
        if (!isQuoted(cell)) {
            plain(cell);
            return;
        }
        letter(u'"');
        for (const QChar each : cell) {
            if (each == u'"')
                letter(each);
            letter(each);
        }
        letter(u'"');
    }

    void name(const FilamentContainer* entry)
    {
        if (entry)
            cell(entry->name());
    }

    void number(qint64 value)
    {
        std::array<char, 24> digits{};
        const char* end = std::to_chars(digits.begin(), digits.end(), value).ptr;
        for (const char* digit = digits.begin(); digit < end; ++digit)
            letter(QLatin1Char(*digit));
    }

    QString take()
    {
        m_text.truncate(m_size);
        return std::move(m_text);
    }

private:
    QChar* room(qsizetype size)
    {
        if (m_text.size() - m_size < size)
            m_text.resize(2 * m_text.size() + size);
        return m_text.data() + m_size;
    }

    QString m_text;
    qsizetype m_size = 0;
};

void addLine(TableText& table, const Filament& filament)
{
    table.cell(filament.colorHex());
    table.letter(u';');
    table.cell(filament.colorName());
    table.letter(u';');
    table.name(filament.type());
    table.letter(u';');
    table.name(filament.brand());
    table.letter(u';');
    table.name(filament.range());
    table.letter(u';');
    table.number(filament.spoolsCount());
    table.letter(u';');
    table.number(filament.openedSpoolsCount());
    table.letter(u';');
    table.name(filament.location());
    table.letter(u';');
    table.cell(filament.notes());
    table.letter(u'\n');
}

} // namespace

QString CsvExporter::stockCSV(const std::vector<const Filament*>& filaments)
{
    TableText table(usualLine * qsizetype(filaments.size() + 1));
    table.plain(u"Couleur;Nom couleur;Type;Marque;Gamme;Bobines;Entamées;Lieu;Notes\n");
    for (const Filament* filament : filaments)
        addLine(table, *filament);
    return table.take();
}

std::optional<QByteArray> CsvExporter::encoded(const QString& csv)
{
    constexpr QByteArrayView byteOrderMark = "\xef\xbb\xbf";
    QStringEncoder encoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QByteArray bytes = byteOrderMark.toByteArray();
    bytes.resize(byteOrderMark.size() + encoder.requiredSpace(csv.size()));
    const char* end = encoder.appendToBuffer(bytes.data() + byteOrderMark.size(), csv);
    bytes.truncate(end - bytes.constData());
    if (encoder.hasError())
        return std::nullopt;
    return bytes;
}

} // namespace reelhouse
