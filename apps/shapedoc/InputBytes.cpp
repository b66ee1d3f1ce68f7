#include "InputBytes.h"

#include "Failure.h"
#include "InputFile.h"

#include <QFile>

InputBytes::InputBytes(const QString& file) : m_file(OpenInput(file)), m_bytes(MappedBytes(*m_file, InputName(file))) {}

InputBytes::~InputBytes() = default;

shapedocument::Bytes MappedBytes(QFile& file, const QString& name)
{
    if (file.size() == 0)
        throw Failure{name, "is empty"};
    const unsigned char* bytes = file.map(0, file.size());
    if (!bytes)
        throw Failure{name, "cannot be read: " + file.errorString()};
    return {bytes, static_cast<size_t>(file.size())};
}
