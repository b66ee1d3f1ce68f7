#include "document/UnfinishedFiles.h"

#include <array>
#include <atomic>
#include <unistd.h>

namespace shapedocument {

namespace {

constexpr size_t kMost = 16; ///< files being written at the same time; further ones are not removed
std::array<std::atomic<const char*>, kMost> s_names;
static_assert(std::atomic<const char*>::is_always_lock_free);

} // namespace

SignalHold::SignalHold()
{
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE})
        sigaddset(&held, signal);
    pthread_sigmask(SIG_BLOCK, &held, &m_before);
}

SignalHold::~SignalHold()
{
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

UnfinishedFile::UnfinishedFile(QByteArray name) : m_name(std::move(name))
{
    for (size_t i = 0; i < s_names.size(); ++i) {
        const char* none = nullptr;
        if (s_names[i].compare_exchange_strong(none, m_name.constData())) {
            m_place = static_cast<int>(i);
            return;
        }
    }
}

UnfinishedFile::~UnfinishedFile()
{
    if (m_place >= 0)
        s_names[static_cast<size_t>(m_place)] = nullptr;
}

void RemoveUnfinishedFiles()
{
    for (const std::atomic<const char*>& name : s_names)
        if (const char* file = name.load())
            unlink(file);
}

} // namespace shapedocument
