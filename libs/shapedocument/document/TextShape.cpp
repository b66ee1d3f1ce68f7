#include "document/TextShape.h"

#include "text/ShapeText.h"

#include <QString>

#include <algorithm>
#include <cstring>

namespace shapedocument {

namespace {

/// Texts are laid out at this pixel size and scaled to millimetres: font sizes are whole pixels, and hints of small
/// ones would show in the outline.
constexpr double kLayoutSize = 100;

/// A carriage return does not start a line, so the lines would be drawn over each other.
std::string WithLineFeeds(const std::string& text)
{
    return QString::fromStdString(text).replace("\r\n", "\n").replace('\r', '\n').toStdString();
}

/// As much of UTF-8 text as documents keep, whole letters only: a letter's further bytes begin with the bits 10.
std::string Kept(std::string text)
{
    size_t count = std::min(text.size(), kLongestText);
    while (count > 0 && count < text.size() && (static_cast<unsigned char>(text[count]) & 0xC0) == 0x80)
        --count;
    text.resize(count);
    return text;
}

void Adopt(SText& text, const TextSetting& setting)
{
    std::strncpy(text.font.szFamily, setting.family.c_str(), kLongestFamily);
    text.font.szFamily[kLongestFamily] = 0;
    text.font.dSize = kLayoutSize;
    text.font.bBold = setting.bold;
    text.font.bItalic = setting.italic;
    text.font.bVerticalText = setting.vertical;
    text.dScaleX = text.dScaleY = setting.size / kLayoutSize;
    text.dCharSpacing = setting.charSpacing / text.dScaleX;
    text.dLineSpacing = setting.lineSpacing / text.dScaleX;
    text.nAlign = setting.align;
}

} // namespace

TextSetting SettingOf(CShapeText& shape)
{
    const SText text = shape.GetText();
    TextSetting setting;
    setting.family.assign(text.font.szFamily, strnlen(text.font.szFamily, kLongestFamily)); // hosts fill it in place
    setting.size = text.font.dSize * text.dScaleX;
    setting.charSpacing = text.dCharSpacing * text.dScaleX;
    setting.lineSpacing = text.dLineSpacing * text.dScaleX;
    setting.align = text.nAlign;
    setting.bold = text.font.bBold;
    setting.italic = text.font.bItalic;
    setting.vertical = text.font.bVerticalText;
    return setting;
}

void SetText(CShapeText& shape, const std::string& content, const std::optional<TextSetting>& setting)
{
    SText text = shape.GetText();
    std::strncpy(text.pText, Kept(WithLineFeeds(content)).c_str(), kLongestText);
    if (setting)
        Adopt(text, *setting);
    shape.SetText(text);
}

std::unique_ptr<CShapeText> NewText(const std::string& content, const TextSetting& setting)
{
    auto shape = std::make_unique<CShapeText>();
    SetText(*shape, content, setting);
    const QPointF corner = shape->GetRect(false).topLeft();
    shape->Offset(-corner.x(), -corner.y());
    return shape;
}

} // namespace shapedocument
