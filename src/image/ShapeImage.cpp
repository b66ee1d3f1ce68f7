/// Fields, stores and copies of the image shape.
#include "image/ShapeImage.h"

#include "image/ImageMgr.h"
#include "image/PixelBytes.h"

#include <QByteArray>

#include <algorithm>

namespace {

/// Registers the arguments of rotations and cuts, so that hosts find the types by their names.
void RegisterOperationTypes()
{
    [[maybe_unused]] static const int registered =
        (qRegisterMetaType<SRotate>("SRotate"), qRegisterMetaType<SCut>("SCut"));
}

QSize SizeOf(const cv::Mat* image)
{
    return image ? QSize(image->cols, image->rows) : QSize(0, 0);
}

bool IsBlackAndWhite(const cv::Mat& image)
{
    if (image.depth() != CV_8U || image.dims > 2)
        return image.empty();
    for (int row = 0; row < image.rows; ++row) {
        const unsigned char* values = image.ptr(row);
        if (!std::all_of(values, values + shapes::RowBytes(image),
                         [](unsigned char value) { return value == 0 || value == 255; }))
            return false;
    }
    return true;
}

} // namespace

ImageMgr* CShapeImage::s_pImageMgr = nullptr;
ImageMgr* CShapeImage::s_pOrgImageMgr = nullptr;
ImageMgr* CShapeImage::s_pCacheImageMgr = nullptr;

CShapeImage::CShapeImage()
{
    RegisterOperationTypes();
}

CShapeImage::CShapeImage(const CShapeImage&) = default;
CShapeImage& CShapeImage::operator=(const CShapeImage&) = default;

CShapeImage::~CShapeImage()
{
    for (ImageMgr* store : {s_pImageMgr, s_pOrgImageMgr, s_pCacheImageMgr})
        if (store)
            store->Remove(this);
}

void CShapeImage::SetImageMgr(ImageMgr* store)
{
    s_pImageMgr = store;
}

void CShapeImage::SetCacheImageMgr(ImageMgr* store)
{
    s_pCacheImageMgr = store;
}

void CShapeImage::SetOrgImageMgr(ImageMgr* store)
{
    s_pOrgImageMgr = store;
}

ESHAPE_TYPE CShapeImage::GetShapeType()
{
    return ESHAPE_IMAGE;
}

void CShapeImage::SetProperty(Property property)
{
    m_eProperty = property;
}

CShapeImage::Property CShapeImage::GetProperty()
{
    return m_eProperty;
}

EFILE_FORMAT CShapeImage::GetFileFormat()
{
    return m_eFileFormat;
}

char* CShapeImage::GetFilename()
{
    return m_szFilename.data();
}

void CShapeImage::SetFilename(const char* path)
{
    const QByteArray name(path); // the path may be this very buffer
    qstrncpy(m_szFilename.data(), name.constData(), m_szFilename.size());
}

unsigned int CShapeImage::GetXDpi()
{
    return m_nXDpi;
}

unsigned int CShapeImage::GetYDpi()
{
    return m_nYDpi;
}

unsigned int CShapeImage::GetBpp()
{
    const cv::Mat* image = OriginalOrWorkingImage();
    return !image || IsBlackAndWhite(*image) ? 1 : 0;
}

QSize CShapeImage::GetOriginalPixelSize()
{
    return SizeOf(GetOriginaleMatPtr());
}

QSize CShapeImage::GetOriginaleSize()
{
    return SizeOf(GetOriginaleMatPtr());
}

void CShapeImage::SetProcessInfo(SImageProcessInfo& info)
{
    m_processInfo = info;
    m_processInfo.processed = true;
}

SImageProcessInfo CShapeImage::GetLastProcessInfo()
{
    return m_processInfo;
}

double CShapeImage::GetRotateAngle() const
{
    return m_dRotateAngle;
}

cv::Mat* CShapeImage::GetOriginaleMatPtr() const
{
    return s_pImageMgr ? s_pImageMgr->Get(const_cast<CShapeImage*>(this)) : nullptr;
}

bool CShapeImage::Copy(CShape* src)
{
    auto* source = dynamic_cast<CShapeImage*>(src);
    if (!source)
        return false;
    if (source == this)
        return true;
    if (!CShape::Copy(source))
        return false;
    SetFilename(source->m_szFilename.data());
    m_eFileFormat = source->m_eFileFormat;
    m_nXDpi = source->m_nXDpi;
    m_nYDpi = source->m_nYDpi;
    m_rcOrg = source->m_rcOrg;
    m_listOperations = source->m_listOperations;
    m_processInfo = source->m_processInfo;
    m_dRotateAngle = source->m_dRotateAngle;
    SharePixels(source);
    return true;
}

/// Shares the source's picture in each store. Where the source has none, this shape's is removed: it is another
/// picture.
void CShapeImage::SharePixels(CShapeImage* src)
{
    const auto share = [&](ImageMgr* store) {
        if (!store)
            return;
        if (cv::Mat* image = store->Get(src))
            store->Add(*image, this);
        else
            store->Remove(this);
    };
    m_storeNotes.bRead = src->m_storeNotes.bRead;
    m_storeNotes.bOriginalRead = src->m_storeNotes.bOriginalRead;
    m_storeNotes.cached = src->m_storeNotes.cached;
    share(s_pCacheImageMgr);
    src->RemoveImageCache();
    share(s_pImageMgr);
    share(s_pOrgImageMgr);
}

CShape* CShapeImage::Clone()
{
    auto* clone = new CShapeImage;
    clone->Copy(this);
    return clone;
}
