#include "document/OutputFile.h"

#include "document/CheckedFile.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/UnfinishedFiles.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace shapedocument {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kAllModeBits = 07777;

[[noreturn]] void Refuse(const Target& target, const QString& reason)
{
    throw Failure{OutputName(target), reason};
}

[[noreturn]] void RefuseWriting(const Target& target, const QString& reason)
{
    Refuse(target, "cannot be written: " + reason);
}

/// The target of all symbolic links, so that the links survive; the target need not exist.
fs::path Resolved(const Target& target)
{
    constexpr int kMostLinks = 40;
    fs::path place(QFile::encodeName(target.file).toStdString());
    std::error_code error;
    for (int links = 0; fs::is_symlink(fs::symlink_status(place, error)); ++links) {
        if (links == kMostLinks)
            RefuseWriting(target, "its symbolic links lead nowhere");
        place = place.parent_path() / fs::read_symlink(place, error);
    }
    return place;
}

/// Status of the existing file; nothing if there is none.
std::optional<struct stat> Predecessor(const fs::path& place)
{
    struct stat found = {};
    return stat(place.c_str(), &found) == 0 ? std::optional(found) : std::nullopt;
}

/// A file without any write permission counts as protected also for root, who could write it.
bool IsWriteProtected(const fs::path& place, const struct stat& file)
{
    constexpr mode_t kAnybodyWrites = S_IWUSR | S_IWGRP | S_IWOTH;
    return (file.st_mode & kAnybodyWrites) == 0 || faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) != 0;
}

/// A temporary file beside the target, removed unless it has been renamed to the target.
class TemporaryFile : public CheckedFile
{
public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() override
    {
        const SignalHold hold;
        if (m_unfinished)
            unlink(m_unfinished->Name().constData());
    }

    /// Creates the file under an unused name. On failure errno holds the reason.
    bool Create(const fs::path& place)
    {
        constexpr int kAttempts = 100;
        constexpr mode_t kUsualMode = 0666; // minus the umask
        const std::string stem = (place.parent_path() / (".shapedoc-" + std::to_string(getpid()) + "-")).string();
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            const std::string name = stem + std::to_string(attempt);
            const SignalHold hold;
            const int handle = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kUsualMode);
            if (handle >= 0) {
                m_unfinished.emplace(QByteArray::fromStdString(name));
                return open(handle, ReadWrite, AutoCloseHandle);
            }
            if (errno != EEXIST)
                return false;
        }
        return false;
    }

    /// Copies owner, group (not required with force) and mode of the existing file; false if that fails. Sets the mode
    /// last, because chown clears bits of it.
    bool AdoptOwnerAndMode(const struct stat& file, bool force)
    {
        const bool owned = fchown(handle(), file.st_uid, file.st_gid) == 0;
        return (owned || force) && fchmod(handle(), file.st_mode & kAllModeBits) == 0;
    }

    bool RenameTo(const fs::path& place)
    {
        const SignalHold hold;
        if (::rename(m_unfinished->Name().constData(), place.c_str()) != 0)
            return false;
        m_unfinished.reset();
        return true;
    }

private:
    std::optional<UnfinishedFile> m_unfinished;
};

QString SystemReason()
{
    return std::strerror(errno);
}

void CopyToStandardOutput(const Target& target, QFile& file)
{
    constexpr size_t kWriteBlock = size_t{64} * 1024;
    std::array<char, kWriteBlock> block;
    file.seek(0);
    for (qint64 came; (came = file.read(block.data(), block.size())) != 0;) {
        if (came < 0)
            RefuseWriting(target, file.errorString());
        for (qint64 done = 0; done < came;) {
            const ssize_t written = write(STDOUT_FILENO, block.data() + done, static_cast<size_t>(came - done));
            if (written < 0 && errno != EINTR)
                RefuseWriting(target, SystemReason());
            done += std::max<ssize_t>(written, 0);
        }
    }
}

void WriteStandardOutput(const Target& target, const std::function<void(QFile&)>& write,
                         const std::function<void(QFile&)>& approve)
{
    UnnamedFile file(OutputName(target));
    write(file);
    if (!file.WroteAll())
        RefuseWriting(target, "no room for it in a temporary file: " + file.Reason());
    if (approve)
        approve(file);
    CopyToStandardOutput(target, file);
}

/// Throws Failure where the file may not be replaced.
void ExpectReplaceable(const Target& target, const fs::path& place, const struct stat& file)
{
    if (!S_ISREG(file.st_mode))
        Refuse(target, "is no regular file");
    if (!target.force && IsWriteProtected(place, file))
        Refuse(target, "is write-protected; --force replaces it");
}

} // namespace

QString OutputName(const Target& target)
{
    return target.file == kStandardStream ? "standard output" : target.file;
}

void WriteFile(const Target& target, const std::function<void(QFile&)>& write,
               const std::function<void(QFile&)>& approve)
{
    if (target.file == kStandardStream)
        return WriteStandardOutput(target, write, approve);
    const fs::path place = Resolved(target);
    const std::optional<struct stat> before = Predecessor(place);
    if (before)
        ExpectReplaceable(target, place, *before);
    TemporaryFile file;
    if (!file.Create(place))
        RefuseWriting(target, SystemReason());
    if (before && !file.AdoptOwnerAndMode(*before, target.force))
        Refuse(target, "belongs to another user or group, which the new file could not; --force replaces it");
    write(file);
    if (!file.WroteAll())
        RefuseWriting(target, file.Reason());
    if (fsync(file.handle()) != 0)
        RefuseWriting(target, SystemReason());
    if (approve)
        approve(file);
    if (!file.RenameTo(place))
        RefuseWriting(target, SystemReason());
}

} // namespace shapedocument
