// Common dialogs answer what was chosen for them beforehand, once, and are cancelled otherwise.
#include <string>

#include <gtest/gtest.h>

#include <windows.h>

#include <commdlg.h>

#include "host/shell/comdlg/answer.h"

namespace {

using comdlg::AnswerKind;

OPENFILENAMEW FileRequest(WCHAR* buffer, DWORD units)
{
    OPENFILENAMEW request = {};
    request.lStructSize = sizeof(request);
    request.lpstrFile = buffer;
    request.nMaxFile = units;
    request.Flags = OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
    return request;
}

TEST(CommonDialogs, GiveColorOnceAndCancelOtherwise)
{
    CHOOSECOLORW request = {};
    request.lStructSize = sizeof(request);
    request.rgbResult = 7;
    EXPECT_FALSE(ChooseColorW(&request));
    ChooseCommonDialogAnswer(AnswerKind::Color, TEXT(""), 0x123456);
    EXPECT_TRUE(ChooseColorW(&request));
    EXPECT_EQ(request.rgbResult, 0x123456u);
    request.rgbResult = 7;
    EXPECT_FALSE(ChooseColorW(&request)) << "an answer serves one dialog";
    ChooseCommonDialogAnswer(AnswerKind::File, TEXT("C:\\a"), 0);
    EXPECT_FALSE(ChooseColorW(&request)) << "another dialog was expected";
    ChooseCommonDialogAnswer(AnswerKind::Color, TEXT(""), 1);
    request.lStructSize = 1;
    EXPECT_FALSE(ChooseColorW(&request));
    EXPECT_EQ(request.rgbResult, 7u);
}

TEST(CommonDialogs, GiveFilesThatExistAndFit)
{
    WCHAR own[MAX_PATH];
    const DWORD size = GetModuleFileNameW(nullptr, own, MAX_PATH);
    const std::basic_string<WCHAR> path(own, size);
    const struct
    {
        std::basic_string<WCHAR> path;
        DWORD units;
        bool given;
    } rows[] = {
        {path, MAX_PATH, true},
        {path, size + 1, true},
        {path, size, false},
        {path + TEXT(".nowhere"), MAX_PATH, false},
        {path.substr(0, path.rfind(WCHAR{'\\'})), MAX_PATH, false},
        {TEXT(""), MAX_PATH, false},
    };
    for (const auto& row : rows) {
        WCHAR buffer[MAX_PATH] = {};
        OPENFILENAMEW request = FileRequest(buffer, row.units);
        ChooseCommonDialogAnswer(AnswerKind::File, row.path.c_str(), 0);
        ASSERT_EQ(GetOpenFileNameW(&request) != FALSE, row.given) << row.units;
        EXPECT_EQ(buffer, row.given ? row.path : std::basic_string<WCHAR>());
        EXPECT_EQ(request.nFileOffset, row.given ? path.rfind(WCHAR{'\\'}) + 1 : 0);
    }
}

TEST(CommonDialogs, GiveFontWithinLimits)
{
    const struct
    {
        DWORD tenths;
        bool given;
        LONG height;
    } rows[] = {{120, true, -16}, {90, true, -12}, {40, true, -5}, {39, false, 0}, {130, false, 0}};
    for (const auto& row : rows) {
        LOGFONTW font = {};
        font.lfWeight = 700;
        CHOOSEFONTW request = {};
        request.lStructSize = sizeof(request);
        request.lpLogFont = &font;
        request.Flags = CF_SCREENFONTS | CF_EFFECTS | CF_INITTOLOGFONTSTRUCT | CF_LIMITSIZE;
        request.nSizeMin = 4;
        request.nSizeMax = 12;
        ChooseCommonDialogAnswer(AnswerKind::Font, TEXT("Arial"), row.tenths);
        ASSERT_EQ(ChooseFontW(&request) != FALSE, row.given) << row.tenths;
        EXPECT_EQ(font.lfHeight, row.height) << row.tenths;
        EXPECT_EQ(font.lfWeight, 700) << "what was not chosen stays";
        EXPECT_EQ(lstrcmpiW(font.lfFaceName, row.given ? TEXT("Arial") : TEXT("")), 0);
    }
}

} // namespace
