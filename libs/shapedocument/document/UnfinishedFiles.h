/// Files that must not stay behind when a signal ends the process while they are written.
#pragma once

#include "shapedocument_export.h"
#include <QByteArray>

#include <csignal>

namespace shapedocument {

/// Holds back the signals that end a process from outside while it lives.
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

/// A file that RemoveUnfinishedFiles removes while this object lives. Make it, the file, and the end of both while
/// signals are held.
class SHAPEDOCUMENT_EXPORT UnfinishedFile
{
public:
    /// @param name as the system's calls take it
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

/// For signal handlers, of a process that is about to end: calls nothing that is unsafe there.
SHAPEDOCUMENT_EXPORT void RemoveUnfinishedFiles();

} // namespace shapedocument
