/// The host's functions as a table, for programs that cannot take the place of functions by defining their own: where a
/// program's symbols do not come before those of its libraries (see docs/porting.md), or where it loads these libraries
/// late.
#pragma once

#include "shapehost_export.h"

#include <QString>

/// Functions of the host. Each may be null: then the reference host's does the work. They are called from every thread
/// that works on a document, several at once too, and must not throw.
struct SHostFunctions
{
    /// Receives each line of the log, as ILog_WriteLog does: an ELOG_LEVEL, and UTF-8 that is valid during the call.
    void (*WriteLog)(int level, const char* text) = nullptr;
    /// The name of the theme, as CUiPermissionsManager::GetThemeName returns it.
    QString (*ThemeName)() = nullptr;
};

/// Sets the host's functions, once for the process and before its first use of the libraries. Functions that the
/// program defines itself (host/ILog.h, host/UiPermissionsManager.h) come before those of the table.
/// @return false, and nothing changed, when functions have been set or one of the reference host's has been called
SHAPEHOST_EXPORT bool SetHostFunctions(const SHostFunctions& functions);
