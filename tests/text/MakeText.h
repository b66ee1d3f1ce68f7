/// Text parameters, and texts, in one expression.
#pragma once

#include "text/ShapeText.h"

#include <cstring>
#include <memory>
#include <string>

namespace test {

inline SText MakeText(const std::string& text, const std::string& family = "Liberation Sans", double size = 20)
{
    SText parameters;
    std::strncpy(parameters.pText, text.c_str(), TEXT_BUFFER_SIZE - 1);
    std::strncpy(parameters.font.szFamily, family.c_str(), sizeof parameters.font.szFamily - 1);
    parameters.font.dSize = size;
    return parameters;
}

/// A text of that class with these parameters.
template <class Text = CShapeText>
std::unique_ptr<Text> TextOf(SText parameters)
{
    auto shape = std::make_unique<Text>();
    shape->SetText(parameters);
    return shape;
}

/// 20 high.
template <class Text = CShapeText>
std::unique_ptr<Text> TextAt(QPointF centre, double angle = 0, const char* letters = "Fj")
{
    SText parameters = MakeText(letters);
    parameters.ptCenter = centre;
    parameters.dAngle = angle;
    return TextOf<Text>(parameters);
}

} // namespace test
