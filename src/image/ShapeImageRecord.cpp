/// Document record of the image shape.
#include "geometry/Tolerances.h"
#include "host/ILog.h"
#include "image/GreyImage.h"
#include "image/ImageMgr.h"
#include "image/ShapeImage.h"
#include "image/ZeroedPixels.h"
#include "record/RecordFormat.h"
#include "record/RecordStream.h"

#include <QFile>

#include <algorithm>
#include <atomic>
#include <exception>
#include <utility>

using shapes::kBitsPerPixel;
using shapes::RecordReader;
using shapes::RecordWriter;

namespace {

constexpr size_t kReservedBytes = 8;            ///< behind the display image, zero
constexpr unsigned int kDpiInsteadOfZero = 300; ///< for a shape that is read while its resolution is 0

/// Bytes. A picture that claims more than the stream still holds is read up to this size; the missing pixels are black.
constexpr qint64 kLargestShortBlock = 128LL * 1024 * 1024;

void WritePicture(RecordWriter& writer, const cv::Mat& picture, const char* complaint)
{
    const cv::Mat image = shapes::RecordImage(picture);
    if (image.empty())
        ILog_WriteLogF(ELOG_FAILURE, "%s", complaint);
    writer.Put(static_cast<int32_t>(image.cols));
    writer.Put(static_cast<int32_t>(image.rows));
    writer.Put(kBitsPerPixel);
    writer.Put(static_cast<int32_t>(image.empty() ? 0 : image.step[0]));
    writer.PutBytes(image.data, image.total());
}

/// The first width columns of rows. Rows behind the bytes that were read are black in both.
cv::Mat WithoutGaps(const cv::Mat& rows, int width, qint64 came)
{
    cv::Mat picture = shapes::ZeroedGrey(rows.rows, width);
    const int filled = static_cast<int>((came + rows.cols - 1) / rows.cols);
    rows(cv::Rect(0, 0, width, filled)).copyTo(picture.rowRange(0, filled));
    return picture;
}

/// Reads a picture. Empty for impossible sizes; the block is then skipped as far as its size is known.
cv::Mat ReadPicture(RecordReader& reader)
{
    int32_t width = 0, height = 0, bits = 0, stride = 0;
    reader.Get(width);
    reader.Get(height);
    reader.Get(bits);
    reader.Get(stride);
    const qint64 size = static_cast<qint64>(std::max(stride, 0)) * std::max(height, 0);
    if (width <= 0 || size == 0 || stride < width || size > std::max(reader.Left(), kLargestShortBlock)) {
        reader.Skip(size);
        return {};
    }
    const qint64 left = reader.Left() - size; // behind the block; negative when it is short
    try {
        const cv::Mat rows = shapes::ZeroedGrey(height, stride);
        const qint64 came = reader.GetBytes(rows.data, size);
        return stride == width ? rows : WithoutGaps(rows, width, came);
    } catch (const std::exception&) { // no memory for what the stream really holds
        reader.Skip(reader.Left() - std::max<qint64>(left, 0));
        return {};
    }
}

void WriteFlag(RecordWriter& writer, bool flag)
{
    writer.Put(static_cast<int32_t>(flag));
}

void ReadFlag(RecordReader& reader, bool& flag)
{
    int32_t stored = flag;
    reader.Get(stored);
    flag = stored != 0;
}

/// Hosts that do not know the stores lose pictures with result 0: the first one is logged.
void LogLostPixels()
{
    static std::atomic_flag told;
    if (!told.test_and_set())
        ILog_WriteLog(ELOG_FAILURE, "A picture is read, but the host has set no stores for pixels: they are lost.");
}

/// The rectangle that a record's outline describes; null when it describes none.
QRectF RectOf(const std::vector<QPointF>& points)
{
    QRectF rect;
    if (points.size() != 5)
        return rect;
    rect.setTopLeft(points[0]);
    rect.setTopRight(points[1]);
    rect.setBottomRight(points[2]);
    rect.setBottomLeft(points[3]);
    return shapes::IsFinite(rect) ? rect : QRectF();
}

} // namespace

int CShapeImage::Save(QFile* file)
{
    if (!file)
        return 0;
    // The list tags this record as that of a code image, whose fields it lacks: the one document that is saved with
    // success and cannot be read.
    if (GetShapeType() == ESHAPE_IMAGE && m_eProperty == PROPERTY_CODE)
        ILog_WriteLog(ELOG_FAILURE,
                      "A plain image with the property of codes is saved: the document cannot be read back.");
    if (m_rcOrg.isEmpty())
        m_rcOrg = GetRect(false);
    UpdatePainterPath();

    // The record's outline is the upright rectangle around the corners: the display image fills that one.
    const QRectF bounds = GetRect(false);
    std::vector<QPointF> corners{bounds.topLeft(), bounds.topRight(), bounds.bottomRight(), bounds.bottomLeft(),
                                 bounds.topLeft()};
    RecordWriter writer(*file);
    std::swap(m_listPoints, corners);
    WriteCommonRecord(writer);
    std::swap(m_listPoints, corners);

    writer.Put(m_eFileFormat);
    static_assert(kFilenameBytes - 1 == shapes::kMostFileNameBytes);
    writer.PutText(m_szFilename.data(), m_szFilename.size() - 1);
    WritePicture(writer, DisplayImage(true), "Invalid ShapeImage ");
    writer.PutZeros(kReservedBytes);
    WritePicture(writer, OriginalImage(false), "Org Invalid ShapeImage ");
    for (const int32_t value : {m_processInfo.value0, m_processInfo.value1, m_processInfo.value2, m_processInfo.value3,
                                m_processInfo.value4, m_processInfo.value5})
        writer.Put(value);
    writer.Put(m_processInfo.factor);
    WriteFlag(writer, m_processInfo.flag);
    WriteFlag(writer, m_processInfo.processed);
    return 0;
}

/// Resets what a record does not carry, or not in every version: cached display image, original image, angle and
/// process info would otherwise be those of the picture before.
void CShapeImage::ForgetDocument()
{
    m_listPoints.clear();
    m_listTypes.clear();
    m_processInfo = {};
    m_dRotateAngle = 0;
    RemoveImageCache();
    if (s_pOrgImageMgr)
        s_pOrgImageMgr->Remove(this);
}

int CShapeImage::Read(QFile* file, int version)
{
    if (!file)
        return 0;
    ForgetDocument();
    RecordReader reader(*file);
    ReadCommonRecord(reader);
    reader.Get(m_eFileFormat);
    const bool named = ReadFilename(reader);
    cv::Mat display = ReadPicture(reader);
    reader.Skip(kReservedBytes);
    cv::Mat original;
    if (version >= shapes::kOriginalPictureSince) {
        original = ReadPicture(reader);
        ReadProcessInfo(reader);
    }
    if (!named) // A record with an impossible name is read to its end, but its pixels are not trusted.
        display = original = cv::Mat();

    for (unsigned int* dpi : {&m_nXDpi, &m_nYDpi})
        if (*dpi == 0)
            *dpi = kDpiInsteadOfZero;
    if ((!display.empty() && !s_pImageMgr) || (!original.empty() && !s_pOrgImageMgr))
        LogLostPixels();
    SetImage(display, false);
    const bool stored = s_pOrgImageMgr && !original.empty();
    if (stored)
        s_pOrgImageMgr->Add(original, this);
    const QRectF rect = RectOf(m_listPoints);
    SetOrgRect(rect, true);
    ShowRect(rect);
    m_storeNotes.bRead = true;
    m_storeNotes.bOriginalRead = stored;
    return 0;
}

/// False for a length that no file name can have; that number of bytes is then skipped.
bool CShapeImage::ReadFilename(RecordReader& reader)
{
    int32_t length = 0;
    reader.Get(length);
    m_szFilename.fill('\0');
    if (length < 0 || static_cast<size_t>(length) >= m_szFilename.size()) {
        reader.Skip(std::max(length, 0));
        return false;
    }
    reader.GetBytes(m_szFilename.data(), length);
    return true;
}

void CShapeImage::ReadProcessInfo(RecordReader& reader)
{
    for (int32_t* value : {&m_processInfo.value0, &m_processInfo.value1, &m_processInfo.value2, &m_processInfo.value3,
                           &m_processInfo.value4, &m_processInfo.value5})
        reader.Get(*value);
    reader.Get(m_processInfo.factor);
    ReadFlag(reader, m_processInfo.flag);
    ReadFlag(reader, m_processInfo.processed);
}
