#include "image/CodeShapeImage.h"

#include "record/RecordStream.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <limits>

using shapes::RecordReader;
using shapes::RecordWriter;

CCodeShapeImage::CCodeShapeImage()
{
    SetProperty(PROPERTY_CODE);
}

CCodeShapeImage::CCodeShapeImage(const CCodeShapeImage&) = default;
CCodeShapeImage& CCodeShapeImage::operator=(const CCodeShapeImage&) = default;
CCodeShapeImage::~CCodeShapeImage() = default;

ESHAPE_TYPE CCodeShapeImage::GetShapeType()
{
    return ESHAPE_CODEIMAGE;
}

void CCodeShapeImage::SetCodeType(bool bType)
{
    m_bCodeType = bType;
}

bool CCodeShapeImage::GetCodeType()
{
    return m_bCodeType;
}

void CCodeShapeImage::SetCodeText(QString text)
{
    m_strCodeText = text;
}

QString CCodeShapeImage::GetCodeText()
{
    return m_strCodeText;
}

bool CCodeShapeImage::Copy(CShape* src)
{
    auto* source = dynamic_cast<CCodeShapeImage*>(src);
    if (!source || !CShapeImage::Copy(source))
        return false;
    m_bCodeType = source->m_bCodeType;
    m_strCodeText = source->m_strCodeText;
    return true;
}

CShape* CCodeShapeImage::Clone()
{
    auto* clone = new CCodeShapeImage;
    clone->Copy(this);
    return clone;
}

int CCodeShapeImage::Save(QFile* file)
{
    if (const int result = CShapeImage::Save(file); result != 0 || !file)
        return result;
    RecordWriter writer(*file);
    writer.Put(m_bCodeType);
    writer.PutText(m_strCodeText.toUtf8().constData(), std::numeric_limits<int32_t>::max());
    return 0;
}

int CCodeShapeImage::Read(QFile* file, int version)
{
    if (const int result = CShapeImage::Read(file, version); result != 0 || !file)
        return result;
    RecordReader reader(*file);
    m_bCodeType = true;
    reader.GetFlag(m_bCodeType);
    int32_t length = 0;
    reader.Get(length);
    QByteArray text(std::clamp<qint64>(length, 0, reader.Left()), '\0');
    text.truncate(reader.GetBytes(text.data(), text.size()));
    m_strCodeText = QString::fromUtf8(text.constData());
    return 0;
}
