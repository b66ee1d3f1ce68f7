/// Locates faults in the text of a drawing.
#pragma once

#include <QByteArray>
#include <QXmlStreamReader>

namespace shapedocument::drawing {

/// The line of the reader's error. For bytes that are invalid in the encoding, the reader itself gives the first line
/// of a block.
qint64 LineOfFault(const QXmlStreamReader& reader, const QByteArray& bytes);

/// The name of a namespace declaration with a prefix and an empty value, which this reader accepts and the renderer
/// does not; empty for none.
QString UndeclaringName(const QXmlStreamAttributes& attributes);

} // namespace shapedocument::drawing
