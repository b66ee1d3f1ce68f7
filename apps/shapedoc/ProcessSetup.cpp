#include "ProcessSetup.h"

#include "document/UnfinishedFiles.h"

#include <csignal>
#include <fcntl.h>
#include <malloc.h>
#include <string_view>
#include <unistd.h>

using namespace shapedocument;

namespace {

/// Removes what is unfinished and lets the signal do what it would have done.
void EndOnSignal(int number)
{
    RemoveUnfinishedFiles();
    std::signal(number, SIG_DFL);
    raise(number);
}

/// The disk does not give a page of the mapped file, or somebody has cut the file short.
void EndOnLostPage(int)
{
    constexpr std::string_view kWords = "shapedoc: the file cannot be read to its end\n";
    RemoveUnfinishedFiles();
    if (write(STDERR_FILENO, kWords.data(), kWords.size()) < 0)
        _exit(1);
    _exit(1);
}

/// Reading from an output, or writing to the input, is an error.
void HoldStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0)
            _exit(1);
}

/// What the caller has the program ignore, as nohup does, stays ignored.
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
