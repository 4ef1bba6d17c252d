#include "app/printing/ReportTypeface.h"

#include <QtGui/QGlyphRun>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <algorithm>
#include <array>
#include <limits>

namespace reelhouse {

namespace {

/// Large enough for metrics to be exact to a thousandth of the size.
constexpr int unitsPerSize = 1000;
/// Of the size; typefaces that ask for more get it.
constexpr qreal airyLineHeight = 1.36;
/// Behind the letters, signs and punctuation of Latin, Greek and Cyrillic texts.
constexpr char16_t tableEnd = 0x2C00;
/// Behind the letters of French and its neighbours, whose pairs are worth a table.
constexpr char16_t kerningEnd = 0x180;
constexpr float kerningUnknown = std::numeric_limits<float>::infinity();

/// What never changes its form beside another letter.
bool standsByItself(QChar unit)
{
    if (unit.isMark() || unit.isSurrogate())
        return false;
    switch (unit.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
        return false;
    default:
        break;
    }
    switch (unit.script()) {
    case QChar::Script_Common:
    case QChar::Script_Latin:
    case QChar::Script_Greek:
    case QChar::Script_Cyrillic:
        return true;
    default:
        return false;
    }
}

/// What belongs to the letter before it.
bool joinsPreviousLetter(QChar unit)
{
    constexpr char16_t zeroWidthJoiner = 0x200D;
    return unit.isMark() || unit.unicode() == zeroWidthJoiner;
}

bool isRightToLeft(QChar::Direction direction)
{
    switch (direction) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirAN:
        return true;
    default:
        return false;
    }
}

bool hasRightToLeft(QStringView text)
{
    for (qsizetype index = 0; index < text.size(); ++index) {
        char32_t point = text[index].unicode();
        if (text[index].isHighSurrogate() && index + 1 < text.size()) {
            point = QChar::surrogateToUcs4(text[index], text[index + 1]);
            ++index;
        }
        if (isRightToLeft(QChar::direction(point)))
            return true;
    }
    return false;
}

/// One line laid out by the toolkit, with other fonts where a letter is missing in this one.
class ShapedLine final {
public:
    ShapedLine(QStringView text, const QFont& font)
        : m_layout(text.toString(), font)
    {
        QTextOption option;
        option.setTextDirection(Qt::LeftToRight);
        option.setWrapMode(QTextOption::NoWrap);
        option.setFlags(QTextOption::IncludeTrailingSpaces);
        m_layout.setTextOption(option);
        m_layout.beginLayout();
        m_line = m_layout.createLine();
        m_layout.endLayout();
    }

    qreal width() const { return m_line.naturalTextWidth(); }
    qreal baseline() const { return m_line.y() + m_line.ascent(); }
    QList<QGlyphRun> glyphRuns() const { return m_layout.glyphRuns(); }

private:
    QTextLayout m_layout;
    QTextLine m_line;
};

void drawShaped(
    QPainter& painter, QPointF baseline, QStringView text, const QFont& font, qreal size)
{
    const qreal scale = size / unitsPerSize;
    const ShapedLine line(text, font);
    for (QGlyphRun run : line.glyphRuns()) {
        QRawFont rawFont = run.rawFont();
        rawFont.setPixelSize(rawFont.pixelSize() * scale);
        QList<QPointF> positions = run.positions();
        for (QPointF& position : positions)
            position = QPointF(position.x(), position.y() - line.baseline()) * scale;
        run.setRawFont(rawFont);
        run.setPositions(positions);
        painter.drawGlyphRun(baseline, run);
    }
}

/// For a picture that is played back later: it would keep glyphs as outlines, a hundred times as
/// much.
void recordText(
    QPainter& painter, QPointF baseline, QStringView text, const QFont& font, qreal size)
{
    const qreal scale = size / unitsPerSize;
    painter.save();
    painter.translate(baseline);
    painter.scale(scale, scale);
    painter.setFont(font);
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.drawText(QPointF(), text.toString());
    painter.restore();
}

QFont unhinted(QFont font)
{
    font.setPixelSize(unitsPerSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

ReportTypeface::ReportTypeface(const QFont& font)
    : m_font(unhinted(font))
    , m_outlines(QRawFont::fromFont(m_font))
    , m_letters(tableEnd)
    , m_kerning(size_t(kerningEnd) * kerningEnd, kerningUnknown)
{
}

ReportTypeface::Letter ReportTypeface::makeLetter(QChar unit) const
{
    const Letter shaped{0, 0, Letter::State::Shaped};
    quint32 glyph = 0;
    int count = 1;
    if (!standsByItself(unit) || !m_outlines.glyphIndexesForChars(&unit, 1, &glyph, &count)
        || glyph == 0)
        return shaped;
    QPointF advance;
    if (!m_outlines.advancesForGlyphIndexes(&glyph, &advance, 1))
        return shaped;
    return {glyph, float(advance.x()), Letter::State::Plain};
}

const ReportTypeface::Letter& ReportTypeface::letter(QChar unit) const
{
    static constexpr Letter outsideTheTable{0, 0, Letter::State::Shaped};
    if (unit.unicode() >= tableEnd)
        return outsideTheTable;
    Letter& letter = m_letters[unit.unicode()];
    if (letter.state == Letter::State::Unknown)
        letter = makeLetter(unit);
    return letter;
}

float ReportTypeface::kerning(QChar left, QChar right) const
{
    if (left.unicode() < kerningEnd && right.unicode() < kerningEnd) {
        float& known = m_kerning[size_t(left.unicode()) * kerningEnd + right.unicode()];
        if (known == kerningUnknown)
            known = measureKerning(left, right);
        return known;
    }
    const quint32 pair = quint32(left.unicode()) << 16 | right.unicode();
    const auto known = m_rareKerning.constFind(pair);
    if (known != m_rareKerning.cend())
        return *known;
    return *m_rareKerning.insert(pair, measureKerning(left, right));
}

/// How much nearer two letters stand than their advances say; 0 where shaping would replace them.
float ReportTypeface::measureKerning(QChar left, QChar right) const
{
    const std::array<QChar, 2> pair{left, right};
    const ShapedLine line(QStringView(pair), m_font);
    const QList<QGlyphRun> runs = line.glyphRuns();
    const Letter& first = letter(left);
    const Letter& second = letter(right);
    if (runs.size() != 1
        || runs.front().glyphIndexes() != QList<quint32>{first.glyph, second.glyph})
        return 0;
    const QList<QPointF> positions = runs.front().positions();
    return float(positions[1].x() - positions[0].x()) - first.advance;
}

ReportTypeface::Segments ReportTypeface::segments(QStringView text) const
{
    Segments result;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const bool isPlain = letter(text[index]).state == Letter::State::Plain
            && (index + 1 == text.size() || !joinsPreviousLetter(text[index + 1]));
        if (!result.isEmpty() && result.last().isPlain == isPlain)
            ++result.last().length;
        else
            result.append({index, 1, isPlain});
    }
    const bool isPlain = result.size() == 1 && result.first().isPlain;
    if (!isPlain && hasRightToLeft(text))
        return {{0, text.size(), false}};
    return result;
}

qreal ReportTypeface::plainWidth(QStringView text) const
{
    qreal width = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        width += letter(text[index]).advance;
        if (index > 0)
            width += kerning(text[index - 1], text[index]);
    }
    return width;
}

qreal ReportTypeface::width(QStringView text, qreal size) const
{
    qreal width = 0;
    for (const Segment& segment : segments(text)) {
        const QStringView part = text.mid(segment.start, segment.length);
        width += segment.isPlain ? plainWidth(part) : ShapedLine(part, m_font).width();
    }
    return width * size / unitsPerSize;
}

void ReportTypeface::draw(QPainter& painter, QPointF baseline, QStringView text, qreal size) const
{
    const Segments parts = segments(text);
    const bool isRecorded = painter.paintEngine()->type() == QPaintEngine::Picture;
    for (const Segment& segment : parts) {
        const QStringView part = text.mid(segment.start, segment.length);
        if (isRecorded)
            recordText(painter, baseline, part, m_font, size);
        else if (segment.isPlain)
            drawPlain(painter, baseline, part, size);
        else
            drawShaped(painter, baseline, part, m_font, size);
        if (parts.size() > 1)
            baseline.rx() += width(part, size);
    }
}

void ReportTypeface::drawPlain(
    QPainter& painter, QPointF baseline, QStringView text, qreal size) const
{
    QVarLengthArray<quint32, 128> glyphs(text.size());
    QVarLengthArray<QPointF, 128> positions(text.size());
    qreal x = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const Letter& next = letter(text[index]);
        if (index > 0)
            x += kerning(text[index - 1], text[index]);
        glyphs[index] = next.glyph;
        positions[index] = {x * size / unitsPerSize, 0};
        x += next.advance;
    }
    QGlyphRun run;
    run.setRawFont(rawFontOf(size));
    run.setRawData(glyphs.constData(), positions.constData(), int(text.size()));
    painter.drawGlyphRun(baseline, run);
}

const QRawFont& ReportTypeface::rawFontOf(qreal size) const
{
    auto known = m_rawFonts.find(size);
    if (known == m_rawFonts.end()) {
        known = m_rawFonts.insert(size, m_outlines);
        known->setPixelSize(size);
    }
    return *known;
}

/// What the typeface itself asks for, in its own units.
qreal ReportTypeface::naturalHeight() const
{
    return m_outlines.ascent() + m_outlines.descent() + m_outlines.leading();
}

qreal ReportTypeface::lineHeight(qreal size) const
{
    return std::max(naturalHeight() / unitsPerSize, airyLineHeight) * size;
}

qreal ReportTypeface::baseline(qreal size) const
{
    const qreal air = lineHeight(size) - naturalHeight() * size / unitsPerSize;
    return air / 2 + m_outlines.ascent() * size / unitsPerSize;
}

} // namespace reelhouse
