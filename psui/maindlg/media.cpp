#include "psui/maindlg/media.h"

#include "lang/ids/strings.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

struct OptionText
{
    std::string_view name;
    UINT text;
};
constexpr OptionText kOptionTexts[] = {
    {"Plain_Paper", IDS_MEDIA_PLAIN_PAPER},
    {"Inkjet_Paper", IDS_MEDIA_INKJET_PAPER},
    {"Glossy_Paper", IDS_MEDIA_GLOSSY},
    {"Glossy_Paper3", IDS_MEDIA_GLOSSY3},
    {"Glossy_C", IDS_MEDIA_GLOSSY_C},
    {"Glossy_CB", IDS_MEDIA_GLOSSY_CB},
    {"Glossy_R", IDS_MEDIA_GLOSSY_R},
    {"Glossy_RB", IDS_MEDIA_GLOSSY_RB},
    {"GlossyHagakiATN", IDS_MEDIA_GLOSSYHAGAKIATN},
    {"GlossyHagakiURA", IDS_MEDIA_GLOSSYHAGAKIURA},
    {"Transparency", IDS_MEDIA_TRANSPARENCY},
    {"Transparency(Mirror)", IDS_MEDIA_TRANSPARENCY_MIRROR},
    {"InkjetHagaki", IDS_MEDIA_INKJET_HAGAKI},
    {"Regular", IDS_THICKNESS_REGULAR},
    {"Thin", IDS_THICKNESS_THIN},
    {"Thick", IDS_THICKNESS_THICK},
    {"Thicker", IDS_THICKNESS_THICKER},
    {"Envelope", IDS_THICKNESS_ENVELOPE},
};

struct MediaName
{
    DWORD media;
    UINT text;
};
constexpr MediaName kMediaNames[] = {
    {kMediaInkjet, IDS_MEDIA_INKJET_PAPER},
    {kMediaGlossy, IDS_MEDIA_GLOSSY},
    {kMediaGlossyC, IDS_MEDIA_GLOSSY_C},
    {kMediaTransparency, IDS_MEDIA_TRANSPARENCY},
    {kMediaTransparencyMirror, IDS_MEDIA_TRANSPARENCY_MIRROR},
    {kMediaInkjetHagaki, IDS_MEDIA_INKJET_HAGAKI},
    {kMediaGlossyCB, IDS_MEDIA_GLOSSY_CB},
    {kMediaGlossyR, IDS_MEDIA_GLOSSY_R},
    {kMediaGlossyRB, IDS_MEDIA_GLOSSY_RB},
    {kMediaHagakiAddress, IDS_MEDIA_GLOSSYHAGAKIATN},
    {kMediaHagakiPicture, IDS_MEDIA_GLOSSYHAGAKIURA},
};

} // namespace

UINT MediaOptionText(std::string_view name)
{
    for (const OptionText& row : kOptionTexts)
        if (row.name == name)
            return row.text;
    return 0;
}

UINT MediaNameText(DWORD media)
{
    for (const MediaName& row : kMediaNames)
        if (row.media == media)
            return row.text;
    return IDS_MEDIA_PLAIN_PAPER;
}

bool IsMediaOfJapan(DWORD media)
{
    return media == kMediaHagakiAddress || media == kMediaHagakiPicture;
}

} // namespace psui
