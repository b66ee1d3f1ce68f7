/// Makes texts with sizes in millimetres.
#pragma once

#include "shapedocument_export.h"

#include "text/TextParameters.h"

#include <memory>
#include <optional>
#include <string>

class CShapeText;

namespace shapedocument {

/// Font, size and layout of a text.
struct TextSetting
{
    std::string family = "Arial";                    ///< of the font, UTF-8, as many bytes as documents keep
    double size = 10;                                ///< mm
    double charSpacing = 0;                          ///< mm, between letters
    double lineSpacing = 0;                          ///< mm, between lines
    ETEXTALIGNMENT_MODE align = ETEXTALIGNMENT_LEFT; ///< of the lines
    bool bold = false;                               ///< a bold face
    bool italic = false;                             ///< an italic face
    bool vertical = false;                           ///< characters run down columns
};

// Limits of the sizes.
constexpr double kSmallestText = 0.01;    ///< mm, height of the font
constexpr double kLargestText = 10'000;   ///< mm, height of the font
constexpr double kWidestSpacing = 10'000; ///< mm, added or taken away between letters, or lines

/// Most bytes of a text that documents keep; longer ones are cut.
constexpr size_t kLongestText = TEXT_BUFFER_SIZE - 1;
/// Most bytes of a family that documents keep.
constexpr size_t kLongestFamily = sizeof(STextFont::szFamily) - 1;

/// The setting that would make a text like this one. Cost: O(1).
SHAPEDOCUMENT_EXPORT TextSetting SettingOf(CShapeText& shape);

/// Sets content (UTF-8), and setting if given. Centre, angle and mirrors stay. The line ends of other systems become
/// line feeds. Cost: a layout.
SHAPEDOCUMENT_EXPORT void SetText(CShapeText& shape, const std::string& content,
                                  const std::optional<TextSetting>& setting);

/// A text with the upper left corner of its rectangle at (0, 0). Cost: two layouts.
SHAPEDOCUMENT_EXPORT std::unique_ptr<CShapeText> NewText(const std::string& content, const TextSetting& setting);

} // namespace shapedocument
