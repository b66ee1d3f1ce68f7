/// Checks documents against their format before they are read.
#pragma once

#include "document/DocumentFile.h"

/// How the file is to be read, after every byte of it was checked against the format: the library reads a stream that
/// ends early as far as it goes and reports no error. Throws shapedocument::Failure with the first fault. Cost:
/// O(bytes).
shapedocument::StreamFormat CheckedFormat(const QString& path);
