#pragma once
// What the tests of settings and queries share: a world with a language, models from texts, and fields of a
// record by their names.
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "host/host.h"
#include "psui/base/module.h"
#include "psui/model/image.h"
#include "psui/settings/record.h"
#include "tests/settings/record_fields.h"

namespace test {

inline std::u16string ProductFile(const std::string& name)
{
    return host::WindowsPath(std::string(PSUI_PRODUCT_DIR) + "/" + name);
}

/// A fresh world with the library's module state set up by hand, as the tests link the library statically.
class World
{
public:
    explicit World(const std::string& language = "eng")
    {
        std::string error;
        if (!host::Open({.root = ":memory:"}, &error)) {
            ADD_FAILURE() << error;
            std::abort();
        }
        InitializeCriticalSection(&psui::csDriver);
        if (!language.empty()) {
            psui::hLangModule = LoadLibraryW(ProductFile(language + "/VMLANG.DLL").c_str());
            EXPECT_NE(psui::hLangModule, nullptr);
        }
    }
    ~World()
    {
        if (psui::hLangModule)
            FreeLibrary(psui::hLangModule);
        psui::hLangModule = nullptr;
        DeleteCriticalSection(&psui::csDriver);
        host::Close();
    }
};

inline void SetRegistryBytes(HKEY root, const std::u16string& key, const std::u16string& value, DWORD type,
                             std::string_view bytes)
{
    HKEY handle = nullptr;
    ASSERT_EQ(RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &handle, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExW(handle, value.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    RegCloseKey(handle);
}

/// The text's bytes with its terminator.
inline std::string WideBytes(const std::u16string& text)
{
    return {reinterpret_cast<const char*>(text.c_str()), sizeof(WCHAR) * (text.size() + 1)};
}

inline void SetRegistryText(HKEY root, const std::u16string& key, const std::u16string& value,
                            const std::u16string& text, DWORD type = REG_SZ)
{
    SetRegistryBytes(root, key, value, type, WideBytes(text));
}

inline void SetCountry(const std::u16string& country)
{
    SetRegistryText(HKEY_CURRENT_USER, TEXT("Control Panel\\International"), TEXT("iCountry"), country);
}

inline void SetPrintProcessor(const std::u16string& printer, const std::u16string& processor,
                              DWORD type = REG_SZ)
{
    SetRegistryText(HKEY_LOCAL_MACHINE,
                    TEXT("SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\") + printer,
                    TEXT("Print Processor"), processor, type);
}

/// A model compiled from text, with nothing written anywhere.
class Model
{
public:
    explicit Model(std::string_view text) : model_(psui::CompileToImage(text, TEXT("C:\\model.ppd")))
    {
        if (!model_ || !psui::ResolveImage({reinterpret_cast<uint8_t*>(model_), model_->imageSize})) {
            ADD_FAILURE() << "the model text does not compile";
            std::abort();
        }
    }
    ~Model() { psui::FreeModelDescription(model_); }
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    operator const psui::ModelDescription*() const { return model_; }
    psui::ModelDescription* operator->() const { return model_; }

private:
    psui::ModelDescription* model_;
};

inline void ExpectFields(const psui::DriverDevMode& record, const FieldValues& fields)
{
    for (const FieldValue& field : fields)
        EXPECT_EQ(Get(record, field.name), field.value) << field.name;
}

/// A colour printer with duplex, two trays and every kind of option that the settings look at.
inline constexpr std::string_view kFullModel = R"(*ColorDevice: True
*ModelType: "65535"
*PrintRatePPM: "12"
*MemorySize All: "8,16,32"
*SleepMode All: "1 5 10"
*PageSize A4/A4 sheet: "a"
*PageSize Letter: "b"
*PageSize User: "c"
*PageSize A4_BL: "d"
*PaperDimension A4: "595 842"
*PaperDimension Letter: "612 792"
*PaperDimension A4_BL: "595 842"
*DefaultPaper: A4
*Paper A4: "9"
*Paper Letter: "1"
*Paper User: "256"
*Paper A4_BL: "274"
*Paper Unheard_Of: ""
*DefaultTray: Feeder
*Tray Feeder: "7"
*Tray Tray1: "1"
*Tray Tray2: ""
*Tray Sideways: "4"
*InputSlot Cassette: "x"
*InputSlot Manual: "y"
*Duplex None: "0"
*Duplex DuplexTumble: "1"
*Duplex DuplexNoTumble: "2"
*Collate True: "t"
*Collate False: "f"
*DefaultResolution: 600dpi
*Resolution Draft: "r"
*Resolution 300dpi: "r"
*Resolution 600dpi: "r"
*Resolution 1200x600dpi: "r"
*DefaultMediaType: Plain_Paper
*MediaType Plain_Paper: "266"
*MediaType Inkjet_Paper: "261"
*MediaType Glossy_RB: "263"
*MediaType Glossy_CB: "269"
*MediaType Glossy_C: "271"
*MediaType Transparency: "264"
*MediaType GlossyHagakiATN: "270"
*MediaType GlossyHagakiURA: ""
*DefaultCOLOR: Color
*COLOR Mono: "1"
*COLOR Color: "2"
*MultiplePage One: "0"
*Thickness Thick: "4"
*HRC On: "11"
*PageProtect Auto: "12"
*CAPT On: "13"
*DOCTYPE Photo: "14"
*CHALFTONE Fine: "15"
*CM On: "16"
*CMPMODE Tiff: "17"
*GMODE Grey: "18"
*DIRMODE Both: "19"
*TTMODE Bitmap: "20"
*KCDraft On: "21"
*SFQuality On: "22"
*PrtArea Wide: "23"
)";

/// A model that says nothing: every default is a fallback.
inline constexpr std::string_view kEmptyModel = "*NickName: \"Nothing\"\n";

/// A default record of the full model, in a metric country and without a print processor to look up.
class DefaultRecord : public testing::Test
{
protected:
    World world_;
    Model model_{kFullModel};
    alignas(8) psui::DriverDevMode record_;

    DefaultRecord() { psui::BuildDefaultDevMode(&record_, nullptr, model_, true); }
};

} // namespace test
