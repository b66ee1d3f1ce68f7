/// The resolution of pictures in a process whose Qt finds no image plug-ins but one, which refuses pictures of one
/// pixel.
#include "ProcessTest.h"
#include "image/ImageFiles.h"
#include "image/ImageResolution.h"
#include "image/PictureHeader.h"

#include <QImage>
#include <QImageIOHandler>
#include <QImageIOPlugin>
#include <QtPlugin>

namespace {

class WebpHandler : public QImageIOHandler
{
public:
    bool canRead() const override { return true; }
    bool read(QImage* image) override
    {
        const QByteArray file = device()->readAll();
        const auto header = shapes::ReadPictureHeader(
            {reinterpret_cast<const unsigned char*>(file.constData()), static_cast<size_t>(file.size())});
        if (!header || header->width == 1)
            return false;
        *image = QImage(static_cast<int>(header->width), static_cast<int>(header->height), QImage::Format_Grayscale8);
        return true;
    }
};

} // namespace

class WebpReader : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "WebpReader.json")

public:
    Capabilities capabilities(QIODevice*, const QByteArray& format) const override
    {
        return format == "webp" ? CanRead : Capabilities();
    }
    QImageIOHandler* create(QIODevice* device, const QByteArray& format) const override
    {
        auto* handler = new WebpHandler;
        handler->setDevice(device);
        handler->setFormat(format);
        return handler;
    }
};

#include "ImageReadersTest.moc"

Q_IMPORT_PLUGIN(WebpReader)

namespace {

using namespace test;

/// "300x150", or "none".
std::string Dpi(const QByteArray& file)
{
    unsigned int x = 0, y = 0;
    return shapes::GetImageDpi(file, x, y) ? std::to_string(x) + "x" + std::to_string(y) : "none";
}

/// PNG, BMP and portable maps are Qt's own, JPEG and TIFF need plug-ins; 72 where Qt cannot read a file.
TEST(ImageReaders, the_file_itself_is_asked_where_its_small_copy_is_refused)
{
    QCoreApplication::setLibraryPaths({}); // before the first picture is read
    const cv::Mat picture(100, 200, CV_8U, cv::Scalar(90));
    const std::pair<QByteArray, const char*> rows[] = {
        {Encoded(".webp", picture), "96x96"},
        {PngWithDensity(picture, 11811, 5906), "300x150"},
        {Encoded(".png", picture), "96x96"},
        {BmpWithDensity(picture, 11811, 5906), "300x150"},
        {Encoded(".pgm", picture), "96x96"},
        {Jpeg(Jfif(1, 300, 150), picture), "300x150"},
        {Jpeg(Jfif(0, 300, 150), picture), "72x72"},
        {Encoded(".tiff", picture, {cv::IMWRITE_TIFF_RESUNIT, 2, cv::IMWRITE_TIFF_XDPI, 300}), "72x72"},
    };
    for (const auto& [file, expected] : rows)
        EXPECT_EQ(Dpi(file), expected) << file.left(16).toHex().toStdString();
}

} // namespace
