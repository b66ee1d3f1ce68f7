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

/// Fills the whole page first: one area that holds all others, which the page otherwise unites one by one. ReadPainted
/// leaves it out.
void PaintGround(cairo_t* context)
{
    cairo_rectangle(context, 0, 0, kPageSide, kPageSide);
    cairo_fill(context);
}

void Fail(PaintedPage& page, const QString& reason)
{
    if (page.error.isEmpty())
        page.error = QString("cannot be painted (%1)").arg(reason.simplified());
}

/// Lets go of the drawing before the page is written: both are large.
void Render(Owned<RsvgHandle> handle, QSizeF size, double unitsPerMm, PaintedPage& page)
{
    const double scale = unitsPerMm * kMmPerUnit;
    const double left = std::floor((kPageSide - size.width() * scale) / 2);
    const double top = std::floor((kPageSide - size.height() * scale) / 2);
    const Owned<cairo_surface_t> surface(cairo_svg_surface_create_for_stream(Append, &page, kPageSide, kPageSide));
    const Owned<cairo_t> context(cairo_create(surface.get()));
    PaintGround(context.get());
    cairo_translate(context.get(), left, top);
    cairo_scale(context.get(), scale, scale);
    const RsvgRectangle viewport{0, 0, size.width(), size.height()};
    GError* raised = nullptr;
    rsvg_handle_render_document(handle.get(), context.get(), &viewport, &raised);
    handle.reset();
    if (const Owned<GError> error{raised})
        Fail(page, QString::fromUtf8(error->message));
    if (const auto status = cairo_status(context.get()); status != CAIRO_STATUS_SUCCESS)
        Fail(page, cairo_status_to_string(status));
    cairo_surface_finish(surface.get());
    if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
        Fail(page, cairo_status_to_string(status));
    page.toMillimetres = QTransform::fromTranslate(-left, -top) * QTransform::fromScale(1 / unitsPerMm, 1 / unitsPerMm);
    page.size = size * kMmPerUnit;
}

void Paint(QByteArray svg, PaintedDrawing& drawing)
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
    Render(Owned<RsvgHandle>(static_cast<RsvgHandle*>(g_object_ref(handle.get()))), size, kUnitsPerMm / kOverview,
           drawing.overview);
    page.error = drawing.overview.error;
    if (page.error.isEmpty())
        Render(std::move(handle), size, kUnitsPerMm, page);
}

} // namespace

PaintedDrawing PaintDrawing(QByteArray svg)
{
    PaintedDrawing drawing;
    PaintedPage& page = drawing.page;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            Paint(std::move(svg), drawing);
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
