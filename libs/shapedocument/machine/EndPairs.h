/// Pairs ends of runs that meet.
#pragma once

#include <QPointF>

#include <cstdint>
#include <functional>
#include <vector>

namespace shapedocument {

/// One end of a run that may be joined.
struct RunEnd
{
    QPointF point;
    unsigned int color;
    uint32_t run;
};

constexpr uint32_t kNoPartner = UINT32_MAX;

/// The partner of each end, or kNoPartner. Ends of one colour no farther apart than tolerance (mm) are paired, the
/// nearest first; of equally near ones, those whose runs stand nearest in the list. Afterwards no two ends that could
/// be paired are left. The two ends of run i are 2 i and 2 i + 1; they may be paired with each other where mayClose[i]
/// is set. ask is called regularly, and may throw. Cost: about O(n log n), wherever the ends lie.
std::vector<uint32_t> PairEnds(const std::vector<RunEnd>& ends, const std::vector<bool>& mayClose, double tolerance,
                               const std::function<void()>& ask);

} // namespace shapedocument
