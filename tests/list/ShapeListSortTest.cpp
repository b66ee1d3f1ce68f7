/// CShapeList: reading order, and enclosed shapes before those that enclose them.
#include "support/Lists.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <tuple>

using namespace test;

namespace {

using Rects = std::vector<QRectF>;

/// A stub per rectangle, named by its index.
Document Sorted(const Rects& rects)
{
    Document list = MakeList<Document>();
    for (size_t i = 0; i < rects.size(); ++i)
        list->AddTail(new StubShape(std::to_string(i), rects[i]));
    list->Sort();
    return list;
}

Rects RectsOf(const Document& list)
{
    Rects rects;
    for (unsigned int i = 0; i < list->GetCount(); ++i)
        rects.push_back(*static_cast<StubShape*>(list->GetShape(i))->rect);
    return rects;
}

/// The described result for rectangles whose rows lie far apart, with different left edges unless they are equal: there
/// the row rule has exactly one outcome. The containment pass word by word, with its restart at 0.
Rects Described(Rects rects)
{
    const auto row = [](const QRectF& rect) { return std::floor(rect.top() / 20.0); };
    std::sort(rects.begin(), rects.end(), [&](const QRectF& a, const QRectF& b) {
        return row(a) != row(b) ? row(a) < row(b) : a.left() < b.left();
    });
    for (size_t i = 0; i < rects.size();) {
        const QRectF outer = rects[i];
        size_t k = i;
        for (size_t j = i + 1; j < rects.size(); ++j)
            if (outer.contains(rects[j]) && !(outer == rects[j])) {
                std::rotate(rects.begin() + k, rects.begin() + j, rects.begin() + j + 1);
                ++k;
            }
        i = k > i ? 0 : i + 1;
    }
    return rects;
}

TEST(ShapeListSort, order_by_rows_and_containment)
{
    const std::tuple<const char*, Rects, const char*> rows[] = {
        {"exactly_5_is_one_row", {{50, 0, 1, 1}, {10, 5, 1, 1}}, "1 0"},
        {"above_5_is_not", {{50, 0, 1, 1}, {10, 5.001, 1, 1}}, "0 1"},
        {"touching_edges_count", {{0, 0, 50, 50}, {0, 10, 50, 40}}, "1 0"},
        {"extents_may_be_negative", {{10, 70, 50, -50}, {25, 68, -5, -10}}, "1 0"},
    };
    for (const auto& [name, rects, order] : rows)
        EXPECT_EQ(Names(*Sorted(rects)), order) << name;
}

TEST(ShapeListSort, random_rectangles_match_the_plain_procedure)
{
    for (unsigned int seed = 0; seed < 150; ++seed) {
        std::mt19937 random(seed);
        const auto upTo = [&](int n) { return static_cast<int>(random() % (n + 1)); };
        const int count = seed < 145 ? 2 + upTo(60) : 200, rowCount = 2 + count / 8;
        Rects rects;
        for (std::set<std::pair<int, int>> corners; std::ssize(rects) < count;) {
            const int row = upTo(rowCount), left = upTo(5 * count);
            if (!corners.insert({row, left}).second)
                continue;
            const int size = 20 * upTo(seed % 3 ? 5 : rowCount);
            rects.emplace_back(left, 20 * row + upTo(2) * 2, upTo(4) ? size : 0, upTo(9) ? size : 0);
            rects.insert(rects.end(), upTo(5) == 0, rects.back());
        }
        std::shuffle(rects.begin(), rects.end(), random);
        EXPECT_TRUE(RectsOf(Sorted(rects)) == Described(rects)) << rects.size() << " rectangles, seed " << seed;
    }
}

TEST(ShapeListSort, lists_of_1000_stay_and_999_are_measured_once_each)
{
    Rects rects;
    for (int i = 0; i < 1000; ++i)
        rects.emplace_back(10 * (1000 - i), 0, 1, 1);
    EXPECT_TRUE(RectsOf(Sorted(rects)) == rects);
    rects.pop_back();
    const Document sorted = Sorted(rects);
    EXPECT_TRUE(RectsOf(sorted) == Rects(rects.rbegin(), rects.rend()));
    for (unsigned int i = 0; i < 999; ++i)
        ASSERT_EQ(static_cast<StubShape*>(sorted->GetShape(i))->rectFlags, std::vector<bool>{false}) << i;
}

TEST(ShapeListSort, what_changes_meanwhile_stays_as_the_host_left_it)
{
    StubShape a("a", QRectF(30, 0, 1, 1)), b("b", QRectF(20, 0, 1, 1)), c("c", QRectF(10, 0, 1, 1)),
        d("d", QRectF(0, 0, 1, 1)), late("late", QRectF(-10, 0, 1, 1));
    const View list = MakeList({&d, &a, &c, &a, &b});
    b.within = [&] {
        list->Remove(&c);
        list->Remove(&a);
        list->Insert(&late, 1);
        list->AddHead(&d);
    };
    list->Sort();
    EXPECT_EQ(Names(*list), "d d late b a") << "without c and the second a, which are gone";
}

TEST(ShapeListSort, rectangles_that_contain_each_other_or_are_no_numbers_keep_the_list_whole)
{
    const QRectF a(1e6, 0, 1.0e-6, 1), b(1e6, 0, 1.00002e-6, 1);
    ASSERT_TRUE(a.contains(b) && b.contains(a) && a != b) << "by rounding";
    const Document few = Sorted({a, b, {0, 30, 2e6, 1}, {1e6, 30.5, 0.1, 0.1}});
    EXPECT_EQ(Names(*few).substr(3), " 3 2");
    const double odd[] = {std::nan(""), HUGE_VAL, -1e308, 0, 4, 8, 12};
    std::mt19937 random(7);
    Rects rects;
    for (int i = 0; i < 999; ++i)
        rects.emplace_back(odd[random() % 7], odd[random() % 7], odd[random() % 7], odd[random() % 7]);
    StubShape::TakeTrace();
    Sorted(rects).reset();
    EXPECT_EQ(std::ranges::count(StubShape::TakeTrace(), '~'), 999);
}

} // namespace
