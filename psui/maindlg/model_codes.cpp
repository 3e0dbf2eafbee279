#include "psui/maindlg/model_codes.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "psui/settings/devmode.h"

namespace psui {

namespace {

struct ModelCode
{
    std::basic_string_view<WCHAR> name;
    const WCHAR* code;
};

// A name that begins another one stands behind it.
constexpr ModelCode kModels[] = {
    {TEXT("Palette 310"), TEXT("pal310")},   {TEXT("Palette 315"), TEXT("pal315")},
    {TEXT("Palette 320W"), TEXT("pal320w")}, {TEXT("Palette 320"), TEXT("pal320")},
    {TEXT("Palette 330"), TEXT("pal330")},   {TEXT("Palette 350F"), TEXT("pal350f")},
    {TEXT("Palette 350"), TEXT("pal350")},   {TEXT("Palette 410"), TEXT("pal410")},
    {TEXT("Palette 420W"), TEXT("pal420w")}, {TEXT("Palette 420"), TEXT("pal420")},
    {TEXT("Palette 450F"), TEXT("pal450f")}, {TEXT("Palette 450"), TEXT("pal450")},
    {TEXT("Palette 510"), TEXT("pal510")},   {TEXT("Palette 520D"), TEXT("pal520d")},
    {TEXT("Palette 520"), TEXT("pal520")},   {TEXT("Palette 550F"), TEXT("pal550f")},
    {TEXT("Palette 550"), TEXT("pal550")},   {TEXT("Palette 610"), TEXT("pal610")},
    {TEXT("Palette 650"), TEXT("pal650")},   {TEXT("Palette 710D"), TEXT("pal710d")},
    {TEXT("Palette 710"), TEXT("pal710")},   {TEXT("Palette 750"), TEXT("pal750")},
    {TEXT("Palette 910"), TEXT("pal910")},   {TEXT("Palette 920D"), TEXT("pal920d")},
    {TEXT("Palette 940"), TEXT("pal940")},   {TEXT("Palette 960"), TEXT("pal960")},
};

} // namespace

const WCHAR* ModelCodeForDevice(const WCHAR* deviceName)
{
    const std::basic_string_view<WCHAR> name(deviceName);
    const auto model = std::find_if(std::begin(kModels), std::end(kModels),
                                    [&](const ModelCode& each) { return name.find(each.name) != name.npos; });
    return (model != std::end(kModels) ? model : std::begin(kModels))->code;
}

} // namespace psui
