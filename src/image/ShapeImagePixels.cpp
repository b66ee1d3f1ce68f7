/// Working, original and display pictures of the image shape.
#include "host/ILog.h"
#include "image/CornerQuad.h"
#include "image/ImageMgr.h"
#include "image/OperationReplay.h"
#include "image/PixelWarp.h"
#include "image/ShapeImage.h"

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
        if (const cv::Mat* cached = s_pCacheImageMgr ? s_pCacheImageMgr->Get(this) : nullptr)
            return cached->clone();
        return BuildDisplayImage(base);
    });
}

cv::Mat CShapeImage::GetOrgImage(bool bRaw)
{
    return OrEmpty("CShapeImage::GetOrgImage", [&]() -> cv::Mat {
        const cv::Mat* found = OriginalOrWorkingImage();
        if (s_pOrgImageMgr && !found)
            return {};
        const cv::Mat base = found ? *found : cv::Mat();
        return bRaw ? base.clone() : BuildDisplayImage(base);
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

/// The edited base, which also enters the cache. Answers pixels that nobody else holds.
cv::Mat CShapeImage::BuildDisplayImage(const cv::Mat& base)
{
    cv::Mat image = base; // The warp only reads, and a cut makes pixels of its own.
    shapes::CornerQuad quad(m_rcOrg);
    shapes::Replay(m_listOperations, quad, &image);
    TakeCorners(quad.Corners());
    image = Warped(image, quad);
    if (s_pCacheImageMgr)
        s_pCacheImageMgr->Add(image, this);
    const bool shared = s_pCacheImageMgr || image.data == base.data;
    return shared ? image.clone() : image;
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
    if (s_pCacheImageMgr)
        s_pCacheImageMgr->Remove(this);
}
