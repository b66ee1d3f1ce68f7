#include "SetFunctions.h"

#include <mutex>

namespace {

std::mutex s_lock;
SHostFunctions s_functions;
bool s_fixed = false;

} // namespace

bool SetHostFunctions(const SHostFunctions& functions)
{
    const std::scoped_lock lock(s_lock);
    if (s_fixed)
        return false;
    s_functions = functions;
    s_fixed = true;
    return true;
}

const SHostFunctions& FunctionsInUse()
{
    const std::scoped_lock lock(s_lock);
    s_fixed = true;
    return s_functions;
}
