#include "TextOptions.h"

#include "CommandLine.h"
#include "text/ShapeText.h"

#include <QString>

#include <cstring>
#include <map>

namespace {

/// Texts are laid out at this pixel size and scaled to millimetres: font sizes are whole pixels, and hints of small
/// ones would show in the outline.
constexpr double kLayoutSize = 100;

constexpr size_t kFamilySize = sizeof(STextFont::szFamily);

const std::map<std::string, ETEXTALIGNMENT_MODE> kAlignments = {
    {"left", ETEXTALIGNMENT_LEFT}, {"center", ETEXTALIGNMENT_CENTER}, {"right", ETEXTALIGNMENT_RIGHT}};

/// Replaces the two characters \n, as shells pass them on, and the line ends of other systems by line feeds: a carriage
/// return does not start a line, so the lines would be drawn over each other.
std::string WithLineFeeds(const std::string& text)
{
    return QString::fromStdString(text).replace("\\n", "\n").replace("\r\n", "\n").replace('\r', '\n').toStdString();
}

} // namespace

void AddTextOptions(CommandArguments& command, TextOptions& options)
{
    constexpr Range kSizes{0.01, 10'000};
    constexpr Range kSpacings{-10'000, 10'000};
    command.AddText("--text=TEXT", options.text, "a text, below the drawings; \\n starts a new line",
                    TEXT_BUFFER_SIZE - 1);
    command.AddText("--font=FAMILY", options.font, "family of the text's font", kFamilySize - 1);
    command.AddNumber("--size=MM", options.size, kSizes, "size of the font");
    command.AddFlag("--bold", options.bold, "a bold font");
    command.AddFlag("--italic", options.italic, "an italic font");
    command.AddFlag("--underline", options.underline, "documents do not keep it");
    command.AddFlag("--vertical", options.vertical, "characters run down columns, further columns to the left");
    command.AddChoice("--align", options.align, {"left", "center", "right"}, "of the lines, center: on the first line");
    command.AddNumber("--spacing=MM", options.spacing, kSpacings, "added between letters");
}

std::unique_ptr<CShapeText> NewText(const TextOptions& options)
{
    SText text;
    std::strncpy(text.pText, WithLineFeeds(options.text).c_str(), TEXT_BUFFER_SIZE - 1);
    std::strncpy(text.font.szFamily, options.font.c_str(), kFamilySize - 1);
    text.font.szFamily[kFamilySize - 1] = 0;
    text.font.dSize = kLayoutSize;
    text.font.bBold = options.bold;
    text.font.bItalic = options.italic;
    text.font.bVerticalText = options.vertical;
    text.dScaleX = text.dScaleY = options.size / kLayoutSize;
    text.dCharSpacing = options.spacing / text.dScaleX;
    text.nAlign = kAlignments.at(options.align);

    auto shape = std::make_unique<CShapeText>();
    shape->SetText(text);
    const QPointF corner = shape->GetRect(false).topLeft();
    shape->Offset(-corner.x(), -corner.y());
    return shape;
}
