// Walks through the dialogs by chance, again and again the same way for the same seed, and checks after every
// step what must always hold.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string_view>

#include "fuzz/walk/checks.h"
#include "fuzz/walk/sheet.h"
#include "fuzz/walk/start_record.h"
#include "host/pace.h"
#include "psui/base/procedure.h"
#include "psui/settings/record.h"
#include "tests/settings/support.h"
#include "tools/psuictl/desktop.h"

namespace {

using walk::Closing;
using walk::Journal;
using walk::Origin;
using walk::Random;

constexpr int kWrongUsage = 2;
constexpr const char* kModels[] = {"palette310", "palette520", "palette940"};
constexpr const char* kLanguages[] = {"eng", "jpn"};
constexpr DWORD kNoPermission = 0x20; // of a document header's mode
constexpr DWORD kUserDefault = 0x40;

constexpr char kUsage[] =
    "usage: ui_walk [--seed N] [--seeds COUNT] [--steps N] [--seconds N] [--model NAME]\n"
    "               [--language eng|jpn] [--verbose]\n"
    "Walks COUNT seeds from N on (default: 1 and 1), each N steps (default: 1000), or with\n"
    "--seconds until the time is up. Without them model and language follow the seed.\n"
    "Exit code 0 for a clean walk, 1 for a finding, 2 for wrong usage.\n";

struct Arguments
{
    uint64_t seed = 1;
    uint64_t seeds = 1;
    size_t steps = 1000;
    long seconds = 0; ///< 0 for no limit
    std::string model;
    std::string language;
    bool verbose = false;
};

bool ReadNumber(const char* text, uint64_t& number)
{
    char* end = nullptr;
    number = std::strtoull(text, &end, 10);
    return *text >= '0' && *text <= '9' && *end == 0;
}

template <typename Names>
bool ReadName(const char* text, const Names& names, std::string& name)
{
    name = text;
    for (const char* each : names)
        if (name == each)
            return true;
    return false;
}

bool ReadOption(std::string_view option, const char* value, Arguments& arguments)
{
    uint64_t number = 0;
    if (option == "--model")
        return ReadName(value, kModels, arguments.model);
    if (option == "--language")
        return ReadName(value, kLanguages, arguments.language);
    if (!ReadNumber(value, number))
        return false;
    if (option == "--seed")
        arguments.seed = number;
    else if (option == "--seeds")
        arguments.seeds = number;
    else if (option == "--steps")
        arguments.steps = number;
    else if (option == "--seconds")
        arguments.seconds = static_cast<long>(number);
    else
        return false;
    return true;
}

bool ReadArguments(int count, char** words, Arguments& arguments)
{
    for (int i = 1; i < count; ++i) {
        if (std::strcmp(words[i], "--verbose") == 0)
            arguments.verbose = true;
        else if (i + 1 == count || !ReadOption(words[i], words[i + 1], arguments))
            return false;
        else
            ++i;
    }
    return true;
}

std::string ReadModel(const std::string& name)
{
    std::ifstream file(std::string(PSUI_SOURCE_DIR "/models/") + name + ".ppd", std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The library as its callers load it.
class Library
{
public:
    explicit Library(const std::string& language)
        : module_(LoadLibraryW(test::ProductFile(language + "/psui.dll").c_str())),
          sheets_(psui::FindProcedure<psui::PropSheetUiFn>(module_, "DrvDocumentPropertySheets"))
    {
    }
    ~Library() { FreeLibrary(module_); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    psui::PropSheetUiFn sheets() const { return sheets_; }

private:
    const HMODULE module_;
    const psui::PropSheetUiFn sheets_;
};

/// A window that belongs to none of the dialogs.
class Elsewhere
{
public:
    Elsewhere()
        : window_(CreateWindowExW(0, TEXT("STATIC"), TEXT("Elsewhere"), WS_POPUP | WS_VISIBLE, 0, 0, 20, 20,
                                  nullptr, nullptr, nullptr, nullptr))
    {
    }
    ~Elsewhere() { DestroyWindow(window_); }
    Elsewhere(const Elsewhere&) = delete;
    Elsewhere& operator=(const Elsewhere&) = delete;

    operator HWND() const { return window_; }

private:
    HWND window_;
};

psui::DriverDevMode DefaultRecord(psui::PropSheetUiFn sheets, test::Printer& printer)
{
    psui::DriverDevMode record = {};
    psui::DocumentPropertyHeader header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = printer.handle();
    header.pszPrinterName = printer.name();
    header.pdmOut = &record.dmPublic;
    header.fMode = DM_COPY;
    sheets(nullptr, reinterpret_cast<LPARAM>(&header));
    return record;
}

using Objects = std::vector<std::pair<std::string, int64_t>>; // kinds of open objects and their counts

std::string GrowthSince(const Objects& before)
{
    const Objects now = psuictl::platform::OpenObjects();
    std::string growth;
    for (size_t i = 0; i < now.size(); ++i)
        if (now[i].second != before[i].second)
            growth += std::to_string(now[i].second - before[i].second) + " " + now[i].first + "; ";
    return growth;
}

/// One seed's walk, from sheet to sheet.
class Walk
{
public:
    Walk(const walk::Itinerary& itinerary, Journal& journal)
        : itinerary_(itinerary), journal_(journal), random_(itinerary.seed), world_(itinerary.language),
          printer_(u"Office", ReadModel(itinerary.model)), library_(itinerary.language),
          user_(random_, journal, elsewhere_), defaults_(DefaultRecord(library_.sheets(), printer_))
    {
        host::HoldTime();
    }

    size_t Go()
    {
        // What the process loads once and keeps is loaded now.
        Visit({nullptr, 0, 1}, 0, nullptr);
        Closing last;
        while (journal_.step() < itinerary_.steps) {
            const bool again = last.confirmed && !random_.OneIn(4);
            if (!again)
                Choose();
            record_ = again ? last.output : record_;
            const Closing* const expected = again && !last.shown.empty() ? &last : nullptr;
            const walk::Request request = {again || origin_ != Origin::Defaults ? &record_ : nullptr, mode_,
                                           pages_};
            const Closing closing = Visit(request, itinerary_.steps, expected);
            last = closing;
        }
        return journal_.sheets();
    }

private:
    void Choose()
    {
        constexpr Origin kOrigins[] = {Origin::Defaults, Origin::Legal, Origin::Legal, Origin::Hostile};
        origin_ = random_.Pick(kOrigins);
        mode_ = (random_.OneIn(12) ? kNoPermission : 0) | (random_.OneIn(2) ? kUserDefault : 0);
        pages_ = random_.OneIn(6) ? 2 : 1;
        record_ = defaults_;
        walk::Spoil(record_, origin_, random_);
    }

    Closing Visit(const walk::Request& request, size_t lastStep, const Closing* expected)
    {
        journal_.BeginSheet(std::string(expected        ? "record that came back"
                                        : request.input ? NameOf(origin_)
                                                        : "no record") +
                            (request.mode & kNoPermission ? ", read only" : "") +
                            (request.mode & kUserDefault ? ", user default" : "") + ", pages " +
                            std::to_string(request.pages));
        const Objects before = psuictl::platform::OpenObjects();
        Closing closing;
        {
            walk::Sheet sheet(library_.sheets(), printer_, random_, journal_, user_);
            closing = sheet.Walk(request, lastStep, expected);
        }
        if (const std::string growth = GrowthSince(before); opened_++ > 0 && !growth.empty())
            journal_.Fail("the closed sheet leaves open: " + growth);
        host::ClearRecorded();
        return closing;
    }

    walk::Itinerary itinerary_;
    Journal& journal_;
    Random random_;
    test::World world_;
    test::Printer printer_;
    Library library_;
    Elsewhere elsewhere_;
    walk::User user_;
    psui::DriverDevMode defaults_;
    psui::DriverDevMode record_ = {};
    Origin origin_ = Origin::Defaults;
    DWORD mode_ = 0;
    size_t pages_ = 1;
    size_t opened_ = 0;
};

walk::Itinerary ItineraryOf(uint64_t seed, const Arguments& arguments)
{
    Random random(~seed);
    const std::string model = random.Pick(kModels), language = random.Pick(kLanguages);
    return {seed, arguments.steps, arguments.model.empty() ? model : arguments.model,
            arguments.language.empty() ? language : arguments.language};
}

} // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    if (!ReadArguments(argc, argv, arguments)) {
        std::fputs(kUsage, stderr);
        return kWrongUsage;
    }
    Journal journal(arguments.verbose);
    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [&] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    uint64_t seeds = 0;
    size_t sheets = 0, steps = 0;
    while (arguments.seconds > 0 ? elapsed() < static_cast<double>(arguments.seconds)
                                 : seeds < arguments.seeds) {
        const walk::Itinerary itinerary = ItineraryOf(arguments.seed + seeds++, arguments);
        journal.Begin(itinerary);
        sheets += Walk(itinerary, journal).Go();
        steps += journal.step();
    }
    std::printf("%llu seeds, %zu sheets, %zu steps in %.1f s, %.3f ms a step\n",
                static_cast<unsigned long long>(seeds), sheets, steps, elapsed(),
                steps > 0 ? elapsed() * 1000 / static_cast<double>(steps) : 0);
    return EXIT_SUCCESS;
}
