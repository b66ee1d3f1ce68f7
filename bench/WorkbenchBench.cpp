/// Frames of the workbench's canvas: a real widget that is painted into a picture of its size, without a screen. The
/// pointer's events are sent as the window system sends them, then the widget is rendered, so a time is that of a whole
/// frame but for handing it to the screen. The limits beside it: copying the canvas, and painting the dragged outlines
/// alone.
#include "canvas/CanvasView.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Transforms.h"
#include "job/JobCanvas.h"
#include "tools/SelectTool.h"
#include "window/MainWindow.h"

#include "vector/ShapeVector.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace {

constexpr QSize kCanvas(1600, 1000);
constexpr int kColumns = 250, kRows = 200; // 50,000 shapes
constexpr double kPitch = 6;               // mm from shape to shape
constexpr int kSelected = 1000;

class NoQuestions : public Questions
{
public:
    Unsaved AskUnsaved(const QString&) override { return Unsaved::Discard; }
    bool AskYesNo(const QString&, const QString&) override { return false; }
    bool AskLoss(const QString&, const QString&) override { return false; }
    QStringList AskFiles(const QString&, const QString&, bool) override { return {}; }
    QString AskSaveFile(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<std::vector<double>> AskNumbers(const QString&, const std::vector<NumberField>&) override
    {
        return {};
    }
    void Tell(const QString&) override {}
    void Complain(const QString&) override {}
};

/// Rectangles, ellipses and wavy outlines of twelve curves, in several colours.
CShape* NewShapeAt(int i)
{
    auto* vector = static_cast<CShapeVector*>(CShape::NewShape(ESHAPE_VECTOR));
    const QRectF rect(i % kColumns * kPitch, i / kColumns * kPitch, 5, 4);
    if (i % 3 == 0) {
        vector->SetShapeRect(rect);
        vector->SetVectorType(EVECTOR_RECT);
    } else if (i % 3 == 1) {
        vector->SetShapeEllipse(rect);
        vector->SetVectorType(EVECTOR_ELLIPSE);
    } else {
        QPainterPath wave(rect.topLeft());
        for (int k = 0; k < 12; ++k)
            wave.cubicTo(wave.currentPosition() + QPointF(0.2, 2), wave.currentPosition() + QPointF(0.3, -2),
                         wave.currentPosition() + QPointF(0.4, 0.2));
        vector->ConvertPainterPathToLocalShapePoints(wave);
    }
    vector->SetColor(static_cast<unsigned>(i % 5) * 0x30201Fu);
    return vector;
}

/// 50,000 shapes on a canvas that shows all of them, every fiftieth selected.
struct Scene
{
    Scene()
    {
        std::vector<CShape*> shapes;
        for (int i = 0; i < kColumns * kRows; ++i)
            shapes.push_back(NewShapeAt(i));
        document.Insert("", shapes);
        view.resize(kCanvas);
        view.SetTool(std::make_unique<SelectTool>(view));
        view.show();
        view.SetBed({0, 0, kColumns * kPitch, kRows * kPitch});
        view.FitDrawing();
        std::vector<CShape*> some;
        for (size_t i = 0; i < kSelected; ++i)
            some.push_back(shapes[i * shapes.size() / kSelected]);
        document.Select(some);
    }

    /// A block of 40 x 25 neighbours, as large as they fit, instead of shapes from everywhere.
    void SelectBlock()
    {
        std::vector<CShape*> block;
        for (int i = 0; i < kSelected; ++i)
            block.push_back(document.Shapes().GetShape(static_cast<unsigned>((i / 40 * kColumns) + (i % 40))));
        document.Select(block);
        view.FitSelection();
    }

    void Send(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, at, view.mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
    }
    void Frame() { view.render(&frame); }
    QPointF Inside() { return view.View().ToPixel(view.SelectionRect().center()); }

    NoQuestions questions;
    WorkDocument document{questions};
    CanvasView view{document};
    QImage frame{kCanvas, QImage::Format_RGB32};
};

/// Made when it is needed first, and freed before the application is.
std::unique_ptr<Scene> s_scene;

Scene& TheScene()
{
    if (!s_scene)
        s_scene = std::make_unique<Scene>();
    return *s_scene;
}

void DragFrames(benchmark::State& state, Scene& scene)
{
    const QPointF from = scene.Inside();
    scene.Send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    double moved = 5;
    scene.Send(QEvent::MouseMove, from + QPointF(moved, 0), Qt::NoButton, Qt::LeftButton);
    scene.Frame(); // The first frame paints what stands still.
    for (auto _ : state) {
        moved = moved > 60 ? 5 : moved + 1;
        scene.Send(QEvent::MouseMove, from + QPointF(moved, moved / 2), Qt::NoButton, Qt::LeftButton);
        scene.Frame();
    }
    scene.view.Tool().Leave();
    state.counters["frames/s"] = benchmark::Counter(1, benchmark::Counter::kIsIterationInvariantRate);
}

void FrameOfDrag(benchmark::State& state)
{
    DragFrames(state, TheScene());
}
BENCHMARK(FrameOfDrag)->Name("drag 1,000 of 50,000 shapes, a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

void LimitOfDrag(benchmark::State& state)
{
    Scene& scene = TheScene();
    const QPixmap still(kCanvas);
    QPen pen(Qt::black, 1);
    pen.setCosmetic(true);
    for (auto _ : state) {
        QPainter painter(&scene.frame);
        painter.drawPixmap(0, 0, still);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setWorldTransform(scene.view.View().Matrix());
        painter.setPen(pen);
        for (CShape* shape : scene.document.Selection())
            painter.drawPath(*shape->GetPath(false));
    }
}
BENCHMARK(LimitOfDrag)
    ->Name("limit: copy the canvas, paint 1,000 outlines")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void FrameOfLargeDrag(benchmark::State& state)
{
    Scene scene;
    scene.SelectBlock();
    DragFrames(state, scene);
}
BENCHMARK(FrameOfLargeDrag)
    ->Name("drag 1,000 that fill the canvas, a frame")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void WholeFrame(benchmark::State& state)
{
    Scene& scene = TheScene();
    for (auto _ : state) {
        scene.view.FitDrawing(); // Everything is painted anew.
        scene.Frame();
    }
}
BENCHMARK(WholeFrame)
    ->Name("paint all 50,000 shapes (zoom, first frame of a drag)")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// What a nudge costs in the whole window, panels included.
void Edit(benchmark::State& state)
{
    NoQuestions questions;
    MainWindow window(questions);
    window.resize(kCanvas);
    window.show();
    std::vector<CShape*> shapes;
    for (int i = 0; i < kColumns * kRows; ++i)
        shapes.push_back(NewShapeAt(i));
    window.Document().Insert("", shapes);
    window.Canvas().FitDrawing();
    window.Document().Select({shapes.front()});
    QApplication::processEvents();
    for (auto _ : state) {
        MoveSelection(window.Document(), {1, 0});
        QApplication::processEvents();
    }
}
BENCHMARK(Edit)->Name("move one of 50,000 shapes in the window")->Unit(benchmark::kMillisecond)->UseRealTime();

/// What the window waits for at an autosave: the rest is written beside it.
void CopyForAutosave(benchmark::State& state)
{
    Scene& scene = TheScene();
    for (auto _ : state) {
        ShapeListOwner copy(scene.document.Shapes().Clone());
        state.PauseTiming(); // Another thread frees it.
        copy.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(CopyForAutosave)->Name("copy 50,000 shapes for an autosave")->Unit(benchmark::kMillisecond)->UseRealTime();

void FrameOfPan(benchmark::State& state)
{
    Scene& scene = TheScene();
    scene.view.FitDrawing();
    scene.Frame();
    int step = 0;
    for (auto _ : state) {
        scene.view.Pan(++step % 20 < 10 ? QPoint(4, 2) : QPoint(-4, -2));
        scene.Frame();
    }
}
BENCHMARK(FrameOfPan)->Name("pan, a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

void FrameOfHover(benchmark::State& state)
{
    Scene& scene = TheScene();
    scene.Frame();
    int step = 0;
    for (auto _ : state) {
        ++step;
        scene.Send(QEvent::MouseMove, QPointF(300 + step % 700, 300 + step % 300), Qt::NoButton, Qt::NoButton);
        scene.Frame();
    }
}
BENCHMARK(FrameOfHover)->Name("hover, a hit test and a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

/// The same shapes as a job, in the preview's canvas.
struct JobScene
{
    JobScene()
    {
        JobSettings settings;
        settings.bed = {kColumns * kPitch, kRows * kPitch};
        job = std::make_shared<const MadeJob>(ShapeListOwner(TheScene().document.Shapes().Clone()), settings,
                                              shapedocument::WorkProgress());
        view.resize(kCanvas);
        view.show();
        view.SetJob(job);
        view.Fit();
        view.SetTime(0);
        Frame();
    }

    void Frame() { view.render(&frame); }
    /// Until all tiles are there: a frame paints some of those that are missing.
    void Finish()
    {
        constexpr int kFrames = 300;
        for (int i = 0; i < kFrames; ++i)
            Frame();
    }
    void FrameAt(double part)
    {
        view.SetTime(part * job->Seconds());
        Frame();
    }

    std::shared_ptr<const MadeJob> job;
    JobCanvas view;
    QImage frame{kCanvas, QImage::Format_RGB32};
};

std::unique_ptr<JobScene> s_jobScene;

JobScene& TheJob()
{
    if (!s_jobScene)
        s_jobScene = std::make_unique<JobScene>();
    return *s_jobScene;
}

void JobFirstFrame(benchmark::State& state)
{
    JobScene& scene = TheJob();
    for (auto _ : state) {
        scene.view.SetJob(scene.job);
        scene.FrameAt(1);
    }
}
BENCHMARK(JobFirstFrame)->Name("job of 50,000 paths, the first frame")->Unit(benchmark::kMillisecond)->UseRealTime();

/// Twenty seconds for the whole job at 60 frames a second.
void JobPlay(benchmark::State& state)
{
    constexpr int kFrames = 1200;
    JobScene& scene = TheJob();
    scene.Finish();
    int frame = 0;
    for (auto _ : state)
        scene.FrameAt(double(++frame % kFrames) / kFrames);
}
BENCHMARK(JobPlay)->Name("job, play, a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

/// The slider is dragged back through the job, a five hundredth a frame.
void JobBack(benchmark::State& state)
{
    constexpr int kFrames = 500;
    JobScene& scene = TheJob();
    scene.FrameAt(1);
    scene.Finish();
    int frame = 0;
    for (auto _ : state)
        scene.FrameAt(1 - double(++frame % kFrames) / kFrames);
}
BENCHMARK(JobBack)->Name("job, slider dragged back, a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

/// From any time to any other.
void JobSeek(benchmark::State& state)
{
    JobScene& scene = TheJob();
    scene.FrameAt(1); // Everything has been seen once.
    scene.Finish();
    double part = 0;
    for (auto _ : state) {
        part = std::fmod(part + 0.382, 1);
        scene.FrameAt(part);
    }
}
BENCHMARK(JobSeek)->Name("job, any time, a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

void JobPan(benchmark::State& state)
{
    JobScene& scene = TheJob();
    scene.view.Fit();
    for (int i = 0; i < 4; ++i)
        scene.view.Zoom(1.25);
    scene.FrameAt(0.5);
    scene.Finish();
    int step = 0;
    for (auto _ : state) {
        scene.view.Pan(++step % 200 < 100 ? QPoint(7, 4) : QPoint(-7, -4));
        scene.Frame();
    }
}
BENCHMARK(JobPan)->Name("job, pan, a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

/// Each zoom voids all tiles: a frame shows the former picture, and what of the tiles has been painted in its time.
void JobZoom(benchmark::State& state)
{
    JobScene& scene = TheJob();
    scene.view.Fit();
    scene.FrameAt(0.5);
    int step = 0;
    for (auto _ : state) {
        scene.view.Zoom(++step % 20 < 10 ? 1.1 : 1 / 1.1);
        scene.Frame();
    }
}
BENCHMARK(JobZoom)->Name("job, zoom, a frame")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    s_jobScene.reset();
    s_scene.reset();
}
