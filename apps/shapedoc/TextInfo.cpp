#include "TextInfo.h"

#include "TextOptions.h"

#include <QStringList>

using namespace shapedocument;

namespace {

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

QStringList StyleNames(const TextFacts& text)
{
    const struct
    {
        bool on;
        const char* name;
    } styles[] = {{text.setting.bold, "bold"},
                  {text.setting.italic, "italic"},
                  {text.setting.vertical, "vertical"},
                  {text.mirrorX, "mirrored in x"},
                  {text.mirrorY, "mirrored in y"}};
    QStringList names;
    for (const auto& style : styles)
        if (style.on)
            names << style.name;
    return names;
}

} // namespace

QJsonObject TextJson(const TextFacts& text)
{
    const TextSetting& setting = text.setting;
    return {{"text", text.content},
            {"font", QString::fromStdString(setting.family)},
            {"size", setting.size},
            {"bold", setting.bold},
            {"italic", setting.italic},
            {"vertical", setting.vertical},
            {"align", AlignmentName(setting.align)},
            {"charSpacing", setting.charSpacing},
            {"lineSpacing", setting.lineSpacing},
            {"angle", text.angle},
            {"centre", QJsonObject{{"x", text.centre.x()}, {"y", text.centre.y()}}},
            {"mirrorX", text.mirrorX},
            {"mirrorY", text.mirrorY}};
}

QString TextLine(const TextFacts& text)
{
    const TextSetting& setting = text.setting;
    const auto number = [](double value) { return QString::number(value, 'g', 6); };
    QStringList parts{Visible(QString::fromStdString(setting.family)) + " " + number(setting.size) + " mm"};
    parts += StyleNames(text);
    parts << AlignmentName(setting.align);
    if (setting.charSpacing != 0)
        parts << "letters " + number(setting.charSpacing) + " mm apart";
    if (setting.lineSpacing != 0)
        parts << "lines " + number(setting.lineSpacing) + " mm apart";
    if (text.angle != 0)
        parts << "turned by " + number(text.angle) + " degrees";
    return "\"" + Visible(text.content) + "\": " + parts.join(", ");
}
