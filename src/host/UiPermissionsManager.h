/// The host's permissions singleton, from which the library reads the name of the theme.
#pragma once

#include "shapehost_export.h"

#include <QString>

/// Tells what the user interface may show. The theme name selects the resources directory.
class SHAPEHOST_EXPORT CUiPermissionsManager
{
public:
    /// The one instance; never null, never to be freed.
    static CUiPermissionsManager* GetInstance();

    /// Name of the theme, for instance "Etchwright". Asked on every thread that works on a document.
    QString GetThemeName();
};
