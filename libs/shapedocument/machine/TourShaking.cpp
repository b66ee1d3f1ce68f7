#include "machine/TourShaking.h"

#include "machine/LocalSearch.h"
#include "machine/TourEntries.h"

#include <random>

namespace shapedocument {

namespace {

constexpr size_t kMostRounds = 8;
constexpr size_t kMostSteps = 40'000'000; // less than a second
constexpr size_t kMostShakenSteps = 10'000'000;
constexpr size_t kMostShaken = 5000;        // units: each attempt costs a step for each
constexpr size_t kMostFruitlessPerUnit = 6; // attempts per unit since the last one that helped
constexpr size_t kLongestRun = 12;

double TourLength(const OrderPlan& plan, const Tour& tour)
{
    double length = 0;
    for (size_t i = 0; i < tour.size(); ++i)
        length += MoveBefore(plan, tour, i);
    return length;
}

void Improve(const OrderPlan& plan, Tour& tour, size_t& stepsLeft)
{
    for (size_t round = 0; round < kMostRounds && stepsLeft > 0; ++round) {
        const bool shorter = LocalSearch(plan, tour, stepsLeft).Improve();
        ChooseEntries(plan, tour);
        if (!shorter)
            return;
    }
}

/// Exchanges two adjacent runs at a random place. Returns whether it could.
bool Shake(LocalSearch& search, size_t units, std::mt19937& random)
{
    const auto upTo = [&](size_t most) { return random() % most; };
    const size_t first = upTo(units);
    const size_t room = search.BatchAt(first).end - first;
    if (room < 2)
        return false;
    const size_t middle = first + 1 + upTo(std::min(room - 1, kLongestRun));
    const size_t end = middle + 1 + upTo(std::min(first + room - middle, kLongestRun));
    return end <= first + room && search.SwapRuns(first, middle, end);
}

void ShakeOften(const OrderPlan& plan, Tour& tour, size_t& stepsLeft)
{
    std::mt19937 random(1);
    LocalSearch search(plan, tour, stepsLeft);
    search.Improve();
    Tour best = tour;
    double shortest = TourLength(plan, tour);
    for (size_t fruitless = 0; fruitless < kMostFruitlessPerUnit * tour.size() && stepsLeft > 0; ++fruitless) {
        if (!Shake(search, tour.size(), random))
            continue;
        search.Improve();
        stepsLeft -= std::min(stepsLeft, tour.size());
        const double length = TourLength(plan, tour);
        if (length < shortest) {
            shortest = length;
            best = tour;
            fruitless = 0;
        } else {
            search.Restore(best);
        }
    }
    search.Restore(best);
}

} // namespace

void ImproveTour(const OrderPlan& plan, Tour& tour)
{
    size_t stepsLeft = kMostSteps;
    Improve(plan, tour, stepsLeft);
    if (tour.size() > kMostShaken)
        return;
    size_t shakenSteps = std::min(stepsLeft, kMostShakenSteps);
    ShakeOften(plan, tour, shakenSteps);
    Improve(plan, tour, stepsLeft);
}

} // namespace shapedocument
