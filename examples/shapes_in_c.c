/* Shapes made, repeated and drawn from C. Usage: shapes_in_c SHEET.shapes SHEET.png */
#include <shapemodel.h>

#include <stdio.h>
#include <stdlib.h>

/* Ends the program with the library's own words. */
static void Expect(sm_status status)
{
    if (status == SM_OK)
        return;
    fprintf(stderr, "shapes_in_c: %s\n", sm_last_error());
    exit(1);
}

static sm_shape NewTag(const char* name)
{
    const double arrow[] = {0, 6, 6, 0, 40, 0, 40, 12, 6, 12, 0, 6};
    sm_text_options options;
    sm_shape parts[3], tag;
    Expect(sm_vector_new(arrow, NULL, 6, &parts[0])); /* all points straight: one closed polyline */
    Expect(sm_vector_new_ellipse((sm_rect){6, 4.5, 3, 3}, &parts[1]));
    Expect(sm_text_options_defaults(&options, sizeof options));
    options.size = 7;
    Expect(sm_text_new(name, &options, &parts[2]));
    Expect(sm_shape_move(parts[2], 13, 3));
    Expect(sm_group_new(parts, 3, &tag)); /* the group keeps its members; our handles are no longer needed */
    for (int i = 0; i < 3; ++i)
        sm_release(parts[i]);
    return tag;
}

static void WriteFile(const char* name, sm_buffer bytes)
{
    const uint8_t* data;
    size_t size;
    FILE* file = fopen(name, "wb");
    Expect(sm_buffer_view(bytes, &data, &size)); /* lent until sm_release(bytes) */
    if (!file || fwrite(data, 1, size, file) != size || fclose(file) != 0) {
        perror(name);
        exit(1);
    }
}

int main(int count, char** arguments)
{
    sm_document sheet;
    sm_shape tag, tags;
    sm_array_options cells;
    sm_rect rect;
    sm_buffer picture;
    if (count != 3)
        return 2;
    Expect(sm_document_new(&sheet));
    tag = NewTag("Nr. 7");
    Expect(sm_array_options_defaults(&cells, sizeof cells));
    cells.rows = cells.columns = 3;
    cells.column_gap = cells.row_gap = 4;
    Expect(sm_array_new(&tag, 1, &cells, &tags));
    Expect(sm_array_delete_cell(tags, 8));
    Expect(sm_document_add(sheet, tags, (size_t)SM_END));
    Expect(sm_shape_turn(tags, -10, 0, 0));

    Expect(sm_document_rect(sheet, &rect));
    printf("%.1f x %.1f mm\n", rect.width, rect.height);
    Expect(sm_document_save(sheet, arguments[1], NULL)); /* whole or not at all */
    Expect(sm_render(sheet, NULL, &picture));
    WriteFile(arguments[2], picture);
    sm_release(picture);
    sm_release(tag);
    sm_release(tags);
    sm_release(sheet);
    printf("%d handles left\n", (int)sm_handle_count());
    return 0;
}
