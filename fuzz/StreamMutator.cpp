/// The fuzzing engine's mutator for document streams: whole records besides changed bytes.
#include "RecordBytes.h"
#include "Target.h"

#include "record/RecordFormat.h"

#include <algorithm>
#include <cstring>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace {

using fuzz::ByteVector;
using shapes::kCountBytes;

uint32_t CountOf(const ByteVector& stream)
{
    uint32_t count = 0;
    std::memcpy(&count, stream.data(), sizeof count);
    return count;
}

void SetCount(ByteVector& stream, uint32_t count)
{
    std::memcpy(stream.data(), &count, sizeof count);
}

void PutInFront(ByteVector& stream, const ByteVector& entry)
{
    SetCount(stream, CountOf(stream) + 1);
    stream.insert(stream.begin() + kCountBytes, entry.begin(), entry.end());
}

void PutBehind(ByteVector& stream, const ByteVector& entry)
{
    SetCount(stream, CountOf(stream) + 1);
    stream.insert(stream.end(), entry.begin(), entry.end());
}

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned int seed)
{
    fuzz::Random random(seed);
    const unsigned int choice = random() % 16;
    if (choice >= 6)
        return LLVMFuzzerMutate(data, size, maxSize);
    fuzz::Bytes input(data, size);
    const int version = fuzz::ReadVersion(input);
    ByteVector stream(input.begin(), input.end());
    if (choice == 0 || stream.size() < kCountBytes)
        stream = fuzz::RandomStream(random, version);
    else if (choice <= 2)
        PutInFront(stream, fuzz::RandomEntry(random, version, 2));
    else if (choice == 3)
        PutBehind(stream, fuzz::RandomEntry(random, version, 2));
    else if (choice == 4)
        stream = fuzz::Grouped(random, stream);
    else
        SetCount(stream, random());
    const auto versionByte = static_cast<uint8_t>(
        choice == 5 ? random() % fuzz::kVersions : static_cast<unsigned int>(version - fuzz::kLowestVersion));
    const size_t kept = std::min(stream.size(), maxSize - 1);
    data[0] = versionByte;
    std::memcpy(data + 1, stream.data(), kept);
    return kept + 1;
}
