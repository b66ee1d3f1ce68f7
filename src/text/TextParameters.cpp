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
    // bMirrorLine and bMirrorAttach are not copied: they belong to the shape that is to carry them out.
    dScaleX = other.dScaleX;
    dScaleY = other.dScaleY;
    dCharSpacing = other.dCharSpacing;
    dLineSpacing = other.dLineSpacing;
    nAlign = other.nAlign;
    nReserved = other.nReserved;
    // Zeros behind the terminator; a source without one makes a copy without one.
    if (!pText || m_bShort) { // A host may have set pText to null.
        auto* text = new char[TEXT_BUFFER_SIZE]();
        delete[] pText;
        pText = text;
        m_bShort = false;
    }
    std::strncpy(pText, other.pText ? other.pText : "", TEXT_BUFFER_SIZE);
    return *this;
}

SText::~SText()
{
    delete[] pText;
}

/// Shortens the buffer to the text, unless a host may hold its address.
void SText::Shrink()
{
    if (m_bLent)
        return;
    const size_t length = strnlen(pText, TEXT_BUFFER_SIZE - 1);
    auto* text = new char[length + 1]();
    std::memcpy(text, pText, length);
    delete[] pText;
    pText = text;
    m_bShort = true;
}

/// Gives the buffer its full size back.
void SText::Widen()
{
    if (!m_bShort && pText)
        return;
    auto* text = new char[TEXT_BUFFER_SIZE]();
    if (pText)
        std::strcpy(text, pText);
    delete[] pText;
    pText = text;
    m_bShort = false;
}

/// To be called before a host gets the address: from then on the buffer keeps its full size.
void SText::Lend()
{
    Widen();
    m_bLent = true;
}
