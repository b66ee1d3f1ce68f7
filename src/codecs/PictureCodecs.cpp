// The module that decodes picture files: see image/PictureCodecs.h.
#include "image/PictureCodecs.h"

#include <opencv2/imgcodecs.hpp>

extern "C" __attribute__((visibility("default"))) const shapes::PictureCodecs* ShapemodelPictureCodecs()
{
    static const shapes::PictureCodecs codecs{
        [](const cv::Mat& bytes, int flags) { return cv::imdecode(bytes, flags); },
        [](const char* extension, const cv::Mat& image, std::vector<unsigned char>& bytes) {
            cv::imencode(extension, image, bytes);
        },
    };
    return &codecs;
}
