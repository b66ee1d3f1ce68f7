#include "text/TextParameters.h"

#include <cstring>

SText::SText() : pText(new char[TEXT_BUFFER_SIZE]()) {}

SText::SText(const SText& other) : SText()
{
    *this = other;
}

SText& SText::operator=(const SText& other)
{
    if (this == &other)
        return *this;
    dAngle = other.dAngle;
    font = other.font;
    ptCenter = other.ptCenter;
    bMirrorX = other.bMirrorX;
    bMirrorY = other.bMirrorY;
    // bMirrorLine and bMirrorAttach belong to the shape that is waiting to carry them out.
    dScaleX = other.dScaleX;
    dScaleY = other.dScaleY;
    dCharSpacing = other.dCharSpacing;
    dLineSpacing = other.dLineSpacing;
    nAlign = other.nAlign;
    nReserved = other.nReserved;
    // Zeros behind the terminator; a source without one makes a copy without one.
    if (!pText)
        pText = new char[TEXT_BUFFER_SIZE](); // A host may have taken the buffer away.
    std::strncpy(pText, other.pText ? other.pText : "", TEXT_BUFFER_SIZE);
    return *this;
}

SText::~SText()
{
    delete[] pText;
}
