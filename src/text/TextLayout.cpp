#include "text/TextLayout.h"

#include "geometry/PathExtent.h"
#include "text/TextAlignment.h"
#include "text/TextFont.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace shapes {

namespace {

constexpr QChar kLineFeed(10);
constexpr QChar kSquareIdeograph(0x7530);
constexpr QChar kFirstIdeograph(0x4E00);
constexpr QChar kLastIdeograph(0x9FA5);

constexpr double kCjkGap = 150;         ///< font pixels, whatever the font's size
constexpr double kStrokeOffset = 1.3;   ///< of the underline from the baseline, in line heights; columns left to right
constexpr double kFontReach = 16777216; ///< half of what the font engine's 26.6 positions hold
constexpr double kOverhangAllowance =
    0.25; ///< font pixels; positions are truncated to 1/64, the rest allows for rounding

/// value clamped to what the font engine can represent; 0 for NaN.
double FontPosition(double value)
{
    return std::isnan(value) ? 0 : std::clamp(value, -kFontReach, kFontReach);
}

bool HasIdeographs(const QString& line)
{
    return std::any_of(line.begin(), line.end(),
                       [](QChar letter) { return letter >= kFirstIdeograph && letter <= kLastIdeograph; });
}

/// Calls draw, which appends to path, and returns the index of the first element that it made. Qt replaces a trailing
/// move-to instead of appending to it.
template <class Draw>
int FirstNew(QPainterPath& path, Draw draw)
{
    const int count = path.elementCount();
    if (count == 0 || !path.elementAt(count - 1).isMoveTo()) {
        draw();
        return count;
    }
    const QPainterPath::Element end = path.elementAt(count - 1);
    draw();
    const QPainterPath::Element now = path.elementAt(count - 1);
    return path.elementCount() == count && now.x == end.x && now.y == end.y ? count : count - 1;
}

} // namespace

TextLayout::TextLayout(const SText& text) : m_text(text)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    m_font = MakeFont(text.font);
    const size_t length = text.pText ? strnlen(text.pText, TEXT_BUFFER_SIZE - 1) : 0;
    m_lines = QString::fromUtf8(text.pText, static_cast<qsizetype>(length)).split(kLineFeed);
}

QList<QRectF> TextLayout::LineRects()
{
    QList<QRectF> rects;
    for (const QString& line : m_lines)
        rects += line.isEmpty() ? BlankLineRect() : MeasuredRect(line);
    AlignLines(rects, m_text.nAlign);
    return rects;
}

QPainterPath TextLayout::Outline()
{
    const bool columns = m_text.font.bVerticalText;
    const bool leftAligned = m_text.nAlign != ETEXTALIGNMENT_CENTER && m_text.nAlign != ETEXTALIGNMENT_RIGHT;
    const bool extentsMatter = (columns && m_text.font.bUnderline) || !(leftAligned || m_lines.size() == 1);
    const QList<QRectF> rects = extentsMatter ? LineRects() : LeftEdges();

    QPainterPath outline;
    int pen = 0;
    bool afterIdeographs = false;
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const QString& line = m_lines[i];
        const bool ideographs = HasIdeographs(line);
        if (!line.isEmpty()) { // An empty line has no height.
            const double baseline = FontPosition(pen + m_text.dLineSpacing);
            const PathExtent reach = columns ? DrawColumn(line, rects[i], baseline, outline)
                                             : DrawRow(line, rects[i].x(), baseline, outline);
            pen = WholePixels(reach.Rect().bottom() + m_text.font.dSize);
            if (afterIdeographs && !ideographs)
                pen = WholePixels(pen + kCjkGap); // Moves the next line, not this one.
        }
        afterIdeographs = ideographs;
    }
    return outline;
}

PathExtent TextLayout::DrawRow(const QString& line, double x, double baseline, QPainterPath& outline) const
{
    PathExtent reach;
    for (const QChar letter : line) {
        const QString measured = Measured(letter);
        if (measured == letter) { // What is drawn is also what is measured: add just the new elements.
            const int first = FirstNew(outline, [&] { outline.addText(x, baseline, m_font, measured); });
            reach.Add(outline, first);
        } else {
            reach.Add(Piece(x, baseline, measured));
            outline.addText(x, baseline, m_font, letter);
        }
        x = Behind(reach);
    }
    return reach;
}

PathExtent TextLayout::DrawColumn(const QString& line, const QRectF& rect, double baseline, QPainterPath& outline) const
{
    const bool leftToRight = m_text.font.bColumnsLeftToRight;
    if (m_text.font.bUnderline) {
        const double stroke = leftToRight ? baseline + kStrokeOffset * rect.height() : -baseline;
        outline.moveTo(stroke, rect.x() - rect.height());
        outline.lineTo(stroke, rect.x() + rect.width() - rect.height());
    }
    PathExtent reach;
    double at = rect.x();
    for (const QChar letter : line) {
        reach.Add(Piece(at, baseline, Measured(letter)));
        outline.addText(leftToRight ? baseline : -baseline, at, m_font, letter);
        at = Behind(reach);
    }
    return reach;
}

double TextLayout::Behind(const PathExtent& reach) const
{
    return FontPosition(reach.Rect().right() + m_text.dCharSpacing);
}

QPainterPath TextLayout::Piece(double x, double baseline, const QString& letters) const
{
    QPainterPath piece;
    piece.addText(x, baseline, m_font, letters);
    return piece;
}

/// The text that is measured for a character. Only the plain space becomes a "."; other white space has no width.
QString TextLayout::Measured(QChar letter) const
{
    if (m_text.font.bVerticalText)
        return kSquareIdeograph;
    return letter == u' ' ? QStringLiteral(".") : QString(letter);
}

QRectF TextLayout::MeasuredRect(const QString& line) const
{
    const double baseline = FontPosition(m_text.dLineSpacing);
    PathExtent reach;
    double x = 0;
    for (const QChar letter : line) {
        reach.Add(Piece(x, baseline, Measured(letter)));
        x = Behind(reach);
    }
    return reach.Rect();
}

QRectF TextLayout::BlankLineRect()
{
    if (!m_blankLine)
        m_blankLine = Piece(0, FontPosition(m_text.dLineSpacing), QStringLiteral("SPACE")).boundingRect();
    return *m_blankLine;
}

/// As LineRects() where only left edges are needed: only x is valid.
QList<QRectF> TextLayout::LeftEdges()
{
    QList<QRectF> rects;
    for (const QString& line : m_lines)
        rects += QRectF(LeftEdge(line), 0, 0, 0);
    AlignLines(rects, ETEXTALIGNMENT_LEFT);
    return rects;
}

/// x of the line's rectangle. The extent of a settled first letter only grows, so no further letter is placed left of
/// its right edge plus the spacing. Unless one overhangs its place by more than that, the first letter alone determines
/// x.
double TextLayout::LeftEdge(const QString& line)
{
    if (line.isEmpty())
        return BlankLineRect().x();
    PathExtent first;
    first.Add(Piece(0, FontPosition(m_text.dLineSpacing), Measured(line[0])));
    const double room = Behind(first) - kOverhangAllowance - first.Rect().x();
    const bool firstDecides = first.IsSettled() && std::all_of(line.begin() + 1, line.end(),
                                                               [&](QChar letter) { return Overhang(letter) < room; });
    return firstDecides ? first.Rect().x() : MeasuredRect(line).x();
}

double TextLayout::Overhang(QChar letter)
{
    const auto known = m_overhang.constFind(letter);
    if (known != m_overhang.cend())
        return *known;
    PathExtent extent;
    extent.Add(Piece(0, 0, Measured(letter)));
    return *m_overhang.insert(letter, -extent.Rect().x());
}

} // namespace shapes
