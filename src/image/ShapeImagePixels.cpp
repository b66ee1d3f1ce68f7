/// Working, original and display pictures of the image shape.
#include "host/ILog.h"
#include "image/CornerQuad.h"
#include "image/ImageMgr.h"
#include "image/OperationReplay.h"
#include "image/PixelWarp.h"
#include "image/ShapeImage.h"

#include <algorithm>
#include <exception>

namespace {

constexpr int kLogNote = 1;
constexpr int kLogFailure = 3;
constexpr int kMissingImage = 107; ///< the number that the host's log analysis looks for

/// What work answers; empty, with a log line under the operation's name, when it throws.
template <class Work>
cv::Mat OrEmpty(const char* name, Work work)
{
    try {
        return work();
    } catch (const std::exception& failure) {
        ILog_WriteLogF(kLogFailure, "%s: %s", name, failure.what());
        return {};
    }
}

cv::Mat Warped(const cv::Mat& image, const shapes::CornerQuad& quad)
{
    const auto& corners = quad.Corners();
    return shapes::ApplyTransform(image, corners[0], corners[1], corners[2], corners[3]);
}

/// The picture with pixels that nobody else holds.
cv::Mat Unshared(const cv::Mat& image)
{
    return image.u && image.u->refcount == 1 ? image : image.clone();
}

} // namespace

cv::Mat CShapeImage::GetImage(bool bRaw)
{
    return OrEmpty("CShapeImage::GetImage", [&]() -> cv::Mat {
        const cv::Mat* stored = GetOriginaleMatPtr();
        if (s_pImageMgr && !stored)
            ILog_WriteLogF(kLogNote, "%d mat null ...", kMissingImage);
        const cv::Mat base = stored ? *stored : cv::Mat();
        if (bRaw)
            return base.clone();
        if (const cv::Mat* cached = CachedDisplayImage()) {
            GetPath(false);
            return cached->clone();
        }
        const cv::Mat image = Edited(base);
        Cache(image, false);
        return Unshared(image);
    });
}

cv::Mat CShapeImage::GetOrgImage(bool bRaw)
{
    const cv::Mat image = OriginalImage(bRaw);
    return OrEmpty("CShapeImage::GetOrgImage", [&] {
        if (!bRaw && !image.empty())
            Cache(image, true);
        return Unshared(image);
    });
}

/// What GetOrgImage answers, but not cached, and with pixels that the stores may hold too.
cv::Mat CShapeImage::OriginalImage(bool bRaw)
{
    return OrEmpty("CShapeImage::GetOrgImage", [&]() -> cv::Mat {
        const cv::Mat* found = OriginalOrWorkingImage();
        if (s_pOrgImageMgr && !found)
            return {};
        const cv::Mat base = found ? *found : cv::Mat();
        return bRaw ? base : Edited(base);
    });
}

/// Null, with a log line unless there is no original store at all, when neither store has an image.
cv::Mat* CShapeImage::OriginalOrWorkingImage()
{
    if (!s_pOrgImageMgr)
        return nullptr;
    cv::Mat* original = s_pOrgImageMgr->Get(this);
    cv::Mat* found = original ? original : GetOriginaleMatPtr();
    if (!found)
        ILog_WriteLog(kLogFailure, "GetOrgImage failed");
    return found;
}

/// What the edits make of base; its very pixels where they leave them in place. The outline follows.
cv::Mat CShapeImage::Edited(const cv::Mat& base)
{
    cv::Mat image = base; // The warp only reads, and a cut makes pixels of its own.
    shapes::CornerQuad quad(m_rcOrg);
    shapes::Replay(m_listOperations, quad, &image);
    TakeCorners(quad.Corners());
    return IsAsRead() && !base.empty() ? base : Warped(image, quad);
}

/// Whether the picture is still the one that Read brought. Its record held the corners in single precision: warped onto
/// those it would lose a row or smear a column at every save.
bool CShapeImage::IsAsRead() const
{
    return m_bRead &&
           std::all_of(m_listOperations.begin(), m_listOperations.end(), [](const ImageOperation& operation) {
               return operation.nCode == EIMAGE_MOVE || operation.nCode == EIMAGE_INVERT;
           });
}

/// Null when there is none, or when what the cache holds is the edited original.
const cv::Mat* CShapeImage::CachedDisplayImage()
{
    return s_pCacheImageMgr && !m_bOriginalInCache ? s_pCacheImageMgr->Get(this) : nullptr;
}

void CShapeImage::Cache(cv::Mat image, bool bOriginal)
{
    if (s_pCacheImageMgr)
        s_pCacheImageMgr->Add(image, this);
    m_bOriginalInCache = bOriginal;
}

QRectF CShapeImage::RestoreImage(cv::Mat& image)
{
    image = OrEmpty("CShapeImage::RestoreImage", [&] {
        cv::Mat restored = image;
        shapes::CornerQuad quad(m_rcOrg);
        shapes::Replay(m_listOperations, quad, &restored);
        return Warped(restored, quad);
    });
    UpdatePainterPath();
    return GetImageRect();
}

void CShapeImage::RemoveImageCache()
{
    m_bOriginalInCache = false;
    if (s_pCacheImageMgr)
        s_pCacheImageMgr->Remove(this);
}
