#include "WorkerProcesses.h"

#include "Messages.h"
#include "Progress.h"
#include "document/CheckedFile.h"
#include "document/Failure.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace shapedocument;

namespace {

/// A running process. Its output is kept until it ends.
struct Worker
{
    size_t piece = 0;
    std::unique_ptr<UnnamedFile> output;
    std::unique_ptr<UnnamedFile> errors;
};

[[noreturn]] void Work(const Worker& worker, pid_t parent, const std::function<int(size_t)>& work)
{
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) // the parent ended before prctl(): no signal will come
        std::_Exit(1);
    dup2(worker.output->handle(), STDOUT_FILENO);
    dup2(worker.errors->handle(), STDERR_FILENO);
    const int code = RunReported([&] { return work(worker.piece); });
    std::_Exit(FlushedOutput(code));
}

void Start(std::map<pid_t, Worker>& workers, size_t piece, const std::function<int(size_t)>& work)
{
    Worker worker{piece, std::make_unique<UnnamedFile>("processes"), std::make_unique<UnnamedFile>("processes")};
    std::fflush(nullptr); // otherwise the child would print buffered output again
    const pid_t parent = getpid(), child = fork();
    if (child == 0)
        Work(worker, parent, work);
    if (child < 0)
        throw Failure{"processes", QString("none can be started: ") + std::strerror(errno)};
    workers.emplace(child, std::move(worker));
}

void Pass(UnnamedFile& kept, std::FILE* stream)
{
    constexpr size_t kPipeBlock = size_t{64} * 1024;
    std::array<char, kPipeBlock> block;
    kept.seek(0);
    for (qint64 came; (came = kept.read(block.data(), block.size())) > 0;)
        std::fwrite(block.data(), 1, static_cast<size_t>(came), stream);
}

ProcessEnd EndOf(int status)
{
    return WIFEXITED(status) ? ProcessEnd{WEXITSTATUS(status), 0} : ProcessEnd{1, WTERMSIG(status)};
}

void AwaitOne(std::map<pid_t, Worker>& workers, const std::function<void(size_t, const ProcessEnd&)>& ended)
{
    int status = 0;
    const pid_t child = wait(&status);
    const auto worker = workers.find(child);
    if (worker == workers.end())
        return; // interrupted
    Progress::Clear();
    Pass(*worker->second.errors, stderr);
    Pass(*worker->second.output, stdout);
    ended(worker->second.piece, EndOf(status));
    workers.erase(worker);
}

} // namespace

void RunInProcesses(size_t count, size_t jobs, const std::function<int(size_t)>& work,
                    const std::function<void(size_t, const ProcessEnd&)>& ended)
{
    std::signal(SIGCHLD, SIG_DFL); // If SIGCHLD is ignored, wait() reports no ended children.
    std::map<pid_t, Worker> workers;
    for (size_t next = 0; next < count || !workers.empty();) {
        if (next < count && workers.size() < jobs)
            Start(workers, next++, work);
        else
            AwaitOne(workers, ended);
    }
}
