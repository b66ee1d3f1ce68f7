#include "document/InputFile.h"

#include "document/CheckedFile.h"
#include "document/Failure.h"

#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace shapedocument {

namespace {

std::unique_ptr<QFile> CopyOfStandardInput()
{
    constexpr size_t kReadBlock = size_t{64} * 1024;
    const QString name = InputName(kStandardStream);
    auto copy = std::make_unique<UnnamedFile>(name);
    std::array<char, kReadBlock> block;
    for (;;) {
        const ssize_t came = read(STDIN_FILENO, block.data(), block.size());
        if (came == 0)
            break;
        if (came > 0)
            copy->write(block.data(), came);
        else if (errno != EINTR)
            throw Failure{name, QString("cannot be read: %1").arg(std::strerror(errno))};
        if (came > 0 && !copy->WroteAll())
            throw Failure{name, "cannot be kept in a temporary file: " + copy->Reason()};
    }
    copy->seek(0);
    return copy;
}

} // namespace

QString InputName(const QString& file)
{
    return file == kStandardStream ? "standard input" : file;
}

void ExpectRegular(const QString& file)
{
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        throw Failure{file, "is no regular file"};
}

std::unique_ptr<QFile> OpenInput(const QString& file)
{
    if (file == kStandardStream)
        return CopyOfStandardInput();
    ExpectRegular(file);
    auto opened = std::make_unique<QFile>(file);
    if (!opened->open(QIODevice::ReadOnly))
        throw Failure{file, "cannot be opened: " + opened->errorString()};
    return opened;
}

} // namespace shapedocument
