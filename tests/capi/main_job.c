/* The main job in C99, and what wrong arguments answer. Usage: capi_main_job DRAWING FOLDER */
#include "shapemodel.h"

#include <limits.h>
#include <math.h>
#include <stdio.h>
#include <string.h>

static int s_faults = 0;

static void Expect(int holds, const char* what)
{
    if (holds)
        return;
    ++s_faults;
    fprintf(stderr, "not so: %s (%s)\n", what, sm_last_error());
}

static int32_t Count(void* context, const char* step, uint64_t done, uint64_t total)
{
    (void)step;
    (void)done;
    (void)total;
    ++*(size_t*)context;
    return 0;
}

/* Import, order, engrave, report, G-code. */
static void DoMainJob(const char* drawing, const char* folder)
{
    sm_document document = 0;
    sm_job job = 0;
    sm_buffer json = 0, gcode = 0;
    sm_drawing_options reading;
    sm_job_options making;
    sm_job_info info = {sizeof info, 0, 0, 0, 0, {0, 0, 0, 0}};
    const uint8_t* bytes = NULL;
    size_t shapes = 0, size = 0, told = 0;
    char file[4096];

    sm_drawing_options_defaults(&reading, sizeof reading);
    reading.fills = 1;
    Expect(sm_document_new(&document) == SM_OK, "a document");
    Expect(sm_document_import_drawing(document, drawing, &reading, &shapes) == SM_OK && shapes > 0, "a drawing");
    sm_job_options_defaults(&making, sizeof making);
    making.engrave = 1;
    Expect(sm_job_new(document, &making, Count, &told, &job) == SM_OK && told > 0, "a job that tells its progress");
    sm_release(document); /* the job needs it no more */
    Expect(sm_job_describe(job, &info) == SM_OK && info.paths > 0 && info.rect.width > 0, "paths");
    Expect(sm_job_report(job, NULL, NULL, NULL, NULL, &json) == SM_OK, "a report");
    Expect(sm_buffer_view(json, &bytes, &size) == SM_OK && size > 2 && bytes[0] == '{' && bytes[size - 1] == '}',
           "JSON");
    Expect(sm_job_write_bytes(job, SM_FORMAT_GCODE, NULL, NULL, NULL, &gcode) == SM_OK, "G-code");
    Expect(sm_buffer_view(gcode, &bytes, &size) == SM_OK && size > 3 && memcmp(bytes + size - 3, "M2\n", 3) == 0, "M2");
    sprintf(file, "%s/main_job.gcode", folder);
    Expect(sm_job_write(job, SM_FORMAT_GCODE, file, NULL, Count, &told) == SM_OK, "a file of G-code");
    sm_release(json);
    sm_release(gcode);
    sm_release(job);
}

struct Row
{
    const char* call;
    sm_status expected;
    sm_status answered;
};

static size_t RowCount(const struct Row* rows)
{
    size_t count = 0;
    while (rows[count].call)
        ++count;
    return count;
}

/* An initializer answers each call once; nothing may have been changed by any of them. */
static void CheckErrors(void)
{
    const double line[] = {0, 0, 10, 0, 20, 5, 30, 5}, nan_line[] = {0, 0, NAN, 0}, far_line[] = {0, 0, 2e6, 0};
    const uint8_t half_curve[] = {0, 0, 1, 1}, odd_type[] = {0, 4, 0, 0}, loose_marker[] = {0, 0, 0, 3};
    const uint8_t pixel = 7;
    const sm_rect flat = {0, 0, 10, 0}, endless = {0, 0, INFINITY, 1}, square = {0, 0, 10, 10};
    sm_document document = 0, none = 0;
    sm_shape shape = 0, text = 0, other = 0;
    sm_buffer buffer = 0;
    sm_job job = 0;
    sm_job_options making;
    sm_array_options cells;
    sm_text_options setting;
    sm_color_setting colors[2];
    uint32_t state = 0;
    size_t count = 0;
    double xy[2];
    char letters[3];
    size_t i;

    sm_document_new(&document);
    sm_vector_new(line, NULL, 4, &shape);
    sm_text_new("abc", NULL, &text);
    sm_job_options_defaults(&making, sizeof making);
    making.join = NAN;
    sm_array_options_defaults(&cells, sizeof cells);
    cells.rows = cells.columns = INT32_MAX;
    sm_text_options_defaults(&setting, sizeof setting);
    setting.size = -1;
    sm_color_setting_defaults(&colors[0], sizeof colors[0]);
    colors[1] = colors[0];
    {
        sm_job_options twice;
        sm_shape both[2];
        sm_job_options_defaults(&twice, sizeof twice);
        twice.colors = colors;
        twice.color_count = 2;
        both[0] = both[1] = shape;
        const struct Row rows[] = {
            {"null result", SM_BAD_ARGUMENT, sm_document_new(NULL)},
            {"null file", SM_BAD_ARGUMENT, sm_document_open(NULL, NULL, &none)},
            {"no UTF-8", SM_BAD_ARGUMENT, sm_document_open("\xff\xfe", NULL, &none)},
            {"no file", SM_NO_FILE, sm_document_open("/nowhere/at/all.shapes", NULL, &none)},
            {"a folder", SM_CANNOT_READ, sm_document_open("/", NULL, &none)},
            {"no folder", SM_NO_FILE, sm_document_save(document, "/nowhere/at/all.shapes", NULL)},
            {"no document", SM_CANNOT_READ, sm_document_open_bytes("<svg/>", 6, NULL, &none)},
            {"no bytes", SM_BAD_ARGUMENT, sm_document_open_bytes(NULL, 6, NULL, &none)},
            {"too many bytes", SM_BAD_ARGUMENT, sm_document_open_bytes(line, SIZE_MAX, NULL, &none)},
            {"no drawing", SM_CANNOT_READ, sm_document_import_drawing_bytes(document, "hi", 2, NULL, NULL, &count)},
            {"handle 0", SM_BAD_HANDLE, sm_document_count(0, &count)},
            {"to no document", SM_BAD_HANDLE, sm_document_add(0, shape, 0)},
            {"any handle", SM_BAD_HANDLE, sm_document_count(UINT64_MAX, &count)},
            {"a shape for a document", SM_WRONG_KIND, sm_document_count(shape, &count)},
            {"a document for a shape", SM_WRONG_KIND, sm_shape_move(document, 1, 1)},
            {"behind the last", SM_OUT_OF_RANGE, sm_document_shape(document, 0, &other)},
            {"behind the end", SM_OUT_OF_RANGE, sm_document_add(document, shape, 1)},
            {"not a number", SM_BAD_ARGUMENT, sm_vector_new(nan_line, NULL, 2, &other)},
            {"beyond a kilometre", SM_BAD_ARGUMENT, sm_vector_new(far_line, NULL, 2, &other)},
            {"a single point", SM_BAD_ARGUMENT, sm_vector_new(line, NULL, 1, &other)},
            {"too many points", SM_BAD_ARGUMENT, sm_vector_new(line, NULL, SIZE_MAX, &other)},
            {"half a curve", SM_BAD_ARGUMENT, sm_vector_new(line, half_curve, 4, &other)},
            {"type 4", SM_BAD_ARGUMENT, sm_vector_new(line, odd_type, 4, &other)},
            {"a marker elsewhere", SM_BAD_ARGUMENT, sm_vector_new(line, loose_marker, 4, &other)},
            {"flat rectangle", SM_BAD_ARGUMENT, sm_vector_new_rectangle(flat, &other)},
            {"endless rectangle", SM_BAD_ARGUMENT, sm_shape_resize(shape, endless)},
            {"moved by NaN", SM_BAD_ARGUMENT, sm_shape_move(shape, NAN, 0)},
            {"moved too far", SM_BAD_ARGUMENT, sm_shape_move(shape, 999999, 0)},
            {"turned by infinity", SM_BAD_ARGUMENT, sm_shape_turn(shape, INFINITY, 0, 0)},
            {"negative size", SM_BAD_ARGUMENT, sm_text_new("abc", &setting, &other)},
            {"no pixels", SM_BAD_ARGUMENT, sm_image_new(NULL, 1, 1, 1, square, &other)},
            {"no columns", SM_BAD_ARGUMENT, sm_image_new(&pixel, 0, 1, 1, square, &other)},
            {"endless rows", SM_BAD_ARGUMENT, sm_image_new(&pixel, 1, SIZE_MAX, 1, square, &other)},
            {"short stride", SM_BAD_ARGUMENT, sm_image_new(&pixel, 2, 1, 1, square, &other)},
            {"pixels of a line", SM_WRONG_KIND, sm_shape_set_pixels(shape, &pixel, 1, 1, 1)},
            {"text of a line", SM_WRONG_KIND, sm_shape_text(shape, NULL, 0, &count)},
            {"points of a text", SM_WRONG_KIND, sm_shape_points(text, NULL, NULL, 0, &count)},
            {"too little room", SM_TOO_SHORT, sm_shape_points(shape, xy, NULL, 1, &count)},
            {"no room for the zero", SM_TOO_SHORT, sm_shape_text(text, letters, 3, &count)},
            {"room at null", SM_BAD_ARGUMENT, sm_shape_text(text, NULL, 3, &count)},
            {"odd state", SM_BAD_ARGUMENT, sm_shape_set_state(shape, 8)},
            {"group of none", SM_BAD_ARGUMENT, sm_group_new(&shape, 0, &other)},
            {"group of one twice", SM_BAD_ARGUMENT, sm_group_new(both, 2, &other)},
            {"no group", SM_WRONG_KIND, sm_group_dissolve(shape)},
            {"too many cells", SM_BAD_ARGUMENT, sm_array_new(&shape, 1, &cells, &other)},
            {"cell of a line", SM_WRONG_KIND, sm_array_delete_cell(shape, 0)},
            {"in no document", SM_REFUSED, sm_shape_remove(shape)},
            {"NaN in options", SM_BAD_ARGUMENT, sm_job_new(document, &making, NULL, NULL, &job)},
            {"a colour twice", SM_BAD_ARGUMENT, sm_job_new(document, &twice, NULL, NULL, &job)},
            {"a job of no job", SM_WRONG_KIND, sm_job_report(document, NULL, NULL, NULL, NULL, &buffer)},
            {"a picture of nothing", SM_BAD_HANDLE, sm_render(0, NULL, &buffer)},
            {"released twice", SM_BAD_HANDLE, sm_release(UINT64_MAX)},
            {NULL, SM_OK, SM_OK},
        };
        for (i = 0; i < RowCount(rows); ++i)
            if (rows[i].answered != rows[i].expected) {
                ++s_faults;
                fprintf(stderr, "%s: %s, not %s\n", rows[i].call, sm_status_text(rows[i].answered),
                        sm_status_text(rows[i].expected));
            }
    }
    Expect(sm_document_count(document, &count) == SM_OK && count == 0, "an empty document");
    Expect(sm_shape_state(shape, &state) == SM_OK && state == 0, "a state that stayed");
    Expect(sm_shape_points(shape, NULL, NULL, 0, &count) == SM_OK && count == 4, "points that stayed");
    Expect(none == 0 && other == 0 && job == 0 && buffer == 0, "results that are 0");
    sm_release(shape);
    sm_release(text);
    sm_release(document);
}

int main(int count, char** arguments)
{
    if (count != 3)
        return 2;
    DoMainJob(arguments[1], arguments[2]);
    CheckErrors();
    Expect(sm_handle_count() == 0, "no handle is left");
    return s_faults > 0;
}
