#include "text/TextFont.h"

#include "text/TextParameters.h"

#include <QTextCodec>

#include <cmath>
#include <cstring>
#include <limits>

namespace shapes {

namespace {

QString FamilyName(const STextFont& font)
{
    const auto length = static_cast<int>(strnlen(font.szFamily, sizeof font.szFamily - 1));
    return QTextCodec::codecForName("utf-8")->toUnicode(font.szFamily, length);
}

} // namespace

int WholePixels(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double kLowest = std::numeric_limits<int>::min();
    constexpr double kHighest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, kLowest, kHighest));
}

QFont MakeFont(const STextFont& parameters)
{
    const int size = WholePixels(parameters.dSize);
    QFont font(FamilyName(parameters), size, QFont::Bold, false);
    if (size > 0)
        font.setPixelSize(size);
    if (parameters.bVerticalText)
        font.setHintingPreference(QFont::PreferVerticalHinting);
    font.setBold(parameters.bBold);
    font.setItalic(parameters.bItalic);
    font.setUnderline(parameters.bUnderline && !parameters.bVerticalText);
    return font;
}

} // namespace shapes
