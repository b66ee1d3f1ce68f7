/// Pictures of documents, shapes and jobs.
#include "Arguments.h"
#include "Buffer.h"
#include "Entry.h"
#include "Home.h"
#include "Job.h"
#include "Structs.h"
#include "document/ShapeWalk.h"
#include "render/PicturePage.h"

#include "list/ShapeListView.h"

#include <QBuffer>
#include <QPainter>

using namespace capi;
using namespace shapedocument;

namespace {

constexpr char kPicture[] = "picture"; ///< its name in messages

sm_render_options DefaultRender()
{
    constexpr int kUsualWidth = 800;
    return {sizeof(sm_render_options), SM_PICTURE_PNG, kUsualWidth, 0, nullptr, nullptr};
}

QByteArray Painted(const PicturePage& page, const sm_render_options& options, const WorkProgress& progress)
{
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    WritePicture(device, page, static_cast<PictureFormat>(options.format), options.width, kPicture, progress);
    return device.data();
}

/// The rectangle around all shapes (mm). Makes their outlines one by one, so that progress can be reported.
QRectF RectOf(CShapeList& list, const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Measuring, list.GetCount());
    for (unsigned int i = 0; progress && i < list.GetCount(); ++i) {
        list.GetShape(i)->GetRect(false);
        watch.Next();
    }
    return list.GetRect(false);
}

QByteArray PictureOf(CShapeList& list, const sm_render_options& options)
{
    Expect(OutlineCount(list) <= kMostOutlines, SM_REFUSED, "its arrays ask for too many outlines");
    Progress told(options);
    const WorkProgress progress = told.OfWork();
    const Sheet sheet(RectOf(list, progress), kPicture);
    const auto paint = [&](QPainter& painter) {
        DrawShapes(painter, list, sheet.Unit(), progress);
        if (options.points)
            DrawPoints(painter, list, sheet.Unit(), progress);
    };
    return Painted({sheet, paint}, options, progress);
}

QByteArray PictureOf(Job& job, const sm_render_options& options)
{
    const MachineWork work = job.Work();
    const Sheet sheet(work.Rect(), kPicture);
    Progress told(options);
    const WorkProgress progress = told.OfWork();
    const auto paint = [&](QPainter& painter) {
        if (work.EngravedShapes() > 0)
            DrawShapes(painter, job.Shapes(), sheet.Unit(), progress);
        DrawOrder(painter, work.job, sheet.Unit(), progress);
    };
    return Painted({sheet, paint}, options, progress);
}

Kind KindOf(sm_handle handle)
{
    const TableLock table;
    const std::shared_ptr<Object>* object = table->Find(handle);
    Expect(object != nullptr, SM_BAD_HANDLE, "the handle stands for nothing");
    return (*object)->KindOf();
}

QByteArray PictureOf(sm_handle handle, const sm_render_options& options)
{
    switch (KindOf(handle)) {
    case Kind::Document:
        return PictureOf(DocumentUse(handle).List(), options);
    case Kind::Shape: {
        const ShapeUse use(handle);
        return PictureOf(ShapeListView(*use).List(), options);
    }
    case Kind::Job:
        return PictureOf(*JobUse(handle), options);
    case Kind::Buffer:
        break;
    }
    throw Refusal{SM_WRONG_KIND, "a buffer cannot be drawn"};
}

} // namespace

sm_status sm_render_options_defaults(sm_render_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, DefaultRender()); });
}

sm_status sm_render(sm_handle handle, const sm_render_options* options, sm_buffer* picture)
{
    return Enter([=] {
        Clear(picture, "picture");
        const sm_render_options taken = WithDefaults(options, DefaultRender());
        ExpectBetween(taken.format, SM_PICTURE_PNG, SM_PICTURE_PDF, "format");
        ExpectBetween(taken.width, kLeastPixels, kMostPixels, "width");
        Making([&] { *picture = Lent(PictureOf(handle, taken)); });
    });
}
