/// @file
/// The C interface of the shape model: documents for laser engraving and cutting, their shapes, and machine jobs.
///
/// **Handles.** A handle is a number that counts: whoever is given one, by any call, owes one sm_release for it. 0 is
/// no handle. The same shape always has the same handle while one is held, so handles can be compared. A handle whose
/// object is gone, because it was released as often as it was given or because a call that says so freed the object,
/// gives SM_BAD_HANDLE from then on: no number is given twice. A shape's handle keeps its document alive, also when the
/// document's own handle has been released. A shape that is in no document (made, cloned or removed) is "detached": its
/// handle alone keeps it.
///
/// **Results.** Every call that can fail returns an sm_status. After anything but SM_OK documents, shapes, jobs and
/// files are as they were, with two exceptions: where memory runs out (SM_NO_MEMORY) or at a fault of the library
/// (SM_INTERNAL) a call that edits a shape in its place may have edited it or some of its members, and a file that is
/// complete may be there although its warnings could not be stored. What a call stores through pointers to handles,
/// numbers, rectangles and views is 0 then, unless one of the pointers is null; after SM_TOO_SHORT the length is there.
/// The caller's lists, texts and structs with a struct_size are left as they were. No call throws, aborts or prints by
/// itself; the renderer of drawings prints of fonts that it cannot use, and ends the process where it gets no memory.
/// sm_last_error says more, sm_last_warnings what a call that succeeded has replaced, left out or not understood.
///
/// **Lengths.** Calls that copy into the caller's memory take a capacity and always store the whole length: call first
/// with capacity 0 and a null pointer, then again with enough room. If a capacity above 0 is too small they return
/// SM_TOO_SHORT and write nothing but the length. Results of unknown size (files, pictures, reports) come as buffers:
/// handles whose memory is lent and never changes.
///
/// **Views.** What a call lends belongs to the library. A buffer's memory lives until the buffer's last sm_release. The
/// lists that sm_shape_borrow_points lends live until the next call with a handle of the same document or of one of
/// its shapes, reading ones included, whatever the thread.
///
/// **Threads.** Every call may be made on any thread. Calls for one document, its shapes included, wait for each other;
/// calls for different documents run side by side. Jobs are objects of their own. sm_release may be called at any time.
///
/// **Long work** takes a progress callback, in the options where there are some, else as an argument: opening, saving,
/// checking, repairing, importing, pictures, lines, fits and clones of shapes, jobs and what is written of them. It
/// runs on the thread of the call. If it does not return 0, the work stops: the call returns SM_STOPPED, nothing is
/// changed, an existing file stays as it is and nothing is left beside it. What works on one shape as a whole is not
/// stopped within it: a stop waits until the shape's outline is made, copied or fitted (docs/c.md has times). A
/// drawing's renderer and a picture's decoder and encoder first finish what they have begun, and during the wait for
/// the disk when a file is written the callback is not called. Callbacks may make jobs and use any handle but those
/// that are being worked on: the document, shape or job that is saved, drawn, flattened, fitted, cloned, written or
/// reported gives SM_BUSY. Two calls on two threads whose callbacks each use what the other call works on wait for
/// ever. Callbacks must return (no longjmp, no exception). Edits in place, groups and arrays take no callback: they are
/// made as a whole.
///
/// **Units.** Millimetres, x to the right, y down; degrees, positive clockwise as seen; colours 0xRRGGBB. Coordinates
/// and lengths must be numbers within a million (a kilometre).
///
/// **Texts** are UTF-8 and end with a zero, file names included. Null is refused unless a call allows it. "-" is a file
/// of that name here, as any other.
///
/// **Structs** of options and results carry their size first, so that later versions can add to them. Options: call
/// ..._defaults(&options, sizeof options), which sets the size, then change what you like; null options mean the
/// defaults. Results: set struct_size = sizeof result before the call. A struct of a later version than the library's
/// is taken as long as what the library does not know is 0. Flags are 0 or 1.
///
/// **Costs.** A call that names none is O(1). n stands for the points of the shape, members included, N for the shapes
/// of its document, h for the handles that are held of shapes there. A polyline's, a text's or a picture's outline that
/// is not built yet is built by the first call that needs it, in O(n), a layout or O(edits).
///
/// **Application object.** Fonts and pictures need a QGuiApplication. A host's own is used where there is one. Else the
/// library makes one when a document or a shape is first made (or in sm_start), without a window, on Qt's offscreen
/// platform, and keeps it until the process ends; the locale of the process is left as it was, and the library's log,
/// which otherwise goes to standard error, is silent unless the environment variable SHAPEHOST_LOG names a file. A
/// process with a QCoreApplication that is no QGuiApplication gets SM_UNAVAILABLE. It is not made twice. Hosts that
/// make an application of their own do so before their first call.
#ifndef SHAPEMODEL_C_H
#define SHAPEMODEL_C_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif
#ifdef __GNUC__
#pragma GCC visibility push(default)
#endif

// Between the two marks stand plain C99 declarations alone: foreign function interfaces read them as they are.
// BEGIN DECLARATIONS

/// What a call came to.
typedef int32_t sm_status;
enum
{
    SM_OK = 0,
    SM_BAD_ARGUMENT = 1, ///< null, not a number, negative, beyond what is allowed, no UTF-8
    SM_BAD_HANDLE = 2,   ///< 0, never given, or its object is gone
    SM_WRONG_KIND = 3,   ///< a handle of another kind, or a shape that has no such thing (pixels of a vector)
    SM_OUT_OF_RANGE = 4, ///< an index at or behind the count
    SM_TOO_SHORT = 5,    ///< the given memory is too small; the length was stored
    SM_NO_FILE = 6,      ///< there is no such file or folder
    SM_DENIED = 7,       ///< the file may not be read or written
    SM_CANNOT_READ = 8,  ///< not understood: damaged, of another kind, too large
    SM_CANNOT_WRITE = 9, ///< no room, also for temporary files; no regular file, a full or failing disk
    SM_NO_MEMORY = 10,
    SM_STOPPED = 11,     ///< by the progress callback
    SM_BUSY = 12,        ///< called from a callback, for what is being worked on
    SM_REFUSED = 13,     ///< cannot be done with these shapes; sm_last_error says why
    SM_UNAVAILABLE = 14, ///< a part is missing: the application object, the curve-fitting plug-in
    SM_INTERNAL = 15     ///< a fault of the library
};

/// Any of the handles below, for calls that take every kind.
typedef uint64_t sm_handle;
typedef uint64_t sm_document; ///< a document
typedef uint64_t sm_shape;    ///< a shape
typedef uint64_t sm_job;      ///< a machine job
typedef uint64_t sm_buffer;   ///< bytes that are lent

/// Kinds of shapes.
enum
{
    SM_SHAPE_IMAGE = 0,
    SM_SHAPE_VECTOR = 1,
    SM_SHAPE_TEXT = 2,
    SM_SHAPE_GROUP = 3,
    SM_SHAPE_ARRAY = 4,
    SM_SHAPE_CODE_IMAGE = 16
};

/// Types of an outline's points, one byte each.
enum
{
    SM_POINT_STRAIGHT = 0,  ///< straight line to it
    SM_POINT_CURVE = 1,     ///< one of three: control, control, end of a cubic
    SM_POINT_SEPARATOR = 2, ///< ends a run, never drawn; the next point begins the next one
    SM_POINT_FILL = 3       ///< fill marker: a copy of its run's first point, behind the run's last; engraved
};

/// Bits of a shape's state.
enum
{
    SM_STATE_SELECTED = 1,
    SM_STATE_LOCKED = 2,
    SM_STATE_HIDDEN = 4 ///< not shown, not part of jobs
};

/// An upright rectangle, mm.
typedef struct sm_rect
{
    double x;      ///< of the left edge
    double y;      ///< of the upper edge
    double width;  ///< to the right
    double height; ///< downwards
} sm_rect;

/// Called when a step of long work begins and then every 20 ms or so. step is a word such as "ordering", lent for the
/// call; done counts what the step goes through (bytes of a file, shapes, paths, rows), up to total, which is 0 where
/// it is not known. A step may come again, with another total: done goes back then. Returns 0 to go on, any other
/// number to stop.
typedef int32_t (*sm_progress)(void* context, const char* step, uint64_t done, uint64_t total);

// The library.

/// "1.0.0"; lent for ever.
const char* sm_version(void);
/// The version of the documents that are written.
int32_t sm_document_format(void);
/// Makes the application object now, where there is none. To be called on the thread that should own it. Cost: that of
/// making the application, once.
sm_status sm_start(void);
/// What went wrong in this thread's last call that returns an sm_status, as "drawing.svg: paints no path"; empty after
/// SM_OK. Lent until that thread's next call.
const char* sm_last_error(void);
/// What this thread's last call that returns an sm_status has replaced, left out or not understood: lines that end with
/// line feeds; empty where all is as asked. Lent until that thread's next call.
const char* sm_last_warnings(void);
/// The status in English, as "no such file"; lent for ever.
const char* sm_status_text(sm_status status);

// Handles.

// These three leave sm_last_error and sm_last_warnings as they are, so that collectors of garbage may call them
// anywhere.

/// One more sm_release is owed.
sm_status sm_retain(sm_handle handle);
/// Gives a handle back, of whatever kind; 0 is ignored. Cost: O(1); for the last handle of a document, a detached shape
/// or a job, freeing it.
sm_status sm_release(sm_handle handle);
/// Gives back the handle at that place, if it is not 0, and sets 0 there: at once, also for two threads. For languages
/// whose finalisers are handed a place, which a call has filled in: nothing of theirs comes in between.
sm_status sm_release_at(sm_handle* handle);
/// How many handles are held, each counted once.
uint64_t sm_handle_count(void);

/// The bytes of a buffer. data may be null where size is 0.
sm_status sm_buffer_view(sm_buffer buffer, const uint8_t** data, size_t* size);
/// Writes them to a file, whole or not at all, as sm_document_save does. Cost: O(bytes), and one wait for the disk.
sm_status sm_buffer_save(sm_buffer buffer, const char* file);

// Documents.

enum
{
    SM_VERSION_UNSTATED = -1 ///< bare streams are read as of sm_document_format; checks take what the document says
};

/// How documents are read and written.
typedef struct sm_document_options
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t bare;         ///< not 0: a list stream without the file header
    int32_t version;      ///< of a bare stream that is read, or of what is checked: SM_VERSION_UNSTATED
    int32_t force;        ///< not 0: replaces write-protected files, and those whose owner or group cannot be kept
    sm_progress progress; ///< null: none
    void* context;        ///< of progress
} sm_document_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_document_options_defaults(sm_document_options* options, size_t size);

/// An empty document.
sm_status sm_document_new(sm_document* document);
/// Reads a file. Warnings name fonts that were replaced. Cost: O(bytes), and a look at the fonts and letters of texts.
sm_status sm_document_open(const char* file, const sm_document_options* options, sm_document* document);
/// Reads the bytes of a file. Cost: as sm_document_open.
sm_status sm_document_open_bytes(const void* data, size_t size, const sm_document_options* options,
                                 sm_document* document);
/// Writes a file, whole or not at all: an existing one is replaced when all is on the disk. Cost: O(bytes), and one
/// wait for the disk.
sm_status sm_document_save(sm_document document, const char* file, const sm_document_options* options);
/// The bytes of such a file. Cost: O(bytes).
sm_status sm_document_save_bytes(sm_document document, const sm_document_options* options, sm_buffer* bytes);
/// Shapes of the document itself, without the members of groups and arrays.
sm_status sm_document_count(sm_document document, size_t* count);
/// A shape, 0 is drawn first.
sm_status sm_document_shape(sm_document document, size_t index, sm_shape* shape);
/// Around all shapes; all 0 without any. Cost: O(N).
sm_status sm_document_rect(sm_document document, sm_rect* rect);
/// Puts a detached shape, which is detached no more, in front of the shape at index; SM_END: behind the last. Cost:
/// O(N), O(1) at the end; of a group also its members.
sm_status sm_document_add(sm_document document, sm_shape shape, size_t index);
enum
{
    SM_END = -1 ///< as (size_t)SM_END
};

// Check and repair.

/// How far a document is intact.
typedef struct sm_check_result
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t clean;        ///< 1: every byte matches the format
    int32_t version; ///< with which it was looked at; of a bare stream the last that fits; SM_VERSION_UNSTATED: none is
                     ///< known
    int32_t bare;    ///< 1: there is no file header
    uint64_t shapes; ///< whole ones before the first fault, members included
    uint64_t fault_offset; ///< byte
    char fault[1024];      ///< "list > shape 12 (group) > member 3 (text) > family: length 80 is outside 0 to 63"
} sm_check_result;

/// Looks at every byte. Answers SM_OK for a damaged document, too. Cost: O(bytes).
sm_status sm_check(const char* file, const sm_document_options* options, sm_check_result* result);
/// The same of the bytes of a file. Cost: O(bytes).
sm_status sm_check_bytes(const void* data, size_t size, const sm_document_options* options, sm_check_result* result);

/// What a repair has kept.
typedef struct sm_repair_result
{
    uint32_t struct_size;   ///< sizeof, as the caller has it
    int32_t version;        ///< that the damaged document was read with
    uint64_t kept_before;   ///< shapes before the first fault, members included
    uint64_t recovered;     ///< shapes behind it
    uint64_t open_groups;   ///< recovered groups and arrays that have lost members or cells
    uint64_t mended_values; ///< impossible values, replaced by harmless ones
    uint64_t skipped_bytes; ///< that belong to no shape that is kept
    int32_t gave_up;        ///< 1: the search would have taken too long, the rest was skipped
} sm_repair_result;

/// Writes what a damaged document still holds as a new document, which sm_check calls clean. SM_CANNOT_READ where
/// nothing can be saved. The result may be null. Cost: O(bytes), the search behind the fault in a bounded number of
/// steps.
sm_status sm_repair(const char* file, const char* target, const sm_document_options* options, sm_repair_result* result);
/// The same from bytes to bytes. Cost: as sm_repair.
sm_status sm_repair_bytes(const void* data, size_t size, const sm_document_options* options, sm_buffer* repaired,
                          sm_repair_result* result);

// Import.

/// How drawings (SVG) are read. All is off by default.
typedef struct sm_drawing_options
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t flatten;      ///< polylines of fine straight pieces instead of curves
    int32_t solid;        ///< dashed lines without their gaps
    int32_t visible;      ///< without what later opaque fills hide
    int32_t crop;         ///< outlines are cut at the page
    int32_t fills;        ///< filled areas get the fill marker: machines can engrave them
    int32_t text_as_text; ///< texts stay texts where a text shape draws what is painted
    sm_progress progress; ///< null: none
    void* context;        ///< of progress
} sm_drawing_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_drawing_options_defaults(sm_drawing_options* options, size_t size);

/// Adds the shapes of a drawing behind the document's, the page's corner at the origin, 96 user units to the inch.
/// Warnings say what is not as painted. count, which may be null, receives how many were added; a drawing that paints
/// nothing is SM_CANNOT_READ. Cost: that of painting the drawing, once or twice.
sm_status sm_document_import_drawing(sm_document document, const char* file, const sm_drawing_options* options,
                                     size_t* count);
/// The same of the bytes of a file, plain or compressed. base_file: the file's name, for pictures that lie beside it;
/// null for none. Cost: as sm_document_import_drawing.
sm_status sm_document_import_drawing_bytes(sm_document document, const void* data, size_t size, const char* base_file,
                                           const sm_drawing_options* options, size_t* count);

// Making shapes. All of them are detached.

/// An outline of points x, y, x, y, ...; types may be null: then all are straight and make one polyline. count is that
/// of the points, two at least. Cost: O(n).
sm_status sm_vector_new(const double* xy, const uint8_t* types, size_t count, sm_shape* shape);
/// A rectangle of 5 points.
sm_status sm_vector_new_rectangle(sm_rect rect, sm_shape* shape);
/// An ellipse of four cubics.
sm_status sm_vector_new_ellipse(sm_rect rect, sm_shape* shape);

/// Alignment of lines.
enum
{
    SM_ALIGN_LEFT = 1,
    SM_ALIGN_CENTER = 2, ///< on the centre of the first line
    SM_ALIGN_RIGHT = 3
};

/// How a text is set.
typedef struct sm_text_options
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t bold;         ///< a bold face
    int32_t italic;       ///< an italic face
    int32_t vertical;     ///< characters run down columns
    int32_t align;        ///< SM_ALIGN_...
    char family[64];      ///< of the font, "Arial" by default, 63 bytes at most
    double size;          ///< mm, of the font: 10 by default, 0.01 to 10,000
    double char_spacing;  ///< mm, added between letters
    double line_spacing;  ///< mm, added between lines
} sm_text_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_text_options_defaults(sm_text_options* options, size_t size);

/// A text of at most 16,383 bytes, lines separated by line feeds, with the upper left corner of its rectangle at the
/// origin. Warnings name fonts and letters that are missing. Cost: two layouts, O(letters).
sm_status sm_text_new(const char* text, const sm_text_options* options, sm_shape* shape);

/// How picture files are opened.
typedef struct sm_image_options
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t large;        ///< not 0: also more than 256 MiB of pixels
    sm_progress progress; ///< null: none
    void* context;        ///< of progress
} sm_image_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_image_options_defaults(sm_image_options* options, size_t size);

/// Decodes a PNG, JPEG, BMP, TIFF or WebP file, its upper left corner at the origin, as large as its resolution says.
/// Warnings name pictures that may be damaged. While a picture is decoded, the process's standard error is held back
/// and dropped: its decoders report damage there. Lines that other threads write meanwhile are lost, and count as
/// damage. Cost: as decoding the file.
sm_status sm_image_open(const char* file, const sm_image_options* options, sm_shape* image);
/// A picture of grey pixels, 0 black to 255 white, rows from the top, stride bytes from one to the next. Pictures have
/// a multiple of 4 columns: of other widths some columns are doubled, as of files, and a warning says so. Cost:
/// O(pixels).
sm_status sm_image_new(const uint8_t* pixels, size_t width, size_t height, size_t stride, sm_rect rect,
                       sm_shape* image);
/// A picture of a code, with the text that it encodes; the caller draws the code. kind: 0 or 1, a number of the host's,
/// kept as it is. Cost: O(pixels).
sm_status sm_code_image_new(const uint8_t* pixels, size_t width, size_t height, size_t stride, sm_rect rect,
                            const char* text, int32_t kind, sm_shape* image);

/// The kind of code that sm_code_image_new was given, 0 or 1.
sm_status sm_code_image_kind(sm_shape image, int32_t* kind);

/// A deep copy, detached, also of a member. progress may be null. Cost: O(n); pixels are shared.
sm_status sm_shape_clone(sm_shape shape, sm_progress progress, void* context, sm_shape* clone);
/// A group of shapes of one document, which takes the place of the first of them there, or of detached ones, which is
/// detached. The shapes are its members from then on, in the given order. Cost: O(N + h), and the members.
sm_status sm_group_new(const sm_shape* shapes, size_t count, sm_shape* group);
/// Puts the members in the place of a group of a document, and frees the group: its handle gives SM_BAD_HANDLE. Cost:
/// O(N + h).
sm_status sm_group_dissolve(sm_shape group);

/// Cells of an array.
typedef struct sm_array_options
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t rows;         ///< 1 by default
    int32_t columns;      ///< 1 by default; 10 million cells at most
    double column_gap;    ///< mm, between neighbours
    double row_gap;       ///< the same, downwards
    double row_shift;     ///< mm, by which odd rows are moved to the right
    double column_shift;  ///< mm, by which odd columns are moved down
} sm_array_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_array_options_defaults(sm_array_options* options, size_t size);

/// Repeats shapes over a grid. Shapes and place as in sm_group_new. Cost: as sm_group_new, and O(cells).
sm_status sm_array_new(const sm_shape* shapes, size_t count, const sm_array_options* options, sm_shape* array);

// Shapes.

/// SM_SHAPE_...
sm_status sm_shape_type(sm_shape shape, int32_t* type);
/// The document that holds the shape, also deep in groups: a handle that owes a sm_release. 0 for a detached shape.
sm_status sm_shape_document(sm_shape shape, sm_document* document);
/// The place among the document's shapes. SM_REFUSED for members and detached shapes. Cost: O(N).
sm_status sm_shape_index(sm_shape shape, size_t* index);
/// Around the shape, without control points of curves. Cost: O(1) once it is known; of groups and arrays O(members +
/// cells).
sm_status sm_shape_rect(sm_shape shape, sm_rect* rect);
/// The colour; of groups and arrays that of the first member.
sm_status sm_shape_color(sm_shape shape, uint32_t* color);
/// 0xRRGGBB; of groups and arrays also that of all members. Cost: O(members).
sm_status sm_shape_set_color(sm_shape shape, uint32_t color);
/// SM_STATE_... bits. Cost: O(1); of an array O(cells).
sm_status sm_shape_state(sm_shape shape, uint32_t* state);
/// Bits beyond SM_STATE_... are refused. Cost: O(members + cells).
sm_status sm_shape_set_state(sm_shape shape, uint32_t state);

/// Lead-in and lead-out lines of a shape.
typedef struct sm_leads
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t as_open;   ///< not 0: closed outlines are entered and left as open ones; else along their corner's bisector
    double in_length;  ///< mm; 0: no lead-in
    double out_length; ///< mm; 0: no lead-out
} sm_leads;
/// Fills leads with zeros, which mean none, and its size. size: sizeof *leads.
sm_status sm_leads_defaults(sm_leads* leads, size_t size);
/// As they are set. SM_WRONG_KIND for groups and arrays: leads belong to the members.
sm_status sm_shape_leads(sm_shape shape, sm_leads* leads);
/// Sets them; jobs have them where their options ask for leads.
sm_status sm_shape_set_leads(sm_shape shape, const sm_leads* leads);

/// Copies the outline, as x, y, x, y, ... and a type for each point. capacity and count are of points. xy or types may
/// be null, if only the other is asked for. Groups and arrays have none: see sm_shape_member. A text's is in
/// sm_shape_lines. Cost: O(n).
sm_status sm_shape_points(sm_shape shape, double* xy, uint8_t* types, size_t capacity, size_t* count);
/// Lends the same; see Views above.
sm_status sm_shape_borrow_points(sm_shape shape, const double** xy, const uint8_t** types, size_t* count);
/// Replaces the outline of a vector, as sm_vector_new makes it. Cost: O(n).
sm_status sm_shape_set_points(sm_shape vector, const double* xy, const uint8_t* types, size_t count);
/// The shape as the machine's fine lines, members and cells included: the points of all lines behind each other as
/// doubles x, y, x, y, ..., and for each line a uint64_t, the number of points in front of it, and one more with the
/// number of all. They keep within 0.005 mm of the outline; straight pieces are exact. What is hidden has none.
/// progress may be null. Cost: O(n + lines), cells
/// included.
sm_status sm_shape_lines(sm_shape shape, sm_progress progress, void* context, sm_buffer* xy, sm_buffer* starts);

/// The text of a text shape, or the one that a code image encodes. capacity counts the zero at the end, length does
/// not. Cost: O(letters).
sm_status sm_shape_text(sm_shape shape, char* text, size_t capacity, size_t* length);
/// How a text is set.
sm_status sm_shape_text_options(sm_shape text, sm_text_options* options);
/// Sets another text around the same centre. Null options keep those that it has. Cost: a layout, O(letters).
sm_status sm_shape_set_text(sm_shape text, const char* content, const sm_text_options* options);

/// Which pixels of a picture.
enum
{
    SM_PIXELS_SHOWN = 0,   ///< as it is seen, with all edits; white beside a turned picture
    SM_PIXELS_UNEDITED = 1 ///< as it was given
};
/// The pixels of a picture.
typedef struct sm_pixels
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    uint32_t width;       ///< columns
    uint32_t height;      ///< rows
    uint64_t stride;      ///< bytes from a row to the next
} sm_pixels;
/// Lends grey pixels, rows from the top. Edits of the shape do not change them. Cost: O(pixels).
sm_status sm_shape_pixels(sm_shape image, int32_t which, sm_pixels* info, sm_buffer* pixels);
/// Gives a picture other pixels on the rectangle that it has; edits of the former ones are forgotten. Cost: O(pixels).
sm_status sm_shape_set_pixels(sm_shape image, const uint8_t* pixels, size_t width, size_t height, size_t stride);

/// Members of a group or an array; 0 for every other shape.
sm_status sm_shape_member_count(sm_shape shape, size_t* count);
/// A member, 0 is drawn first.
sm_status sm_shape_member(sm_shape shape, size_t index, sm_shape* member);

/// A cell of an array.
typedef struct sm_cell
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t valid;        ///< 0: it was deleted
    sm_rect rect;         ///< mm
} sm_cell;
/// Cells of an array, deleted ones too.
sm_status sm_array_cell_count(sm_shape array, size_t* count);
/// A cell, counted row by row from 0.
sm_status sm_array_cell(sm_shape array, size_t index, sm_cell* cell);
/// Leaves a cell out. The others keep their numbers. Cost: O(cells + members).
sm_status sm_array_delete_cell(sm_shape array, size_t index);

/// Takes a shape out of its document: it is detached then. SM_REFUSED for members and detached shapes. Cost: O(N + h).
sm_status sm_shape_remove(sm_shape shape);
/// Moves by dx and dy. This and the following are refused for members of arrays, whose cells are laid out for them as
/// they are. Cost: O(n + cells); of a text a layout.
sm_status sm_shape_move(sm_shape shape, double dx, double dy);
/// Fits sm_shape_rect onto a rectangle, whose sides are above 0.000001 mm, or 0 where the shape's own is: a straight
/// line, which stays one. A warning names a side that the shape does not have. Texts keep their proportions.
/// Cost: O(n + cells).
sm_status sm_shape_resize(sm_shape shape, sm_rect target);
/// Turns about a point. Cost: O(n + cells); of a text a layout.
sm_status sm_shape_turn(sm_shape shape, double degrees, double x, double y);
/// Mirrors across the vertical line x = axis. Cost: O(n + cells).
sm_status sm_shape_mirror_x(sm_shape shape, double axis);
/// Mirrors across the horizontal line y = axis. Cost: O(n + cells).
sm_status sm_shape_mirror_y(sm_shape shape, double axis);

/// What became of a fitted outline.
typedef struct sm_fit_result
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t fitted;       ///< 0: it has curves already, or no run without a fill marker has a fit with fewer points
    uint64_t before;      ///< points
    uint64_t after;       ///< points
    double deviation;     ///< mm: largest distance of either outline from the other
} sm_fit_result;
/// Replaces a vector's fine straight pieces by curves, if those are fewer. SM_UNAVAILABLE without the plug-in. progress
/// may be null. Cost: that of the plug-in, and of the comparison, about O(n).
sm_status sm_shape_fit(sm_shape vector, sm_progress progress, void* context, sm_fit_result* result);

// Jobs.

/// Orders of processing.
enum
{
    SM_ORDER_FAST = 0,   ///< inside before outside, with short moves
    SM_ORDER_READING = 1 ///< as a text is read
};

/// Settings of the lines of a colour.
typedef struct sm_color_setting
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    uint32_t color;       ///< 0xRRGGBB
    double feed;          ///< mm per minute; 0: that of all
    double power;         ///< S word; below 0: that of all
    int32_t passes;       ///< 0: as all
    int32_t order;        ///< lower ones are cut first; INT32_MAX, the default, behind all others
} sm_color_setting;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_color_setting_defaults(sm_color_setting* setting, size_t size);

/// What becomes a job, and how.
typedef struct sm_job_options
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t order;        ///< SM_ORDER_FAST
    int32_t mix_colors;   ///< in fast order; else the paths of one colour stay together
    int32_t leads;        ///< lead-in and lead-out lines of shapes that have them active
    int32_t frames;       ///< frames of pictures and outlines of what is engraved are followed
    int32_t arcs;         ///< curves become arcs, else lines
    int32_t keep_doubles; ///< lines that lie on each other are all cut
    int32_t engrave;      ///< pictures and filled outlines become rows
    int32_t one_way;      ///< all rows from left to right
    int32_t grey_step;    ///< greys that differ by no more burn as one: 0 to 127
    int32_t dither;       ///< dots that burn or do not
    double join;          ///< mm: ends of one colour that are no farther apart become one run; 0.05, 0 joins none
    double lines_per_mm;  ///< rows, and dots in a row: 10; 0.01 to 200
    const sm_color_setting* colors; ///< borrowed for the call; may be null
    size_t color_count;             ///< of colors
} sm_job_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_job_options_defaults(sm_job_options* options, size_t size);

/// Makes a job of the document as it is now; later changes of the document do not show in it. Warnings say what has no
/// lines. progress may be null; for it the document is busy during the step "cloning" alone. Cost: a clone of the
/// document, about O(paths × log paths) and O(lines × log lines).
sm_status sm_job_new(sm_document document, const sm_job_options* options, sm_progress progress, void* context,
                     sm_job* job);

/// What there is in a job.
typedef struct sm_job_info
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    uint32_t reserved;    ///< 0
    uint64_t paths;       ///< cuts and leads
    uint64_t shapes;      ///< that have paths
    uint64_t engraved;    ///< shapes
    sm_rect rect;         ///< around all of it; all 0 for an empty job
} sm_job_info;
/// Counts, and the rectangle.
sm_status sm_job_describe(sm_job job, sm_job_info* info);

/// Firmware.
enum
{
    SM_DIALECT_GRBL = 0,
    SM_DIALECT_MARLIN = 1
};
/// When air is blown.
enum
{
    SM_AIR_OFF = 0,
    SM_AIR_LINES = 1,
    SM_AIR_ALL = 2
};

/// What G-code is written with.
typedef struct sm_gcode_options
{
    uint32_t struct_size;   ///< sizeof, as the caller has it
    int32_t dialect;        ///< SM_DIALECT_GRBL
    int32_t constant_power; ///< M3 instead of M4
    int32_t y_down;         ///< y as in the document, not upwards
    int32_t passes;         ///< 1; 1 to 1000
    int32_t air;            ///< SM_AIR_OFF
    int32_t has_height;     ///< height counts
    double height;          ///< mm: the document's y that becomes 0; else the lowest line's
    double feed;            ///< mm per minute: 1200
    double power;           ///< S word; below 0, the default: half of the dialect's whole power
    double pass_depth;      ///< mm by which each further pass goes deeper
    double engrave_feed;    ///< mm per minute in rows; 0, the default: as feed
    double least_power;     ///< S word of what is nearly white: 0
    double most_power;      ///< S word of black; below 0, the default: as power
    double overscan;        ///< mm of run-up on either side of a row: 0
} sm_gcode_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_gcode_options_defaults(sm_gcode_options* options, size_t size);

/// For a report.
typedef struct sm_report_options
{
    uint32_t struct_size;      ///< sizeof, as the caller has it
    int32_t has_bed;           ///< bed counts
    int32_t strict_bed;        ///< what lies outside spoils the work
    int32_t reserved;          ///< 0
    sm_rect bed;               ///< mm, as the machine counts
    double rapid;              ///< mm per minute between paths: 6000
    double acceleration;       ///< mm/s²: 500
    double junction_deviation; ///< mm: 0.01
    double beam;               ///< mm, how wide the laser burns: 0.1
    double widest_gap;         ///< mm; a contour that is open any wider is meant to be: 1
} sm_report_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_report_options_defaults(sm_report_options* options, size_t size);

/// Lengths, time and findings as JSON (UTF-8, no zero at the end): as shapedoc report --json prints it. Cost: O(n log
/// n) in the points of the job, and its engraved dots.
sm_status sm_job_report(sm_job job, const sm_gcode_options* gcode, const sm_report_options* options,
                        sm_progress progress, void* context, sm_buffer* json);

/// Formats of lines.
enum
{
    SM_FORMAT_GCODE = 0,
    SM_FORMAT_CSV = 1, ///< a row per line
    SM_FORMAT_SVG = 2  ///< polylines in mm
};
/// Writes a file, whole or not at all. The options matter for G-code alone. Cost: O(lines + engraved dots).
sm_status sm_job_write(sm_job job, int32_t format, const char* file, const sm_gcode_options* options,
                       sm_progress progress, void* context);
/// The same as bytes. Cost: as sm_job_write.
sm_status sm_job_write_bytes(sm_job job, int32_t format, const sm_gcode_options* options, sm_progress progress,
                             void* context, sm_buffer* bytes);

// Pictures.

/// Formats of pictures.
enum
{
    SM_PICTURE_PNG = 0,
    SM_PICTURE_SVG = 1,
    SM_PICTURE_PDF = 2
};
/// How a picture is drawn.
typedef struct sm_render_options
{
    uint32_t struct_size; ///< sizeof, as the caller has it
    int32_t format;       ///< SM_PICTURE_PNG
    int32_t width;        ///< pixels of a PNG: 800; 16 to 20,000
    int32_t points;       ///< of documents and shapes: with the outlines' points
    sm_progress progress; ///< null: none
    void* context;        ///< of progress
} sm_render_options;
/// Fills the options with what null options mean. size: sizeof *options.
sm_status sm_render_options_defaults(sm_render_options* options, size_t size);

/// Draws a document, a shape or a job in a millimetre frame. Cost: O(points + pixels).
sm_status sm_render(sm_handle handle, const sm_render_options* options, sm_buffer* picture);

// END DECLARATIONS

#ifdef __GNUC__
#pragma GCC visibility pop
#endif
#ifdef __cplusplus
}
#endif

#endif
