/// Removes temporary files when a signal ends the process.
#pragma once

#include "shapedocument_export.h"
#include <QByteArray>

#include <csignal>

namespace shapedocument {

/// Blocks, while it lives, the signals by which other processes end this one.
class SHAPEDOCUMENT_EXPORT SignalHold
{
public:
    SignalHold();
    SignalHold(const SignalHold&) = delete;
    SignalHold& operator=(const SignalHold&) = delete;
    ~SignalHold();

private:
    sigset_t m_before;
};

/// RemoveUnfinishedFiles removes the file as long as this object lives. Create and destroy it, and create and rename
/// the file, under a SignalHold.
class SHAPEDOCUMENT_EXPORT UnfinishedFile
{
public:
    /// @param name as system calls take it
    explicit UnfinishedFile(QByteArray name);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile();

    /// The file's name.
    const QByteArray& Name() const { return m_name; }

private:
    QByteArray m_name;
    int m_place = -1;
};

/// Removes the files of all UnfinishedFile objects. Async-signal-safe, for handlers of signals that end the process.
/// Cost: O(files).
SHAPEDOCUMENT_EXPORT void RemoveUnfinishedFiles();

} // namespace shapedocument
