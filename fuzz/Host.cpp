/// The host of the fuzz targets: it drops what is logged.
#include "host/ILog.h"
#include "host/UiPermissionsManager.h"

void ILog_WriteLog(int, const char*) {}

void ILog_WriteLogF(int, const char*, ...) {}

CUiPermissionsManager* CUiPermissionsManager::GetInstance()
{
    static CUiPermissionsManager instance;
    return &instance;
}

QString CUiPermissionsManager::GetThemeName()
{
    return QStringLiteral("Etchwright");
}
