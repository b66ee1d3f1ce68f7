#include "TextInfo.h"

#include "text/ShapeText.h"

#include <QStringList>

#include <cstring>

namespace {

/// The text in a buffer up to its terminator, at most capacity - 1 bytes.
QString Held(const char* buffer, size_t capacity)
{
    return QString::fromUtf8(buffer, static_cast<qsizetype>(strnlen(buffer, capacity - 1)));
}

QString Visible(const QString& text)
{
    QString visible;
    for (const QChar letter : text) {
        if (letter == u'\n')
            visible += "\\n";
        else if (letter == u'\r')
            visible += "\\r";
        else if (letter == u'\t')
            visible += "\\t";
        else if (letter.isPrint() || letter.isSurrogate())
            visible += letter;
        else
            visible += QString("\\u%1").arg(letter.unicode(), 4, 16, QChar('0'));
    }
    return visible;
}

QString AlignmentName(ETEXTALIGNMENT_MODE mode)
{
    switch (mode) {
    case ETEXTALIGNMENT_CENTER:
        return "center";
    case ETEXTALIGNMENT_RIGHT:
        return "right";
    default:
        return "left";
    }
}

QStringList StyleNames(const SText& text)
{
    const struct
    {
        bool on;
        const char* name;
    } styles[] = {{text.font.bBold != 0, "bold"},
                  {text.font.bItalic != 0, "italic"},
                  {text.font.bVerticalText != 0, "vertical"},
                  {text.bMirrorX != 0, "mirrored in x"},
                  {text.bMirrorY != 0, "mirrored in y"}};
    QStringList names;
    for (const auto& style : styles)
        if (style.on)
            names << style.name;
    return names;
}

/// Font pixels converted to mm.
double Length(const SText& text, double pixels)
{
    return pixels * text.dScaleX;
}

} // namespace

QJsonObject TextJson(CShapeText& shape)
{
    const SText text = shape.GetText(); // a copy: parameters that are lent keep a large buffer
    return {{"text", Held(text.pText, TEXT_BUFFER_SIZE)},
            {"font", Held(text.font.szFamily, sizeof text.font.szFamily)},
            {"size", Length(text, text.font.dSize)},
            {"bold", text.font.bBold != 0},
            {"italic", text.font.bItalic != 0},
            {"vertical", text.font.bVerticalText != 0},
            {"align", AlignmentName(text.nAlign)},
            {"charSpacing", Length(text, text.dCharSpacing)},
            {"lineSpacing", Length(text, text.dLineSpacing)},
            {"angle", text.dAngle},
            {"centre", QJsonObject{{"x", text.ptCenter.x()}, {"y", text.ptCenter.y()}}},
            {"mirrorX", text.bMirrorX != 0},
            {"mirrorY", text.bMirrorY != 0}};
}

QString TextLine(CShapeText& shape)
{
    const SText text = shape.GetText();
    const auto number = [](double value) { return QString::number(value, 'g', 6); };
    QStringList parts{Visible(Held(text.font.szFamily, sizeof text.font.szFamily)) + " " +
                      number(Length(text, text.font.dSize)) + " mm"};
    parts += StyleNames(text);
    parts << AlignmentName(text.nAlign);
    if (text.dCharSpacing != 0)
        parts << "letters " + number(Length(text, text.dCharSpacing)) + " mm apart";
    if (text.dLineSpacing != 0)
        parts << "lines " + number(Length(text, text.dLineSpacing)) + " mm apart";
    if (text.dAngle != 0)
        parts << "turned by " + number(text.dAngle) + " degrees";
    return "\"" + Visible(Held(text.pText, TEXT_BUFFER_SIZE)) + "\": " + parts.join(", ");
}
