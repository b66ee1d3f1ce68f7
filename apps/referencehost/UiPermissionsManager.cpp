#include "host/UiPermissionsManager.h"

CUiPermissionsManager* CUiPermissionsManager::GetInstance()
{
    static CUiPermissionsManager instance;
    return &instance;
}

QString CUiPermissionsManager::GetThemeName()
{
    return qEnvironmentVariable("SHAPEHOST_THEME", QStringLiteral("Etchwright"));
}
