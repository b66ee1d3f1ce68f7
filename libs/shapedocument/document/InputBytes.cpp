#include "document/InputBytes.h"

#include "document/Failure.h"
#include "document/InputFile.h"

#include <QFile>

namespace shapedocument {

InputBytes::InputBytes(const QString& file) : m_file(OpenInput(file)), m_bytes(MappedBytes(*m_file, InputName(file))) {}

InputBytes::~InputBytes() = default;

Bytes MappedBytes(QFile& file, const QString& name)
{
    if (file.size() == 0)
        throw Failure{name, "is empty"};
    const unsigned char* bytes = file.map(0, file.size());
    if (!bytes)
        throw Failure{name, "cannot be read: " + file.errorString()};
    return {bytes, static_cast<size_t>(file.size())};
}

} // namespace shapedocument
