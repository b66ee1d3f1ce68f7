/// The one error of this library: a file and the reason why it could not be read, made sense of or written.
#pragma once

#include "shapedocument_export.h"

#include <QString>

namespace shapedocument {

/// Thrown by value. Nothing has been written then, and a file that was to be replaced is unchanged.
struct SHAPEDOCUMENT_EXPORT Failure
{
    QString file;   ///< as the caller named it
    QString reason; ///< continues a sentence that begins with the file's name
};

} // namespace shapedocument
