/// The host's log. The library calls these two functions; the reference host implements them, and a program that
/// defines them itself takes their place. Calls come from every thread that works on a document, several at once too.
#pragma once

#include "shapehost_export.h"

#if defined(__GNUC__)
#define SHAPEHOST_PRINTF_FORMAT __attribute__((format(printf, 2, 3)))
#else
#define SHAPEHOST_PRINTF_FORMAT
#endif

/// The levels that the library logs with.
enum ELOG_LEVEL : int
{
    ELOG_NOTE = 1,   ///< something was left out, replaced or could not be found; the operation went on
    ELOG_FAILURE = 3 ///< an operation failed and has no result
};

/// Writes one line to the host's log.
/// @param level an ELOG_LEVEL
/// @param text UTF-8, zero-terminated, written as it is
SHAPEHOST_EXPORT void ILog_WriteLog(int level, const char* text);

/// As ILog_WriteLog, with the text made from a printf format and its arguments.
SHAPEHOST_EXPORT void ILog_WriteLogF(int level, const char* format, ...) SHAPEHOST_PRINTF_FORMAT;
