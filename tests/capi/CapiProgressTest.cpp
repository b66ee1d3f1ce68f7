/// Long work that is watched and stopped: opening, saving, checking, repairing, importing, pictures, work on a shape.
#include "Capi.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <unistd.h>

using namespace test;

namespace {

namespace fs = std::filesystem;

/// The arguments of a callback, and after how many calls it stops.
struct Watch
{
    int patience = 1 << 30;
    std::vector<std::string> steps; ///< in the order in which they came first
    bool odd = false;               ///< more was done than there is
    sm_document document = 0;       ///< asked meanwhile
    sm_status answer = SM_OK;

    static int32_t Told(void* context, const char* step, uint64_t done, uint64_t total)
    {
        auto& watch = *static_cast<Watch*>(context);
        if (std::find(watch.steps.begin(), watch.steps.end(), step) == watch.steps.end())
            watch.steps.emplace_back(step);
        watch.odd |= total > 0 && done > total;
        size_t count = 0;
        watch.answer = sm_document_count(watch.document, &count);
        return --watch.patience < 0;
    }
};

/// Options that tell the watch.
template <class Options>
Options Told(sm_status (*defaults)(Options*, size_t), Watch& watch)
{
    Options options{};
    Ok(defaults(&options, sizeof options));
    options.progress = Watch::Told;
    options.context = &watch;
    return options;
}

std::string ContentOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class CapiProgress : public testing::Test
{
protected:
    CapiProgress()
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
        Ok(sm_document_new(m_document.Room()));
        FillWithEveryKind(m_document);
        Handle parts[3];
        for (size_t i = 0; i < 3; ++i)
            Ok(sm_document_shape(m_document, i, parts[i].Room()));
        const sm_shape members[]{parts[0], parts[1], parts[2]};
        Ok(sm_group_new(members, 3, m_shape.Room()));
        m_bytes = Saved(m_document);
        std::ofstream(m_source, std::ios::binary) << m_bytes;
        std::ofstream(m_target) << "old";
    }
    ~CapiProgress() override { fs::remove_all(m_folder); }

    /// A call that takes a callback.
    struct Row
    {
        const char* name;
        std::vector<std::string> steps;
        std::function<sm_status(Watch&, sm_handle* made)> call;
        sm_status busy; ///< what the callback is answered for the document
    };
    std::vector<Row> Rows();

    const fs::path m_folder = fs::temp_directory_path() / ("capi-progress-" + std::to_string(getpid()));
    const std::string m_source = m_folder / "source.shapes", m_target = m_folder / "target.shapes";
    Handle m_document, m_shape;
    std::string m_bytes;
};

std::vector<CapiProgress::Row> CapiProgress::Rows()
{
    const auto stream = [](Watch& watch) { return Told(sm_document_options_defaults, watch); };
    const auto whole = [this](const auto& call) { // on the document's shapes as one
        return [this, call](Watch& watch, sm_handle* made) { return call(m_shape, Watch::Told, &watch, made); };
    };
    const auto drawing = [](Watch& watch) {
        sm_drawing_options options = Told(sm_drawing_options_defaults, watch);
        options.visible = 1;
        return options;
    };
    const auto render = [this](Watch& watch, int32_t format, sm_handle* made) {
        sm_render_options options = Told(sm_render_options_defaults, watch);
        options.format = format;
        return sm_render(m_document, &options, made);
    };
    return {
        {"open",
         {"reading", "texts"},
         [=, this](Watch& watch, sm_handle* made) {
             const sm_document_options options = stream(watch);
             return sm_document_open(m_source.c_str(), &options, made);
         },
         SM_OK},
        {"open bytes",
         {"reading", "texts"},
         [=, this](Watch& watch, sm_handle* made) {
             const sm_document_options options = stream(watch);
             return sm_document_open_bytes(m_bytes.data(), m_bytes.size(), &options, made);
         },
         SM_OK},
        {"save",
         {"saving"},
         [=, this](Watch& watch, sm_handle*) {
             const sm_document_options options = stream(watch);
             return sm_document_save(m_document, m_target.c_str(), &options);
         },
         SM_BUSY},
        {"save bytes",
         {"saving"},
         [=, this](Watch& watch, sm_handle* made) {
             const sm_document_options options = stream(watch);
             return sm_document_save_bytes(m_document, &options, made);
         },
         SM_BUSY},
        {"check",
         {"checking"},
         [=, this](Watch& watch, sm_handle*) {
             const sm_document_options options = stream(watch);
             sm_check_result result{sizeof result, 0, 0, 0, 0, 0, {}};
             const sm_status status = sm_check(m_source.c_str(), &options, &result);
             EXPECT_EQ(result.clean, status == SM_OK);
             return status;
         },
         SM_OK},
        {"repair",
         {"searching", "saving", "checking"},
         [=, this](Watch& watch, sm_handle*) {
             const sm_document_options options = stream(watch);
             return sm_repair(m_source.c_str(), m_target.c_str(), &options, nullptr);
         },
         SM_OK},
        {"repair bytes",
         {"searching", "saving", "checking"},
         [=, this](Watch& watch, sm_handle* made) {
             const sm_document_options options = stream(watch);
             return sm_repair_bytes(m_bytes.data(), m_bytes.size() - 1, &options, made, nullptr);
         },
         SM_OK},
        {"lines",
         {"lines"},
         whole([](sm_shape shape, sm_progress told, void* context, sm_handle* made) {
             Handle starts;
             const sm_status status = sm_shape_lines(shape, told, context, made, starts.Room());
             EXPECT_EQ(starts != 0, status == SM_OK);
             return status;
         }),
         SM_BUSY},
        {"clone", {"cloning"}, whole(sm_shape_clone), SM_BUSY},
        {"import",
         {"reading", "painting", "cutting", "shaping"},
         [=, this](Watch& watch, sm_handle*) {
             const sm_drawing_options options = drawing(watch);
             return sm_document_import_drawing(m_document, SAMPLES "/ornament.svg", &options, nullptr);
         },
         SM_OK},
        {"picture",
         {"decoding"},
         [](Watch& watch, sm_handle* made) {
             const sm_image_options options = Told(sm_image_options_defaults, watch);
             return sm_image_open(SAMPLES "/medallion.png", &options, made);
         },
         SM_OK},
        {"PNG",
         {"measuring", "drawing", "encoding"},
         [=](Watch& watch, sm_handle* made) { return render(watch, SM_PICTURE_PNG, made); },
         SM_BUSY},
        {"PDF",
         {"measuring", "drawing"},
         [=](Watch& watch, sm_handle* made) { return render(watch, SM_PICTURE_PDF, made); },
         SM_BUSY},
    };
}

} // namespace

/// Stopped at every call of its callback, until the patience suffices.
TEST_F(CapiProgress, stops_wherever_it_is_told)
{
    for (const Row& row : Rows()) {
        const uint64_t handles = sm_handle_count();
        const std::string old = ContentOf(m_target);
        const std::string before = Saved(m_document);
        sm_status status = SM_STOPPED;
        for (int patience = 0; status == SM_STOPPED && patience < 200; ++patience) {
            Watch watch;
            watch.patience = patience;
            watch.document = m_document;
            Handle made;
            status = row.call(watch, made.Room());
            EXPECT_EQ(watch.answer, row.busy) << row.name;
            EXPECT_FALSE(watch.odd) << row.name;
            if (status == SM_OK) {
                EXPECT_EQ(watch.steps, row.steps) << row.name;
                EXPECT_STREQ(sm_last_error(), "") << row.name; // that of the callback's call is not this call's
                break;
            }
            EXPECT_TRUE(status == SM_STOPPED && made == 0) << row.name << " " << status << sm_last_error();
            EXPECT_EQ(ContentOf(m_target), old) << row.name;
            EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), {}), 2) << row.name;
            EXPECT_TRUE(Saved(m_document) == before) << row.name;
        }
        EXPECT_EQ(status, SM_OK) << row.name;
        EXPECT_EQ(sm_handle_count(), handles) << row.name;
    }
    EXPECT_TRUE(ContentOf(m_target) == m_bytes); // watched writing writes the same
}
