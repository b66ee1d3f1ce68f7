#include "TextOptions.h"

#include "CommandLine.h"
#include "document/TextShape.h"

#include "text/ShapeText.h"

#include <map>

namespace {

const std::map<std::string, ETEXTALIGNMENT_MODE> kAlignments = {
    {"left", ETEXTALIGNMENT_LEFT}, {"center", ETEXTALIGNMENT_CENTER}, {"right", ETEXTALIGNMENT_RIGHT}};

/// Replaces the two characters \n, as shells pass them on, by line feeds.
std::string WithLineFeeds(const std::string& text)
{
    return QString::fromStdString(text).replace("\\n", "\n").toStdString();
}

} // namespace

void AddTextOptions(CommandArguments& command, TextOptions& options)
{
    using namespace shapedocument;
    constexpr Range kSizes{kSmallestText, kLargestText};
    constexpr Range kSpacings{-kWidestSpacing, kWidestSpacing};
    command.AddText("--text=TEXT", options.text, "a text, below the drawings; \\n starts a new line",
                    shapedocument::kLongestText);
    command.AddText("--font=FAMILY", options.font, "family of the text's font", shapedocument::kLongestFamily);
    command.AddNumber("--size=MM", options.size, kSizes, "size of the font");
    command.AddFlag("--bold", options.bold, "a bold font");
    command.AddFlag("--italic", options.italic, "an italic font");
    command.AddFlag("--underline", options.underline, "documents do not keep it");
    command.AddFlag("--vertical", options.vertical, "characters run down columns, further columns to the left");
    command.AddChoice("--align", options.align, {"left", "center", "right"}, "of the lines, center: on the first line");
    command.AddNumber("--spacing=MM", options.spacing, kSpacings, "added between letters");
}

QString AlignmentName(ETEXTALIGNMENT_MODE mode)
{
    for (const auto& [name, known] : kAlignments)
        if (known == mode)
            return QString::fromStdString(name);
    return "left";
}

std::unique_ptr<CShapeText> NewText(const TextOptions& options)
{
    shapedocument::TextSetting setting;
    setting.family = options.font;
    setting.size = options.size;
    setting.charSpacing = options.spacing;
    setting.align = kAlignments.at(options.align);
    setting.bold = options.bold;
    setting.italic = options.italic;
    setting.vertical = options.vertical;
    return shapedocument::NewText(WithLineFeeds(options.text), setting);
}
