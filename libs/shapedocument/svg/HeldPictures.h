/// Outlines that hold the places of pictures, for pages on which pictures do not stay what they are.
#pragma once

#include <QByteArray>
#include <QPainterPath>
#include <QSize>

#include <vector>

namespace shapedocument::drawing {

struct DrawingSource;
struct Paint;

struct HeldPicture
{
    QByteArray file; ///< PNG or JPEG
    QSize pixels;
};

/// Replaces the pictures of source.svg by outlines that are placed, clipped and hidden as they would be, and moves them
/// to source.held. Embedded drawings stay.
void HoldPictures(DrawingSource& source);

/// The picture whose place is this painted path; null for other paths. Its first three points are the picture's
/// corners: top left, top right, bottom left.
const HeldPicture* FindHeld(const std::vector<HeldPicture>& held, const Paint& fill, const QPainterPath& path);

} // namespace shapedocument::drawing
