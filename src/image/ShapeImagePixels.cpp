/// Working, original and display pictures of the image shape.
#include "geometry/CornerQuad.h"
#include "host/ILog.h"
#include "image/ImageMgr.h"
#include "image/OperationReplay.h"
#include "image/PixelWarp.h"
#include "image/ShapeImage.h"

#include <algorithm>
#include <exception>

namespace {

constexpr int kMissingImage = 107; ///< the number that the host's log analysis looks for

/// The result of work; when it throws, empty, with a log line that names the operation.
template <class Work>
cv::Mat OrEmpty(const char* name, Work work)
{
    try {
        return work();
    } catch (const std::exception& failure) {
        ILog_WriteLogF(ELOG_FAILURE, "%s: %s", name, failure.what());
        return {};
    }
}

cv::Mat Warped(const cv::Mat& image, const shapes::CornerQuad& quad)
{
    const auto& corners = quad.Corners();
    return shapes::ApplyTransform(image, corners[0], corners[1], corners[2], corners[3]);
}

/// The picture with pixels that nothing else shares, copied if need be.
cv::Mat Unshared(const cv::Mat& image)
{
    // Other threads may share the pixels; OpenCV changes the count atomically but does not declare it so.
    return image.u && __atomic_load_n(&image.u->refcount, __ATOMIC_ACQUIRE) == 1 ? image : image.clone();
}

} // namespace

cv::Mat CShapeImage::GetImage(bool bRaw)
{
    return OrEmpty("CShapeImage::GetImage", [&]() -> cv::Mat {
        if (!bRaw)
            return Unshared(DisplayImage(false));
        return WorkingImage().clone();
    });
}

/// Empty when there is none; logged if the store is set.
cv::Mat CShapeImage::WorkingImage()
{
    const cv::Mat* stored = GetOriginaleMatPtr();
    if (s_pImageMgr && !stored)
        ILog_WriteLogF(ELOG_NOTE, "%d mat null ...", kMissingImage);
    return stored ? *stored : cv::Mat();
}

/// What GetImage returns, with pixels that the stores may share. For Save it is up to date, whatever is cached.
cv::Mat CShapeImage::DisplayImage(bool bSave)
{
    return OrEmpty("CShapeImage::GetImage", [&]() -> cv::Mat {
        const cv::Mat base = WorkingImage();
        if (const cv::Mat* cached = CachedDisplayImage(bSave)) {
            if (!bSave && m_storeNotes.cached == ECached::Saved)
                m_storeNotes.cached = ECached::Shown;
            GetPath(false);
            return *cached;
        }
        cv::Mat image = Edited(base, m_storeNotes.bRead);
        Cache(image, bSave ? ECached::Saved : ECached::Shown);
        return image;
    });
}

cv::Mat CShapeImage::GetOrgImage(bool bRaw)
{
    const cv::Mat image = OriginalImage(bRaw);
    return OrEmpty("CShapeImage::GetOrgImage", [&] {
        if (!bRaw && !image.empty())
            Cache(image, ECached::Hidden);
        return Unshared(image);
    });
}

/// What GetOrgImage returns, but not cached, and with pixels that the stores may share.
cv::Mat CShapeImage::OriginalImage(bool bRaw)
{
    return OrEmpty("CShapeImage::GetOrgImage", [&]() -> cv::Mat {
        const cv::Mat* found = OriginalOrWorkingImage();
        if (s_pOrgImageMgr && !found)
            return {};
        const cv::Mat base = found ? *found : cv::Mat();
        const bool own = found && found != GetOriginaleMatPtr();
        return bRaw ? base : Edited(base, own ? m_storeNotes.bOriginalRead : m_storeNotes.bRead);
    });
}

/// Null when neither store has an image; logged if the original store is set.
cv::Mat* CShapeImage::OriginalOrWorkingImage()
{
    if (!s_pOrgImageMgr)
        return nullptr;
    cv::Mat* original = s_pOrgImageMgr->Get(this);
    cv::Mat* found = original ? original : GetOriginaleMatPtr();
    if (!found)
        ILog_WriteLog(ELOG_FAILURE, "GetOrgImage failed");
    return found;
}

/// The result of the edits on base, which shares its pixels where these stay in place. Updates the outline.
cv::Mat CShapeImage::Edited(const cv::Mat& base, bool bRead)
{
    cv::Mat image = base; // The warp only reads, and a cut makes pixels of its own.
    shapes::CornerQuad quad(m_rcOrg);
    shapes::Replay(m_listOperations, quad, &image);
    AdoptCorners(quad.Corners());
    return IsUnwarped(bRead) && !base.empty() ? base : Warped(image, quad);
}

/// Whether a picture that came from Read (bRead) is unedited but for moves and inversions. Its record held the corners
/// in single precision: warped onto those it would lose a row or smear a column at every save.
bool CShapeImage::IsUnwarped(bool bRead) const
{
    return bRead && std::all_of(m_listOperations.begin(), m_listOperations.end(), [](const ImageOperation& operation) {
               return operation.nCode == EIMAGE_MOVE || operation.nCode == EIMAGE_INVERT;
           });
}

/// The cached image if it may be shown or, for bSave, saved; else null.
const cv::Mat* CShapeImage::CachedDisplayImage(bool bSave)
{
    const ECached kind = m_storeNotes.cached;
    const bool usable = kind == ECached::Shown || kind == ECached::Saved || (kind == ECached::Outdated && !bSave);
    return s_pCacheImageMgr && usable ? s_pCacheImageMgr->Get(this) : nullptr;
}

void CShapeImage::Cache(cv::Mat image, ECached kind)
{
    if (s_pCacheImageMgr)
        s_pCacheImageMgr->Add(image, this);
    m_storeNotes.cached = kind;
}

bool CShapeImage::IsOfWorkingSize(const cv::Mat& image) const
{
    const cv::Mat* working = GetOriginaleMatPtr();
    return working && working->size == image.size;
}

/// To be called before the picture or its rectangle is replaced. GetImage goes on returning an image that it has
/// returned before, until the host drops it.
void CShapeImage::OutdateCache()
{
    if (m_storeNotes.cached == ECached::Saved)
        RemoveImageCache();
    else if (s_pCacheImageMgr && s_pCacheImageMgr->Get(this))
        m_storeNotes.Outdate();
}

void CShapeImage::StoreNotes::Outdate()
{
    if (cached == ECached::Shown)
        cached = ECached::Outdated;
    else if (cached == ECached::Saved)
        cached = ECached::Hidden;
}

QRectF CShapeImage::RestoreImage(cv::Mat& image)
{
    image = OrEmpty("CShapeImage::RestoreImage", [&] {
        cv::Mat restored = image;
        shapes::CornerQuad quad(m_rcOrg);
        shapes::Replay(m_listOperations, quad, &restored);
        const bool unwarped = IsUnwarped(m_storeNotes.bRead) && !image.empty() && IsOfWorkingSize(image);
        return unwarped ? image : Warped(restored, quad);
    });
    UpdatePainterPath();
    return GetImageRect();
}

void CShapeImage::RemoveImageCache()
{
    m_storeNotes.cached = ECached::Shown;
    if (s_pCacheImageMgr)
        s_pCacheImageMgr->Remove(this);
}
