#include "svg/PagePainter.h"

#include <QDeadlineTimer>
#include <QImage>
#include <QThread>

#include <cairo-svg.h>
#include <gio/gio.h>
#include <librsvg/rsvg.h>
#include <malloc.h>

#include <chrono>
#include <cmath>
#include <exception>
#include <memory>
#include <new>
#include <optional>

namespace shapedocument::drawing {

namespace {

constexpr double kUnitsPerInch = 96;

constexpr double kUnitsPerMm = kGridPerMm / 256; // the vector page rounds to 1/256 of its unit
/// Coordinates are 24 bits before the point, so this is the largest page.
constexpr double kPageSide = 8'000'000;
/// The renderer needs up to 9 KB per level.
constexpr unsigned kStackBytes = kMostNested * 16 * 1024;

/// Turns off effects that would turn outlines into pixels or hide them.
constexpr char kStyle[] = "* { filter: none !important; mask: none !important; mix-blend-mode: normal !important;"
                          " isolation: auto !important }"
                          ":root { overflow: visible !important }";

struct Release
{
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    void operator()(GInputStream* stream) const { g_object_unref(stream); }
    void operator()(GCancellable* cancellable) const { g_object_unref(cancellable); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
template <class T>
using Owned = std::unique_ptr<T, Release>;

/// Asks the painting thread to stop.
class Stop
{
public:
    void Ask() { g_cancellable_cancel(m_asked.get()); }
    bool IsAsked() const { return g_cancellable_is_cancelled(m_asked.get()); }
    GCancellable* Cancellable() const { return m_asked.get(); }

private:
    Owned<GCancellable> m_asked{g_cancellable_new()};
};

/// A length in user units; none for a percentage.
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

/// The receiver of the page's text.
struct PageText
{
    PageReader reader;
    const Stop& stop;
};

cairo_status_t Read(void* page, const unsigned char* bytes, unsigned count)
{
    auto& [reader, stop] = *static_cast<PageText*>(page);
    if (stop.IsAsked())
        return CAIRO_STATUS_WRITE_ERROR;
    try {
        reader.Feed(QByteArrayView(bytes, qsizetype{count}));
    } catch (const std::exception&) { // none may pass through the renderer
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

Owned<RsvgHandle> Load(const QByteArray& svg, const Stop& stop, QString& error)
{
    GError* raised = nullptr;
    const Owned<GInputStream> stream(g_memory_input_stream_new_from_data(svg.constData(), svg.size(), nullptr));
    constexpr auto kFlags = RsvgHandleFlags(RSVG_HANDLE_FLAG_UNLIMITED | RSVG_HANDLE_FLAG_KEEP_IMAGE_DATA);
    Owned<RsvgHandle> handle(
        rsvg_handle_new_from_stream_sync(stream.get(), nullptr, kFlags, stop.Cancellable(), &raised));
    if (handle) {
        rsvg_handle_set_dpi(handle.get(), kUnitsPerInch);
        rsvg_handle_set_stylesheet(handle.get(), reinterpret_cast<const guint8*>(kStyle), sizeof kStyle - 1, &raised);
    }
    if (const Owned<GError> fault{raised})
        error = QString("is no SVG drawing (%1)").arg(QString::fromUtf8(fault->message).simplified());
    return handle;
}

/// Fills the page except for a border (page units). Without a border it removes what has been painted before.
void PaintGround(cairo_t* context, double border)
{
    cairo_save(context);
    cairo_identity_matrix(context);
    cairo_rectangle(context, border, border, kPageSide - 2 * border, kPageSide - 2 * border);
    cairo_fill(context);
    cairo_restore(context);
}

/// From 1.18 on cairo paints pictures anew, by default with more dots than any memory holds. They are left out.
void LimitPictures(cairo_surface_t* surface, double unitsPerMm)
{
    constexpr double kDotsPerMm = 1, kUnitsPerDotInch = 72;
    const double perUnit = kDotsPerMm / unitsPerMm * kUnitsPerDotInch;
    if (cairo_version() >= CAIRO_VERSION_ENCODE(1, 17, 6))
        cairo_surface_set_fallback_resolution(surface, perUnit, perUnit);
}

void Fail(QString& error, const QString& reason)
{
    if (error.isEmpty())
        error = QString("cannot be painted (%1)").arg(reason.simplified());
}

/// Throws std::bad_alloc.
void FailAt(cairo_status_t status, QString& error)
{
    if (status == CAIRO_STATUS_NO_MEMORY)
        throw std::bad_alloc();
    if (status != CAIRO_STATUS_SUCCESS)
        Fail(error, cairo_status_to_string(status));
}

struct Page
{
    QSizeF size; ///< user units
    double unitsPerMm;
    bool solid; ///< without dashes
    const std::vector<HeldPicture>& held;
};

/// Paints a page by draw(context, viewport), which returns an error. A ground is painted first: an area that holds all
/// others, which the surface would otherwise unite one by one; PageReader leaves it out. Returns the error.
template <class Draw>
QString Render(const Page& page, const ItemVisit& visit, const Stop& stop, Draw draw)
{
    QString error;
    if (stop.IsAsked())
        return "stopped";
    const double scale = page.unitsPerMm * kMmPerUnit;
    const double left = std::floor((kPageSide - page.size.width() * scale) / 2);
    const double top = std::floor((kPageSide - page.size.height() * scale) / 2);
    const QTransform toMm =
        QTransform::fromTranslate(-left, -top) * QTransform::fromScale(1 / page.unitsPerMm, 1 / page.unitsPerMm);
    PageText text{PageReader(toMm, page.solid, page.held, visit), stop};
    const Owned<cairo_surface_t> surface(cairo_svg_surface_create_for_stream(Read, &text, kPageSide, kPageSide));
    LimitPictures(surface.get(), page.unitsPerMm);
    const Owned<cairo_t> context(cairo_create(surface.get()));
    PaintGround(context.get(), 0);
    cairo_translate(context.get(), left, top);
    cairo_scale(context.get(), scale, scale);
    const RsvgRectangle viewport{0, 0, page.size.width(), page.size.height()};
    if (const Owned<GError> fault = draw(context.get(), viewport))
        Fail(error, QString::fromUtf8(fault->message));
    FailAt(cairo_status(context.get()), error);
    cairo_surface_finish(surface.get());
    FailAt(cairo_surface_status(surface.get()), error);
    const QString unread = text.reader.Finish();
    return error.isEmpty() ? unread : error;
}

/// Paints texts singly. Errors are ignored: such a text is not found on the page and stays outlines.
void PaintTexts(RsvgHandle* handle, cairo_t* context, const RsvgRectangle& viewport, const QStringList& texts,
                const Stop& stop)
{
    for (const QString& id : texts) {
        if (stop.IsAsked())
            return;
        GError* raised = nullptr;
        if (!id.isEmpty())
            rsvg_handle_render_layer(handle, context, ('#' + id).toUtf8().constData(), &viewport, &raised);
        const Owned<GError> error(raised);
        PaintGround(context, 1);
    }
}

template <class Draw>
QString Overview(QSizeF size, Draw draw, const PaintTask& task, const Stop& stop)
{
    const QString error = Render({size, kUnitsPerMm / kOverview, true, task.held}, task.overviewItem, stop, draw);
    return error.isEmpty() ? task.judge() : error;
}

QString FaultOf(QSizeF size)
{
    constexpr double kLargestPage = kPageReach / kMmPerUnit;
    if (!(size.width() > 0 && size.height() > 0))
        return "has no size";
    if (!(size.width() <= kLargestPage && size.height() <= kLargestPage))
        return "is too large: its page has more than 50 m";
    return {};
}

void PaintPages(PaintTask& task, const Stop& stop, PaintResult& result)
{
    Owned<RsvgHandle> handle = Load(task.svg, stop, result.error);
    task.svg = {};
    if (!result.error.isEmpty())
        return;
    const QSizeF size = PageSize(handle.get());
    result.page = size * kMmPerUnit;
    result.error = FaultOf(size);
    if (!result.error.isEmpty())
        return;
    const auto whole = [&](cairo_t* context, const RsvgRectangle& viewport) {
        GError* error = nullptr;
        rsvg_handle_render_document(handle.get(), context, &viewport, &error);
        return Owned<GError>(error);
    };
    if (task.overviewItem)
        result.error = Overview(size, whole, task, stop);
    if (!result.error.isEmpty())
        return;
    const double unitsPerMm = task.grid == Grid::Fine ? kUnitsPerMm : kUnitsPerMm / kCoarse;
    if (!task.texts.isEmpty())
        Render({size, unitsPerMm, true, task.held}, task.textItem, stop,
               [&](cairo_t* context, const RsvgRectangle& viewport) {
                   PaintTexts(handle.get(), context, viewport, task.texts, stop);
                   return Owned<GError>();
               });
    // Frees the drawing before the page is written: both are large.
    result.error = Render({size, unitsPerMm, task.solid, task.held}, task.item, stop,
                          [&](cairo_t* context, const RsvgRectangle& viewport) {
                              Owned<GError> error = whole(context, viewport);
                              handle.reset();
                              malloc_trim(0);
                              return error;
                          });
}

/// Waits for the thread and reports progress. If asked to stop, throws Stopped after the thread has ended.
void WaitFor(QThread& thread, const WorkProgress& progress, Stop& stop)
{
    constexpr std::chrono::milliseconds kBetween(20);
    const WorkWatch watch(progress, WorkStep::Painting);
    while (!thread.wait(QDeadlineTimer(kBetween)))
        if (!stop.IsAsked() && !watch.GoesOn())
            stop.Ask();
    if (stop.IsAsked())
        throw Stopped();
}

/// Paints a white dot as the renderer paints pictures: its edge is repeated.
void PaintDot(cairo_t* context)
{
    const Owned<cairo_surface_t> dot(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1));
    const Owned<cairo_t> pixel(cairo_create(dot.get()));
    cairo_set_source_rgb(pixel.get(), 1, 1, 1);
    cairo_paint(pixel.get());
    cairo_set_source_surface(context, dot.get(), 0, 0);
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
    cairo_rectangle(context, 0, 0, 1, 1);
    cairo_clip(context);
    cairo_paint(context);
}

bool KeepPicture()
{
    bool kept = false;
    const ItemVisit look = [&](const PaintedItem& item) { kept = kept || !QImage::fromData(item.picture).isNull(); };
    Render({{1, 1}, kUnitsPerMm / kOverview, true, {}}, look, Stop(), [](cairo_t* context, const RsvgRectangle&) {
        PaintDot(context);
        return Owned<GError>();
    });
    return kept;
}

bool KeepFarPath()
{
    bool kept = false;
    const Stop stop;
    QString error;
    const Owned<RsvgHandle> handle =
        Load("<svg xmlns='http://www.w3.org/2000/svg'><path d='M0 0H1e20' stroke='red'/></svg>", stop, error);
    const ItemVisit look = [&](const PaintedItem&) { kept = true; };
    Render({{1, 1}, kUnitsPerMm / kOverview, true, {}}, look, stop,
           [&](cairo_t* context, const RsvgRectangle& viewport) {
               GError* fault = nullptr;
               rsvg_handle_render_document(handle.get(), context, &viewport, &fault);
               return Owned<GError>(fault);
           });
    return kept;
}

} // namespace

bool PagesKeepPictures()
{
    static const bool kept = KeepPicture();
    return kept;
}

bool PagesKeepFarPaths()
{
    static const bool kept = KeepFarPath();
    return kept;
}

PaintResult PaintDrawing(PaintTask task)
{
    WorkWatch(task.progress, WorkStep::Painting).Ask();
    PaintResult result;
    std::exception_ptr thrown; // an exception of the painting thread, as for memory
    Stop stop;
    const WorkProgress progress = std::move(task.progress);
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            PaintPages(task, stop, result);
        } catch (...) {
            thrown = std::current_exception();
        }
    }));
    thread->setStackSize(kStackBytes);
    thread->start();
    WaitFor(*thread, progress, stop);
    malloc_trim(0); // other threads cannot use what this one has freed
    if (thrown)
        std::rethrow_exception(thrown);
    return result;
}

} // namespace shapedocument::drawing
