/// CShapeImage, a grey picture on the drawing.
#pragma once

#include "image/ImageOperation.h"
#include "shape/Shape.h"

#include <QList>
#include <QSize>

#include <opencv2/core.hpp>

#include <array>

class ImageMgr;
class IRuler;

/// Format of the file that a picture came from. The numbers are the host's: kept, saved, never interpreted.
enum EFILE_FORMAT : int32_t
{
    EFILE_FORMAT_DEFAULT = 3 ///< of every new image; loading a file does not change it
};

/// The host's last image processing parameters: kept, copied, saved and returned, never interpreted.
struct SImageProcessInfo
{
    int32_t value0 = 0;     ///< the host's
    int32_t value1 = 100;   ///< the host's
    int32_t value2 = 0;     ///< the host's
    int32_t value3 = 72;    ///< the host's
    int32_t value4 = 0;     ///< the host's
    int32_t value5 = 0;     ///< the host's
    double factor = 1.0;    ///< the host's
    bool flag = false;      ///< the host's
    bool processed = false; ///< true once CShapeImage::SetProcessInfo was called
};
static_assert(sizeof(SImageProcessInfo) == 40, "records are laid out for 64-bit platforms, see docs/porting.md");

/// A grey picture (8 bits, one channel, width a multiple of 4 when it comes from a file).
///
/// **Pixels** live in three stores of the host, keyed by the shape's address: the working image, the image as loaded,
/// and the display image last computed. A store that is not set is skipped. Copies of a shape share pixels.
///
/// **Edits** (Offset, Rotate, Resize, mirrors, cuts) touch no pixels: they are appended to a list, and outline and
/// display image are derived by replaying it on the rectangle that the unedited picture covers (GetOrgRect). A document
/// does not hold the edits but the display image, with which a shape starts when it is read. Until it is edited (a move
/// does not count) such a picture is shown and saved with exactly the pixels that were read.
///
/// **Outline**: the four corners, closed (top left, top right, bottom right, bottom left, top left), all of type 0.
/// After a rotation they form no upright rectangle. It is brought up to date by UpdatePainterPath, by RestoreImage, and
/// by GetImage and GetOrgImage where they compute the display image (not for the raw one, nor from the cache). The
/// painter path is there after each of them.
///
/// **Costs.** p is the number of the picture's pixels, e that of the edits kept. Edits are O(1), what brings the
/// outline up to date is O(e), what has no cost of its own below is O(1).
class SHAPEMODEL_EXPORT CShapeImage : public CShape
{
public:
    /// Classification by the host. The list saves a shape whose property is PROPERTY_CODE under the tag of code images,
    /// also a plain one, whose record then lacks the code fields that the reader expects.
    enum Property : int32_t
    {
        PROPERTY_NONE = 0,
        PROPERTY_CODE = 3
    };

    CShapeImage();
    /// Copies every field, the id included, but no pictures: Clone is the copy with pixels.
    CShapeImage(const CShapeImage&);
    /// As the copy constructor. The target keeps its own pictures; a display image that it has cached is no longer
    /// saved.
    CShapeImage& operator=(const CShapeImage&);
    /// Removes the shape from the stores that are set.
    ~CShapeImage() override;

    // The host's stores, for all images of the process; no ownership passes. Set null before a store is destroyed.

    /// Sets the store of the working images.
    static void SetImageMgr(ImageMgr* store);
    /// Sets the store of the display images.
    static void SetCacheImageMgr(ImageMgr* store);
    /// Sets the store of the images as loaded.
    static void SetOrgImageMgr(ImageMgr* store);

    ESHAPE_TYPE GetShapeType() override;
    /// Sets the host's classification, see Property.
    void SetProperty(Property property);
    /// The host's classification; PROPERTY_NONE in a new shape.
    Property GetProperty();
    /// The stored number of the file's format.
    EFILE_FORMAT GetFileFormat();
    /// The shape's own buffer of 260 bytes, terminated: the file's path with its bytes as they were given.
    char* GetFilename();
    /// Dots per inch across that OpenImage computed the size in millimetres with. Records do not carry them: 96 in a
    /// new shape that is read, whatever its file stated.
    unsigned int GetXDpi();
    /// The same, downwards.
    unsigned int GetYDpi();
    /// A flag, not a depth: 1 when every value of the original image is 0 or 255, or when there is none; else 0.
    /// Cost: O(p) at most.
    unsigned int GetBpp();
    /// Columns and rows of the working image; (0, 0) when there is none.
    QSize GetOriginalPixelSize();
    /// The same as GetOriginalPixelSize.
    QSize GetOriginaleSize();
    /// Keeps the host's parameters and sets their member processed.
    void SetProcessInfo(SImageProcessInfo& info);
    /// The parameters as set or read last.
    SImageProcessInfo GetLastProcessInfo();
    /// Angle of the last Rotate call, 0 to 360 degrees; not a running sum.
    double GetRotateAngle() const;

    /// Copies the fields of another image shape, the property excepted, and shares its pixels. The source's cached
    /// display image moves to the copy. False, and nothing changed, for null and for shapes of another class; true and
    /// no change from itself. Cost: O(e): pixels are shared.
    bool Copy(CShape* src) override;
    CShape* Clone() override;

    // Pictures.

    /// Decodes a PNG, JPEG, BMP, TIFF or WebP file (path: UTF-8), sizes the shape in millimetres by the file's
    /// resolution, with its top left corner at the origin, puts the picture into the working and the original store and
    /// drops a cached display image. Transparent parts become white. Cost: that of decoding the file once, and O(p).
    /// @return 0; 2, and nothing changed, when the file cannot be opened or decoded.
    int OpenImage(char* path);
    /// Makes image the working image and forgets the edits; when bRestore, they are first applied to it (RestoreImage).
    /// The pixels are shared with the caller's matrix. GetImage goes on returning a display image that it has cached
    /// (see RemoveImageCache), but that is not saved; one that only Save has cached is dropped.
    /// Cost: O(p) at most; as GetImage when bRestore.
    void SetImage(cv::Mat& image, bool bRestore);
    /// A copy of the working image when bRaw, else of the display image: the cached one, or the working image warped
    /// onto the corners, which is then cached. A picture from Read is not warped before it is edited. Empty, with a log
    /// line, when there is nothing to show.
    ///
    /// The caller owns the pixels of the result. Never write into a matrix of the stores: without edits the cached
    /// display image shares the working image's pixels. Cost: O(p): a copy; the warp as well where nothing is cached.
    cv::Mat GetImage(bool bRaw);
    /// The same, made from the image as loaded (the working image when the original store has none). Not taken from the
    /// cache but put there: afterwards the cache store holds the edited original, which GetImage does not use.
    /// Cost: O(p): warped anew at each call.
    cv::Mat GetOrgImage(bool bRaw);
    /// The display image before it is warped, for hosts that warp it themselves: the working image, or what the last
    /// cut left of it, and the corners that it covers as edited (top left, top right, bottom right, bottom left).
    ///
    /// The pixels are those of the stores: read them, write into copies. Empty as GetImage is.
    /// Cost: O(e); O(p) for each cut among the edits.
    cv::Mat GetUnwarpedImage(std::array<QPointF, 4>& corners);
    /// Applies the edits to image; empty, with a log line, on a failure. While a working image from Read is unedited,
    /// an image of its size is not warped. @return the outline's bounds (model units)
    /// Cost: O(p + e).
    QRectF RestoreImage(cv::Mat& image);
    /// Removes the shape from the cache store, so that the next GetImage computes the display image.
    void RemoveImageCache();
    /// Records that the picture is to be inverted. The record is kept, but no pixel changes. Always true.
    bool Reverse();

    // Geometry.

    /// Rebuilds the outline from rect; the type bytes too.
    void SetPoints(QRectF rect);
    /// Sets the rectangle that the unedited picture covers (model units). It becomes outline and painter path; edits
    /// that are kept (not bClearOperations) show with the next UpdatePainterPath. A cached display image is treated as
    /// in SetImage. A rectangle that is not finite is ignored.
    void SetOrgRect(QRectF rect, bool bClearOperations);
    /// That rectangle.
    QRectF GetOrgRect();
    /// Bounds of the painter path as it was last built; null when there is none.
    QRectF GetImageRect();
    /// Bounds of the painter path, brought up to date first when bUpdate. Cost: O(e) when bUpdate.
    QRectF GetRect(bool bUpdate) override;
    void UpdatePainterPath() override;
    /// The temporary path when there is one, else the painter path, built when absent.
    QPainterPath GetShapeImagePath();
    /// Always true.
    bool IsClose() override;
    /// Whether p lies in the bounds; the scale has no effect.
    bool Contains(QPointF p, double scale) override;
    /// Whether p lies in the painter path or within tolerance of it. False while there is no painter path.
    bool Hit(QPointF p, int& tolerance) override;
    /// The outline's edges. Cost: O(1).
    /// @param tolerance ignored: the edges are straight
    std::vector<QLineF> Flatten(double tolerance) override;

    // Edits. Rotate, the committed mirrors, Resize and UpdateCropImage drop the cached display image and leave the
    // painter path as it was: call GetRect(true) for the new bounds. Offset drops the painter path and keeps the cached
    // image. Reverse, Crop and MovePos drop neither. Non-finite arguments, magnitudes beyond 1e100 among them, change
    // nothing; the result, where there is one, is false.

    /// Consecutive moves are one edit.
    bool Offset(double dx, double dy) override;
    /// Consecutive rotations about one centre (within 1e-5) are one edit. The axis has no effect.
    bool Rotate(double angle, QPointF centre, Qt::Axis axis) override;
    bool MirrorX(double axis) override;
    bool MirrorY(double axis) override;
    /// While not bCommit, shows the mirrored outline as the temporary path. With bCommit the mirror becomes three
    /// edits: a flip about the vertical line through the centre, a turn, a move. False when the points coincide.
    /// Cost: O(e).
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit) override;
    /// Fits the bounds onto target. False for an empty one.
    bool Resize(QRectF target) override;
    /// Keeps the part cut (pixels of the picture as it now lies) and places it on target. Ignored when one of them is
    /// not finite.
    void UpdateCropImage(QRectF cut, QRectF target);
    /// Does nothing; true.
    bool Crop(QRectF rect);
    /// Centres the unedited rectangle on pos and moves outline and painter path along; the edits stay where they are.
    void MovePos(QPointF pos);

    /// Converts the geometry of the edits from pixels to millimetres; rectangle and outline stay. Null is ignored.
    /// Cost: O(e).
    void ChangePix2MM(IRuler* ruler);
    /// The same from millimetres to pixels. Cost: O(e).
    void ChangeMM2Pix(IRuler* ruler);

    // Document record. A document holds the display image and the original image, both as edited.

    /// Always 0. Computes both images, unless an up-to-date display image is cached, and caches the display image.
    /// Cost: O(p + e).
    int Save(QFile* file) override;
    /// Always 0. Replaces everything that the shape held, pixels included. Versions up to 12 have no original image and
    /// no process info. Impossible sizes give an empty image; pixels that are missing are black. Cost: O(bytes).
    int Read(QFile* file, int version) override;

private:
    static constexpr size_t kFilenameBytes = 260;

    /// What the entry in the cache store is, where there is one.
    enum class ECached
    {
        Shown,    ///< the display image, made by GetImage or put there by the host
        Saved,    ///< the display image, so far used by Save only
        Outdated, ///< a shown one, older than the picture or its rectangle: still shown, never saved
        Hidden    ///< neither shown nor saved: the edited original, or an outdated image that only Save used
    };

    /// What is known of the shape's entries in the stores. A copy starts with the defaults; an assignment keeps the
    /// target's, outdated by the new rectangle.
    struct StoreNotes
    {
        StoreNotes() = default;
        StoreNotes(const StoreNotes&) {}
        StoreNotes& operator=(const StoreNotes& other)
        {
            if (this != &other)
                Outdate();
            return *this;
        }
        void Outdate();

        bool bRead = false;         ///< working picture and rectangle are those from Read
        bool bOriginalRead = false; ///< so are original picture and rectangle
        ECached cached = ECached::Shown;
    };

    SHAPEMODEL_NO_EXPORT cv::Mat* GetOriginaleMatPtr() const;
    SHAPEMODEL_NO_EXPORT cv::Mat* OriginalOrWorkingImage();
    SHAPEMODEL_NO_EXPORT cv::Mat OriginalImage(bool bRaw);
    SHAPEMODEL_NO_EXPORT cv::Mat WorkingImage();
    SHAPEMODEL_NO_EXPORT cv::Mat DisplayImage(bool bSave);
    SHAPEMODEL_NO_EXPORT bool IsOfWorkingSize(const cv::Mat& image) const;
    SHAPEMODEL_NO_EXPORT cv::Mat Edited(const cv::Mat& base, bool bRead);
    SHAPEMODEL_NO_EXPORT bool IsUnwarped(bool bRead) const;
    SHAPEMODEL_NO_EXPORT const cv::Mat* CachedDisplayImage(bool bSave);
    SHAPEMODEL_NO_EXPORT void Cache(cv::Mat image, ECached kind);
    SHAPEMODEL_NO_EXPORT void OutdateCache();
    SHAPEMODEL_NO_EXPORT void AdoptCorners(const std::array<QPointF, 4>& corners);
    SHAPEMODEL_NO_EXPORT void ShowRect(const QRectF& rect);
    SHAPEMODEL_NO_EXPORT void Append(EIMAGE_OPERATION code, const QVariant& argument);
    SHAPEMODEL_NO_EXPORT void SharePixels(CShapeImage* src);
    SHAPEMODEL_NO_EXPORT void SetFilename(const char* path);
    SHAPEMODEL_NO_EXPORT bool ReadFilename(shapes::RecordReader& reader);
    SHAPEMODEL_NO_EXPORT void ReadProcessInfo(shapes::RecordReader& reader);
    SHAPEMODEL_NO_EXPORT void ForgetDocument();

    static ImageMgr* s_pImageMgr;
    static ImageMgr* s_pOrgImageMgr;
    static ImageMgr* s_pCacheImageMgr;

    Property m_eProperty = PROPERTY_NONE;
    std::array<char, kFilenameBytes> m_szFilename{};
    EFILE_FORMAT m_eFileFormat = EFILE_FORMAT_DEFAULT;
    unsigned int m_nXDpi = 96;
    unsigned int m_nYDpi = 96;
    QRectF m_rcOrg;
    SImageProcessInfo m_processInfo;
    QList<ImageOperation> m_listOperations;
    double m_dRotateAngle = 0.0;
    StoreNotes m_storeNotes;
};
