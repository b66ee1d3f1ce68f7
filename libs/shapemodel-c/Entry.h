/// The entry of every call of the C interface: exceptions become statuses, errors and warnings are kept.
#pragma once

#include "shapemodel.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace capi {

/// Implement Enter and EnterQuietly. These pass a reference, which std::function holds without allocating, so that
/// nothing throws outside the try block.
sm_status Run(const std::function<void()>& call);
sm_status RunQuietly(const std::function<void()>& call);

/// Runs a call. Every exception becomes a status and the thread's last error; SM_OK clears that. The thread's warnings
/// become those of this call. Cost: a few nanoseconds and the call's.
template <class Call>
sm_status Enter(const Call& call)
{
    return Run(std::cref(call));
}

/// Runs a call that may come between a failed call and the request for its error: the thread's errors and warnings
/// stay.
template <class Call>
sm_status EnterQuietly(const Call& call)
{
    return RunQuietly(std::cref(call));
}

/// Runs the part of a call that writes a file: a Failure in it gets a status of writing; elsewhere a Failure gets one
/// of reading.
void Writing(const std::function<void()>& part);

/// Runs a part that works on data in memory: a Failure in it becomes SM_REFUSED, or SM_CANNOT_WRITE where a temporary
/// file failed.
void Making(const std::function<void()>& part);

/// Adds a line, or several, to the warnings of this thread's call.
void Warn(const QString& line);
void Warn(const QStringList& lines);

/// Those of this thread's last call; valid until its next one.
const char* LastError();
const char* LastWarnings();

} // namespace capi
