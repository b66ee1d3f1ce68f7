/// Recognises files by their first bytes, and unpacks drawings.
#pragma once

#include <QByteArray>
#include <QString>

namespace shapedocument::drawing {

/// "a PNG picture"; empty for text and for unknown kinds.
QString KindOf(const QByteArray& bytes);

bool IsCompressed(const QByteArray& bytes);

/// The content of a gzip file; null when it is damaged or has more than most bytes.
QByteArray Unpacked(const QByteArray& bytes, qsizetype most);

} // namespace shapedocument::drawing
