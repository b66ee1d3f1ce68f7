#include "ProcessSetup.h"

#include "Messages.h"
#include "document/UnfinishedFiles.h"

#include <csignal>
#include <fcntl.h>
#include <malloc.h>
#include <string_view>
#include <unistd.h>

using namespace shapedocument;

namespace {

/// Removes unfinished files, then lets the signal take its default action.
void EndOnSignal(int number)
{
    RemoveUnfinishedFiles();
    std::signal(number, SIG_DFL);
    raise(number);
}

/// SIGBUS: a page of a mapped file cannot be read from the disk, or the file has been truncated.
void EndOnLostPage(int)
{
    constexpr std::string_view kWords = ": the file cannot be read to its end\n";
    RemoveUnfinishedFiles();
    if (write(STDERR_FILENO, kProgram, sizeof kProgram - 1) < 0 ||
        write(STDERR_FILENO, kWords.data(), kWords.size()) < 0)
        _exit(1);
    _exit(1);
}

/// Opened for the wrong direction, so that reading an output or writing the input fails.
void HoldStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0)
            _exit(1);
}

/// Signals that the caller has set to be ignored, as nohup does, stay ignored.
void HandleUnlessIgnored(int number, void (*handler)(int))
{
    struct sigaction action = {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;
    action.sa_handler = handler;
    sigaction(number, &action, nullptr);
}

} // namespace

void SetUpProcess()
{
    constexpr int kLargeBlock = 1 << 20; // bytes; these grow without a copy, and go back to the system when freed
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
    HoldStandardStreams();
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGBUS, EndOnLostPage);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        HandleUnlessIgnored(number, EndOnSignal);
}
