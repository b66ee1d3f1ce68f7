/// Calls of the C interface in any order, with any handles and numbers. A failed call must return no result, nothing
/// may be the library's own fault, and at the end no handle may be left.
#include "CallPlayer.h"
#include "Target.h"

#include <vector>

namespace {

constexpr int kMostCalls = 100;

std::vector<fuzz::PlayedCall> AllCalls()
{
    std::vector<fuzz::PlayedCall> calls;
    for (const auto part : {fuzz::DocumentCalls(), fuzz::MakingCalls(), fuzz::ShapeCalls(), fuzz::JobCalls()})
        calls.insert(calls.end(), part.begin(), part.end());
    return calls;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::vector<fuzz::PlayedCall> calls = AllCalls();
    fuzz::Player player({data, size});
    for (int i = 0; i < kMostCalls && player.HasMore(); ++i)
        calls[player.Byte() % calls.size()](player);
    return 0;
}
