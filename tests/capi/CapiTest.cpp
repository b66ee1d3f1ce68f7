/// Documents, shapes and jobs through the C interface.
#include "Capi.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

using namespace test;

namespace {

const std::array<double, 8> kLine{0, 0, 20, 0, 20, 10, 0, 0};
const std::array<uint8_t, 4> kFilled{0, 0, 0, SM_POINT_FILL};
const std::array<uint8_t, 10> kPixels{0, 50, 100, 150, 200, 250, 255, 5, 10, 15};

void Add(sm_document document, sm_shape shape)
{
    Ok(sm_document_add(document, shape, size_t(SM_END)));
}

} // namespace

void test::FillWithEveryKind(sm_document document)
{
    Handle outline, ellipse, text, image, code, inner, outer, array;
    Ok(sm_vector_new(kLine.data(), kFilled.data(), 4, outline.Room()));
    Ok(sm_vector_new_ellipse({1, 2, 30, 10}, ellipse.Room()));
    Ok(sm_text_new("zwei\nZeilen", nullptr, text.Room()));
    Ok(sm_image_new(kPixels.data(), 5, 2, 5, {40, 0, 10, 4}, image.Room()));
    Ok(sm_code_image_new(kPixels.data(), 4, 2, 5, {40, 10, 8, 4}, "12€", 1, code.Room()));
    Ok(sm_shape_turn(image, 30, 40, 0));
    for (const sm_shape shape :
         {sm_shape(outline), sm_shape(ellipse), sm_shape(text), sm_shape(image), sm_shape(code)}) {
        Handle clone;
        Ok(sm_shape_clone(shape, nullptr, nullptr, clone.Room()));
        Add(document, clone);
    }
    const std::array<sm_shape, 2> first{outline, text};
    Ok(sm_group_new(first.data(), first.size(), inner.Room()));
    const std::array<sm_shape, 2> second{inner, image};
    Ok(sm_group_new(second.data(), second.size(), outer.Room()));
    Add(document, outer);
    sm_array_options cells{};
    Ok(sm_array_options_defaults(&cells, sizeof cells));
    cells.rows = 2;
    cells.columns = 3;
    cells.column_gap = 5;
    const std::array<sm_shape, 1> third{ellipse};
    Ok(sm_array_new(third.data(), third.size(), &cells, array.Room()));
    Ok(sm_array_delete_cell(array, 4));
    Add(document, array);
}

TEST(CapiDocument, comes_back_byte_for_byte)
{
    std::vector<std::string> documents;
    for (const char* name : {"", "rosette.svg", "ornament.svg", "flaws.svg"}) {
        Handle document;
        Ok(sm_document_new(document.Room()));
        if (*name)
            Ok(sm_document_import_drawing(document, (std::string(SAMPLES "/") + name).c_str(), nullptr, nullptr));
        else
            FillWithEveryKind(document);
        documents.push_back(Saved(document));
    }
    for (const std::string& bytes : documents) {
        sm_check_result check{sizeof check, 0, 0, 0, 0, 0, {}};
        Ok(sm_check_bytes(bytes.data(), bytes.size(), nullptr, &check));
        EXPECT_TRUE(check.clean && check.version == sm_document_format()) << check.fault;
        Handle again;
        Ok(sm_document_open_bytes(bytes.data(), bytes.size(), nullptr, again.Room()));
        EXPECT_TRUE(Saved(again) == bytes) << bytes.size();
    }
}

TEST(CapiDocument, is_repaired)
{
    Handle document, repaired;
    Ok(sm_document_new(document.Room()));
    FillWithEveryKind(document);
    std::string bytes = Saved(document);
    bytes.resize(bytes.size() - 1000);
    sm_check_result check{sizeof check, 0, 0, 0, 0, 0, {}};
    Ok(sm_check_bytes(bytes.data(), bytes.size(), nullptr, &check));
    EXPECT_TRUE(!check.clean && std::strlen(check.fault) > 0);
    sm_repair_result result{sizeof result, 0, 0, 0, 0, 0, 0, 0};
    Ok(sm_repair_bytes(bytes.data(), bytes.size(), nullptr, repaired.Room(), &result));
    EXPECT_EQ(result.kept_before, check.shapes);
    const std::string kept = Bytes(repaired);
    Ok(sm_check_bytes(kept.data(), kept.size(), nullptr, &check));
    EXPECT_TRUE(check.clean);
    EXPECT_EQ(check.shapes, result.kept_before + result.recovered);
}

TEST(CapiShape, keeps_what_it_was_given)
{
    Handle outline, image, code, text;
    Ok(sm_vector_new(kLine.data(), kFilled.data(), 4, outline.Room()));
    std::array<double, 8> xy{};
    std::array<uint8_t, 4> types{};
    size_t count = 0;
    Ok(sm_shape_points(outline, xy.data(), types.data(), 4, &count));
    EXPECT_TRUE(count == 4 && xy == kLine && types == kFilled);
    const double* lent = nullptr;
    const uint8_t* lentTypes = nullptr;
    Ok(sm_shape_borrow_points(outline, &lent, &lentTypes, &count));
    EXPECT_TRUE(std::equal(kLine.begin(), kLine.end(), lent) && std::equal(types.begin(), types.end(), lentTypes));

    Ok(sm_image_new(kPixels.data(), 5, 2, 5, {40, 0, 10, 2.5}, image.Room()));
    EXPECT_STREQ(sm_last_warnings(), "5 columns of pixels become 8\n");
    for (const int32_t which : {SM_PIXELS_UNEDITED, SM_PIXELS_SHOWN}) {
        Handle pixels;
        sm_pixels info{sizeof info, 0, 0, 0};
        Ok(sm_shape_pixels(image, which, &info, pixels.Room()));
        EXPECT_TRUE(info.width == 8 && info.height == 2 && info.stride == 8); // widened: columns 0, 0, 1, 1, 2, 3, 3, 4
        const std::array<uint8_t, 16> wide{0, 0, 50, 50, 100, 150, 150, 200, 250, 250, 255, 255, 5, 10, 10, 15};
        EXPECT_EQ(Bytes(pixels), std::string(wide.begin(), wide.end()));
    }

    std::array<char, 16> letters{};
    Ok(sm_code_image_new(kPixels.data(), 4, 2, 5, {0, 0, 8, 4}, "12€", 0, code.Room()));
    Ok(sm_shape_text(code, letters.data(), letters.size(), &count));
    EXPECT_TRUE(count == 5 && std::string(letters.data()) == "12€");
    int32_t kind = 1;
    Ok(sm_code_image_kind(code, &kind));
    EXPECT_EQ(kind, 0);

    sm_text_options options{}, told{};
    Ok(sm_text_options_defaults(&options, sizeof options));
    options.size = 12;
    options.char_spacing = 0.5;
    options.align = SM_ALIGN_RIGHT;
    std::strcpy(options.family, "Liberation Sans");
    Ok(sm_text_new("Größe", &options, text.Room()));
    EXPECT_STREQ(sm_last_warnings(), "");
    told.struct_size = sizeof told;
    Ok(sm_shape_text_options(text, &told));
    EXPECT_EQ(std::memcmp(&options, &told, sizeof told), 0);
    EXPECT_NEAR(Rect(text)[0], 0, 1e-9);
    Ok(sm_shape_set_text(text, "l", nullptr));
    EXPECT_LT(Rect(text)[2], 2);
}

/// A 20 x 10 rectangle in the origin, alone, as a picture, as the member of a group, as an array of one cell.
TEST(CapiShape, is_transformed_alike)
{
    Handle vector, image, group, array, first, second;
    Ok(sm_vector_new_rectangle({0, 0, 20, 10}, vector.Room()));
    Ok(sm_image_new(kPixels.data(), 5, 2, 5, {0, 0, 20, 10}, image.Room()));
    Ok(sm_shape_clone(vector, nullptr, nullptr, first.Room()));
    Ok(sm_shape_clone(vector, nullptr, nullptr, second.Room()));
    Ok(sm_group_new(first.Room(), 1, group.Room()));
    Ok(sm_array_new(second.Room(), 1, nullptr, array.Room()));
    const auto expect = [&](const char* what, const std::vector<double>& rect) {
        for (const sm_shape shape : {sm_shape(vector), sm_shape(image), sm_shape(group), sm_shape(array)})
            for (size_t i = 0; i < rect.size(); ++i)
                EXPECT_NEAR(Rect(shape)[i], rect[i], 1e-6) << what << " " << i;
    };
    const auto each = [&](const auto& edit) {
        for (const sm_shape shape : {sm_shape(vector), sm_shape(image), sm_shape(group), sm_shape(array)})
            Ok(edit(shape));
    };
    expect("made", {0, 0, 20, 10});
    each([](sm_shape shape) { return sm_shape_move(shape, 5, -3); });
    expect("moved", {5, -3, 20, 10});
    each([](sm_shape shape) { return sm_shape_mirror_x(shape, 0); });
    expect("mirrored", {-25, -3, 20, 10});
    each([](sm_shape shape) { return sm_shape_mirror_y(shape, 10); });
    expect("mirrored", {-25, 13, 20, 10});
    each([](sm_shape shape) { return sm_shape_turn(shape, 90, 0, 0); });
    expect("turned", {-23, -25, 10, 20});
    each([](sm_shape shape) { return sm_shape_resize(shape, {1, 2, 30, 40}); });
    expect("resized", {1, 2, 30, 40});
    expect("where the member is", Rect(first));
    EXPECT_EQ(sm_shape_move(second, 1, 0), SM_REFUSED); // of an array
}

TEST(CapiShape, straight_lines_are_resized_along_themselves)
{
    const std::array<double, 4> across{0, 0, 20, 0}, down{0, 0, 0, 20};
    for (const bool isAcross : {true, false}) {
        Handle line;
        Ok(sm_vector_new(isAcross ? across.data() : down.data(), nullptr, 2, line.Room()));
        Ok(sm_shape_resize(line, {5, 6, isAcross ? 40.0 : 0, isAcross ? 0 : 40.0}));
        for (const double side : {0.0, 1e-6, -1.0})
            EXPECT_EQ(sm_shape_resize(line, {5, 6, isAcross ? side : 0, isAcross ? 0 : side}), SM_BAD_ARGUMENT);
        Ok(sm_shape_resize(line, {5, 6, 40, 40}));
        EXPECT_STREQ(sm_last_warnings(),
                     isAcross ? "the shape has no height to resize\n" : "the shape has no width to resize\n");
        const std::vector<double> rect{5, 6, isAcross ? 40.0 : 0, isAcross ? 0 : 40.0};
        EXPECT_EQ(Rect(line), rect);
    }
}

/// A turned text, and an array with a gap, a shift and a cell left out; alone and in a group: the lines become their
/// image point for point, whichever way they are gone along.
TEST(CapiShape, becomes_its_exact_image)
{
    using Point = std::pair<double, double>;
    struct Row
    {
        const char* name;
        sm_status (*edit)(sm_shape);
        Point (*image)(Point);
    };
    const Row rows[] = {
        {"x", [](sm_shape s) { return sm_shape_mirror_x(s, 25); },
         [](Point p) { return Point(50 - p.first, p.second); }},
        {"y", [](sm_shape s) { return sm_shape_mirror_y(s, 4); }, [](Point p) { return Point(p.first, 8 - p.second); }},
        {"turn", [](sm_shape s) { return sm_shape_turn(s, 36.869897645844021, 5, 0); },
         [](Point p) { return Point(5 + 0.8 * (p.first - 5) - 0.6 * p.second, 0.6 * (p.first - 5) + 0.8 * p.second); }},
    };
    for (const bool grouped : {false, true}) {
        Handle text, triangle, array, inText, inArray;
        Ok(sm_text_new("FE", nullptr, text.Room())); // of straight lines
        Ok(sm_shape_turn(text, 30, 3, 4));
        Ok(sm_vector_new(kLine.data(), nullptr, 4, triangle.Room()));
        sm_array_options cells{sizeof cells, 2, 3, 5, 3, 4, 0};
        Ok(sm_array_new(triangle.Room(), 1, &cells, array.Room()));
        Ok(sm_array_delete_cell(array, 5));
        if (grouped) {
            Ok(sm_group_new(text.Room(), 1, inText.Room()));
            Ok(sm_group_new(array.Room(), 1, inArray.Room()));
        }
        for (const sm_shape shape : {sm_shape(grouped ? inText : text), sm_shape(grouped ? inArray : array)})
            for (const Row& row : rows) {
                const auto before = LinePoints(shape);
                Ok(row.edit(shape));
                const auto after = LinePoints(shape);
                for (const Point& point : before) {
                    const Point image = row.image(point);
                    const bool found = std::any_of(after.begin(), after.end(), [&](const Point& p) {
                        return std::hypot(p.first - image.first, p.second - image.second) < 0.02;
                    });
                    ASSERT_TRUE(found) << row.name << " " << image.first << " " << image.second
                                       << (grouped ? " in a group" : " alone");
                }
            }
    }
}

TEST(CapiShape, lines_leave_out_deleted_cells_and_hidden_members)
{
    Handle line, hidden, array;
    Ok(sm_vector_new_rectangle({0, 0, 2, 2}, line.Room()));
    Ok(sm_vector_new_rectangle({0, 0, 2, 2}, hidden.Room()));
    Ok(sm_shape_set_state(hidden, SM_STATE_HIDDEN));
    sm_array_options cells{sizeof cells, 2, 2, 1, 1, 0, 0};
    const std::array<sm_shape, 2> members{line, hidden};
    Ok(sm_array_new(members.data(), members.size(), &cells, array.Room()));
    Ok(sm_array_delete_cell(array, 0));
    EXPECT_EQ(LinePoints(array).size(), 3U * 5);
    sm_cell cell{sizeof cell, 1, {}};
    Ok(sm_array_cell(array, 0, &cell));
    EXPECT_EQ(cell.valid, 0);
    Ok(sm_array_cell(array, 3, &cell));
    EXPECT_TRUE(cell.valid && cell.rect.x == 3 && cell.rect.y == 3);
    EXPECT_EQ(LinePoints(hidden).size(), 0U);
    Handle outer;
    Ok(sm_array_new(array.Room(), 1, &cells, outer.Room()));
    EXPECT_EQ(sm_array_delete_cell(array, 1), SM_REFUSED); // its holder's cells are laid out for it as it is
    EXPECT_EQ(sm_shape_set_color(outer, 0x1000000), SM_BAD_ARGUMENT);
    Ok(sm_shape_set_color(outer, 0x123456));
    for (const sm_shape shape : {sm_shape(outer), sm_shape(array), sm_shape(line)}) {
        uint32_t color = 0;
        Ok(sm_shape_color(shape, &color));
        EXPECT_EQ(color, 0x123456U);
    }
}

/// A copy of a member is saved as a shape that never was one.
TEST(CapiShape, copies_of_members_are_no_members)
{
    Handle plain, member, group, copy, one, other;
    Ok(sm_vector_new_rectangle({0, 0, 2, 2}, plain.Room()));
    Ok(sm_shape_clone(plain, nullptr, nullptr, member.Room()));
    Ok(sm_group_new(member.Room(), 1, group.Room()));
    Ok(sm_shape_clone(member, nullptr, nullptr, copy.Room()));
    Ok(sm_document_new(one.Room()));
    Ok(sm_document_new(other.Room()));
    Add(one, plain);
    Add(other, copy);
    EXPECT_TRUE(Saved(one) == Saved(other));
}

TEST(CapiText, of_foreign_documents_becomes_utf8)
{
    Handle document, text, opened, shape;
    Ok(sm_text_new("quux", nullptr, text.Room()));
    Ok(sm_document_new(document.Room()));
    Add(document, text);
    std::string bytes = Saved(document);
    ASSERT_NE(bytes.find("quux"), std::string::npos);
    bytes[bytes.find("quux") + 1] = '\xff';
    Ok(sm_document_open_bytes(bytes.data(), bytes.size(), nullptr, opened.Room()));
    Ok(sm_document_shape(opened, 0, shape.Room()));
    std::array<char, 16> letters{};
    size_t length = 0;
    Ok(sm_shape_text(shape, letters.data(), letters.size(), &length));
    EXPECT_STREQ(letters.data(), "q\xef\xbf\xbdux"); // the replacement character
}

TEST(CapiStruct, of_other_versions_is_taken)
{
    struct Later
    {
        sm_job_options known;
        uint64_t unknown;
    } later{};
    Ok(sm_job_options_defaults(&later.known, sizeof later));
    EXPECT_TRUE(later.known.struct_size == sizeof later && later.known.join == 0.05 && later.unknown == 0);
    sm_job_options earlier = later.known;
    earlier.struct_size = offsetof(sm_job_options, join);
    earlier.join = NAN; // is not read
    Handle document, job, other;
    Ok(sm_document_new(document.Room()));
    Ok(sm_job_new(document, &earlier, nullptr, nullptr, job.Room()));
    Ok(sm_job_new(document, &later.known, nullptr, nullptr, other.Room()));
    other.Give();
    later.unknown = 1;
    EXPECT_EQ(sm_job_new(document, &later.known, nullptr, nullptr, other.Room()), SM_BAD_ARGUMENT);
    later.unknown = 0;
    sm_color_setting color{};
    Ok(sm_color_setting_defaults(&color, sizeof color));
    later.known.colors = &color;
    later.known.color_count = 1;
    color.color = 0x123456;
    Ok(sm_job_new(document, &later.known, nullptr, nullptr, other.Room()));
    other.Give();
    EXPECT_STREQ(sm_last_warnings(), "no line has the colour #123456\n");
    color.struct_size = offsetof(sm_color_setting, feed) + 4; // the next one's numbers would lie askew
    EXPECT_EQ(sm_job_new(document, &later.known, nullptr, nullptr, other.Room()), SM_BAD_ARGUMENT);
    later.known.struct_size = 0;
    EXPECT_EQ(sm_job_new(document, &later.known, nullptr, nullptr, other.Room()), SM_BAD_ARGUMENT);
}

TEST(CapiGroups, are_nested_as_deep_as_documents_are)
{
    std::vector<Handle> groups(258);
    Ok(sm_vector_new_rectangle({0, 0, 1, 1}, groups[0].Room()));
    for (size_t i = 1; i <= 256; ++i)
        Ok(sm_group_new(groups[i - 1].Room(), 1, groups[i].Room()));
    EXPECT_EQ(sm_group_new(groups[256].Room(), 1, groups[257].Room()), SM_REFUSED);
}

TEST(CapiJob, stops_and_is_busy_meanwhile)
{
    Handle document, job, buffer;
    Ok(sm_document_new(document.Room()));
    Ok(sm_document_import_drawing(document, SAMPLES "/ornament.svg", nullptr, nullptr));
    const auto stopAt = [](void* context, const char*, uint64_t, uint64_t) {
        return int32_t(--*static_cast<int*>(context) < 0);
    };
    int calls = 2; // of the steps' begins, if not more
    EXPECT_EQ(sm_job_new(document, nullptr, stopAt, &calls, job.Room()), SM_STOPPED);
    EXPECT_TRUE(job == 0 && calls == -1) << calls;
    calls = 1 << 30;
    Ok(sm_job_new(document, nullptr, stopAt, &calls, job.Room()));
    calls = 0;
    EXPECT_EQ(sm_job_write_bytes(job, SM_FORMAT_SVG, nullptr, stopAt, &calls, buffer.Room()), SM_STOPPED);
    const auto askAgain = [](void* context, const char*, uint64_t, uint64_t) {
        sm_job_info info{sizeof info, 0, 0, 0, 0, {}};
        return int32_t(sm_job_describe(*static_cast<sm_job*>(context), &info) != SM_BUSY);
    };
    Ok(sm_job_write_bytes(job, SM_FORMAT_CSV, nullptr, askAgain, job.Room(), buffer.Room()));
    EXPECT_GT(Bytes(buffer).size(), 1000U);
}

TEST(CapiJob, is_made_of_the_document_as_it_was)
{
    Handle document, shape, job, before, after, empty;
    Ok(sm_document_new(document.Room()));
    Ok(sm_vector_new_rectangle({0, 0, 20, 10}, shape.Room()));
    Add(document, shape);
    const std::string saved = Saved(document);
    Ok(sm_job_new(document, nullptr, nullptr, nullptr, job.Room()));
    EXPECT_TRUE(Saved(document) == saved); // making a job changes nothing
    Ok(sm_job_write_bytes(job, SM_FORMAT_GCODE, nullptr, nullptr, nullptr, before.Room()));
    Ok(sm_shape_move(shape, 100, 0));
    Ok(sm_job_write_bytes(job, SM_FORMAT_GCODE, nullptr, nullptr, nullptr, after.Room()));
    EXPECT_EQ(Bytes(before), Bytes(after));
    EXPECT_NE(Bytes(before).find("G1 X20.0000 Y10.0000"), std::string::npos) << Bytes(before);
    Ok(sm_shape_remove(shape));
    job.Give();
    Ok(sm_job_new(document, nullptr, nullptr, nullptr, job.Room()));
    EXPECT_EQ(sm_job_write_bytes(job, SM_FORMAT_GCODE, nullptr, nullptr, nullptr, empty.Room()), SM_REFUSED);
}

TEST(CapiJob, of_too_many_outlines_is_refused)
{
    Handle document, line, row, field, job;
    Ok(sm_document_new(document.Room()));
    Ok(sm_vector_new_rectangle({0, 0, 1, 1}, line.Room()));
    sm_array_options columns{sizeof columns, 1, 4000, 0, 0, 0, 0}, rows{sizeof rows, 4000, 1, 0, 0, 0, 0};
    Ok(sm_array_new(line.Room(), 1, &columns, row.Room()));
    Ok(sm_array_new(row.Room(), 1, &rows, field.Room()));
    Add(document, field);
    EXPECT_EQ(sm_job_new(document, nullptr, nullptr, nullptr, job.Room()), SM_REFUSED) << sm_last_error();
}

TEST(CapiRender, draws_everything)
{
    Handle document, shape, job;
    Ok(sm_document_new(document.Room()));
    FillWithEveryKind(document);
    Ok(sm_document_shape(document, 5, shape.Room()));
    Ok(sm_job_new(document, nullptr, nullptr, nullptr, job.Room()));
    sm_render_options options{};
    Ok(sm_render_options_defaults(&options, sizeof options));
    for (const sm_handle drawn : {sm_handle(document), sm_handle(shape), sm_handle(job)})
        for (const auto& [format, begin] :
             {std::pair(SM_PICTURE_PNG, "\x89PNG"), {SM_PICTURE_SVG, "<?xml"}, {SM_PICTURE_PDF, "%PDF"}}) {
            Handle picture;
            options.format = format;
            Ok(sm_render(drawn, &options, picture.Room()));
            EXPECT_EQ(Bytes(picture).rfind(begin, 0), 0U) << format;
        }
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    if (sm_handle_count() == 0)
        return result;
    std::fprintf(stderr, "%d handles are left\n", int(sm_handle_count()));
    return 1;
}
