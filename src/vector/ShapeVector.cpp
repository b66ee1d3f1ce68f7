/// Fields, copies and record of the vector shape.
#include "vector/ShapeVector.h"

#include "record/RecordFormat.h"
#include "record/RecordStream.h"

#include <QFile>

using shapes::RecordReader;
using shapes::RecordWriter;

namespace {

constexpr size_t kFieldBytes = shapes::LeastBytes(shapes::kVectorFields, shapes::kLatestVersion);

} // namespace

CShapeVector::CShapeVector() = default;
CShapeVector::CShapeVector(const CShapeVector&) = default;
CShapeVector& CShapeVector::operator=(const CShapeVector&) = default;
CShapeVector::~CShapeVector() = default;

EVECTOR_TYPE CShapeVector::GetVectorType()
{
    return m_eVectorType;
}

void CShapeVector::SetVectorType(EVECTOR_TYPE type)
{
    m_eVectorType = type;
}

void CShapeVector::SetExtractContour(bool bExtract)
{
    m_bExtractContour = bExtract;
}

bool CShapeVector::IsExtractContour()
{
    return m_bExtractContour;
}

ESHAPE_TYPE CShapeVector::GetShapeType()
{
    return ESHAPE_VECTOR;
}

bool CShapeVector::Copy(CShape* src)
{
    auto* source = dynamic_cast<CShapeVector*>(src);
    if (!source || !CShape::Copy(source))
        return false;
    m_eVectorType = source->m_eVectorType;
    m_bExtractContour = source->m_bExtractContour;
    m_bFitFaultKnown = source->m_bFitFaultKnown;
    return true;
}

CShape* CShapeVector::Clone()
{
    auto* clone = new CShapeVector;
    clone->Copy(this);
    return clone;
}

int CShapeVector::Save(QFile* file)
{
    if (!file)
        return 0;
    RecordWriter writer(*file, CommonRecordBytes() + kFieldBytes);
    WriteRecord(writer);
    return 0;
}

void CShapeVector::WriteRecord(RecordWriter& writer) const
{
    WriteCommonRecord(writer);
    writer.Put(m_eVectorType);
    writer.Put(m_bExtractContour);
}

int CShapeVector::Read(QFile* file, int version)
{
    if (!file)
        return 0;
    RecordReader reader(*file);
    ReadRecord(reader, version);
    return 0;
}

void CShapeVector::ReadRecord(RecordReader& reader, int version)
{
    ReadCommonRecord(reader);
    if (version < shapes::kFirstVersion || version > shapes::kLatestVersion)
        return; // Unknown versions, negative ones too, carry no vector fields.
    reader.Get(m_eVectorType);
    if (version >= shapes::kExtractContourSince)
        reader.GetFlag(m_bExtractContour);
}
