#include "document/FileHeader.h"

#include "document/Failure.h"

#include <QIODevice>
#include <QString>
#include <QtEndian>

#include <algorithm>
#include <string_view>

namespace shapedocument {

namespace {

constexpr std::string_view kMagic = kFileMagic;
static_assert(kMagic.size() + sizeof(qint32) == kFileHeaderBytes);

} // namespace

std::optional<int> RecogniseHeader(Bytes file)
{
    if (file.size() < kFileHeaderBytes || !std::equal(kMagic.begin(), kMagic.end(), file.begin()))
        return std::nullopt;
    return qFromLittleEndian<qint32>(file.data() + kMagic.size());
}

int ReadHeader(QIODevice& device, const QString& name)
{
    const QByteArray bytes = device.read(kFileHeaderBytes);
    if (!bytes.startsWith(kFileMagic))
        throw Failure{name, "is no shape document"};
    const auto version =
        RecogniseHeader({reinterpret_cast<const unsigned char*>(bytes.constData()), size_t(bytes.size())});
    if (!version)
        throw Failure{name, "ends within its header"};
    if (*version < 0 || *version > SHAPE_DOCUMENT_VERSION)
        throw Failure{name, QString("has version %1; 0 to %2 can be read").arg(*version).arg(SHAPE_DOCUMENT_VERSION)};
    return *version;
}

bool WriteHeader(QIODevice& device)
{
    QByteArray bytes(kFileHeaderBytes, '\0');
    std::copy(kMagic.begin(), kMagic.end(), bytes.begin());
    qToLittleEndian(qint32{SHAPE_DOCUMENT_VERSION}, bytes.data() + kMagic.size());
    return device.write(bytes) == bytes.size();
}

} // namespace shapedocument
