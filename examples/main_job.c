/* A drawing becomes G-code, as a script in C would do it. Usage: main_job DRAWING.svg JOB.gcode */
#include <shapemodel.h>

#include <stdio.h>

static int Failed(void)
{
    fprintf(stderr, "main_job: %s\n", sm_last_error());
    return 1;
}

int main(int count, char** arguments)
{
    sm_document document;
    sm_job job;
    sm_buffer report;
    sm_job_options options;
    const uint8_t* text;
    size_t shapes, length;
    sm_job_info info = {.struct_size = sizeof info};

    if (count != 3)
        return 2;
    if (sm_document_new(&document) || sm_document_import_drawing(document, arguments[1], NULL, &shapes))
        return Failed();
    fputs(sm_last_warnings(), stderr); /* what is not as it was painted */

    sm_job_options_defaults(&options, sizeof options); /* inside before outside, with short moves */
    options.arcs = 1;
    if (sm_job_new(document, &options, NULL, NULL, &job) || sm_job_describe(job, &info))
        return Failed();
    printf("%zu shapes, %d paths on %.1f x %.1f mm\n", shapes, (int)info.paths, info.rect.width, info.rect.height);

    if (sm_job_report(job, NULL, NULL, NULL, NULL, &report) || sm_buffer_view(report, &text, &length))
        return Failed();
    printf("%.*s\n", (int)length, (const char*)text); /* lengths, time and findings as JSON */
    if (sm_job_write(job, SM_FORMAT_GCODE, arguments[2], NULL, NULL, NULL))
        return Failed();
    sm_release(report);
    sm_release(job);
    sm_release(document);
    return 0;
}
