#include "check/StoredTexts.h"

#include "check/RecordWalk.h"
#include "shape/ShapeTypes.h"

#include <cstring>

namespace shapedocument {

namespace {

/// Takes the family and the text of every text record from a walk.
class TextListener : public WalkListener
{
public:
    explicit TextListener(Bytes file) : m_file(file) {}

    std::vector<StoredText> Texts() && { return std::move(m_texts); }

    void ShapeBegins(int64_t, uint32_t tag) override { m_isText = tag == ESHAPE_TEXT; }
    void FieldBegins(const Field& field, int64_t offset) override
    {
        if (field.name == "text")
            m_text = offset;
        else if (field.name == "family")
            m_family = offset;
    }
    /// Called behind the last field: only then the record is known to be whole.
    void ShapeEnds(int64_t) override
    {
        if (m_isText)
            m_texts.push_back({Held(m_family), Held(m_text)});
        m_isText = false;
    }

private:
    QString Held(int64_t offset) const
    {
        int32_t length = 0;
        std::memcpy(&length, m_file.data() + offset, sizeof length);
        return QString::fromUtf8(reinterpret_cast<const char*>(m_file.data() + offset + sizeof length), length);
    }

    Bytes m_file;
    std::vector<StoredText> m_texts;
    bool m_isText = false;
    int64_t m_text = 0;
    int64_t m_family = 0;
};

} // namespace

std::vector<StoredText> StoredTexts(Bytes file, int64_t offset, int version)
{
    TextListener listener(file);
    RecordWalk(file, version, kSalvage, &listener).List(offset); // a fault only ends the walk
    return std::move(listener).Texts();
}

} // namespace shapedocument
