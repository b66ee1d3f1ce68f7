/// Rows that hold a measure of the library against a limit or a peer that runs in turn with it.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>

namespace bench {

/// What is timed. prepare, when given, runs before every run and is not timed; it also removes what the last run left.
struct Side
{
    std::function<void()> run;
    std::function<void()> prepare = {};
};

struct Sides
{
    Side subject;
    Side limit;
};

/// What is counted instead of timed.
struct Amounts
{
    double subject;
    double limit;
};

/// If faster: limit's time / subject's time must be at least the factor; otherwise subject's / limit's at most.
struct Goal
{
    double factor;
    bool timesFaster;
};

inline Goal AtMost(double factor)
{
    return {factor, false};
}

inline Goal TimesFaster(double factor)
{
    return {factor, true};
}

constexpr int kRounds = 15;

/// Either sides or amounts is given. What they capture must live while the row is measured.
struct Row
{
    std::string name;    ///< the goal's id and what is measured
    std::string against; ///< the limit or peer
    Goal goal;
    std::function<Sides()> sides = {};
    std::function<Amounts()> amounts = {};
    int rounds = kRounds;  ///< fewer for sides that take long
    std::string unit = {}; ///< of the amounts
};

/// Registers the rows with Google Benchmark. True, for use in an initialiser.
bool Register(std::initializer_list<Row> rows);

/// The row that was registered under a name, null for none.
const Row* FindRow(const std::string& name);

/// Bytes that the program has on its heap.
double HeapBytes();

} // namespace bench
