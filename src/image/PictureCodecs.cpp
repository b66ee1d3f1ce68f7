#include "image/PictureCodecs.h"

#include "host/ILog.h"
#include "host/OwnFolder.h"

#include <QByteArray>
#include <QFile>

#include <dlfcn.h>

// Null unless linked in. A weak name would not take the codecs out of an archive, so static builds always have them.
#ifndef SHAPEMODEL_STATIC_DEFINE
#pragma weak ShapemodelPictureCodecs
#endif

namespace shapes {

namespace {

const PictureCodecs* LoadCodecs()
{
    if (const auto linkedIn = &ShapemodelPictureCodecs)
        return linkedIn();
    const QByteArray file = QFile::encodeName(OwnFolder() + QStringLiteral("/shapemodel/libPictureCodecs.so"));
    // Never unloaded: decoders keep state of their own until the process ends.
    void* module = dlopen(file.constData(), RTLD_NOW | RTLD_LOCAL);
    void* entry = module ? dlsym(module, "ShapemodelPictureCodecs") : nullptr;
    if (!entry) {
        const char* error = dlerror();
        ILog_WriteLogF(ELOG_FAILURE, "pictures cannot be decoded: %s", error ? error : "no codecs");
        return nullptr;
    }
    return reinterpret_cast<decltype(&ShapemodelPictureCodecs)>(entry)();
}

} // namespace

const PictureCodecs* Codecs()
{
    static const PictureCodecs* const codecs = LoadCodecs();
    return codecs;
}

cv::Mat DecodePicture(const cv::Mat& bytes, int flags)
{
    const PictureCodecs* codecs = Codecs();
    return codecs ? codecs->decode(bytes, flags) : cv::Mat();
}

} // namespace shapes
