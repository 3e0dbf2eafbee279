#include "tools/psuictl/model_commands.h"

#include "tools/psuictl/model_file.h"

namespace psuictl {
namespace {

struct Load
{
    std::string file;
    WideString path;
    WideString imagePath;
    psui::ModelSource source = psui::ModelSource::None;
    ModelPtr model;
};

const char* SourceWord(psui::ModelSource source)
{
    return source == psui::ModelSource::Image ? "image" : "text";
}

Load LoadAsDriver(const std::string& file)
{
    if (file == "-")
        throw Failure("an image is kept beside its text, so 'model compile' reads files only; name a file");
    Load load{.file = file, .path = HostPath(file), .imagePath = {}, .model = nullptr};
    load.model.reset(psui::LoadModelDescription(load.path.c_str(), &load.source));
    WCHAR imagePath[psui::kImagePathUnits];
    if (psui::ImagePathOf(load.path.c_str(), imagePath) && FileExists(imagePath))
        load.imagePath = imagePath;
    if (!load.model)
        throw Failure("'" + file + "' does not compile: " + ReasonOf(CompileText(LoadFile(file), load.path)));
    return load;
}

/// The image's bytes. A loaded model has them with its references turned into addresses, so they come from
/// the file that was reused, or from the text again.
void SaveImage(const Load& load, const std::string& target)
{
    if (load.source == psui::ModelSource::Image) {
        const Bytes image = LoadHostFile(load.imagePath);
        SaveFile(target, image.data(), image.size());
        return;
    }
    const CompiledText compiled = CompileText(LoadFile(load.file), load.path);
    if (!compiled.image)
        throw Failure("'" + load.file + "' changed while it was compiled; try again");
    SaveFile(target, compiled.image.get(), compiled.image->imageSize);
}

Json JsonOf(const Load& load)
{
    const psui::ModelDescription& model = *load.model;
    return {{"file", load.file},
            {"source", SourceWord(load.source)},
            {"image", load.imagePath.empty() ? Json(nullptr) : Json(Utf8(load.imagePath))},
            {"textBytes", LoadFile(load.file).size()},
            {"imageBytes", model.imageSize},
            {"documentFeatures", model.documentFeatureCount},
            {"installableFeatures", model.installableFeatureCount},
            {"sourceCrc", model.sourceCrc}};
}

std::vector<std::string> CellsOf(const Json& row)
{
    const bool reused = row["source"] == "image";
    return {row["file"],
            reused ? "image reused" : "text compiled",
            std::to_string(row["textBytes"].get<uint64_t>()),
            std::to_string(row["imageBytes"].get<uint64_t>()),
            std::to_string(row["documentFeatures"].get<unsigned>()) + "+" +
                std::to_string(row["installableFeatures"].get<unsigned>()),
            row["image"].is_null() ? "(not written)" : row["image"].get<std::string>()};
}

void Print(const Session& session, const Json& rows)
{
    if (session.json)
        return PrintJson(session.out, rows);
    Table table({"FILE", "SOURCE", "TEXT", "BYTES", "FEATURES", "IMAGE"});
    for (const Json& row : rows)
        table.Add(CellsOf(row));
    if (!table.empty())
        table.Print(session.out);
}

} // namespace

ExitCode RunModelCompile(const Session& session, const Arguments& arguments)
{
    const std::vector<std::string>& files = arguments.All("FILE");
    const std::string target = arguments.Text("output");
    if (!target.empty() && files.size() > 1)
        throw Failure("--output takes the image of one text; compile them one by one", kWrongUsage);
    ExitCode code = kDone;
    Json rows = Json::array();
    for (const std::string& file : files) {
        try {
            const Load load = LoadAsDriver(file);
            rows.push_back(JsonOf(load));
            if (!target.empty())
                SaveImage(load, target);
        } catch (const Failure& failure) {
            session.complaints << "psuictl: " << failure.what() << "\n";
            code = kFailed;
        }
    }
    if (target != "-")
        Print(session, rows);
    return code;
}

} // namespace psuictl
