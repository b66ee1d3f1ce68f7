/// Record of the text shape.
#include "record/RecordFormat.h"
#include "record/RecordStream.h"
#include "text/ShapeText.h"

#include <QFile>

#include <typeinfo>

using shapes::RecordReader;
using shapes::RecordWriter;

int CShapeText::Save(QFile* file)
{
    if (file)
        CarryOutMirrors();
    if (const int result = CShapeVector::Save(file); result != 0 || !file)
        return result;
    RecordWriter writer(*file);
    static_assert(TEXT_BUFFER_SIZE - 1 == shapes::kMostTextBytes);
    static_assert(sizeof m_text.font.szFamily - 1 == shapes::kMostFamilyBytes);
    writer.PutText(m_text.pText, TEXT_BUFFER_SIZE - 1);
    writer.PutText(m_text.font.szFamily, sizeof m_text.font.szFamily - 1);
    writer.Put(m_text.font.bBold);
    writer.Put(m_text.font.bItalic);
    writer.Put(m_text.font.bVerticalText);
    writer.Put(m_text.font.dSize);
    writer.Put(m_text.dAngle);
    writer.Put(m_text.ptCenter.x());
    writer.Put(m_text.ptCenter.y());
    writer.Put(m_text.bMirrorX);
    writer.Put(m_text.bMirrorY);
    writer.Put(m_text.dScaleX);
    writer.Put(m_text.dScaleY);
    writer.Put(m_text.nAlign);
    writer.Put(m_text.dCharSpacing);
    writer.Put(m_text.dLineSpacing);
    writer.Put(m_text.nReserved);
    return 0;
}

static void ReadFont(RecordReader& reader, STextFont& font)
{
    reader.GetText(font.szFamily, sizeof font.szFamily);
    reader.Get(font.bBold);
    reader.Get(font.bItalic);
    reader.Get(font.bVerticalText);
    reader.Get(font.dSize);
}

int CShapeText::Read(QFile* file, int version)
{
    if (const int result = CShapeVector::Read(file, version); result != 0 || !file)
        return result;
    RecordReader reader(*file);
    m_text.Widen();
    reader.GetText(m_text.pText, TEXT_BUFFER_SIZE);
    m_text.Shrink(); // A document may hold a great many short texts.
    ReadFont(reader, m_text.font);
    if (version == 0) {
        m_text.dAngle = 0;
        m_text.ptCenter = StoredOutlineCentre();
        NotePointsAsDrawn();
        DeletePath(this);
        return 0;
    }
    if (version >= shapes::kTextAngleSince) {
        reader.Get(m_text.dAngle);
        m_text.ptCenter = StoredOutlineCentre();
    }
    if (version >= shapes::kTextCentreSince) {
        reader.Get(m_text.ptCenter.rx());
        reader.Get(m_text.ptCenter.ry());
    }
    if (version >= shapes::kTextMirrorsSince) {
        reader.Get(m_text.bMirrorX);
        reader.Get(m_text.bMirrorY);
    }
    if (version >= shapes::kTextScalesSince) {
        reader.Get(m_text.dScaleX);
        reader.Get(m_text.dScaleY);
    }
    if (version >= shapes::kTextAlignmentSince) {
        reader.Get(m_text.nAlign);
        reader.Get(m_text.dCharSpacing);
    }
    if (version >= shapes::kTextLineSpacingSince)
        reader.Get(m_text.dLineSpacing);
    if (version >= shapes::kTextReservedSince)
        reader.Get(m_text.nReserved);
    NotePointsAsDrawn();
    if (CanDeferLayout())
        DeferPathRebuild();
    else
        UpdatePainterPath();
    return 0;
}

/// Whether laying out later makes no difference: no mirror is pending, no derived class lays out in its own way, and no
/// host may hold the parameters and change them meanwhile.
bool CShapeText::CanDeferLayout() const
{
    return !HasPendingMirror() && !m_text.m_bLent && typeid(*this) == typeid(CShapeText);
}

/// Rebuilds the outline when mirrors are pending: a record does not hold them, and its points must match the outline.
/// Not while there is a painter path, or a temporary one (a drag).
void CShapeText::CarryOutMirrors()
{
    if (!CachedPath() && !GetPathTmp() && (HasPendingMirror() || ArePointsBehind()))
        UpdatePainterPath();
}

/// Centre of the outline of the record's points; (0, 0) without points.
QPointF CShapeText::StoredOutlineCentre() const
{
    QPainterPath outline;
    BuildOutline(outline);
    return outline.boundingRect().center();
}
