/// Text parameters in one expression.
#pragma once

#include "text/TextParameters.h"

#include <cstring>
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

} // namespace test
