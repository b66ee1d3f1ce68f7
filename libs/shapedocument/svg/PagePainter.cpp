#include "svg/PagePainter.h"

#include <QThread>

#include <cairo-svg.h>
#include <librsvg/rsvg.h>
#include <malloc.h>

#include <cmath>
#include <memory>
#include <optional>

namespace shapedocument::drawing {

namespace {

constexpr double kMmPerUnit = 25.4 / 96;
constexpr double kUnitsPerInch = 96;

constexpr double kUnitsPerMm = kGridPerMm / 256; // the vector page rounds to 1/256 of its unit
/// Coordinates are 24 bits before the point, so this is the largest page.
constexpr double kPageSide = 8'000'000;
/// The renderer needs up to 9 KB per level.
constexpr unsigned kStackBytes = kMostNested * 16 * 1024;

/// What is neither outline nor ink would make pixels of the outlines, or hide them.
constexpr char kStyle[] = "* { filter: none !important; mask: none !important; mix-blend-mode: normal !important;"
                          " isolation: auto !important }"
                          ":root { overflow: visible !important }";

struct Release
{
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    void operator()(GInputStream* stream) const { g_object_unref(stream); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
template <class T>
using Owned = std::unique_ptr<T, Release>;

/// In user units; none for a share of something unknown.
std::optional<double> InUserUnits(const RsvgLength& length)
{
    constexpr double kPointsPerInch = 72, kPicasPerInch = 6, kMmPerCm = 10, kDefaultFont = 12;
    switch (length.unit) {
    case RSVG_UNIT_PX:
        return length.length;
    case RSVG_UNIT_IN:
        return length.length * kUnitsPerInch;
    case RSVG_UNIT_CM:
        return length.length * kMmPerCm / kMmPerUnit;
    case RSVG_UNIT_MM:
        return length.length / kMmPerUnit;
    case RSVG_UNIT_PT:
        return length.length * kUnitsPerInch / kPointsPerInch;
    case RSVG_UNIT_PC:
        return length.length * kUnitsPerInch / kPicasPerInch;
    case RSVG_UNIT_EM:
        return length.length * kDefaultFont;
    case RSVG_UNIT_EX:
        return length.length * kDefaultFont / 2;
    default:
        return {};
    }
}

std::optional<double> Given(gboolean has, const RsvgLength& length)
{
    return has ? InUserUnits(length) : std::nullopt;
}

/// The page in user units. A side that the root does not give follows the view box.
QSizeF PageSize(RsvgHandle* handle)
{
    constexpr QSizeF kDefaultPage(300, 150);
    gboolean hasWidth, hasHeight, hasBox;
    RsvgLength widthGiven, heightGiven;
    RsvgRectangle box;
    rsvg_handle_get_intrinsic_dimensions(handle, &hasWidth, &widthGiven, &hasHeight, &heightGiven, &hasBox, &box);
    const auto width = Given(hasWidth, widthGiven), height = Given(hasHeight, heightGiven);
    if (!hasBox)
        return {width.value_or(kDefaultPage.width()), height.value_or(kDefaultPage.height())};
    if (width && !height)
        return {*width, *width * box.height / box.width};
    if (height && !width)
        return {*height * box.width / box.height, *height};
    return {width.value_or(box.width), height.value_or(box.height)};
}

cairo_status_t Append(void* page, const unsigned char* bytes, unsigned count)
{
    try {
        static_cast<PaintedPage*>(page)->vectors.append(reinterpret_cast<const char*>(bytes), count);
    } catch (const std::bad_alloc&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

Owned<RsvgHandle> Load(const QByteArray& svg, PaintedPage& page)
{
    GError* raised = nullptr;
    const Owned<GInputStream> stream(g_memory_input_stream_new_from_data(svg.constData(), svg.size(), nullptr));
    constexpr auto kFlags = RsvgHandleFlags(RSVG_HANDLE_FLAG_UNLIMITED | RSVG_HANDLE_FLAG_KEEP_IMAGE_DATA);
    Owned<RsvgHandle> handle(rsvg_handle_new_from_stream_sync(stream.get(), nullptr, kFlags, nullptr, &raised));
    if (handle) {
        rsvg_handle_set_dpi(handle.get(), kUnitsPerInch);
        rsvg_handle_set_stylesheet(handle.get(), reinterpret_cast<const guint8*>(kStyle), sizeof kStyle - 1, &raised);
    }
    if (const Owned<GError> error{raised})
        page.error = QString("is no SVG drawing (%1)").arg(QString::fromUtf8(error->message).simplified());
    return handle;
}

/// Fills the page but for a border of so many units. Without a border it takes away what has been painted before.
void PaintGround(cairo_t* context, double border)
{
    cairo_save(context);
    cairo_identity_matrix(context);
    cairo_rectangle(context, border, border, kPageSide - 2 * border, kPageSide - 2 * border);
    cairo_fill(context);
    cairo_restore(context);
}

void Fail(PaintedPage& page, const QString& reason)
{
    if (page.error.isEmpty())
        page.error = QString("cannot be painted (%1)").arg(reason.simplified());
}

/// draw(context, viewport) returns an error. The ground below it is one area that holds all others, which the page
/// otherwise unites one by one; ReadPainted leaves it out.
template <class Draw>
void Render(QSizeF size, double unitsPerMm, PaintedPage& page, Draw draw)
{
    const double scale = unitsPerMm * kMmPerUnit;
    const double left = std::floor((kPageSide - size.width() * scale) / 2);
    const double top = std::floor((kPageSide - size.height() * scale) / 2);
    const Owned<cairo_surface_t> surface(cairo_svg_surface_create_for_stream(Append, &page, kPageSide, kPageSide));
    const Owned<cairo_t> context(cairo_create(surface.get()));
    PaintGround(context.get(), 0);
    cairo_translate(context.get(), left, top);
    cairo_scale(context.get(), scale, scale);
    const RsvgRectangle viewport{0, 0, size.width(), size.height()};
    if (const Owned<GError> error = draw(context.get(), viewport))
        Fail(page, QString::fromUtf8(error->message));
    if (const auto status = cairo_status(context.get()); status != CAIRO_STATUS_SUCCESS)
        Fail(page, cairo_status_to_string(status));
    cairo_surface_finish(surface.get());
    if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
        Fail(page, cairo_status_to_string(status));
    page.vectors.squeeze();
    page.toMillimetres = QTransform::fromTranslate(-left, -top) * QTransform::fromScale(1 / unitsPerMm, 1 / unitsPerMm);
    page.size = size * kMmPerUnit;
}

/// What cannot be painted is found nowhere later, and stays outlines.
void PaintTexts(RsvgHandle* handle, cairo_t* context, const RsvgRectangle& viewport, const QStringList& texts)
{
    for (const QString& id : texts) {
        GError* raised = nullptr;
        if (!id.isEmpty())
            rsvg_handle_render_layer(handle, context, ('#' + id).toUtf8().constData(), &viewport, &raised);
        const Owned<GError> error(raised);
        PaintGround(context, 1);
    }
}

template <class Draw>
QString Overview(QSizeF size, Draw draw, const JudgePage& judge)
{
    PaintedPage overview;
    Render(size, kUnitsPerMm / kOverview, overview, draw);
    return overview.error.isEmpty() ? judge(overview) : overview.error;
}

void Paint(QByteArray svg, Grid grid, const QStringList& texts, const JudgePage& judge, PaintedDrawing& drawing)
{
    PaintedPage& page = drawing.page;
    Owned<RsvgHandle> handle = Load(svg, page);
    svg = {};
    if (!page.error.isEmpty())
        return;
    constexpr double kLargestPage = kReach / kMmPerUnit;
    const QSizeF size = PageSize(handle.get());
    if (!(size.width() > 0 && size.height() > 0))
        page.error = "has no size";
    else if (!(size.width() <= kLargestPage && size.height() <= kLargestPage))
        page.error = "is too large: its page has more than 50 m";
    if (!page.error.isEmpty())
        return;
    const auto whole = [&](cairo_t* context, const RsvgRectangle& viewport) {
        GError* error = nullptr;
        rsvg_handle_render_document(handle.get(), context, &viewport, &error);
        return Owned<GError>(error);
    };
    if (judge)
        page.error = Overview(size, whole, judge);
    if (!page.error.isEmpty())
        return;
    const double unitsPerMm = grid == Grid::Fine ? kUnitsPerMm : kUnitsPerMm / kCoarse;
    if (!texts.isEmpty())
        Render(size, unitsPerMm, drawing.texts, [&](cairo_t* context, const RsvgRectangle& viewport) {
            PaintTexts(handle.get(), context, viewport, texts);
            return Owned<GError>();
        });
    // Lets go of the drawing before the page is written: both are large.
    Render(size, unitsPerMm, page, [&](cairo_t* context, const RsvgRectangle& viewport) {
        Owned<GError> error = whole(context, viewport);
        handle.reset();
        return error;
    });
}

} // namespace

PaintedDrawing PaintDrawing(QByteArray svg, Grid grid, const QStringList& texts, const JudgePage& judge)
{
    PaintedDrawing drawing;
    PaintedPage& page = drawing.page;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            Paint(std::move(svg), grid, texts, judge, drawing);
        } catch (const std::bad_alloc&) {
            page.vectors.clear();
        }
    }));
    thread->setStackSize(kStackBytes);
    thread->start();
    thread->wait();
    malloc_trim(0); // what the thread has freed is of no use to the others
    if (page.vectors.isEmpty() && page.error.isEmpty())
        page.error = "cannot be painted (no memory)";
    return drawing;
}

} // namespace shapedocument::drawing
