#include "TextOptions.h"

#include "Messages.h"
#include "text/ShapeText.h"

#include <CLI/CLI.hpp>
#include <QString>

#include <cstring>
#include <map>

namespace {

/// Texts are laid out at this pixel size and scaled to millimetres: font sizes are whole pixels, and hints of small ones
/// would show in the outline.
constexpr double kLayoutSize = 100;

constexpr size_t kFamilySize = sizeof(STextFont::szFamily);

const std::map<std::string, ETEXTALIGNMENT_MODE> kAlignments = {
    {"left", ETEXTALIGNMENT_LEFT}, {"center", ETEXTALIGNMENT_CENTER}, {"right", ETEXTALIGNMENT_RIGHT}};

/// Accepts at most `bytes` bytes without a zero among them.
CLI::Validator ShorterThan(size_t bytes)
{
    return CLI::Validator(
        [bytes](std::string& text) {
            return text.size() < bytes ? std::string() : "longer than " + std::to_string(bytes - 1) + " bytes";
        },
        "");
}

/// Accepts a number from low to high; what is no number lies nowhere.
CLI::Validator Between(double low, double high)
{
    return CLI::Validator(
        [low, high](std::string& text) {
            double value = 0;
            const bool within = CLI::detail::lexical_cast(text, value) && value >= low && value <= high;
            return within ? std::string() : QString("not from %1 to %2").arg(low).arg(high).toStdString();
        },
        "");
}

/// A backslash and an n, as a shell passes them on, become a line feed, and so do the line ends of other systems: a
/// carriage return starts no line, and the lines behind it would be drawn over each other.
std::string WithLineFeeds(const std::string& text)
{
    return QString::fromStdString(text).replace("\\n", "\n").replace("\r\n", "\n").replace('\r', '\n').toStdString();
}

} // namespace

void AddTextOptions(CLI::App& command, TextOptions& options)
{
    command.add_option("--text", options.text, "a text, below the drawings; \\n starts a new line")
        ->check(ShorterThan(TEXT_BUFFER_SIZE));
    command.add_option("--font", options.font, "family of the text's font")
        ->check(ShorterThan(kFamilySize))
        ->capture_default_str();
    command.add_option("--size", options.size, "size of the font in mm")
        ->check(Between(0.01, 10000.0))
        ->capture_default_str();
    command.add_flag("--bold", options.bold);
    command.add_flag("--italic", options.italic);
    command.add_flag("--underline", options.underline, "documents do not keep it");
    command.add_flag("--vertical", options.vertical, "characters run down columns, further columns to the left");
    command.add_option("--align", options.align, "left, center (on the first line) or right")
        ->check(CLI::IsMember(kAlignments))
        ->capture_default_str();
    command.add_option("--spacing", options.spacing, "added between letters, mm")->check(Between(-10000.0, 10000.0));
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
