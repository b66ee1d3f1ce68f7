/// The order of paths: inside before outside, colours and leads together, short moves.
#include "machine/PathOrder.h"
#include "machine/JobText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>

using namespace shapedocument;

namespace {

using PathPoints = std::vector<JobPoint>;

constexpr unsigned int kRed = 0xFF0000, kBlue = 0x0000FF;

struct Path
{
    PathPoints points;
    unsigned int color = kRed;
    size_t shape = 0;
    PathKind kind = PathKind::Cut;
};

PathPoints Through(std::initializer_list<QPointF> corners)
{
    PathPoints points;
    for (const QPointF corner : corners)
        points.push_back({corner, 0});
    return points;
}

PathPoints Square(double x, double y, double size)
{
    return Through({{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}, {x, y}});
}

PathPoints Ring(QPointF centre, double radius, int count)
{
    PathPoints points;
    for (int i = 0; i <= count; ++i) {
        const double angle = 6.283185307179586 * (i % count) / count;
        points.push_back({centre + radius * QPointF(std::cos(angle), std::sin(angle)), 0});
    }
    return points;
}

bool IsClosed(const PathPoints& points)
{
    return points.front().point == points.back().point;
}

std::vector<PlacedPath> Order(const std::vector<Path>& paths, bool mixColors = false)
{
    std::vector<OrderedPath> ordered;
    for (size_t i = 0; i < paths.size(); ++i)
        ordered.push_back({paths[i].points, paths[i].shape > 0 ? paths[i].shape : 1000 + i, paths[i].kind,
                           paths[i].color, IsClosed(paths[i].points)});
    return OrderPaths(ordered, {mixColors, {}});
}

std::vector<size_t> Numbers(const std::vector<PlacedPath>& placed)
{
    std::vector<size_t> numbers;
    for (const PlacedPath& path : placed)
        numbers.push_back(path.path);
    return numbers;
}

/// How often the outline goes round the point, by the angle that it is seen to turn through: not how the order finds
/// it.
int Turns(QPointF point, const PathPoints& outline)
{
    double angle = 0;
    for (size_t i = 0; i + 1 < outline.size(); ++i) {
        const QPointF a = outline[i].point - point, b = outline[i + 1].point - point;
        angle += std::atan2(a.x() * b.y() - a.y() * b.x(), QPointF::dotProduct(a, b));
    }
    return static_cast<int>(std::lround(angle / 6.283185307179586));
}

bool LiesInside(const PathPoints& inner, const PathPoints& outer)
{
    return std::all_of(inner.begin(), inner.end(), [&](const JobPoint& p) { return Turns(p.point, outer) != 0; });
}

/// Pairs of a path and a closed one around it; each path must be there once, and none behind what is around it.
size_t ExpectInnerFirst(const std::vector<Path>& paths, const std::vector<PlacedPath>& placed)
{
    std::vector<size_t> places(paths.size(), SIZE_MAX);
    for (size_t i = 0; i < placed.size(); ++i)
        places[placed[i].path] = i;
    EXPECT_EQ(placed.size(), paths.size());
    EXPECT_EQ(std::count(places.begin(), places.end(), SIZE_MAX), 0);
    size_t pairs = 0;
    for (size_t outer = 0; outer < paths.size(); ++outer)
        for (size_t inner = 0; IsClosed(paths[outer].points) && inner < paths.size(); ++inner)
            if (inner != outer && LiesInside(paths[inner].points, paths[outer].points)) {
                ++pairs;
                EXPECT_LT(places[inner], places[outer]) << inner << " inside " << outer;
            }
    return pairs;
}

double Travel(const std::vector<Path>& paths, const std::vector<PlacedPath>& placed)
{
    double travel = 0;
    QPointF head;
    for (const PlacedPath& path : placed) {
        const PathPoints points = PlacedPoints(paths[path.path].points, path);
        const QPointF way = points.front().point - head;
        travel += std::hypot(way.x(), way.y());
        head = points.back().point;
    }
    return travel;
}

/// Outlines of all kinds over each other: round ones, jagged ones that are not convex, and open lines.
std::vector<Path> AnyPaths(unsigned int seed, size_t count)
{
    std::mt19937 random(seed);
    const auto upTo = [&](double most) { return most * static_cast<double>(random()) / 4294967296.0; };
    std::vector<Path> paths;
    while (paths.size() < count) {
        const QPointF centre(upTo(100), upTo(100));
        PathPoints points = Ring(centre, 1 + std::pow(upTo(6), 2), 12);
        for (size_t i = 1; i + 1 < points.size() && paths.size() % 2; ++i)
            points[i].point += (centre - points[i].point) * upTo(0.9);
        if (paths.size() % 5 == 0)
            points.resize(4);
        paths.push_back({points, random() % 3 ? kRed : kBlue});
    }
    return paths;
}

} // namespace

TEST(PathOrder, cuts_what_lies_inside_first_in_any_drawing)
{
    for (unsigned int seed = 1; seed <= 3; ++seed)
        for (const bool mix : {false, true}) {
            const std::vector<Path> paths = AnyPaths(seed, 50);
            EXPECT_GT(ExpectInnerFirst(paths, Order(paths, mix)), 20u) << "too few to tell, seed " << seed;
        }
}

TEST(PathOrder, knows_the_outline_from_its_box)
{
    const PathPoints bracket =
        Through({{10, 10}, {50, 10}, {50, 14}, {14, 14}, {14, 46}, {50, 46}, {50, 50}, {10, 50}, {10, 10}});
    const PathPoints mouth = Square(20, 20, 20);
    EXPECT_EQ(Numbers(Order({{mouth}, {bracket}})), (std::vector<size_t>{1, 0})) << "from 0,0 the bracket comes first";

    // Two half circles: their chords enclose nothing, and a square by the rim lies outside of the diamond of the
    // points.
    const PathPoints disc{{{30, 0}, 1}, {{30, 60}, 1}, {{30, 0}, 0}};
    EXPECT_EQ(Numbers(Order({{disc}, {Square(50, 38, 1)}})), (std::vector<size_t>{1, 0}));

    // A region that an outline encircles twice is cut loose as well.
    const PathPoints twice = Through({{0, 0}, {40, 0}, {40, 40}, {0, 40}, {0, 0}, {40, 0}, {40, 40}, {0, 40}, {0, 0}});
    EXPECT_EQ(Numbers(Order({{twice}, {Square(30, 30, 2)}})), (std::vector<size_t>{1, 0}));

    // An arc whose ends lie inside, and whose middle does not.
    const PathPoints bow{{{12, 20}, -1}, {{12, 40}}};
    EXPECT_EQ(Numbers(Order({{bow}, {Square(10, 10, 40)}})), (std::vector<size_t>{1, 0}));

    // Half of a disc, with an edge in common that is flattened elsewhere.
    const PathPoints fine = Ring({60, 60}, 50, 360),
                     half = Through({{60, 10}, {60, 110}, {24.6447, 95.3553}, {60, 10}});
    EXPECT_EQ(Numbers(Order({{fine}, {half}})), (std::vector<size_t>{1, 0}));
}

TEST(PathOrder, goes_through_depths_and_crowds)
{
    std::vector<Path> nested, equal;
    for (int i = 0; i < 150; ++i) {
        nested.push_back({Square(-i, -i, 2 * i + 1), i % 2 ? kRed : kBlue});
        equal.push_back({Square(10, 10, 5)});
    }
    std::vector<size_t> outwards(nested.size());
    std::iota(outwards.begin(), outwards.end(), 0);
    EXPECT_EQ(Numbers(Order(nested)), outwards);
    std::vector<size_t> each = Numbers(Order(equal));
    std::sort(each.begin(), each.end());
    EXPECT_EQ(each, outwards);
    EXPECT_TRUE(Order({}).empty());
}

TEST(PathOrder, cuts_what_lay_inside_a_whole_contour_before_what_is_left_of_it)
{
    const PathPoints whole = Square(0, 0, 20), inner = Square(8, 8, 2);
    const PathPoints left = Through({{0, 0}, {20, 0}}), right = Through({{20, 20}, {0, 20}});
    const OrderedPath paths[] = {{left, 1, PathKind::Cut, kRed, false, whole},
                                 {inner, 2, PathKind::Cut, kRed, true},
                                 {right, 1, PathKind::Cut, kRed, false, whole}};
    EXPECT_EQ(Numbers(OrderPaths(paths, {})).front(), 1u) << "from 0,0 the first part is nearest";
}

TEST(PathOrder, keeps_colours_together_as_long_as_nothing_inside_waits)
{
    struct Case
    {
        std::vector<Path> paths;
        std::vector<size_t> apart, mixed;
    };
    const Case cases[] = {
        // Side by side, colours in turns.
        {{{Square(0, 0, 2)}, {Square(4, 0, 2), kBlue}, {Square(8, 0, 2)}}, {0, 2, 1}, {0, 1, 2}},
        // The second colour lies inside the first: it goes first as a whole.
        {{{Square(0, 0, 9)}, {Square(3, 3, 2), kBlue}, {Square(20, 0, 2), kBlue}}, {1, 2, 0}, {1, 0, 2}},
        // In each other in turns: red, blue, red. What is red and elsewhere is done with the first red.
        {{{Square(0, 0, 9)}, {Square(2, 2, 5), kBlue}, {Square(4, 4, 1)}, {Square(20, 0, 2)}},
         {2, 3, 1, 0},
         {2, 1, 0, 3}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Numbers(Order(c.paths)), c.apart);
        EXPECT_EQ(Numbers(Order(c.paths, true)), c.mixed);
    }
}

TEST(PathOrder, begins_open_paths_at_either_end_and_closed_ones_at_corners)
{
    const PlacedPath line = Order({{Through({{50, 0}, {20, 0}, {10, 0}})}}).front();
    EXPECT_TRUE(line.reversed);
    EXPECT_EQ(Order({{Square(-30, -12, 20)}}).front().first, 2u) << "the corner next to 0,0";

    PathPoints smooth = Ring({50, 0}, 20, 36); // begins far from 0,0
    EXPECT_EQ(Order({{smooth}}).front().first, 18u) << "anywhere when it has no corner";
    smooth[9].point += QPointF(0, 10); // a spike, whose foot at point 10 is the corner next to 0,0
    EXPECT_EQ(Order({{smooth}}).front().first, 10u) << "at a corner, farther away";

    const PathPoints drop{
        {{20, 10}}, {{100, 0}}, {{20, -10}, -1}, {{20, 10}}}; // a half circle, lines on from it to a tip
    EXPECT_EQ(Order({{drop}}).front().first, 1u) << "at the tip, farther away";
}

TEST(PathOrder, keeps_leads_at_their_cut_and_its_start)
{
    const std::vector<Path> paths{
        {Through({{-3, -3}, {0, 0}}), kRed, 1, PathKind::LeadIn},
        {Square(0, 0, 30), kRed, 1},
        {Square(10, 10, 10), kRed, 1},
        {Through({{0, 0}, {-3, -3}}), kRed, 1, PathKind::LeadOut},
        {Through({{90, 90}, {80, 80}}), kRed, 2, PathKind::LeadIn}, // its cut is not there
        {Square(40, 40, 5), kRed, 3},
    };
    const std::vector<PlacedPath> placed = Order(paths);
    const std::vector<size_t> numbers = Numbers(placed);
    const auto lead = std::find(numbers.begin(), numbers.end(), 0u);
    ASSERT_EQ(numbers.size(), paths.size());
    ASSERT_LT(lead + 2, numbers.end());
    EXPECT_EQ(*(lead + 1), 1u);
    EXPECT_EQ(*(lead + 2), 3u);
    EXPECT_LT(std::find(numbers.begin(), numbers.end(), 2u), lead) << "inside the cut with the leads";
    for (const PlacedPath& path : placed)
        if (path.path < 5 && path.path != 2) {
            EXPECT_FALSE(path.reversed) << path.path;
            EXPECT_EQ(path.first, 0u) << path.path;
        }
}

TEST(PathOrder, turns_points_with_their_bulges)
{
    const PathPoints points{{{1, 0}, 0.1}, {{2, 0}, -0.2}, {{3, 5}, 0.3}, {{1, 0}, 0}};
    EXPECT_EQ(TextOf(JobOf({{0, PlacedPoints(points, {0, true, 0})}, {0, PlacedPoints(points, {0, false, 2})}})),
              "1: 1,0(-0.3) 3,5(0.2) 2,0(-0.1) 1,0; 2: 3,5(0.3) 1,0(0.1) 2,0(-0.2) 3,5");
}

TEST(PathOrder, finds_the_shortest_way_of_a_few_lines)
{
    for (unsigned int seed = 1; seed <= 5; ++seed) {
        std::mt19937 random(seed);
        const auto place = [&] { return QPointF(random() % 1000 / 10.0, random() % 1000 / 10.0); };
        std::vector<Path> paths;
        for (int i = 0; i < 5; ++i) {
            const QPointF from = place();
            paths.push_back({Through({from, place()})});
        }
        double shortest = 1e9; // of all orders and directions
        for (std::vector<size_t> order{0, 1, 2, 3, 4};;) {
            for (unsigned int ways = 0; ways < 32; ++ways) {
                std::vector<PlacedPath> placed;
                for (const size_t i : order)
                    placed.push_back({i, (ways >> i & 1) != 0, 0});
                shortest = std::min(shortest, Travel(paths, placed));
            }
            if (!std::next_permutation(order.begin(), order.end()))
                break;
        }
        EXPECT_NEAR(Travel(paths, Order(paths)), shortest, 1e-9) << "seed " << seed;
    }
}

TEST(PathOrder, crosses_a_hatch_to_and_fro)
{
    std::vector<Path> hatch;
    for (int i = 0; i < 60; ++i)
        hatch.push_back({Through({{0, 0.5 * i}, {80, 0.5 * i}})});
    std::shuffle(hatch.begin(), hatch.end(), std::mt19937(1));
    const std::vector<PlacedPath> placed = Order(hatch);
    EXPECT_NEAR(Travel(hatch, placed), 59 * 0.5, 1e-9);
    EXPECT_EQ(Numbers(placed), Numbers(Order(hatch))) << "the same again";
}
