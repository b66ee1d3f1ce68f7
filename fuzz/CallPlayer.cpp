#include "CallPlayer.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <unistd.h>

namespace fuzz {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const char* what)
{
    std::fprintf(stderr, "%s: %s\n", what, sm_last_error());
    std::abort();
}

/// A folder of this process's own, gone with it.
class OwnFolder
{
public:
    OwnFolder()
    {
        std::string name = (fs::temp_directory_path() / "calls-XXXXXX").string();
        if (!mkdtemp(name.data()))
            Fail("no temporary folder");
        m_path = name;
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;
    ~OwnFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }

    std::string File(const char* name) const { return (m_path / name).string(); }

private:
    fs::path m_path;
};

const OwnFolder& TheFolder()
{
    static const OwnFolder folder;
    return folder;
}

constexpr size_t kLongText = 20'000; // bytes, more than texts hold

} // namespace

Player::Player(Bytes input) : m_input(input)
{
    Make(Kind::Document, [](sm_handle* made) { return sm_document_new(made); });
    constexpr std::array<uint8_t, 8> kPixels{0, 50, 255, 9, 7, 90, 120, 200};
    constexpr sm_rect kRect{5, 5, 20, 10};
    Make(Kind::Shape, [&](sm_handle* made) { return sm_vector_new_ellipse(kRect, made); });
    Make(Kind::Shape, [&](sm_handle* made) { return sm_image_new(kPixels.data(), 4, 2, 4, kRect, made); });
    Make(Kind::Shape,
         [&](sm_handle* made) { return sm_code_image_new(kPixels.data(), 4, 2, 4, kRect, "42", 1, made); });
    Make(Kind::Shape, [](sm_handle* made) { return sm_text_new("a\nb", nullptr, made); });
    sm_handle outline = 0;
    Check(sm_vector_new_rectangle(kRect, &outline));
    Make(Kind::Shape, [&](sm_handle* made) { return sm_array_new(&outline, 1, nullptr, made); });
    sm_release(outline);
}

Player::~Player()
{
    for (const Held& held : m_held)
        sm_release(held.handle);
    if (sm_handle_count() != 0)
        Fail("handles are left");
}

unsigned Player::Byte()
{
    const unsigned byte = m_input.empty() ? 0 : m_input.front();
    m_input = m_input.subspan(m_input.empty() ? 0 : 1);
    return byte;
}

double Player::Number()
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr std::array kNumbers{0.0,        1.0,
                                  -1.0,       3.5,
                                  10.0,       37.0,
                                  99.5,       -40.0,
                                  90.0,       30.0,
                                  1e-9,       250.0,
                                  1e6,        1e7,
                                  -1e6,       0.05,
                                  1e300,      kInfinity,
                                  -kInfinity, 5e-324,
                                  -1e99,      std::numeric_limits<double>::quiet_NaN()};
    return kNumbers[Byte() % kNumbers.size()];
}

int32_t Player::Integer()
{
    constexpr std::array kIntegers{0,     1,
                                   2,     3,
                                   -1,    4,
                                   16,    127,
                                   1000,  20001,
                                   65536, std::numeric_limits<int32_t>::max(),
                                   -7,    std::numeric_limits<int32_t>::min()};
    return kIntegers[Byte() % kIntegers.size()];
}

int32_t Player::Choice(unsigned count)
{
    const unsigned choice = Byte();
    return choice < 224 ? static_cast<int32_t>(choice % count) : Integer();
}

sm_rect Player::Rect()
{
    if (Byte() % 4 == 3)
        return {Number(), Number(), Number(), Number()};
    return {double(Byte()), double(Byte()), double(Byte() + 1), double(Byte() + 1)};
}

size_t Player::Size()
{
    constexpr std::array<size_t, 4> kImpossible{SIZE_MAX, SIZE_MAX / 2, SIZE_MAX / 16, 65'536};
    const unsigned choice = Byte();
    return choice < 224 ? choice % 5 : kImpossible[choice % kImpossible.size()];
}

const char* Player::Text()
{
    constexpr std::array kTexts{"g", "", "ab\nc", "\xFF\xFE", "12\u20AC", "\u05D0\u0628\U0001F600", "a\tb\r\n\n"};
    const unsigned choice = Byte() % (kTexts.size() + 2);
    if (choice == kTexts.size())
        return nullptr;
    m_text = choice > kTexts.size() ? std::string(kLongText, 'i') : kTexts[choice];
    return m_text.c_str();
}

const char* Player::File()
{
    constexpr std::array kNames{"a", "b", "c.svg", "none/a", ".", "a/b"};
    const unsigned choice = Byte();
    if (choice == 0)
        return nullptr;
    m_text = choice == 1 ? TheFolder().File("") + std::string(kLongText, 'i')
                         : TheFolder().File(kNames[choice % (choice < 224 ? 3 : kNames.size())]);
    return m_text.c_str();
}

sm_handle Player::Handle(Kind kind)
{
    const unsigned choice = Byte();
    if (choice >= 250)
        return choice * 0x100000001ULL;
    if (choice < 200)
        for (size_t i = 0; i < m_held.size(); ++i)
            if (const Held& held = m_held[(choice + i) % m_held.size()]; held.kind == kind)
                return held.handle;
    return m_held[choice % m_held.size()].handle;
}

sm_progress Player::Progress()
{
    const unsigned choice = Byte();
    m_patience = static_cast<int>(choice % 64);
    return choice < 192 ? Told : nullptr;
}

int32_t Player::Told(void* player, const char* step, uint64_t done, uint64_t total)
{
    auto& self = *static_cast<Player*>(player);
    if (!step || !*step || (total > 0 && done > 2 * total))
        Fail("an odd step");
    sm_rect rect{};
    if (const sm_status status = sm_shape_rect(self.Handle(Kind::Shape), &rect); status >= SM_INTERNAL)
        Fail("a fault of the library in a callback");
    if (self.Byte() % 8 == 7) { // also what is being worked on
        Held& gone = self.m_held[self.Byte() % self.m_held.size()];
        sm_release(gone.handle);
        gone = {};
    }
    return --self.m_patience < 0;
}

size_t Player::SizeOf(size_t whole, unsigned choice)
{
    constexpr size_t kFirstField = 2 * sizeof(uint32_t);
    return choice == 13   ? whole + sizeof(Longer<int32_t>::behind)
           : choice == 14 ? 0
           : choice == 15 ? kFirstField
                          : whole;
}

void Player::Vary(int32_t& field)
{
    if (Byte() % 8 == 0)
        field = Choice(2);
}

void Player::Vary(double& field)
{
    if (Byte() % 16 == 0)
        field = Number();
}

void Player::Check(sm_status status) const
{
    if (status < SM_OK || status >= SM_INTERNAL)
        Fail("a fault of the library");
    if ((status == SM_OK) != (*sm_last_error() == 0))
        Fail("words that do not fit the status");
    if (status != SM_OK && *sm_last_warnings() != 0)
        Fail("a failure that warns");
}

void Player::Keep(sm_status status, sm_handle made, Kind kind)
{
    if (status != SM_OK && made != 0)
        Fail("a failure with a result");
    if (made == 0)
        return;
    Held& place = m_held[m_next++ % m_held.size()];
    sm_release(place.handle);
    place = {made, kind};
}

} // namespace fuzz
