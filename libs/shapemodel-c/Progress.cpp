#include "Progress.h"

using namespace shapedocument;

namespace capi {

namespace {

const char* WordOf(WorkStep step)
{
    switch (step) {
    case WorkStep::Lines:
        return "lines";
    case WorkStep::Joining:
        return "joining";
    case WorkStep::Ordering:
        return "ordering";
    case WorkStep::Doubles:
        return "doubles";
    case WorkStep::Reading:
        return "reading";
    case WorkStep::Texts:
        return "texts";
    case WorkStep::Saving:
        return "saving";
    case WorkStep::Painting:
        return "painting";
    case WorkStep::Cutting:
        return "cutting";
    case WorkStep::Shaping:
        return "shaping";
    case WorkStep::Decoding:
        return "decoding";
    case WorkStep::Checking:
        return "checking";
    case WorkStep::Searching:
        return "searching";
    case WorkStep::Fitting:
        return "fitting";
    case WorkStep::Comparing:
        return "comparing";
    case WorkStep::Cloning:
        return "cloning";
    case WorkStep::Measuring:
        return "measuring";
    case WorkStep::Drawing:
        return "drawing";
    case WorkStep::Encoding:
        return "encoding";
    }
    return "working";
}

} // namespace

bool Progress::GoesOn(const char* step, size_t done, size_t total)
{
    constexpr std::chrono::milliseconds kBetween(20);
    if (!m_callback)
        return true;
    const Clock::time_point now = Clock::now();
    if (step == m_step && now < m_next)
        return true;
    m_step = step;
    m_next = now + kBetween;
    return m_callback(m_context, step, done, total) == 0;
}

WorkProgress Progress::OfWork()
{
    if (!m_callback)
        return {};
    return [this](WorkStep step, size_t done, size_t all) { return GoesOn(WordOf(step), done, all); };
}

} // namespace capi
