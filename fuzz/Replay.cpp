/// Runs a fuzz target once over every file of the folders given: past findings and seeds, without a fuzzing engine.
#include "Target.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

std::vector<uint8_t> Content(const std::filesystem::path& name)
{
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    size_t runs = 0;
    for (int i = 1; i < argc; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            const std::vector<uint8_t> input = Content(entry.path());
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            LLVMFuzzerTestOneInput(input.data(), input.size());
            ++runs;
        }
    std::printf("%zu inputs\n", runs);
    return runs > 0 ? 0 : 1;
}
