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
    }
    return "working";
}

} // namespace

WorkProgress Progress::OfWork() const
{
    if (!m_callback)
        return {};
    return
        [*this](WorkStep step, size_t done, size_t all) { return m_callback(m_context, WordOf(step), done, all) == 0; };
}

} // namespace capi
