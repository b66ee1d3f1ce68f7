/* Tells how far the reading and saving of a drawing is; Ctrl-C stops it. Usage: progress_in_c DRAWING.svg OUT.shapes */
#include <shapemodel.h>

#include <signal.h>
#include <stdio.h>

static volatile sig_atomic_t interrupted;

static void Interrupt(int signal)
{
    (void)signal;
    interrupted = 1;
}

static int32_t Told(void* context, const char* step, uint64_t done, uint64_t total)
{
    int* calls = context;
    ++*calls;
    fprintf(stderr, "\r%-10s %llu of %llu", step, (unsigned long long)done, (unsigned long long)total);
    return interrupted; /* not 0: stop */
}

int main(int count, char** arguments)
{
    sm_document document;
    sm_drawing_options reading;
    sm_document_options saving;
    sm_status status;
    int calls = 0;

    if (count != 3)
        return 2;
    signal(SIGINT, Interrupt);
    sm_drawing_options_defaults(&reading, sizeof reading);
    sm_document_options_defaults(&saving, sizeof saving);
    reading.progress = saving.progress = Told;
    reading.context = saving.context = &calls;
    status = sm_document_new(&document);
    if (!status)
        status = sm_document_import_drawing(document, arguments[1], &reading, NULL);
    if (!status)
        status = sm_document_save(document, arguments[2], &saving); /* stopped: an existing file is as it was */
    if (status)
        fprintf(stderr, "\nprogress_in_c: %s\n", sm_last_error());
    else
        printf("\ntold %s\n", calls >= 5 ? "step by step" : "too little");
    sm_release(document);
    return status != SM_OK;
}
