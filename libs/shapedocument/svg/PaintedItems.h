/// What a painted page holds: outlines and pictures, in painting order.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QPainterPath>
#include <QRgb>
#include <QSize>
#include <QTransform>

#include <functional>
#include <memory>
#include <vector>

namespace shapedocument::drawing {

/// An area outside of which nothing is painted, and the one around it.
struct ClipArea
{
    QPainterPath area; ///< mm; its fill rule counts
    std::shared_ptr<const ClipArea> outer;
};

/// A painted path, or a picture where picture is not empty.
struct PaintedItem
{
    QPainterPath path; ///< mm, y down; areas are closed
    QRgb color = 0;    ///< 0xRRGGBB; of the stroke where there is one
    bool filled = false;
    bool stroked = false;
    bool opaque = false;     ///< filled, and nothing below shows through
    bool whiteFill = false;  ///< filled with white, as paper is
    bool dashed = false;     ///< path holds the dashes
    bool dashesKept = false; ///< path is whole because its dashes cannot be drawn
    int tiledPictures = 0;   ///< that its fill repeats, and that are not there as items
    int text = -1;           ///< number of the drawing's text that it is; none
    std::shared_ptr<const ClipArea> clip;

    QByteArray picture; ///< the bytes of a PNG or JPEG file
    QSize pixels;       ///< of the picture
    QTransform onPage;  ///< from the picture's pixels to mm
};

using ItemVisit = std::function<void(PaintedItem&)>;

/// Reads a page as it is written, without holding its text, and shows its items one by one. What a path is filled and
/// stroked with is one item. The page begins with a ground, which is not shown.
class PageReader
{
public:
    /// toMillimetres: from the page's coordinates; solid: without dashes.
    PageReader(const QTransform& toMillimetres, bool solid, const ItemVisit& visit);
    ~PageReader();
    /// The next bytes of the page's text.
    void Take(QByteArrayView bytes);
    /// Shows the last items. Returns the error, empty for none.
    QString Finish();

private:
    class Content;
    std::unique_ptr<Content> m_content;
};

} // namespace shapedocument::drawing
