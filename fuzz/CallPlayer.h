/// Plays calls of the C interface: arguments that the input chooses, and checks of every result.
#pragma once

#include "MemoryFile.h"

#include "shapemodel.h"

#include <array>
#include <cstddef>
#include <string>

namespace fuzz {

enum class Kind
{
    None, ///< made up, or of any kind
    Document,
    Shape,
    Job,
    Buffer
};

/// A struct with room behind it, as a later version's would have.
template <class Struct>
struct Longer
{
    Struct given;
    std::array<std::byte, 32> behind;
};

class Player
{
public:
    /// Begins with a document, an outline, a picture, a code, a text and an array.
    explicit Player(Bytes input);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
    /// Gives all handles back, and fails where one is left.
    ~Player();

    // Arguments, each of a byte or two of the input; zeros behind its end.

    bool HasMore() const { return !m_input.empty(); }
    unsigned Byte();
    /// Also far too large, and none.
    double Number();
    int32_t Integer();
    /// Mostly one of the first count numbers of an enumeration.
    int32_t Choice(unsigned count);
    /// Small, or impossible.
    size_t Size();
    /// Mostly one that shapes can have.
    sm_rect Rect();
    /// Null, no UTF-8, too long, or a text.
    const char* Text();
    /// Of this process's own folder, all but null: one of a few files, one in a folder that does not exist, the folder.
    const char* File();
    /// Mostly of that kind; also of others, gone, and made up.
    sm_handle Handle(Kind kind = Kind::None);
    /// A result that is not asked for, now and then.
    template <class Result>
    Result* Room(Result& result)
    {
        return Byte() % 32 == 31 ? nullptr : &result;
    }
    /// A progress callback, or null; it stops the work after a while, and makes calls of its own.
    sm_progress Progress();
    /// Its context.
    void* Context() { return this; }

    /// Options of which some fields differ from the defaults; or null, of an odd size, or not set at all.
    template <class Struct, class... Fields>
    const Struct* Options(sm_status (*defaults)(Struct*, size_t), Longer<Struct>& room, Fields... fields)
    {
        room = {};
        const unsigned choice = Byte() % 16;
        if (choice == 0)
            return nullptr;
        const size_t size = SizeOf(sizeof(Struct), choice);
        Check(defaults(&room.given, size));
        (Vary(room.given.*fields), ...);
        return &room.given;
    }
    /// The same for options that tell their progress.
    template <class Struct, class... Fields>
    const Struct* ToldOptions(sm_status (*defaults)(Struct*, size_t), Longer<Struct>& room, Fields... fields)
    {
        const Struct* options = Options(defaults, room, fields...);
        if (options && options->struct_size >= sizeof(Struct)) {
            room.given.progress = Progress();
            room.given.context = Context();
        }
        return options;
    }
    /// A result's struct, its size set, now and then to an odd one.
    template <class Struct>
    Struct* Result(Longer<Struct>& room)
    {
        room = {};
        room.given.struct_size = static_cast<uint32_t>(SizeOf(sizeof(Struct), Byte() % 16));
        return Room(room.given);
    }

    // Results.

    void Check(sm_status status) const;
    /// The call gets a place for a handle of that kind, which is kept in place of another.
    template <class Call>
    void Make(Kind kind, const Call& call)
    {
        sm_handle made = 0;
        const sm_status status = call(Room(made));
        Check(status);
        Keep(status, made, kind);
    }
    void Keep(sm_status status, sm_handle made, Kind kind);
    /// Whether an expensive call may be made once more.
    bool Spend(int price) { return (m_budget -= price) >= 0; }

private:
    struct Held
    {
        sm_handle handle = 0;
        Kind kind = Kind::None;
    };

    static int32_t Told(void* player, const char* step, uint64_t done, uint64_t total);
    static size_t SizeOf(size_t whole, unsigned choice);
    void Vary(int32_t& field);
    void Vary(double& field);

    Bytes m_input;
    std::array<Held, 16> m_held{};
    size_t m_next = 0;
    int m_budget = 100;
    int m_patience = 0;
    std::string m_text; ///< lent last
};

using PlayedCall = void (*)(Player&);

/// Each call of the interface at least once.
std::span<const PlayedCall> DocumentCalls();
std::span<const PlayedCall> MakingCalls();
std::span<const PlayedCall> ShapeCalls();
std::span<const PlayedCall> JobCalls();

} // namespace fuzz
