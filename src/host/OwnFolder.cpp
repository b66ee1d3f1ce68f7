#include "host/OwnFolder.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace shapes {

QString OwnFolder()
{
    Dl_info info{};
    return dladdr(reinterpret_cast<const void*>(&OwnFolder), &info) && info.dli_fname
               ? QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath()
               : QString();
}

} // namespace shapes
