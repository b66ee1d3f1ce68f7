/// Feed, power, passes and order of the lines of each colour.
#pragma once

#include "shapedocument_export.h"

#include <QByteArray>
#include <QString>

#include <limits>
#include <map>
#include <optional>

namespace shapedocument {

/// What is absent is taken from the options that hold for all colours.
struct ColorSetting
{
    /// The order of colours that are given none.
    static constexpr int kLastOrder = std::numeric_limits<int>::max();

    std::optional<double> feed;  ///< mm per minute
    std::optional<double> power; ///< S word
    std::optional<int> passes;   ///< how often each line is followed
    int order = kLastOrder; ///< colours of a lower order are cut first; those of one order stay as they are in the job
};

/// By colour, 0xRRGGBB.
using ColorSettings = std::map<unsigned int, ColorSetting>;

/// An INI file with a section "[#rrggbb]" per colour and the keys feed, power, passes and order. Throws Failure, naming
/// the file and the line, where it cannot be read or holds anything else, or one of them twice. Cost: O(bytes).
SHAPEDOCUMENT_EXPORT ColorSettings ReadColorSettings(const QString& file);

/// The text of such a file, which ReadColorSettings reads back: colours by their number, and of each the keys that are
/// set. Cost: O(colours).
SHAPEDOCUMENT_EXPORT QByteArray ColorSettingsText(const ColorSettings& colors);

/// The setting of a shape's colour, of which the lowest 24 bits count; an empty one where the colour has none. Cost:
/// O(log colours).
SHAPEDOCUMENT_EXPORT ColorSetting SettingOf(const ColorSettings& colors, unsigned int color);

} // namespace shapedocument
