/// Checks the arguments of callers.
#pragma once

#include "Refusal.h"
#include "document/Reach.h"

#include <QRectF>
#include <QString>

#include <cmath>
#include <span>
#include <string>

namespace capi {

/// The name of bytes in memory, where messages name a file.
inline constexpr char kBytes[] = "bytes";

/// Throws Refusal unless the coordinate or length (mm) is within kFarthest; NaN is not.
inline void ExpectWithinReach(double number, const char* name)
{
    if (!shapedocument::WithinReach(number))
        throw Refusal{SM_BAD_ARGUMENT, std::string(name) + " is no number within a kilometre"};
}

/// Throws Refusal unless the number lies between both, inclusively; NaN does not.
void ExpectBetween(double number, double least, double most, const char* name);

/// A rectangle with sides above 0, within reach. Throws Refusal.
QRectF RectOf(const sm_rect& rect);

/// All 0 for a null rectangle, and where a side is not finite.
sm_rect RectOf(const QRectF& rect);

/// A zero-terminated UTF-8 text. Throws Refusal for null, invalid UTF-8, and more than most bytes.
QString TextOf(const char* text, const char* name, size_t most);

/// A file's name. Throws Refusal.
QString FileOf(const char* name);

/// The caller's bytes, borrowed. Throws Refusal for null with a size, and for sizes beyond any memory.
std::span<const unsigned char> BytesOf(const void* data, size_t size);

/// Sets the result to 0. Throws Refusal for null.
template <class Result>
void Clear(Result* result, const char* name)
{
    ExpectGiven(result, name);
    *result = Result();
}

/// For calls that are made twice, first for the length of a list, then for its copy: whether to copy. Throws Refusal
/// where capacity is too small.
bool HasRoom(size_t length, size_t capacity, const void* memory);

} // namespace capi
