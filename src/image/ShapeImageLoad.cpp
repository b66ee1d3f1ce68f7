/// Image files into image shapes.
#include "image/GreyImage.h"
#include "image/ImageMgr.h"
#include "image/ImageResolution.h"
#include "image/ShapeImage.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <exception>
#include <limits>

namespace {

constexpr int kLoaded = 0;
constexpr int kNoPicture = 2;

constexpr unsigned int kUnstatedDpi = 72; ///< for files that state no resolution
constexpr double kMillimetresPerInch = 25.4;

/// Empty when the path names no regular file that can be read, or one too large for the decoders.
QByteArray BytesOf(const QString& path)
{
    constexpr qint64 kMostFileBytes = std::numeric_limits<int>::max(); // decoders count bytes in int
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > kMostFileBytes || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

struct Picture
{
    cv::Mat pixels;
    unsigned int xDpi = kUnstatedDpi;
    unsigned int yDpi = kUnstatedDpi;
};

/// Has no pixels when the path names no picture that can be read. Throws nothing.
Picture PictureOf(const char* path)
{
    try {
        const QByteArray file = BytesOf(QString::fromUtf8(path));
        Picture picture{shapes::DecodeGrey(file)};
        unsigned int x = 0, y = 0;
        if (!picture.pixels.empty() && shapes::GetImageDpi(file, x, y) && x != 0 && y != 0) {
            picture.xDpi = x;
            picture.yDpi = y;
        }
        return picture;
    } catch (const std::exception&) { // no memory for the file
        return {};
    }
}

} // namespace

int CShapeImage::OpenImage(char* path)
{
    Picture picture = PictureOf(path);
    cv::Mat& image = picture.pixels;
    if (image.empty())
        return kNoPicture;
    SetFilename(path);
    m_nXDpi = picture.xDpi;
    m_nYDpi = picture.yDpi;
    const QRectF rect(0, 0, static_cast<double>(image.cols) / m_nXDpi * kMillimetresPerInch,
                      static_cast<double>(image.rows) / m_nYDpi * kMillimetresPerInch);
    SetOrgRect(rect, true);
    ShowRect(rect);
    // What follows belongs to the picture before this one.
    RemoveImageCache();
    m_dRotateAngle = 0;
    m_processInfo = {};
    SetImage(image, false);
    if (s_pOrgImageMgr)
        s_pOrgImageMgr->Add(image, this); // replaces the one before
    return kLoaded;
}

void CShapeImage::SetImage(cv::Mat& image, bool bRestore)
{
    cv::Mat own = image;
    if (bRestore) {
        const std::array<ImageMgr*, 3> stores{s_pImageMgr, s_pOrgImageMgr, s_pCacheImageMgr};
        const auto isStored = [&](ImageMgr* store) { return store && store->Get(this) == &image; };
        RestoreImage(own);
        // A store's own matrix is not replaced: it may belong to other shapes too.
        if (std::none_of(stores.begin(), stores.end(), isStored))
            image = own;
    }
    m_storeNotes.bRead = false;
    OutdateCache();
    m_listOperations.clear();
    if (s_pImageMgr)
        s_pImageMgr->Add(own, this);
}

bool CShapeImage::Reverse()
{
    Append(EIMAGE_INVERT, true);
    return true;
}
