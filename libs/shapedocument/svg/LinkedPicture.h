/// Pictures that drawings refer to, as data that stands in the drawing itself.
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
    bool incomplete = false; ///< a picture whose file ends early: what there is of it
};

/// The bytes behind a reference: a data URI, or the name of a regular file in baseFile's folder or below. Pictures are
/// PNG or JPEG, which the renderer reads of itself; other kinds are made PNG.
Linked ResolvePicture(const QString& reference, const QString& baseFile);

/// As reference.
QString DataUri(const Linked& linked);

} // namespace shapedocument::drawing
