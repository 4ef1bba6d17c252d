#pragma once

#include <QtCore/QHash>
#include <QtCore/QPointF>
#include <QtCore/QVarLengthArray>
#include <QtGui/QFont>
#include <QtGui/QRawFont>

#include <vector>

class QPainter;

namespace reelhouse {

/// One typeface of a report, at any size. Everything is measured in the outlines' own units,
/// without hinting and without a screen or printer, and drawn exactly so.
///
/// Most texts are set letter by letter from a table, with kerning but without ligatures: quick, and
/// each letter can be selected and searched in a PDF. Emoji, accents apart from their letters and
/// writing that must be shaped go through the text layout of the toolkit.
///
/// Texts are one line, written from left to right as a whole.
class ReportTypeface final {
public:
    /// Family, weight and style of `font` count; its size does not.
    explicit ReportTypeface(const QFont& font);

    /// How far `text` advances when it is drawn `size` points high.
    qreal width(QStringView text, qreal size) const;
    /// Draws `text` from `baseline` on with the painter's pen; one unit of the painter is a point.
    void draw(QPainter& painter, QPointF baseline, QStringView text, qreal size) const;

    /// From one baseline to the next, with a little air.
    qreal lineHeight(qreal size) const;
    /// From the top of a line down to its baseline.
    qreal baseline(qreal size) const;

private:
    /// One UTF-16 unit in the table.
    struct Letter {
        enum class State : quint8 { Unknown, Plain, Shaped };
        quint32 glyph = 0;
        float advance = 0;
        State state = State::Unknown;
    };

    /// A part of a text that is set in one way.
    struct Segment {
        qsizetype start;
        qsizetype length;
        bool isPlain;
    };
    using Segments = QVarLengthArray<Segment, 4>;

    const Letter& letter(QChar unit) const;
    Letter makeLetter(QChar unit) const;
    float kerning(QChar left, QChar right) const;
    float measureKerning(QChar left, QChar right) const;
    Segments segments(QStringView text) const;
    qreal plainWidth(QStringView text) const;
    void drawPlain(QPainter& painter, QPointF baseline, QStringView text, qreal size) const;
    const QRawFont& rawFontOf(qreal size) const;

    qreal naturalHeight() const;

    QFont m_font;
    QRawFont m_outlines;
    mutable std::vector<Letter> m_letters; ///< Filled as letters are met.
    mutable std::vector<float> m_kerning; ///< Filled as pairs of frequent letters are met.
    mutable QHash<quint32, float> m_rareKerning; ///< Of the other pairs met.
    mutable QHash<qreal, QRawFont> m_rawFonts; ///< Of the sizes drawn.
};

/// A typeface at one size, in points.
struct ReportFont {
    const ReportTypeface* face;
    qreal size;

    qreal width(QStringView text) const { return face->width(text, size); }
    qreal lineHeight() const { return face->lineHeight(size); }
    qreal baseline() const { return face->baseline(size); }
    void draw(QPainter& painter, QPointF baseline, QStringView text) const
    {
        face->draw(painter, baseline, text, size);
    }
};

} // namespace reelhouse
