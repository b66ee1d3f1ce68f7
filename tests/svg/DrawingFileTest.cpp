/// The files around drawings: pages, encodings, other files, and drawings made to do harm.
#include "svg/DrawingText.h"

#include "image/ImageMgr.h"
#include "image/ShapeImage.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace test;
using namespace shapedocument;

namespace {

std::string Repeated(const std::string& text, int count)
{
    std::string all;
    while (count-- > 0)
        all += text;
    return all;
}

/// A chain: each element's content refers to the one before.
std::string Chain(int length, const std::string& begin, const std::string& middle, const std::string& end)
{
    std::string chain;
    for (int i = 1; i < length; ++i)
        chain += begin + std::to_string(i) + middle + std::to_string(i - 1) + end;
    return chain;
}

struct Page
{
    const char* name;
    const char* root;
    const char* box; ///< of a square of 96 units at 96, 48
};

const Page kPages[] = {
    {"no_size", "", "25.4,12.7,25.4,25.4"},
    {"pixels", "width='192' height='192'", "25.4,12.7,25.4,25.4"},
    {"millimetres", "width='192mm' height='192mm' viewBox='0 0 192 192'", "96,48,96,96"},
    {"view_box_alone", "viewBox='96 48 192 192'", "0,0,25.4,25.4"},
    {"width_alone", "width='4in' viewBox='0 0 192 100'", "50.8,25.4,50.8,50.8"},
    {"percent", "width='100%' height='100%' viewBox='0 0 192 192'", "25.4,12.7,25.4,25.4"},
    {"centred", "width='392mm' height='192mm' viewBox='0 0 192 192'", "196,48,96,96"},
    {"left", "width='392mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='xMinYMid'", "96,48,96,96"},
    {"stretched", "width='384mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='none'", "192,48,192,96"},
    {"sliced", "width='384mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='xMidYMin slice'",
     "192,96,192,192"},
};

TEST(DrawingPage, HasTheSizeThatTheRootGives)
{
    for (const Page& page : kPages)
        EXPECT_EQ(BoxesText(ImportDrawing(QByteArray("<svg xmlns='http://www.w3.org/2000/svg' ") + page.root +
                                              "><rect x='96' y='48' width='96' height='96'/></svg>",
                                          {}, {})),
                  page.box)
            << page.name;
}

struct Refused
{
    const char* name;
    QByteArray bytes;
    const char* error;
};

const QByteArray kEntities =
    "<!DOCTYPE svg [<!ENTITY a 'xxxxxxxxxxxxxxxxxxxx'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
    "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;'>]>"
    "<svg><text>&d;</text></svg>";

TEST(DrawingFile, IsRefusedWithTheReason)
{
    std::string explosion; // ten levels of ten uses each would be ten thousand million squares
    for (int i = 1; i <= 10; ++i)
        explosion += "<g id='a" + std::to_string(i) + "'>" +
                     Repeated("<use href='#a" + std::to_string(i - 1) + "'/>", 10) + "</g>";
    const Refused rows[] = {
        {"empty", "", "is empty"},
        {"png", "\x89PNG\r\n", "is no SVG drawing: it is a PNG picture"},
        {"pdf", "%PDF-1.4", "is no SVG drawing: it is a PDF document"},
        {"html", "<html/>", "is no SVG drawing"},
        {"torn", "<svg><g></svg>", "is no SVG drawing (line 1: Opening and ending tag mismatch.)"},
        {"torn in the middle", "<svg>\n<g>\n<a>\n</g></svg>",
         "is no SVG drawing (line 4: Opening and ending tag mismatch.)"},
        {"no letters", "<svg>\n<g/>\n<text>\xe4</text></svg>",
         "is no SVG drawing (line 3: Encountered incorrectly encoded content.)"},
        {"empty prefix", "<svg>\n<g xmlns:a=''/></svg>", "is no SVG drawing (line 2: 'xmlns:a' declares nothing)"},
        {"torn gzip", "\x1f\x8b\x08", "is damaged or too large when it is unpacked"},
        {"flat", Drawing("").replace("width='100mm'", "width='0'"), "has no size"},
        {"deep", Drawing(Repeated("<g>", 2000) + Repeated("</g>", 2000)), "nests its elements too deep"},
        {"uses", Drawing("<g id='a0'/>" + Chain(20000, "<g id='a", "'><use href='#a", "'/></g>")),
         "nests its references too deep"},
        {"patterns", Drawing(Chain(20000, "<pattern id='a", "'><rect fill='url(#a", ")'/></pattern>")),
         "nests its references too deep"},
        {"rules",
         Drawing("<style>" + Chain(6000, ".a", "{fill:url(#a", ")}") + "</style>" +
                 Chain(6000, "<pattern id='a", "'><rect class='a", "'/></pattern>")),
         "nests its references too deep"},
        {"uses of uses", Drawing("<rect id='a0' width='1' height='1'/>" + explosion),
         "paints more than 300000 elements by references"},
    };
    for (const Refused& row : rows)
        EXPECT_EQ(ImportDrawing(row.bytes, {}, {}).error.toStdString(), row.error) << row.name;
    EXPECT_FALSE(ImportDrawing(kEntities, {}, {}).error.isEmpty());
    const DrawingImport outer =
        ImportDrawing("<!DOCTYPE svg [<!ENTITY a SYSTEM '/etc/passwd'><!ENTITY b PUBLIC '-//b' 'b.xml'>"
                      "<!ENTITY c 'c'>]><svg><text>&a;&b;</text></svg>",
                      {}, {});
    EXPECT_EQ(ShapesText(outer), "");
    EXPECT_EQ(ReportText(outer), "2 references to other files left out");
}

TEST(DrawingFile, ReadsOtherEncodingsAndUndeclaredNames)
{
    const QString text =
        "<?xml version='1.0' encoding='%1'?><svg viewBox='0 0 96 96'><defs><path id='\u00e4' d='M0 0H96' "
        "stroke='red'/></defs><use xlink:href='#\u00e4'/></svg>";
    const QString words = text.arg("UTF-16");
    QByteArray wide("\xff\xfe");
    wide.append(reinterpret_cast<const char*>(words.utf16()), words.size() * 2);
    for (const QByteArray& bytes : {text.arg("UTF-8").toUtf8(), text.arg("ISO-8859-1").toLatin1(), wide})
        EXPECT_EQ(ShapesText(ImportDrawing(bytes, {}, {})), "M 0,0 L 25.4,0 #ff0000");
}

/// Pictures need stores.
class DrawingPicture : public testing::Test
{
protected:
    DrawingPicture()
    {
        CShapeImage::SetImageMgr(&m_working);
        QImage picture(4, 2, QImage::Format_RGB32);
        picture.fill(Qt::darkGray);
        QBuffer buffer(&m_png);
        picture.save(&buffer, "PNG");
    }
    ~DrawingPicture() override { CShapeImage::SetImageMgr(nullptr); }

    QString Path(const char* name) const { return m_folder.filePath(name); }

    void Write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    ImageMgr m_working;
    QByteArray m_png;
    QTemporaryDir m_folder;
};

TEST_F(DrawingPicture, StandsWhereItIsPainted)
{
    const std::string embedded = " href='data:image/png;base64," + m_png.toBase64().toStdString() + "'/>";
    const auto shapes = [&](const std::string& attributes) {
        return ShapesText(ImportDrawing(Drawing("<image " + attributes + embedded), {}, {}));
    };
    EXPECT_EQ(shapes("x='10' y='20' width='40' height='20'"), "picture M 10,20 L 50,20 L 50,40 L 10,40 L 10,20");
    EXPECT_EQ(shapes("x='10' y='20' width='40' height='40'"), "picture M 10,30 L 50,30 L 50,50 L 10,50 L 10,30");
    EXPECT_EQ(shapes("width='40' height='20' transform='translate(50 10) rotate(90)'"),
              "picture M 50,10 L 50,50 L 30,50 L 30,10 L 50,10");
}

TEST_F(DrawingPicture, IsCutAtItsClip)
{
    const std::string picture =
        "<image x='10' y='20' width='40' height='20' href='data:image/png;base64," + m_png.toBase64().toStdString();
    const std::string whole = "picture M 10,20 L 50,20 L 50,40 L 10,40 L 10,20";
    struct Clipped
    {
        const char* clip;
        std::string shapes;
        int corner, centre; ///< grey of what is left
    };
    const Clipped rows[] = {
        {"<rect x='10' y='20' width='40' height='20'/>", whole, 128, 128}, // its own edge
        {"<circle cx='30' cy='30' r='30'/>", whole, 128, 128},
        {"<rect x='10' y='20' width='33' height='20'/>", "picture M 10,20 L 43,20 L 43,40 L 10,40 L 10,20", 128, 128},
        {"<circle cx='30' cy='30' r='20'/>", whole, 255, 128},
        {"<path d='M0 0H99V99H0z M20 25V35H40V25z'/>", whole, 128, 255}, // a hole in it
        {"<path d='M20 20H60L20 60z'/>", "picture M 20,20 L 50,20 L 50,40 L 20,40 L 20,20", 128, 128},
        {"<rect width='5' height='5'/>", "", 0, 0},
        {"<path d='M60 0H99V99H0V60H60z'/>", "", 0, 0}, // only their boxes meet
    };
    for (const Clipped& row : rows) {
        const DrawingImport drawing = ImportDrawing(Drawing("<clipPath id='c'>" + std::string(row.clip) +
                                                            "</clipPath><g clip-path='url(#c)'>" + picture + "'/></g>"),
                                                    {}, {});
        EXPECT_EQ(ShapesText(drawing), row.shapes) << row.clip;
        EXPECT_EQ(ReportText(drawing), "") << row.clip;
        if (drawing.shapes.empty())
            continue;
        const cv::Mat grey = static_cast<CShapeImage&>(*drawing.shapes[0]).GetImage(true);
        EXPECT_EQ(grey.at<uchar>(0, 0), row.corner) << row.clip;
        EXPECT_EQ(grey.at<uchar>(grey.rows / 2, grey.cols / 2), row.centre) << row.clip;
    }
    // Its own place shows a part of it.
    EXPECT_EQ(ShapesText(ImportDrawing(
                  Drawing(picture + "' preserveAspectRatio='xMidYMid slice' height='40'/>").replace("height='20' ", ""),
                  {}, {})),
              "picture M 10,20 L 50,20 L 50,60 L 10,60 L 10,20");
    EXPECT_EQ(ShapesText(ImportDrawing(Drawing(picture + "' transform='translate(60)'/>"), {}, {.crop = true})),
              "picture M 70,20 L 100,20 L 100,40 L 70,40 L 70,20");
}

TEST_F(DrawingPicture, IsCountedWhereAPatternRepeatsIt)
{
    const DrawingImport drawing = ImportDrawing(
        Drawing("<pattern id='p' width='10' height='10' patternUnits='userSpaceOnUse'><image width='4' height='2' "
                "href='data:image/png;base64," +
                m_png.toBase64().toStdString() + "'/></pattern><rect width='30' height='30' fill='url(#p)'/>"),
        {}, {});
    EXPECT_EQ(ShapesText(drawing), "M 0,0 L 30,0 L 30,30 L 0,30 L 0,0");
    EXPECT_EQ(ReportText(drawing), "1 picture left out");
}

TEST_F(DrawingPicture, OfAnyKindComesInAndTornOnesAreTold)
{
    QImage picture(64, 64, QImage::Format_RGB32);
    for (int i = 0; i < 64 * 64; ++i)
        picture.setPixel(i % 64, i / 64, qRgb(i * 7 % 256, i * 31 % 256, i * 101 % 256));
    const auto report = [&](const char* kind, double share) {
        QBuffer file;
        picture.save(&file, kind);
        const QByteArray bytes = file.data().first(static_cast<qsizetype>(share * file.data().size())).toBase64();
        const DrawingImport drawing = ImportDrawing(
            Drawing("<image width='64' height='64' href='data:;base64," + bytes.toStdString() + "'/>"), {}, {});
        return std::to_string(drawing.shapes.size()) + " " + ReportText(drawing);
    };
    for (const char* kind : {"PNG", "JPG", "BMP"})
        EXPECT_EQ(report(kind, 1), "1 ") << kind;
    for (const char* kind : {"JPG", "BMP"})
        EXPECT_EQ(report(kind, 0.5), "1 1 picture incomplete, as its file ends early") << kind;
    EXPECT_EQ(report("PNG", 0.1), "0 1 picture left out");
}

TEST_F(DrawingPicture, ComesFromBesideTheDrawingOnly)
{
    const QString drawing = Path("in/drawing.svg");
    QDir(m_folder.path()).mkdir("in");
    Write(Path("in/beside.png"), m_png);
    Write(Path("above.png"), m_png);
    ASSERT_EQ(mkfifo(Path("in/pipe.png").toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(Path("above.png"), Path("in/link.png")));
    const auto report = [&](const QString& href, const QString& base) {
        const DrawingImport import =
            ImportDrawing(Drawing("<image width='4' height='2' href='" + href.toStdString() + "'/>"), base, {});
        return std::to_string(import.shapes.size()) + " " + ReportText(import);
    };
    EXPECT_EQ(report("beside.png", drawing), "1 ");
    for (const QString& href :
         {QString("../above.png"), QString("pipe.png"), QString("link.png"), QString("none.png"),
          "file://" + Path("above.png"), QString("http://localhost/a.png"), QString("//host/a.png")})
        EXPECT_EQ(report(href, drawing), "0 1 picture left out") << href.toStdString();
    EXPECT_EQ(report("beside.png", {}), "0 1 picture left out");
}

} // namespace
