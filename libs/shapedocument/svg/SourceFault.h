/// Where the text of a drawing is at fault.
#pragma once

#include <QByteArray>
#include <QXmlStreamReader>

namespace shapedocument::drawing {

/// The line of the reader's error. The reader itself names the first line of a block where bytes are no letters of the
/// encoding.
qint64 LineOfFault(const QXmlStreamReader& reader, const QByteArray& bytes);

/// A declaration of a prefix that stands for nothing, which this reader takes and the renderer does not; empty for
/// none.
QString UndeclaringName(const QXmlStreamAttributes& attributes);

} // namespace shapedocument::drawing
