/// CShapeText, a text drawn as glyph outlines and kept as text.
#pragma once

#include "text/TextParameters.h"
#include "vector/ShapeVector.h"

#include <QSizeF>

/// A text. Its painter path is laid out from its SText whenever a parameter has changed; transforms change parameters
/// and never the outline, so that the text stays text. The points of CShape are not drawn; a record may bring some, and
/// the rebuild that mirrors the text, or no longer does, mirrors them once.
///
/// **Place.** The layout is mirrored as bMirrorX and bMirrorY say, scaled by dScaleX in both directions, its bounding box
/// centred on ptCenter, then turned by dAngle about ptCenter. A text that draws nothing is a single move-to at ptCenter.
///
/// **Line mirrors.** A mirror across an attach line or a free line waits in bMirrorAttach or bMirrorLine and is carried
/// out once, by the next rebuild that finds no temporary path: the text's centre moves across the line, and a mirror
/// flag and the angle take over the rest. MirrorFixedOrMovingLine says where the outcome is not the mirror image.
///
/// A family that is not installed is replaced by the platform's choice. Fonts need a QGuiApplication.
class SHAPEMODEL_EXPORT CShapeText : public CShapeVector
{
public:
    /// Empty text, family "Arial", size 20.
    CShapeText();
    /// Copies own their text buffer and start without painter path. A new copy has no pending mirror; assignment leaves
    /// the target's pending, across the lines that the source was last given.
    CShapeText(const CShapeText&) = default;
    CShapeText& operator=(const CShapeText&) = default;

    /// A deep copy of the parameters, 16 KiB of text included.
    SText GetText();
    /// The shape's own parameters, never null. Call UpdatePainterPath after a change. The address and the buffer stay
    /// the same for the shape's life, over SetText, Copy, assignment and Read.
    SText* GetTextP();
    /// Takes the parameters over and lays the text out.
    void SetText(SText& text);
    /// Not measured: always the invalid size (-1, -1).
    QSizeF MeasureSize(SText& text);

    /// Converts centre and scales between pixels and millimetres (k: millimetres per pixel; origin: millimetres). The
    /// painter path stays as it is. MmToPix adds 0.49 pixel to both coordinates of the centre. The line of a mirror that
    /// waits is converted as the centre is. A factor of zero or without number changes nothing.
    void PixToMm(double k, QPointF origin);
    void MmToPix(double k, QPointF origin);

    /// The vector shape's record, then texts and parameters without underline, column direction and pending mirrors.
    /// Without a painter path and outside a drag, a mirror that waits is carried out first.
    int Save(QFile* file) override;
    /// Reads the fields that the version carries, the others keep their values, and lays the text out (when its painter
    /// path is first needed: drawings hold more text than is ever looked at). Version 0 ends with the size and is not laid
    /// out; in versions 0 and 1 the text's centre is that of the outline of the points that the record brought. Stored
    /// strings beyond the buffers are cut.
    int Read(QFile* file, int version) override;
    /// Parameters and painter path. The source carries out a pending mirror on the way when it has no painter path; the
    /// target's own stay pending. False, and nothing changed, unless src is a text.
    bool Copy(CShape* src) override;
    /// Whether the text's rectangle holds p; the scale has no effect.
    bool Contains(QPointF p, double scale) override;
    /// Moves ptCenter and lays the text out at once.
    bool Offset(double dx, double dy) override;
    /// Scales by target's size over that of GetRect(false) and puts ptCenter into target's centre. A factor whose result
    /// would be zero or not finite stays as it is.
    bool Resize(QRectF target) override;
    bool RotateLeft(QPointF centre) override;
    bool RotateRight(QPointF centre) override;
    /// Moves ptCenter about centre and adds angle to dAngle, which is brought into 0 to 360 (both included).
    bool Rotate(double angle, QPointF centre, Qt::Axis axis) override;
    /// Texts mirror in place, about their own centre, whatever the axis.
    bool MirrorX(double axis) override;
    bool MirrorY(double axis) override;
    /// Puts up a mirror for the next rebuild, or takes a pending one of its kind back. p1 and p2 are rounded to whole
    /// units, the slope is that of the points as given. False for non-finite arguments.
    ///
    /// **Not always the mirror image.** Documents hold texts placed by these sums, so they stay as they are:
    /// - Lines that rise to the right as seen on screen (from lower left to upper right or back, neither level nor
    ///   upright): the letters come out turned by 4 times the line's inclination, upside down at 45 degrees. Lines that
    ///   fall to the right, level and upright ones give the mirror image's letters in both directions.
    /// - Two equal points: the centre moves across the level line, the letters are mirrored left to right.
    /// - Whatever the line, an attach line too: when the mirrored text stands at other angles than quarter turns,
    ///   ptCenter is put into the middle of the mirrored outline's rectangle and not onto its own mirror image, which
    ///   shifts the text by the distance of the two (of a word, a few hundredths of its length).
    ///
    /// For the exact mirror image across any line through p at t degrees (positive clockwise as seen on screen), change
    /// the parameters instead: with GetTextP, reflect ptCenter across the line, invert bMirrorY, set dAngle to
    /// 2 t - dAngle, then call UpdatePainterPath.
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit) override;
    /// The same across the line x = value (bVertical) or y = value.
    bool MirrorAttachLine(double value, bool bVertical) override;
    /// True: text outlines count as closed.
    bool IsClose() override;
    /// Generates the outline's micro lines anew. Empty, with a log line, for more than 8 million of them and when memory
    /// runs out.
    /// @param tolerance ignored: fineness is fixed, curves are flattened at a magnification of 1000
    std::vector<QLineF> Flatten(double tolerance) override;
    /// Whether p lies in GetRect(false) and nearer to the micro lines than tolerance, as a vector's Hit, but only those
    /// near p are made and none kept.
    bool Hit(QPointF p, int& tolerance) override;
    ESHAPE_TYPE GetShapeType() override;
    CShape* Clone() override;
    /// Always lays the text out anew and carries out pending mirrors.
    void UpdatePainterPath() override;

    /// A virtual slot of its own: lays the text out and answers whether its rectangle holds p; part is never written.
    virtual bool Hit(QPoint p, int& part);

private:
    void TextToPath();
    void PlaceOutline();
    void MirrorX();
    void MirrorY();
    bool HasMirrorX() const { return m_text.bMirrorX != 0; }
    bool HasMirrorY() const { return m_text.bMirrorY != 0; }
    bool HasPendingMirror() const { return m_text.bMirrorAttach || m_text.bMirrorLine; }
    void MirrorPoints();
    void NotePointsAsDrawn();
    bool ArePointsBehind() const;
    void CarryOutMirrors();
    void MirrorAttachLine();
    void MirrorFixedOrMovingLine();
    bool MoveCentreAcross(const QTransform& mirror);
    void TurnAcrossAttachLine();
    void TurnAcrossFreeLine();
    bool RotateBefore(double angle, QPointF centre);
    template <class Convert>
    void AdoptPlace(double scaleX, double scaleY, Convert convert);
    QPointF StoredOutlineCentre() const;
    bool CanOutlineWait() const;
    std::vector<SHAPE_VECTOR_PATHDATA> GenTextMicroLine();

    SText m_text;
    double dAttachLine = 0; ///< of the last MirrorAttachLine, with bAttachLineFlag
    uint8_t bAttachLineFlag = 0;
    QPointF ptMirrorLine1; ///< of the last MirrorFixedOrMovingLine
    QPointF ptMirrorLine2;
    QLineF m_mirrorAxis; ///< the same points, rounded as they were given, in the units of today
};
