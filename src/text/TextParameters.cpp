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
    if (!pText || m_bShort) { // A host may have taken the buffer away.
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

/// Keeps the text in no more room than it needs, unless a host may write into the whole of it.
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

/// Gives the text its whole buffer back.
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

/// Before a host gets the address: from now on the buffer stays whole.
void SText::Lend()
{
    Widen();
    m_bLent = true;
}
