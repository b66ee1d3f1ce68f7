#include "host/UiPermissionsManager.h"

#include "SetFunctions.h"

CUiPermissionsManager* CUiPermissionsManager::GetInstance()
{
    static CUiPermissionsManager instance;
    return &instance;
}

QString CUiPermissionsManager::GetThemeName()
{
    if (const auto name = FunctionsInUse().ThemeName)
        return name();
    return qEnvironmentVariable("SHAPEHOST_THEME", QStringLiteral("Etchwright"));
}
