/// The life of handles, last errors, threads.
#include "Capi.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

using namespace test;

namespace {

sm_status Asked(sm_shape shape)
{
    int32_t type = 0;
    return sm_shape_type(shape, &type);
}

void AddRectangle(sm_document document, Handle& shape)
{
    Ok(sm_vector_new_rectangle({0, 0, 1, 1}, shape.Room()));
    Ok(sm_document_add(document, shape, 0));
}

} // namespace

TEST(CapiHandles, are_counted_and_stand_for_nothing_afterwards)
{
    const uint64_t before = sm_handle_count();
    Handle document, shape;
    Ok(sm_document_new(document.Room()));
    AddRectangle(document, shape);
    const sm_document number = document;
    const sm_shape same = shape;
    sm_shape again = 0;
    Ok(sm_document_shape(document, 0, &again));
    EXPECT_EQ(again, same);
    document.Give();
    EXPECT_EQ(sm_release(number), SM_BAD_HANDLE);
    Ok(Asked(shape)); // keeps its document
    sm_document alive = 0;
    Ok(sm_shape_document(shape, &alive));
    EXPECT_NE(alive, number);
    size_t count = 0;
    Ok(sm_document_count(alive, &count));
    EXPECT_EQ(count, 1U);
    Ok(sm_release(alive));
    sm_handle place = same;
    Ok(sm_release_at(&place));
    Ok(sm_release_at(&place)); // nothing is there any more
    EXPECT_EQ(place, 0U);
    EXPECT_EQ(sm_release_at(nullptr), SM_BAD_ARGUMENT);
    Ok(Asked(same)); // held by again
    shape.Give();
    EXPECT_EQ(Asked(same), SM_BAD_HANDLE);
    EXPECT_EQ(sm_release(same), SM_BAD_HANDLE);
    EXPECT_EQ(sm_handle_count(), before);
}

TEST(CapiHandles, follow_their_shapes)
{
    Handle document, other, a, b, c, group;
    Ok(sm_document_new(document.Room()));
    Ok(sm_document_new(other.Room()));
    for (Handle* shape : {&c, &b, &a})
        AddRectangle(document, *shape);
    size_t index = 9;
    const auto isAt = [&](sm_shape shape, size_t place) {
        return sm_shape_index(shape, &index) == SM_OK && index == place;
    };
    EXPECT_TRUE(isAt(a, 0) && isAt(b, 1) && isAt(c, 2));

    // Group of c and b in b's place, in the given order.
    const std::array<sm_shape, 2> members{c, b};
    Ok(sm_group_new(members.data(), members.size(), group.Room()));
    EXPECT_TRUE(isAt(group, 1));
    EXPECT_EQ(sm_shape_index(b, &index), SM_REFUSED);
    sm_shape member = 0;
    Ok(sm_shape_member(group, 1, &member));
    EXPECT_EQ(member, b);
    Ok(sm_release(member));
    EXPECT_EQ(sm_shape_remove(b), SM_REFUSED);

    // The whole group into another document, and apart again; a hidden group's members stay hidden.
    Ok(sm_shape_remove(group));
    sm_document home = 1;
    Ok(sm_shape_document(b, &home));
    EXPECT_EQ(home, 0U);
    Ok(sm_document_add(other, group, 0));
    Ok(sm_shape_document(b, &home));
    EXPECT_EQ(home, other);
    Ok(sm_release(home));
    Ok(sm_shape_set_state(group, SM_STATE_HIDDEN));
    const sm_shape dissolved = group;
    Ok(sm_group_dissolve(group));
    EXPECT_EQ(Asked(dissolved), SM_BAD_HANDLE);
    EXPECT_TRUE(isAt(c, 0) && isAt(b, 1));
    uint32_t state = 0;
    Ok(sm_shape_state(b, &state));
    EXPECT_EQ(state, uint32_t(SM_STATE_HIDDEN));

    // Not of two documents; a detached one outlives everything.
    const std::array<sm_shape, 2> apart{a, b};
    EXPECT_EQ(sm_group_new(apart.data(), apart.size(), group.Room()), SM_REFUSED);
    Ok(sm_shape_remove(a));
    document.Give();
    other.Give();
    Ok(Asked(a));
}

TEST(CapiHandles, none_is_left_of_a_thousand_documents)
{
    Handle document, rectangle;
    Ok(sm_document_new(document.Room()));
    AddRectangle(document, rectangle);
    const std::string bytes = Saved(document);
    const uint64_t before = sm_handle_count();
    for (int i = 0; i < 1000; ++i) {
        Handle opened, shape;
        Ok(sm_document_open_bytes(bytes.data(), bytes.size(), nullptr, opened.Room()));
        Ok(sm_document_shape(opened, 0, shape.Room()));
    }
    EXPECT_EQ(sm_handle_count(), before);
}

TEST(CapiErrors, belong_to_their_thread)
{
    sm_document document = 0;
    EXPECT_EQ(sm_document_open("/no such.shapes", nullptr, &document), SM_NO_FILE);
    std::thread([] {
        EXPECT_STREQ(sm_last_error(), "");
        EXPECT_EQ(sm_shape_move(0, 1, 1), SM_BAD_HANDLE);
    }).join();
    EXPECT_EQ(std::string(sm_last_error()).rfind("/no such.shapes: ", 0), 0U) << sm_last_error();
    EXPECT_EQ(sm_release(77), SM_BAD_HANDLE); // leaves the words as they are
    EXPECT_EQ(std::string(sm_last_error()).rfind("/no such.shapes: ", 0), 0U);
    Ok(sm_start());
    EXPECT_STREQ(sm_last_error(), "");
}

/// Shapes move between two documents while other threads read, group and render; every status is one of the allowed.
TEST(CapiThreads, use_one_document_in_turns)
{
    Handle left, right, shapes[4];
    Ok(sm_document_new(left.Room()));
    Ok(sm_document_new(right.Room()));
    for (Handle& shape : shapes)
        AddRectangle(left, shape);
    std::atomic<int> odd = 0;
    const auto work = [&](int seed) {
        const auto allow = [&](sm_status status) {
            odd += status != SM_OK && status != SM_REFUSED && status != SM_OUT_OF_RANGE;
        };
        for (int i = 0; i < 300; ++i) {
            const sm_shape shape = shapes[size_t(seed + i) % 4];
            const sm_document document = (seed + i) % 3 ? left : right;
            allow(sm_shape_remove(shape));
            allow(sm_document_add(document, shape, 0));
            allow(sm_shape_move(shape, 1, 0));
            const std::array<sm_shape, 2> members{shape, shapes[size_t(seed + i + 1) % 4]};
            Handle group, other;
            allow(sm_group_new(members.data(), 2, group.Room()));
            allow(sm_document_shape(document, 0, other.Room()));
            if (group)
                allow(sm_group_dissolve(group));
        }
    };
    std::vector<std::thread> threads;
    for (int seed = 0; seed < 4; ++seed)
        threads.emplace_back(work, seed);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(odd, 0);
    size_t counts[2]{};
    Ok(sm_document_count(left, &counts[0]));
    Ok(sm_document_count(right, &counts[1]));
    EXPECT_LE(counts[0] + counts[1], 4U);
}
