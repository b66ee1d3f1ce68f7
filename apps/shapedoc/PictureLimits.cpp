#include "PictureLimits.h"

#include "Escaped.h"
#include "Messages.h"
#include "document/Failure.h"

#include "image/PictureHeader.h"
#include "image/ShapeImage.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <mutex>
#include <string>
#include <thread>
#include <unistd.h>

using namespace shapedocument;

namespace {

constexpr uint64_t kMostPixels = 256ULL * 1024 * 1024; ///< a byte each, once grey
constexpr int kMostSeconds = 30;                       ///< of processor time, so that a busy machine does not count

void RefuseLargePicture(const QString& name)
{
    QFile file(name);
    if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly))
        return; // which is found out when it is opened as picture
    const uchar* bytes = file.map(0, file.size());
    if (!bytes)
        return;
    const auto header = shapes::ReadPictureHeader({bytes, static_cast<size_t>(file.size())});
    if (header && header->height != 0 && header->width > kMostPixels / header->height)
        throw Failure{name, QString("is a picture of %1 x %2 pixels; more than 256 MiB of them need --large")
                                .arg(header->width)
                                .arg(header->height)};
}

/// Keeps what is written to standard error to itself while it lives.
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
    /// The real standard error.
    void Write(const std::string& line) const
    {
        if (m_terminal >= 0 && write(m_terminal, line.data(), line.size()) < 0)
            return; // nobody to tell
    }
    /// Lets standard error through again. @return the lines held
    int GiveBack()
    {
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
    int m_terminal;
    std::FILE* m_held;
    int m_lines = 0;
};

/// Ends the program when it lives for too long.
class TimeLimit
{
public:
    TimeLimit(const HeldErrors& errors, const QString& file)
        : m_watch([this, &errors,
                   line = Escaped(QString("shapedoc: %1: takes more than %2 seconds to decode; --large waits for it")
                                      .arg(file)
                                      .arg(kMostSeconds))
                              .toStdString() +
                          "\n"] { Watch(errors, line); })
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
    void Watch(const HeldErrors& errors, const std::string& line)
    {
        std::unique_lock lock(m_mutex);
        const std::clock_t end = std::clock() + std::clock_t{kMostSeconds} * CLOCKS_PER_SEC;
        while (!m_wake.wait_for(lock, std::chrono::milliseconds(100), [this] { return m_done; })) {
            if (std::clock() < end)
                continue;
            errors.Write(line);
            std::_Exit(1); // no output has been begun
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_done = false;
    std::thread m_watch; ///< last, for it uses the others
};

} // namespace

void OpenPicture(CShapeImage& picture, const QString& file, bool large)
{
    if (!large)
        RefuseLargePicture(file);
    QByteArray name = file.toUtf8();
    HeldErrors errors;
    int result = 0;
    if (large) {
        result = picture.OpenImage(name.data());
    } else {
        const TimeLimit limit(errors, file);
        result = picture.OpenImage(name.data());
    }
    const int lines = errors.GiveBack();
    if (result != 0)
        throw Failure{file, "is no picture that can be read"};
    if (lines > 0)
        Warn(QString("%1: the decoder had %2 complaints, the picture may be damaged").arg(file).arg(lines));
}
