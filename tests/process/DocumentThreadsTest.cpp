/// Two documents on two threads; built with the thread sanitizer, the plug-in too.
#include "ProcessTest.h"
#include "support/EveryKind.h"
#include "support/plugin/ScriptedPlugin.h"

#include <array>
#include <functional>
#include <regex>
#include <set>
#include <thread>

using namespace test;

/// The platform's libraries are built without the sanitizer, which therefore knows nothing of their locks.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_options()
{
    return "ignore_noninstrumented_modules=1";
}

namespace {

/// What a host does with a document, again and again; returns what it has saved last.
QByteArray WorkOnDocument(std::set<unsigned int>& ids)
{
    QByteArray saved;
    for (int round = 0; round < 5; ++round) {
        const Document list = EveryKind();
        for (int i = 0; i < 20; ++i) { // polylines ask for the configuration and the plug-in
            auto* shape = new CShapeVector;
            shape->SetVectorType(EVECTOR_POLYLINE);
            shape->SetShapePoints({{0, 0}, {10, 0}, {10, 5}, {3, 8}}, ELINE_SEGMENT_STRAIGHT);
            list->AddTail(shape);
        }
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            ids.insert(list->GetShape(i)->GetShapeId());
        list->Offset(3, 4, true);
        list->Resize(QRectF(0, 0, 200, 200));
        list->Rotate(30, {50, 50}, Qt::ZAxis);
        list->MirrorX(20);
        list->MirrorFixedOrMovingLine({0, 0}, {3, 1}, true);
        list->OptimizeShapeList(true);
        list->Sort();
        list->RemoveInvalidShapeItem();
        const Document copy(list->Clone());
        for (unsigned int i = 0; i < copy->GetCount(); ++i)
            copy->GetShape(i)->Flatten(0.1);
        saved = StreamOf(*copy);
        const Document read = ListFrom(saved);
        EXPECT_EQ(read->GetCount(), copy->GetCount());
        read->GetRect(true);
    }
    return saved;
}

TEST(DocumentThreads, clones_have_rectangles_of_their_own)
{
    std::vector<QPointF> points; // so many that taking their rectangle, 0,0 to 10,5, lasts
    for (int i = 0; i < 5'000; ++i)
        points.emplace_back(i % 11, i % 6);
    int right = 0;
    for (int run = 0; run < 300; ++run) {
        CShapeVector original;
        original.SetVectorType(EVECTOR_MIXED);
        original.SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
        const std::unique_ptr<CShape> clone(original.Clone());
        std::atomic<size_t> missing = 2;
        std::array<bool, 2> same{};
        const auto look = [&missing](CShape& shape, bool& isSame) {
            Meet(missing);
            isSame = shape.GetPath(false)->boundingRect() == QRectF(0, 0, 10, 5);
        };
        std::thread other(look, std::ref(*clone), std::ref(same[1]));
        look(original, same[0]);
        other.join();
        right += same[0] && same[1];
    }
    EXPECT_EQ(right, 300);
}

TEST(DocumentThreads, two_documents_come_out_as_one_does_alone)
{
    const ImageStores stores;
    std::array<QByteArray, 2> saved;
    std::array<std::set<unsigned int>, 2> ids;
    std::array<std::thread, 2> threads;
    std::atomic<size_t> missing = threads.size();
    for (size_t i = 0; i < threads.size(); ++i)
        threads[i] = std::thread([&, i] {
            Meet(missing);
            saved[i] = WorkOnDocument(ids[i]);
        });
    for (std::thread& thread : threads)
        thread.join();

    std::set<unsigned int> more;
    const QByteArray alone = WorkOnDocument(more);
    EXPECT_GT(alone.size(), 1'000);
    EXPECT_TRUE(saved[0] == alone && saved[1] == alone);
    const size_t first = ids[0].size(), second = ids[1].size();
    ids[0].merge(ids[1]);
    EXPECT_EQ(ids[0].size(), first + second) << "each shape has a number of its own";
    // No other thread comes between the two calls for one run.
    const PluginScript& script = ScriptOf("CurveSimulate");
    EXPECT_GT(script.calls.size(), 0u);
    EXPECT_EQ(std::regex_replace(script.calls, std::regex("prepare (\\d+); optimize \\1/\\1; "), ""), "");
}

} // namespace
