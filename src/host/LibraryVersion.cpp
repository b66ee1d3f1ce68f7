#include "host/LibraryVersion.h"

const char* ShapeModelVersion()
{
    return SHAPEMODEL_VERSION;
}
