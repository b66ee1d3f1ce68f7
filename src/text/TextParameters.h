/// SText and STextFont, the parameters that a text shape lays its outline out from.
#pragma once

#include "shapemodel_export.h"

#include <QPointF>

#include <cstddef>
#include <cstdint>

class CShapeText;

/// Horizontal alignment of the lines of a text. Any stored number may be held; those not listed mean left.
enum ETEXTALIGNMENT_MODE : int32_t
{
    ETEXTALIGNMENT_DEFAULT = 0, ///< left
    ETEXTALIGNMENT_LEFT = 1,    ///< left edges on the leftmost one
    ETEXTALIGNMENT_CENTER = 2,  ///< every line's centre on that of the *first* line, however wide the others are
    ETEXTALIGNMENT_RIGHT = 3    ///< right edges on the rightmost one
};

/// Font and writing direction of a text.
struct STextFont
{
    char szFamily[64] = "Arial";     ///< family name, UTF-8, at most 63 bytes; hosts fill it in place
    uint8_t bBold = 0;               ///< bold face
    uint8_t bItalic = 0;             ///< italic face
    uint8_t bUnderline = 0;          ///< not stored; in vertical writing a stroke beside the column
    double dSize = 14.761;           ///< pixel size of the font; its fraction is dropped when the font is made
    uint8_t bVerticalText = 0;       ///< characters run down a column, lines become columns
    uint8_t bColumnsLeftToRight = 0; ///< not stored; vertical writing: further columns to the right (1) or left (0)
};

/// Parameters of a text. Lengths "in font pixels" are those of the layout, before dScaleX is applied.
///
/// Copies own a buffer of their own and carry everything but the two pending mirrors: a copy starts without them, and
/// assignment leaves those of its target alone.
struct SHAPEMODEL_EXPORT SText
{
    SText();
    /// A deep copy, without pending mirrors. Cost: O(1), 16 KiB copied.
    SText(const SText& other);
    /// A deep copy; the pending mirrors of this text stay. Cost: O(1), 16 KiB copied.
    SText& operator=(const SText& other);
    ~SText();

    char* pText;       ///< owned buffer of 16,384 bytes: UTF-8, lines separated by line feeds; hosts fill it in place
    STextFont font;    ///< the one font of all characters
    double dAngle = 0; ///< degrees about ptCenter, positive clockwise as seen on screen
    uint8_t bMirrorX = 0;      ///< glyphs mirrored left to right about the text's centre
    uint8_t bMirrorY = 0;      ///< glyphs mirrored top to bottom about the text's centre
    uint8_t bMirrorLine = 0;   ///< a mirror across a free line is pending
    uint8_t bMirrorAttach = 0; ///< a mirror across an attach line is pending
    QPointF ptCenter;          ///< centre of the text's bounding box before it is turned by dAngle, model units
    double dScaleX = 1.0;      ///< scale of the outline in both directions: model units per font pixel
    double dScaleY = 1.0;      ///< stored, resized and converted like dScaleX; the outline does not use it
    double dCharSpacing = 0;   ///< added behind every character, font pixels
    double dLineSpacing = 0;   ///< added to every line's baseline, font pixels
    ETEXTALIGNMENT_MODE nAlign = ETEXTALIGNMENT_DEFAULT; ///< of the lines; in vertical writing of the columns
    int32_t nReserved = 0;                               ///< the host's own: stored and copied, never interpreted

private:
    friend class CShapeText;

    void Shrink();
    void Widen();
    void Lend();

    bool m_bShort = false; ///< pText ends with its terminating zero
    bool m_bLent = false;  ///< a host may hold the address of these parameters; not copied
};

/// Bytes of SText::pText, the terminating zero included.
inline constexpr std::size_t TEXT_BUFFER_SIZE = 16384;
