// Writes the images of the description seeds and of the sample models, whole and with damaged headers, as
// seeds of the image fuzzer.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/seeds.h"
#include "psui/model/image.h"

namespace {

namespace fs = std::filesystem;
using fuzz::WriteSeed;

std::string ImageOf(const fs::path& text)
{
    std::ifstream file(text, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    psui::ModelDescription* image =
        psui::CompileToImage({bytes.data(), bytes.size()}, TEXT("C:\\drv\\m.ppd"));
    if (!image)
        return {};
    const std::string result(reinterpret_cast<const char*>(image), image->imageSize);
    psui::FreeModelDescription(image);
    return result;
}

// A header field and a value that it must not have, or need not have.
struct Damage
{
    const char* name;
    size_t offset;
    uint64_t value;
};

constexpr Damage kDamages[] = {
    {"no_path", offsetof(psui::ModelDescription, sourcePath), 0},
    {"no_orders", offsetof(psui::ModelDescription, orderDependencies), 0},
    {"no_constraints", offsetof(psui::ModelDescription, constraints), 0},
    {"orders_in_header", offsetof(psui::ModelDescription, orderDependencies), 64},
    {"features_off_grid", offsetof(psui::ModelDescription, features), 1026},
    {"fonts_in_front", offsetof(psui::ModelDescription, residentFonts), 600},
    {"name_in_header", offsetof(psui::ModelDescription, nickName), 4},
    {"far_away", offsetof(psui::ModelDescription, features), ~uint64_t{0}},
};

bool WriteImageOf(const fs::path& text, const fs::path& folder)
{
    const std::string image = ImageOf(text);
    if (image.empty())
        return false;
    WriteSeed(folder / text.stem(), image);
    for (const Damage& damage : kDamages) {
        std::string damaged = image;
        std::memcpy(damaged.data() + damage.offset, &damage.value, sizeof(damage.value));
        WriteSeed(folder / (text.stem().string() + "_" + damage.name), damaged);
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: make_image_seeds DIR\n", stderr);
        return 2;
    }
    const fs::path source = PSUI_SOURCE_DIR;
    const fs::path folder = fs::path(argv[1]) / "model_image";
    size_t written = 0;
    for (const fs::path& texts : {source / "fuzz/corpus/model_compile", source / "models"})
        for (const fs::directory_entry& entry : fs::directory_iterator(texts))
            if (entry.path().extension() == ".ppd")
                written += WriteImageOf(entry.path(), folder) ? 1 : 0;
    std::printf("%zu images and their damaged copies\n", written);
    return written > 0 ? 0 : 1;
}
