/// CShapeText, a text drawn as glyph outlines and kept as text.
#pragma once

#include "text/TextParameters.h"
#include "vector/ShapeVector.h"

#include <QSizeF>

/// A text. Its painter path is laid out from its SText whenever a parameter has changed; transforms change parameters
/// and never the outline, so that the text stays text. The points of CShape are not drawn; a record may hold some, and
/// when a mirror flag has changed, the next rebuild mirrors them, once.
///
/// **Place.** The layout is mirrored as bMirrorX and bMirrorY say, scaled by dScaleX in both directions, its bounding
/// box centred on ptCenter, then turned by dAngle about ptCenter. A text that draws nothing is a single move-to at
/// ptCenter.
///
/// **Line mirrors.** A mirror across an attach line or a free line is pending in bMirrorAttach or bMirrorLine until the
/// next rebuild without temporary path carries it out: the text's centre moves across the line, a mirror flag and the
/// angle do the rest. MirrorFixedOrMovingLine says where the result is not the mirror image.
///
/// A family that is not installed is replaced by Qt's choice. Fonts need a QGuiApplication.
///
/// **Costs.** A layout is O(letters) calls of the font engine; columns and texts of several lines that are not
/// left-aligned take two for each letter. Every copy of the parameters takes their 16 KiB. The rest is O(1) unless said
/// below; what needs the outline lays it out first where it is missing.
class SHAPEMODEL_EXPORT CShapeText : public CShapeVector
{
public:
    /// Empty text, family "Arial", size 20.
    CShapeText();
    /// Copies own their text buffer and start without painter path and without pending mirrors.
    CShapeText(const CShapeText&);
    /// The same, but the target keeps its pending mirrors, across the source's lines.
    CShapeText& operator=(const CShapeText&);
    ~CShapeText() override;

    /// A deep copy of the parameters, 16 KiB of text included. Cost: O(1), 16 KiB copied.
    SText GetText();
    /// The shape's own parameters, never null. Call UpdatePainterPath after a change. The address and the buffer stay
    /// the same for the shape's life, through SetText, Copy, assignment and Read.
    /// Cost: a layout where one is due after Read, else O(1).
    SText* GetTextP();
    /// Copies the parameters and lays the text out. Cost: a layout.
    void SetText(SText& text);
    /// Not measured: always the invalid size (-1, -1).
    QSizeF MeasureSize(SText& text);

    /// Converts centre and scales from pixels to millimetres (k: millimetres per pixel; origin: millimetres). The
    /// painter path stays as it is. The line of a pending mirror is converted as the centre is. A factor of 0 or NaN
    /// changes nothing.
    void PixToMm(double k, QPointF origin);
    /// The same from millimetres to pixels; adds 0.49 pixel to both coordinates of the centre.
    void MmToPix(double k, QPointF origin);

    /// The vector shape's record, then text and parameters without underline, column direction and pending mirrors.
    /// When there is neither painter path nor temporary path, pending mirrors are carried out first.
    /// Cost: O(bytes), and a layout where a mirror is pending.
    int Save(QFile* file) override;
    /// Reads the fields that the version carries; the others keep their values. The text is laid out when its painter
    /// path is first needed. Version 0 ends with the size; in versions 0 and 1 the text's centre is that of the outline
    /// of the record's points. Strings longer than the buffers are cut. Cost: O(bytes).
    int Read(QFile* file, int version) override;
    /// Copies parameters and painter path. A source without painter path builds it, which carries out its pending
    /// mirrors; the target's own stay pending. False, and nothing changed, unless src is a text.
    /// Cost: O(1), 16 KiB copied; a layout where the source has none.
    bool Copy(CShape* src) override;
    /// Whether the text's rectangle holds p; the scale has no effect.
    bool Contains(QPointF p, double scale) override;
    /// Moves ptCenter and lays the text out at once. Cost: a layout.
    bool Offset(double dx, double dy) override;
    /// Scales by target's size over that of GetRect(false) and moves ptCenter to target's centre. A scale that would
    /// become 0 or not finite stays as it is.
    bool Resize(QRectF target) override;
    bool RotateLeft(QPointF centre) override;
    bool RotateRight(QPointF centre) override;
    /// Moves ptCenter about centre and adds angle (degrees) to dAngle, which stays within 0 to 360, both included.
    /// Cost: a layout.
    bool Rotate(double angle, QPointF centre, Qt::Axis axis) override;
    /// Texts mirror in place, about their own centre, whatever the axis.
    bool MirrorX(double axis) override;
    bool MirrorY(double axis) override;
    /// Makes a mirror pending for the next rebuild, or cancels a pending one of its kind. p1 and p2 are rounded to
    /// whole units, the slope is that of the points as given. False for non-finite arguments.
    ///
    /// **Not always the mirror image.** Existing documents depend on these results, so they stay:
    /// - An oblique line that rises to the right as seen on screen: the letters are turned by 4 times the line's
    ///   inclination, upside down at 45 degrees. Lines that fall to the right, horizontal and vertical ones give the
    ///   letters of the mirror image, whichever way the line runs.
    /// - Two equal points: the centre is mirrored across the horizontal through them, the letters left to right.
    /// - Any line, attach lines too: ptCenter becomes the centre of the mirrored outline's rectangle, not its own
    ///   mirror image. At angles other than quarter turns this shifts the text, a word by a few hundredths of its
    ///   length.
    ///
    /// For the exact mirror image across any line through p at t degrees (positive clockwise as seen on screen), change
    /// the parameters instead: with GetTextP, reflect ptCenter across the line, invert bMirrorY, set dAngle to
    /// 2 t - dAngle, then call UpdatePainterPath.
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit) override;
    /// The same across the line x = value (bVertical) or y = value.
    bool MirrorAttachLine(double value, bool bVertical) override;
    /// True: text outlines count as closed.
    bool IsClose() override;
    /// Generates the outline's micro lines anew. Empty, with a log line, for more than 8 million of them and when
    /// memory runs out. Cost: O(elements of the outline, and micro lines).
    /// @param tolerance ignored: fineness is fixed, curves are flattened at a magnification of 1000
    std::vector<QLineF> Flatten(double tolerance) override;
    /// Whether p lies in GetRect(false) and nearer to the micro lines than tolerance, as CShapeVector::Hit; only micro
    /// lines near p are made, and none is kept. Cost: O(1) away from the rectangle, else O(elements of the outline).
    bool Hit(QPointF p, int& tolerance) override;
    ESHAPE_TYPE GetShapeType() override;
    CShape* Clone() override;
    /// Always lays the text out anew and carries out pending mirrors. Cost: a layout.
    void UpdatePainterPath() override;

    /// A virtual slot of its own: lays the text out and returns whether its rectangle holds p; part is never written.
    /// Cost: a layout.
    virtual bool Hit(QPoint p, int& part);

private:
    SHAPEMODEL_NO_EXPORT void TextToPath();
    SHAPEMODEL_NO_EXPORT void PlaceOutline();
    SHAPEMODEL_NO_EXPORT void MirrorX();
    SHAPEMODEL_NO_EXPORT void MirrorY();
    bool HasMirrorX() const { return m_text.bMirrorX != 0; }
    bool HasMirrorY() const { return m_text.bMirrorY != 0; }
    bool HasPendingMirror() const { return m_text.bMirrorAttach || m_text.bMirrorLine; }
    SHAPEMODEL_NO_EXPORT void MirrorPoints();
    SHAPEMODEL_NO_EXPORT void NotePointsAsDrawn();
    SHAPEMODEL_NO_EXPORT bool ArePointsBehind() const;
    SHAPEMODEL_NO_EXPORT void CarryOutMirrors();
    SHAPEMODEL_NO_EXPORT void MirrorAttachLine();
    SHAPEMODEL_NO_EXPORT void MirrorFixedOrMovingLine();
    SHAPEMODEL_NO_EXPORT bool MoveCentreAcross(const QTransform& mirror);
    SHAPEMODEL_NO_EXPORT void TurnAcrossAttachLine();
    SHAPEMODEL_NO_EXPORT void TurnAcrossFreeLine();
    SHAPEMODEL_NO_EXPORT bool RotateBefore(double angle, QPointF centre);
    template <class Convert>
    SHAPEMODEL_NO_EXPORT void AdoptPlace(double scaleX, double scaleY, Convert convert);
    SHAPEMODEL_NO_EXPORT QPointF StoredOutlineCentre() const;
    SHAPEMODEL_NO_EXPORT bool CanDeferLayout() const;
    SHAPEMODEL_NO_EXPORT std::vector<SHAPE_VECTOR_PATHDATA> GenTextMicroLine();

    SText m_text;
    double dAttachLine = 0; ///< of the last MirrorAttachLine, with bAttachLineFlag
    uint8_t bAttachLineFlag = 0;
    QPointF ptMirrorLine1; ///< of the last MirrorFixedOrMovingLine
    QPointF ptMirrorLine2;
    QLineF m_mirrorAxis; ///< the same points, rounded when they were given; converted by PixToMm and MmToPix
};
