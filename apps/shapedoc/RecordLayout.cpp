#include "RecordLayout.h"

#include "shape/ShapeTypes.h"

#include <algorithm>

namespace {

constexpr Limits kAny = {};
constexpr Limits kFlag = {0, 1};
constexpr Limits kLikelyStatus = {0, SHAPE_STATUS_SELECT | SHAPE_STATUS_LOCK | SHAPE_STATUS_HIDE | SHAPE_STATUS_GROUP};
constexpr Limits kStatus = {-16, kLikelyStatus.high}; // a shape taken out of no group has all higher bits set
constexpr Limits kLikelyMode = {-1, 16};              ///< of guide lines, and of the few values that belong to the host
constexpr Limits kReach = {-1'000'000, 1'000'000};    ///< mm: no machine reaches a kilometre
constexpr Limits kPointTypes = {ELINE_SEGMENT_STRAIGHT, ELINE_SEGMENT_FILL};
constexpr Limits kVectorTypes = {0, 6};
constexpr Limits kAlignments = {0, 3};
constexpr Limits kCount = {0, std::numeric_limits<int32_t>::max()};
constexpr Limits kTextLength = {0, 16383};
constexpr Limits kFamilyLength = {0, 63};
constexpr Limits kFileNameLength = {0, 259};

constexpr Field kPoint[] = {
    {"x", Content::Single, kAny, kReach},
    {"y", Content::Single, kAny, kReach},
    {"type", Content::Byte, kPointTypes, kPointTypes},
};

constexpr Field kCell[] = {
    {"number", Content::Whole},
    {"x", Content::Double, kAny, kReach},
    {"y", Content::Double, kAny, kReach},
    {"valid", Content::Byte, kFlag, kFlag},
    {"selected", Content::Byte, kFlag, kFlag},
};

constexpr Field kCommon[] = {
    {"status", Content::Bits, kStatus, kLikelyStatus},
    {"color", Content::Color},
    {"guide line mode", Content::Whole, kAny, kLikelyMode},
    {"lead-in", Content::Whole, kAny, kFlag},
    {"lead-in length", Content::Double, kAny, kReach},
    {"lead-out", Content::Whole, kAny, kFlag},
    {"padding", Content::Unread, {4, 4}}, // as it lay in the writer's memory
    {"lead-out length", Content::Double, kAny, kReach},
    {"points", Content::Rows, kCount, kCount, 0, &kPointRow},
};

constexpr Field kVector[] = {
    {"vector type", Content::Whole, kVectorTypes, kVectorTypes, 0, nullptr, 6},
    {"extract contour", Content::Byte, kFlag, kFlag, 7, nullptr, 1},
};

constexpr Field kText[] = {
    {"text", Content::Text, kTextLength},
    {"family", Content::Text, kFamilyLength},
    {"bold", Content::Byte, kFlag, kFlag, 0, nullptr, 1},
    {"italic", Content::Byte, kFlag, kFlag, 0, nullptr, 1},
    {"vertical", Content::Byte, kFlag, kFlag, 0, nullptr, 1},
    {"size", Content::Double, kAny, kAny, 0, nullptr, 20},
    {"angle", Content::Double, kAny, kAny, 1},
    {"centre x", Content::Double, kAny, kReach, 2},
    {"centre y", Content::Double, kAny, kReach, 2},
    {"mirror x", Content::Byte, kFlag, kFlag, 3, nullptr, 1},
    {"mirror y", Content::Byte, kFlag, kFlag, 3, nullptr, 1},
    {"scale x", Content::Double, kAny, kAny, 4, nullptr, 1},
    {"scale y", Content::Double, kAny, kAny, 4, nullptr, 1},
    {"alignment", Content::Whole, kAlignments, kAlignments, 5},
    {"character spacing", Content::Double, kAny, kAny, 5},
    {"line spacing", Content::Double, kAny, kAny, 8},
    {"reserved", Content::Whole, kAny, kAny, 11},
};

constexpr Field kImage[] = {
    {"file format", Content::Whole, kAny, kLikelyMode},
    {"file name", Content::Text, kFileNameLength},
    {"display picture", Content::Picture},
    {"reserved", Content::Unread, {8, 8}},
    {"original picture", Content::Picture, kAny, kAny, 13},
    {"process value 0", Content::Whole, kAny, kAny, 13},
    {"process value 1", Content::Whole, kAny, kAny, 13},
    {"process value 2", Content::Whole, kAny, kAny, 13},
    {"process value 3", Content::Whole, kAny, kAny, 13},
    {"process value 4", Content::Whole, kAny, kAny, 13},
    {"process value 5", Content::Whole, kAny, kAny, 13},
    {"process factor", Content::Double, kAny, kAny, 13, nullptr, 1},
    {"process flag", Content::Whole, kFlag, kFlag, 13, nullptr, 1},
    {"processed", Content::Whole, kFlag, kFlag, 13, nullptr, 1},
};

constexpr Field kCode[] = {
    {"code type", Content::Byte, kFlag, kFlag, 0, nullptr, 1},
    {"code text", Content::Text, kCount},
};

constexpr Field kMembers[] = {{"members", Content::Members}};
constexpr Field kCells[] = {{"cells", Content::Rows, kCount, kCount, 0, &kCellRow}};

constexpr RecordLayout kLayouts[] = {
    {ESHAPE_IMAGE, "image", {kImage}},           {ESHAPE_VECTOR, "vector", {kVector}},
    {ESHAPE_TEXT, "text", {kVector, kText}},     {ESHAPE_GROUP, "group", {kMembers}},
    {ESHAPE_ARRAY, "array", {kMembers, kCells}}, {ESHAPE_CODEIMAGE, "code image", {kImage, kCode}},
};

} // namespace

const std::span<const Field> kCommonFields = kCommon;
const RowLayout kPointRow = {"point", 9, kPoint};
const RowLayout kCellRow = {"cell", 22, kCell};

const RecordLayout* LayoutOf(uint32_t tag)
{
    const auto* found =
        std::find_if(std::begin(kLayouts), std::end(kLayouts), [tag](const auto& layout) { return layout.tag == tag; });
    return found == std::end(kLayouts) ? nullptr : found;
}
