#include "picture/PictureInput.h"

#include "document/Failure.h"

#include "image/PictureHeader.h"
#include "image/ShapeImage.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QList>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <future>
#include <limits>
#include <mutex>
#include <new>
#include <optional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace shapedocument {

namespace {

constexpr uint64_t kMostPixelsRead = 256ULL * 1024 * 1024; ///< one byte each in grey
constexpr int kMostSeconds = 30;                           ///< of processor time, which does not depend on other load

/// The header of the file; nothing where it cannot be read, which is reported when it is opened as a picture. Throws
/// std::bad_alloc where there is no room for the file.
std::optional<shapes::PictureHeader> HeaderOf(const QString& name)
{
    QFile file(name);
    if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const uchar* bytes = file.map(0, file.size());
    if (!bytes && file.error() == QFileDevice::ResourceError)
        throw std::bad_alloc();
    return bytes ? shapes::ReadPictureHeader({bytes, static_cast<size_t>(file.size())}) : std::nullopt;
}

/// The decoder fails in the same way for unknown files and when memory runs out, so this tries to allocate memory for
/// the file and for its pixels in colour. Throws std::bad_alloc.
void ExpectMemory(const QString& name)
try {
    constexpr uint64_t kMostSide = std::numeric_limits<int>::max();
    const auto header = HeaderOf(name);
    if (!header || header->width == 0 || header->height == 0 || std::max(header->width, header->height) > kMostSide)
        return;
    const QByteArray bytes(std::min<qint64>(QFileInfo(name).size(), kMostSide), Qt::Uninitialized);
    const cv::Mat pixels(static_cast<int>(header->height), static_cast<int>(header->width), CV_8UC4);
} catch (const cv::Exception&) {
    throw std::bad_alloc();
}

void RefuseLargePicture(const QString& name)
{
    const auto header = HeaderOf(name);
    if (header && header->height != 0 && header->width > kMostPixelsRead / header->height)
        throw Failure{name, QString("is a picture of %1 x %2 pixels; more than 256 MiB of them need --large")
                                .arg(header->width)
                                .arg(header->height)};
}

/// Checked here, because the decoder does not always report it.
bool FileEndsEarly(const QString& name)
{
    QFile file(name);
    const uchar* bytes = file.open(QIODevice::ReadOnly) ? file.map(0, file.size()) : nullptr;
    return bytes && shapes::EndsEarly({bytes, static_cast<size_t>(file.size())});
}

/// Standard error belongs to the whole process: all that hold it back at the same time share one file.
struct HeldStream
{
    std::mutex mutex;
    int holders = 0;
    int breaks = 0;    ///< number of holders that let output through which is not their decoder's
    int terminal = -1; ///< descriptor of the real standard error, while there are holders
    std::FILE* held = nullptr;
    bool isHeld = false;

    /// Redirects or restores standard error. Call under the mutex after holders or breaks have changed.
    void Follow()
    {
        const bool wanted = holders > breaks && terminal >= 0 && held;
        if (wanted == isHeld)
            return;
        std::fflush(stderr);
        dup2(wanted ? fileno(held) : terminal, STDERR_FILENO);
        isHeld = wanted;
    }
};

HeldStream& TheHeldStream()
{
    static HeldStream stream;
    return stream;
}

/// Holds back what is written to standard error while it lives.
class HeldErrors
{
public:
    HeldErrors() : m_stream(TheHeldStream())
    {
        const std::lock_guard lock(m_stream.mutex);
        if (m_stream.holders++ == 0) {
            m_stream.terminal = dup(STDERR_FILENO);
            m_stream.held = std::tmpfile();
        }
        m_stream.Follow();
        m_begin = m_end = Length();
    }
    HeldErrors(const HeldErrors&) = delete;
    HeldErrors& operator=(const HeldErrors&) = delete;
    ~HeldErrors() { GiveBack(); }

    /// Restores standard error, unless another object holds it. @return the lines held
    int GiveBack()
    {
        const std::lock_guard lock(m_stream.mutex); // The time limit calls this from another thread.
        if (std::exchange(m_isGivenBack, true))
            return m_lines;
        std::fflush(stderr);
        m_end = Length();
        m_lines = LinesSinceBegin();
        --m_stream.holders;
        m_stream.Follow();
        if (m_stream.holders > 0)
            return m_lines;
        if (m_stream.terminal >= 0)
            close(std::exchange(m_stream.terminal, -1));
        if (m_stream.held)
            std::fclose(std::exchange(m_stream.held, nullptr));
        return m_lines;
    }

    /// While it lives, output to standard error is let through: the caller's callback may write there.
    class Break
    {
    public:
        Break() { Count(1); }
        Break(const Break&) = delete;
        Break& operator=(const Break&) = delete;
        ~Break() { Count(-1); }

    private:
        static void Count(int more)
        {
            HeldStream& stream = TheHeldStream();
            const std::lock_guard lock(stream.mutex);
            stream.breaks += more;
            stream.Follow();
        }
    };

private:
    off_t Length() const
    {
        struct stat file = {};
        return m_stream.held && fstat(fileno(m_stream.held), &file) == 0 ? file.st_size : 0;
    }

    /// Lines in the first 64 KB that were held, read without moving the position at which others write. libpng's lines
    /// on colour profiles (iCCP) do not count as damage: engraved greys have no profile.
    int LinesSinceBegin() const
    {
        constexpr off_t kMostRead = 65536;
        QByteArray held(std::min(kMostRead, m_end - m_begin), Qt::Uninitialized);
        if (held.isEmpty())
            return 0;
        held.truncate(
            std::max<ssize_t>(0, pread(fileno(m_stream.held), held.data(), static_cast<size_t>(held.size()), m_begin)));
        const QList<QByteArray> lines = held.split('\n');
        return static_cast<int>(std::count_if(lines.begin(), lines.end(), [](const QByteArray& line) {
            return !line.isEmpty() && !line.contains("iCCP");
        }));
    }

    HeldStream& m_stream;
    off_t m_begin = 0, m_end = 0; ///< this object's part of the file
    bool m_isGivenBack = false;
    int m_lines = 0;
};

/// Calls outOfTime if it is not destroyed within the limit.
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
    const WorkProgress outside = [&progress](WorkStep step, size_t done, size_t all) {
        const HeldErrors::Break unheld; // what the caller writes does not come from the decoder
        return progress(step, done, all);
    };
    const WorkWatch watch(outside, WorkStep::Decoding);
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
    if (result != 0) {
        ExpectMemory(file);
        throw Failure{file, "is no picture that can be read"};
    }
    return complaints > 0 ? complaints : FileEndsEarly(file);
}

} // namespace shapedocument
