// langcheck: finds what is wrong with compiled language modules before a user does.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "host/host.h"
#include "tools/langcheck/gdi_meter.h"

namespace {

using namespace langcheck;

constexpr char kUsage[] =
    "Usage: langcheck [--ids=HEADER]... [--pictures=FOLDER] NAME=FILE.res...\n"
    "Checks compiled language modules against the headers that name their texts, dialogs and controls, and\n"
    "against the library's pictures.\n"
    "Prints a line a fault. Exit status: 0 none found, 1 faults found, 2 wrong usage or an unreadable "
    "file.\n";

enum Exit
{
    kSound,
    kFaults,
    kUnusable
};

bool Load(const std::string& path, Bytes& bytes)
{
    std::ifstream file(path, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    return file.good() || file.eof();
}

Exit Complain(const std::string& what)
{
    std::fprintf(stderr, "langcheck: %s\n", what.c_str());
    return kUnusable;
}

/// The dialogs' font, and the displays on which nothing may be cut off.
constexpr WCHAR kFace[] = TEXT("MS Shell Dlg");
constexpr int kPoints = 8;
constexpr int kDisplays[] = {96, 120, 144};

/// What the modules are checked against.
struct Product
{
    Ids ids;
    PictureSizes pictures; ///< empty: not checked
};

bool CheckRoom(const Language& language, const Facts& facts, const PictureSizes& pictures, Findings& findings)
{
    for (const Dialog& dialog : language.dialogs) {
        if (dialog.face != kFace || dialog.points != kPoints)
            findings.push_back(language.name + ", dialog " + std::to_string(dialog.id) +
                               ": not in the dialogs' font");
    }
    for (const int dpi : kDisplays) {
        const auto meter = MakeGdiMeter(kFace, kPoints, dpi);
        if (!meter)
            return false;
        CheckFit(language, facts, *meter, findings);
        if (dpi == kDisplays[0] && !pictures.empty())
            CheckPictures(language, facts, pictures, *meter, findings);
    }
    return true;
}

bool Check(const Language& language, const Product& product, Findings& findings)
{
    const Facts& facts = ProductFacts();
    CheckPresence(language, product.ids, findings);
    CheckPlaces(language, product.ids, findings);
    CheckMnemonics(language, facts, findings);
    CheckPlacement(language, facts, findings);
    CheckButtonRows(language, facts, findings);
    CheckTabStops(language, findings);
    return CheckRoom(language, facts, product.pictures, findings);
}

/// Takes one argument, "--ids=HEADER", "--pictures=FOLDER" or "NAME=FILE.res".
bool Take(const std::string& argument, Product& product, std::vector<Language>& languages,
          std::string& complaint)
{
    const size_t sign = argument.find('=');
    const std::string name = argument.substr(0, sign), path = argument.substr(sign + 1);
    if (name == "--pictures") {
        if (std::filesystem::is_directory(path))
            product.pictures = ReadPictureSizes(path);
        complaint = "no pictures in " + path;
        return !product.pictures.empty();
    }
    Bytes bytes;
    if (!Load(path, bytes) || bytes.empty()) {
        complaint = "cannot read " + path;
        return false;
    }
    if (name == "--ids") {
        ReadIds(std::string(bytes.begin(), bytes.end()), product.ids);
        return true;
    }
    languages.emplace_back().name = name;
    if (ReadLanguage(bytes, languages.back(), complaint))
        return true;
    complaint = path + ": " + complaint;
    return false;
}

Exit Run(const std::vector<Language>& languages, const Product& product)
{
    if (!host::Open({":memory:"}, nullptr))
        return Complain("the platform layer does not open");
    Findings findings;
    for (const Language& language : languages) {
        if (!Check(language, product, findings))
            return Complain("texts cannot be measured");
    }
    host::Close();
    for (const std::string& finding : findings)
        std::printf("%s\n", finding.c_str());
    return findings.empty() ? kSound : kFaults;
}

} // namespace

int main(int count, char** arguments)
{
    Product product;
    std::vector<Language> languages;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        std::string complaint;
        if (argument == "--help") {
            std::fputs(kUsage, stdout);
            return kSound;
        }
        if (argument.find('=') == std::string::npos)
            return Complain("not NAME=FILE: " + argument + "\n" + kUsage);
        if (!Take(argument, product, languages, complaint))
            return Complain(complaint);
    }
    return languages.empty() ? Complain(std::string("no language module\n") + kUsage)
                             : Run(languages, product);
}
