/// The files around drawings: pages, encodings, other files, and drawings made to do harm.
#include "svg/DrawingText.h"

#include "svg/DrawingSource.h"
#include "svg/PagePainter.h"
#include "svg/WholePage.h"

#include "image/ImageMgr.h"
#include "image/ShapeImage.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <tuple>

using namespace test;
using namespace shapedocument;

namespace {

TEST(DrawingPage, has_the_size_that_the_root_gives)
{
    // Of a line of 96 units to the right and down, from 96, 48.
    const std::pair<const char*, const char*> rows[] = {
        {"", "M 25.4,12.7 L 50.8,38.1"},
        {"width='192' height='192'", "M 25.4,12.7 L 50.8,38.1"},
        {"width='192mm' height='192mm' viewBox='0 0 192 192'", "M 96,48 L 192,144"},
        {"viewBox='96 48 192 192'", "M 0,0 L 25.4,25.4"},
        {"width='4in' viewBox='0 0 192 100'", "M 50.8,25.4 L 101.6,76.2"},
        {"width='100%' height='100%' viewBox='0 0 192 192'", "M 25.4,12.7 L 50.8,38.1"},
        {"width='392mm' height='192mm' viewBox='0 0 192 192'", "M 196,48 L 292,144"},
        {"width='392mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='xMinYMid'", "M 96,48 L 192,144"},
        {"width='384mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='none'", "M 192,48 L 384,144"},
        {"width='384mm' height='192mm' viewBox='0 0 192 192' preserveAspectRatio='xMidYMin slice'",
         "M 192,96 L 384,288 | M 192,96 L 288,192"}, // some renderers cut it at the page
    };
    for (const auto& [root, shapes] : rows) {
        const std::string text = ShapesText(ImportDrawing(QByteArray("<svg xmlns='http://www.w3.org/2000/svg' ") +
                                                              root + "><path d='M96 48l96 96' stroke='#000'/></svg>",
                                                          {}, {}));
        EXPECT_EQ(text, OneOf(shapes, text)) << root;
    }
}

/// A chain: each element's content refers to the one before.
QByteArray Chain(int length, const char* begin, const char* middle, const char* end)
{
    QByteArray chain;
    for (int i = 1; i < length; ++i)
        chain += begin + QByteArray::number(i) + middle + QByteArray::number(i - 1) + end;
    return chain;
}

TEST(DrawingFile, is_refused_with_the_reason)
{
    QByteArray explosion; // ten levels of ten uses each would be ten thousand million squares
    for (int i = 1; i <= 10; ++i)
        explosion += "<g id='a" + QByteArray::number(i) + "'>" +
                     ("<use href='#a" + QByteArray::number(i - 1) + "'/>").repeated(10) + "</g>";
    const QByteArray entities = "<!DOCTYPE svg [<!ENTITY a 'xxxxxxxxxxxxxxxxxxxx'><!ENTITY b '" +
                                QByteArray("&a;").repeated(10) + "'><!ENTITY c '" + QByteArray("&b;").repeated(10) +
                                "'><!ENTITY d '" + QByteArray("&c;").repeated(10) + "'>]><svg><text>&d;</text></svg>";
    const std::tuple<const char*, QByteArray, const char*> rows[] = {
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
        {"deep", Drawing(QByteArray("<g>").repeated(2000) + QByteArray("</g>").repeated(2000)),
         "nests its elements too deep"},
        {"uses", Drawing("<g id='a0'/>" + Chain(6000, "<g id='a", "'><use href='#a", "'/></g>")),
         "nests its references too deep"},
        {"patterns", Drawing(Chain(6000, "<pattern id='a", "'><rect fill='url(#a", ")'/></pattern>")),
         "nests its references too deep"},
        {"rules",
         Drawing("<style>" + Chain(6000, ".a", "{fill:url(#a", ")}") + "</style>" +
                 Chain(6000, "<pattern id='a", "'><rect class='a", "'/></pattern>")),
         "nests its references too deep"},
        {"uses of uses", Drawing("<rect id='a0' width='1' height='1'/>" + explosion),
         "paints more than 300000 elements by references"},
        {"entities", entities,
         "is no SVG drawing (line 1: Entity expands to more characters than the entity expansion limit.)"},
    };
    for (const auto& [name, bytes, error] : rows)
        EXPECT_EQ(ImportDrawing(bytes, {}, {}).error.toStdString(), error) << name;
    const QByteArray equalIds = QByteArray("<g id='a'><rect width='1' height='1'/></g>").repeated(700);
    EXPECT_EQ(ImportDrawing(Drawing(equalIds), {}, {}).error, "") << "references lead to the first only";
    const DrawingImport outer =
        ImportDrawing("<!DOCTYPE svg [<!ENTITY a SYSTEM '/etc/passwd'><!ENTITY b PUBLIC '-//b' 'b.xml'>"
                      "<!ENTITY c 'c'>]><svg><text>&a;&b;</text></svg>",
                      {}, {});
    EXPECT_EQ(ShapesText(outer), "");
    EXPECT_EQ(ReportText(outer), "2 references to other files left out");
}

TEST(DrawingFile, reads_other_encodings_and_undeclared_names)
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

    ImageMgr m_working;
    QByteArray m_png;
};

TEST_F(DrawingPicture, stands_where_it_is_painted_cut_at_its_clip)
{
#define PICTURE_OF(attributes) "<image x='10' y='20' width='40' HREF " attributes "/>"
#define PICTURE PICTURE_OF("height='20'")
    const auto* whole = "picture M 10,20 L 50,20 L 50,40 L 10,40 L 10,20";
    struct Placed
    {
        const char* content;
        const char* shapes;
        int corner = 128, centre = 128; ///< grey of what is left
        const char* report = "";
        bool crop = false;
    };
    const Placed rows[] = {
        {PICTURE, whole},
        {PICTURE_OF("height='40'"), "picture M 10,30 L 50,30 L 50,50 L 10,50 L 10,30"},
        {"<g transform='translate(70) rotate(90)'>" PICTURE "</g>", "picture M 50,10 L 50,50 L 30,50 L 30,10 L 50,10"},
        // Its own place shows a part of it.
        {PICTURE_OF("preserveAspectRatio='xMidYMid slice' height='40'"),
         "picture M 10,20 L 50,20 L 50,60 L 10,60 L 10,20"},
        {PICTURE_OF("height='20' transform='translate(60)'"), "picture M 70,20 L 100,20 L 100,40 L 70,40 L 70,20", 128,
         128, "", true},
        {WITHIN("<rect x='10' y='20' width='40' height='20'/>", PICTURE), whole}, // its own edge
        {WITHIN("<circle cx='30' cy='30' r='30'/>", PICTURE), whole},
        {WITHIN("<rect x='10' y='20' width='33' height='20'/>", PICTURE),
         "picture M 10,20 L 43,20 L 43,40 L 10,40 L 10,20"},
        {WITHIN("<circle cx='30' cy='30' r='20'/>", PICTURE), whole, 255, 128},
        {WITHIN("<path d='M0 0H99V99H0z M20 25V35H40V25z'/>", PICTURE), whole, 128, 255}, // a hole in it
        {WITHIN("<path d='M20 20H60L20 60z'/>", PICTURE), "picture M 20,20 L 50,20 L 50,40 L 20,40 L 20,20"},
        {WITHIN("<rect width='5' height='5'/>", PICTURE), ""},
        {WITHIN("<path d='M60 0H99V99H0V60H60z'/>", PICTURE), ""}, // only their boxes meet
        {"<pattern id='p' width='10' height='10' patternUnits='userSpaceOnUse'><image width='4' height='2' HREF/>"
         "</pattern><rect width='30' height='30' fill='url(#p)'/>",
         "M 0,0 L 30,0 L 30,30 L 0,30 L 0,0", 0, 0, "1 picture left out"},
    };
    for (const Placed& row : rows) {
        SCOPED_TRACE(row.content);
        const QByteArray content =
            QByteArray(row.content).replace("HREF", "href='data:image/png;base64," + m_png.toBase64() + "'");
        const DrawingImport drawing = Imported(content, {.crop = row.crop});
        EXPECT_EQ(ShapesText(drawing), row.shapes);
        EXPECT_EQ(ReportText(drawing), row.report);
        auto* image = drawing.shapes.empty() ? nullptr : dynamic_cast<CShapeImage*>(drawing.shapes[0].get());
        if (!image)
            continue;
        const cv::Mat grey = image->GetImage(true);
        EXPECT_EQ(grey.at<uchar>(0, 0), row.corner);
        EXPECT_EQ(grey.at<uchar>(grey.rows / 2, grey.cols / 2), row.centre);
    }
}

/// The corners of painted pictures, in mm: top left, top right, bottom left.
std::string CornersText(const std::vector<drawing::PaintedItem>& items)
{
    std::string text;
    for (const drawing::PaintedItem& item : items) {
        if (item.picture.isEmpty())
            continue;
        const double width = item.pixels.width(), height = item.pixels.height();
        for (const QPointF& corner : {QPointF(), QPointF(width, 0), QPointF(0, height)}) {
            const QPointF at = item.onPage.map(corner);
            text += std::to_string(std::lround(at.x())) + "," + std::to_string(std::lround(at.y())) + " ";
        }
    }
    return text;
}

TEST_F(DrawingPicture, has_its_place_held_where_pages_do_not_keep_it)
{
    const auto painted = [](const QByteArray& content, bool hold) {
        drawing::DrawingSource source = drawing::CleanDrawing(Drawing(content), {}, {}, {});
        if (hold)
            drawing::HoldPictures(source);
        DrawingImport result;
        return CornersText(drawing::PaintWhole(source, false, result, {})) + ReportText(result);
    };
    const auto* whole = "10,20 50,20 10,40 ";
    const struct
    {
        const char* content;
        const char* corners;
    } rows[] = {
        {PICTURE, whole},
        {PICTURE_OF("height='40'"), "10,30 50,30 10,50 "},
        {PICTURE_OF("height='40' preserveAspectRatio='none'"), "10,20 50,20 10,60 "},
        {PICTURE_OF("height='40' preserveAspectRatio='xMidYMid slice'"), "-10,20 70,20 -10,60 "},
        {"<g transform='translate(70) rotate(90)'>" PICTURE "</g>", "50,10 50,50 30,10 "},
        {PICTURE_OF("height='20' transform='scale(-1 1)'"), "-10,20 -50,20 -10,40 "},
        {PICTURE_OF(""), "28,20 32,20 28,22 "}, // a side that is not given is the picture's own
        {"<image x='10' y='20' height='auto' style='width:40px' HREF/>", "28,20 32,20 28,22 "},
        {"<image x='10' y='20' height='20' HREF/>", "10,29 14,29 10,31 "},
        {"<image x='10' y='20' HREF/>", "10,20 14,20 10,22 "},
        {"<style>image { display: none }</style>" PICTURE, ""},
        {"<g visibility='hidden'>" PICTURE "</g>", ""},
        {"<defs>" PICTURE_OF("id='i' height='20'") "</defs><use href='#i' y='30' width='3' height='3'/>",
         "10,50 50,50 10,70 "},
    };
    for (const auto& row : rows) {
        const QByteArray content =
            QByteArray(row.content).replace("HREF", "href='data:image/png;base64," + m_png.toBase64() + "'");
        EXPECT_EQ(painted(content, true), row.corners) << row.content;
        if (drawing::PagesKeepPictures()) {
            EXPECT_EQ(painted(content, false), row.corners) << row.content;
        }
    }
}

TEST_F(DrawingPicture, of_any_kind_comes_in_and_torn_ones_are_told)
{
    QImage picture(64, 64, QImage::Format_RGB32);
    for (int i = 0; i < 64 * 64; ++i)
        picture.setPixel(i % 64, i / 64, qRgb(i * 7 % 256, i * 31 % 256, i * 101 % 256));
    const auto report = [&](const char* kind, double share) {
        QBuffer file;
        picture.save(&file, kind);
        const QByteArray bytes = file.data().first(static_cast<qsizetype>(share * file.data().size())).toBase64();
        const DrawingImport drawing = Imported("<image width='64' height='64' href='data:;base64," + bytes + "'/>");
        return std::to_string(drawing.shapes.size()) + " " + ReportText(drawing);
    };
    for (const char* kind : {"PNG", "JPG", "BMP"})
        EXPECT_EQ(report(kind, 1), "1 ") << kind;
    for (const char* kind : {"JPG", "BMP"})
        EXPECT_EQ(report(kind, 0.5), "1 1 picture incomplete, as its file ends early") << kind;
    EXPECT_EQ(report("PNG", 0.1), "0 1 picture left out");
}

TEST_F(DrawingPicture, comes_from_beside_the_drawing_only)
{
    const QTemporaryDir folder;
    const QString drawing = folder.filePath("in/drawing.svg"), above = folder.filePath("above.png");
    QDir(folder.path()).mkdir("in");
    for (const QString& name : {folder.filePath("in/beside.png"), above}) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(m_png);
    }
    ASSERT_EQ(mkfifo(folder.filePath("in/pipe.png").toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(above, folder.filePath("in/link.png")));
    const auto report = [](const QString& href, const QString& base) {
        const DrawingImport import =
            ImportDrawing(Drawing("<image width='4' height='2' href='" + href.toUtf8() + "'/>"), base, {});
        return std::to_string(import.shapes.size()) + " " + ReportText(import);
    };
    EXPECT_EQ(report("beside.png", drawing), "1 ");
    for (const QString& href : {QString("../above.png"), QString("pipe.png"), QString("link.png"), QString("none.png"),
                                "file://" + above, QString("http://localhost/a.png"), QString("//host/a.png")})
        EXPECT_EQ(report(href, drawing), "0 1 picture left out") << href.toStdString();
    EXPECT_EQ(report("beside.png", {}), "0 1 picture left out");
}

} // namespace
