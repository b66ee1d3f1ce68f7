#include "text/PlainTextLayout.h"

#include <QFont>
#include <QStringList>

#include <algorithm>

namespace test {

namespace {

QFont FontOf(const STextFont& from)
{
    QFont font(QString::fromUtf8(from.szFamily), static_cast<int>(from.dSize), 700, false);
    font.setPixelSize(static_cast<int>(from.dSize));
    if (from.bVerticalText)
        font.setHintingPreference(QFont::PreferVerticalHinting);
    font.setBold(from.bBold);
    font.setItalic(from.bItalic);
    font.setUnderline(from.bVerticalText ? false : from.bUnderline != 0);
    return font;
}

QStringList Lines(const SText& text)
{
    return QString(text.pText).split(QChar(10), Qt::KeepEmptyParts, Qt::CaseSensitive);
}

QString Measured(const SText& text, QChar letter)
{
    if (text.font.bVerticalText)
        return QStringLiteral("田");
    QString measured(letter);
    return measured.trimmed().isEmpty() ? measured.replace(" ", ".") : measured;
}

bool NoCjk(const QString& line)
{
    return std::ranges::none_of(line, [](QChar c) { return c.unicode() >= 19968 && c.unicode() <= 40869; });
}

void AlignPlain(QList<QRectF>& rects, int mode)
{
    QRectF best = rects[0];
    for (const QRectF& rect : rects)
        if (mode == 3 ? rect.right() > best.right() : rect.left() < best.left())
            best = rect;
    for (QRectF& rect : rects)
        if (mode == 2)
            rect.translate((rects[0].left() + rects[0].right()) / 2 - (rect.left() + rect.right()) / 2, 0);
        else if (mode == 3 && rect.right() < best.right())
            rect.moveRight(best.right());
        else if (mode != 3 && rect.left() > best.left())
            rect.moveLeft(best.left());
}

} // namespace

QList<QRectF> PlainLineRects(const SText& text)
{
    const QFont font = FontOf(text.font);
    QList<QRectF> rects;
    for (const QString& line : Lines(text)) {
        QPainterPath measure;
        if (line.isEmpty())
            measure.addText(0, text.dLineSpacing, font, "SPACE");
        for (qsizetype i = 0; i < line.size(); ++i) {
            const double x = i == 0 ? 0 : measure.boundingRect().right() + text.dCharSpacing;
            measure.addText(x, text.dLineSpacing, font, Measured(text, line[i]));
        }
        rects += measure.boundingRect();
    }
    AlignPlain(rects, text.nAlign);
    return rects;
}

QPainterPath PlainOutline(const SText& text)
{
    const QFont font = FontOf(text.font);
    const bool vertical = text.font.bVerticalText, leftToRight = text.font.bColumnsLeftToRight;
    const QList<QRectF> rects = PlainLineRects(text);
    const QStringList lines = Lines(text);
    QPainterPath outline;
    QPoint pen(0, 0);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].isEmpty())
            continue;
        const double b = pen.y() + text.dLineSpacing;
        if (vertical && text.font.bUnderline) {
            const double u = leftToRight ? b + 1.3 * rects[i].height() : -b;
            outline.moveTo(u, rects[i].x() - rects[i].height());
            outline.lineTo(u, rects[i].x() + rects[i].width() - rects[i].height());
        }
        QPainterPath measure;
        for (qsizetype j = 0; j < lines[i].size(); ++j) {
            const double a = j == 0 ? rects[i].x() : measure.boundingRect().right() + text.dCharSpacing;
            measure.addText(a, b, font, Measured(text, lines[i][j]));
            const QPointF at = !vertical ? QPointF(a, b) : leftToRight ? QPointF(b, a) : QPointF(-b, a);
            outline.addText(at, font, QString(lines[i][j]));
        }
        pen.setY(static_cast<int>(measure.boundingRect().bottom() + text.font.dSize));
        if (i > 0 && NoCjk(lines[i]) && !NoCjk(lines[i - 1]))
            pen.setY(pen.y() + 150);
    }
    return outline;
}

} // namespace test
