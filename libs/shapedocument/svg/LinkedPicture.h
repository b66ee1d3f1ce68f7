/// Reads the pictures to which drawings refer, to embed them.
#pragma once

#include <QByteArray>
#include <QString>

namespace shapedocument::drawing {

enum class LinkedKind
{
    Missing,   ///< no picture, unreadable or too large
    Elsewhere, ///< not beside the drawing
    Picture,
    Drawing ///< an SVG
};

struct Linked
{
    LinkedKind kind = LinkedKind::Missing;
    QByteArray bytes;
    bool incomplete = false; ///< the file ends early: bytes is the part that could be read
};

/// The picture of a reference: a data URI, or the name of a regular file in baseFile's folder or below. Returns PNG and
/// JPEG unchanged, which the renderer reads itself; other kinds are converted to PNG.
Linked ResolvePicture(const QString& reference, const QString& baseFile);

/// A picture as a data URI.
QString DataUri(const Linked& linked);

} // namespace shapedocument::drawing
