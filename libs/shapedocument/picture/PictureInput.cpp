#include "picture/PictureInput.h"

#include "document/Failure.h"

#include "image/PictureHeader.h"
#include "image/ShapeImage.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <future>
#include <mutex>
#include <thread>
#include <unistd.h>

namespace shapedocument {

namespace {

constexpr uint64_t kMostPixels = 256ULL * 1024 * 1024; ///< one byte each in grey
constexpr int kMostSeconds = 30;                       ///< of processor time: a busy machine makes no difference

void RefuseLargePicture(const QString& name)
{
    QFile file(name);
    if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly))
        return; // reported when it is opened as a picture
    const uchar* bytes = file.map(0, file.size());
    if (!bytes)
        return;
    const auto header = shapes::ReadPictureHeader({bytes, static_cast<size_t>(file.size())});
    if (header && header->height != 0 && header->width > kMostPixels / header->height)
        throw Failure{name, QString("is a picture of %1 x %2 pixels; more than 256 MiB of them need --large")
                                .arg(header->width)
                                .arg(header->height)};
}

/// Which the decoder does not always complain of.
bool FileEndsEarly(const QString& name)
{
    QFile file(name);
    const uchar* bytes = file.open(QIODevice::ReadOnly) ? file.map(0, file.size()) : nullptr;
    return bytes && shapes::EndsEarly({bytes, static_cast<size_t>(file.size())});
}

/// Holds back what is written to standard error while it lives.
class HeldErrors
{
public:
    HeldErrors() : m_terminal(dup(STDERR_FILENO)), m_held(std::tmpfile())
    {
        std::fflush(stderr);
        if (m_terminal >= 0 && m_held)
            dup2(fileno(m_held), STDERR_FILENO);
    }
    HeldErrors(const HeldErrors&) = delete;
    HeldErrors& operator=(const HeldErrors&) = delete;
    ~HeldErrors()
    {
        GiveBack();
        if (m_held)
            std::fclose(m_held);
    }
    /// Lets standard error through again. @return the lines held
    int GiveBack()
    {
        const std::lock_guard lock(m_mutex); // The time limit calls this from another thread.
        if (m_terminal < 0)
            return m_lines;
        std::fflush(stderr);
        dup2(m_terminal, STDERR_FILENO);
        close(m_terminal);
        m_terminal = -1;
        if (!m_held)
            return m_lines;
        std::rewind(m_held);
        for (int byte; (byte = std::fgetc(m_held)) != EOF;)
            m_lines += byte == '\n';
        return m_lines;
    }

private:
    std::mutex m_mutex;
    int m_terminal;
    std::FILE* m_held;
    int m_lines = 0;
};

/// Calls outOfTime if it lives too long.
class TimeLimit
{
public:
    TimeLimit(HeldErrors& errors, const std::function<void()>& outOfTime)
        : m_watch([this, &errors, &outOfTime] { Watch(errors, outOfTime); })
    {}
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;
    ~TimeLimit()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_done = true;
        }
        m_wake.notify_one();
        m_watch.join();
    }

private:
    void Watch(HeldErrors& errors, const std::function<void()>& outOfTime)
    {
        std::unique_lock lock(m_mutex);
        const std::clock_t end = std::clock() + std::clock_t{kMostSeconds} * CLOCKS_PER_SEC;
        while (!m_wake.wait_for(lock, std::chrono::milliseconds(100), [this] { return m_done; })) {
            if (std::clock() < end)
                continue;
            errors.GiveBack();
            return outOfTime();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_done = false;
    std::thread m_watch; ///< last member: the thread uses the others
};

/// As CShapeImage::OpenImage. Throws Stopped.
int Decode(CShapeImage& picture, QByteArray name, const WorkProgress& progress)
{
    constexpr std::chrono::milliseconds kBetween(20);
    if (!progress)
        return picture.OpenImage(name.data());
    const WorkWatch watch(progress, WorkStep::Decoding);
    watch.Ask();
    std::future<int> decoded = std::async(std::launch::async, [&] { return picture.OpenImage(name.data()); });
    bool goesOn = true;
    while (decoded.wait_for(kBetween) != std::future_status::ready)
        goesOn = goesOn && watch.GoesOn();
    if (!goesOn)
        throw Stopped();
    return decoded.get();
}

} // namespace

int OpenPicture(CShapeImage& picture, const QString& file, const PictureLimits& limits)
{
    if (!limits.large)
        RefuseLargePicture(file);
    const QByteArray name = file.toUtf8();
    HeldErrors errors;
    int result = 0;
    if (limits.large || !limits.outOfTime) {
        result = Decode(picture, name, limits.progress);
    } else {
        const std::function<void()> outOfTime = [&] {
            limits.outOfTime(file, QString("takes more than %1 seconds to decode").arg(kMostSeconds));
        };
        const TimeLimit limit(errors, outOfTime);
        result = Decode(picture, name, limits.progress);
    }
    const int complaints = errors.GiveBack();
    if (result != 0)
        throw Failure{file, "is no picture that can be read"};
    return complaints > 0 ? complaints : FileEndsEarly(file);
}

} // namespace shapedocument
