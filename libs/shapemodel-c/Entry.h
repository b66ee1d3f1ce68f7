/// The border: what every call of the C interface goes through.
#pragma once

#include "shapemodel.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace capi {

/// What Enter and EnterQuietly do. They pass a reference, which std::function holds without allocating: nothing can
/// throw before the part that catches.
sm_status Run(const std::function<void()>& call);
sm_status RunQuietly(const std::function<void()>& call);

/// Runs a call. Every exception becomes a status and the thread's last error; SM_OK clears that. The warnings of the
/// call before are cleared first. Cost: a few nanoseconds and the call's.
template <class Call>
sm_status Enter(const Call& call)
{
    return Run(std::cref(call));
}

/// The same for calls that may come between another one and the question what went wrong with it: errors and warnings
/// of the thread stay as they are.
template <class Call>
sm_status EnterQuietly(const Call& call)
{
    return RunQuietly(std::cref(call));
}

/// The part of a call that writes a file: its failures are those of writing, all others those of reading.
void Writing(const std::function<void()>& part);

/// The part that makes something of what is held already: its failures are refusals, but for those of temporary
/// files.
void Making(const std::function<void()>& part);

/// Adds to the warnings of this thread's call; for lines of several.
void Warn(const QString& line);
void Warn(const QStringList& lines);

/// Of this thread; lent until its next call.
const char* LastError();
const char* LastWarnings();

} // namespace capi
