/// The one error of this library: a file, and why it could not be read, interpreted or written.
#pragma once

#include "shapedocument_export.h"

#include <QString>

namespace shapedocument {

/// Thrown by value. When it is thrown nothing has been written, and a file that was to be replaced is unchanged.
struct SHAPEDOCUMENT_EXPORT Failure
{
    QString file;   ///< as the caller named it
    QString reason; ///< continues a sentence that begins with the file's name
};

} // namespace shapedocument
