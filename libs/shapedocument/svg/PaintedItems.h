/// The items of a painted page: outlines and pictures, in painting order.
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

struct HeldPicture;

/// A clip, and the clip around it.
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
    bool opaque = false;     ///< filled with full opacity
    bool whiteFill = false;  ///< filled with white, as paper is
    bool dashed = false;     ///< path holds the dashes
    bool dashesKept = false; ///< path is whole because its dashes cannot be drawn
    int tiledPictures = 0;   ///< pictures that its pattern repeats, which are not imported
    int text = -1;           ///< index of the drawing's text that it is; -1: none
    std::shared_ptr<const ClipArea> clip;

    QByteArray picture; ///< the bytes of a PNG or JPEG file
    QSize pixels;       ///< of the picture
    QTransform onPage;  ///< from the picture's pixels to mm
};

using ItemVisit = std::function<void(PaintedItem&)>;

/// Reads a page while it is written, without keeping its text, and calls visit with each item. The fill and the stroke
/// of a path are one item. The ground with which a page starts is left out.
class PageReader
{
public:
    /// toMillimetres: from the page's coordinates; solid: dashed lines become solid; held: pictures in whose places
    /// the page has outlines; held and visit: borrowed.
    PageReader(const QTransform& toMillimetres, bool solid, const std::vector<HeldPicture>& held,
               const ItemVisit& visit);
    ~PageReader();
    /// The next bytes of the page's text.
    void Feed(QByteArrayView bytes);
    /// Calls visit with the last items. Returns the error, empty for none.
    QString Finish();

private:
    class Content;
    std::unique_ptr<Content> m_content;
};

} // namespace shapedocument::drawing
