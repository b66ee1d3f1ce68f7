/// A text given on the command line.
#pragma once

#include "text/TextParameters.h"

#include <QString>

#include <memory>
#include <string>

class CommandArguments;
class CShapeText;

struct TextOptions
{
    std::string text; ///< empty: no text
    std::string font = "Arial";
    double size = 10;   ///< mm
    double spacing = 0; ///< mm, between letters
    std::string align = "left";
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool vertical = false;
};

void AddTextOptions(CommandArguments& command, TextOptions& options);

/// "left", "center" or "right"; "left" for unknown ones.
QString AlignmentName(ETEXTALIGNMENT_MODE mode);

/// The text with the upper left corner of its rectangle at (0, 0); not underlined, for documents do not keep that.
std::unique_ptr<CShapeText> NewText(const TextOptions& options);
