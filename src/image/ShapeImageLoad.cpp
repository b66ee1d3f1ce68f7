/// Image files into image shapes.
#include "image/GreyImage.h"
#include "image/ImageMgr.h"
#include "image/ImageResolution.h"
#include "image/ShapeImage.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int kLoaded = 0;
constexpr int kNoPicture = 2;

constexpr unsigned int kFallbackDpi = 72;
constexpr double kMillimetresPerInch = 25.4;

/// Empty when the path names no regular file that can be read.
QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

} // namespace

int CShapeImage::OpenImage(char* path)
{
    const QByteArray file = path ? BytesOf(QString::fromUtf8(path)) : QByteArray();
    cv::Mat image = shapes::DecodeGrey(file);
    if (image.empty())
        return kNoPicture;
    SetFilename(path);
    if (!shapes::GetImageDpi(file, m_nXDpi, m_nYDpi) || m_nXDpi == 0 || m_nYDpi == 0)
        m_nXDpi = m_nYDpi = kFallbackDpi;
    const QRectF rect(0, 0, static_cast<double>(image.cols) / m_nXDpi * kMillimetresPerInch,
                      static_cast<double>(image.rows) / m_nYDpi * kMillimetresPerInch);
    SetOrgRect(rect, true);
    ShowRect(rect);
    SetImage(image, false);
    if (s_pOrgImageMgr)
        s_pOrgImageMgr->Add(image, this);
    return kLoaded;
}

void CShapeImage::SetImage(cv::Mat& image, bool bRestore)
{
    cv::Mat own = image;
    if (bRestore) {
        RestoreImage(own);
        // The store's own matrix may belong to other shapes too.
        if (&image != GetOriginaleMatPtr())
            image = own;
    }
    m_listOperations.clear();
    if (s_pImageMgr)
        s_pImageMgr->Add(own, this);
}

bool CShapeImage::Reverse()
{
    Append(EIMAGE_INVERT, true);
    return true;
}
