// langshots: pictures of every dialog of language modules, filled with the longest texts that the code writes
// into them. Pictures that the library draws are grey fields with the control's id.
#include <cstdio>
#include <filesystem>
#include <string>

#include <windows.h>

#include <commctrl.h>

#include "host/host.h"
#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "tools/langcheck/facts.h"

namespace {

using namespace langcheck;

constexpr char kUsage[] =
    "Usage: langshots FOLDER VMLANG.DLL...\n"
    "Writes a PNG a dialog, and one a page where a dialog has pages, to\n"
    "FOLDER/LANGUAGE-DIALOG[-PAGE].png. The language is the name of the module's folder.\n";

constexpr int kMostText = 256;
constexpr unsigned kDialogs[] = {IDD_SUPPORT,      IDD_SUMMARY_TEXT,   IDD_USER_PAPER,    IDD_NOTICE,
                                 IDD_DUPLEX,       IDD_COLOR_SETTINGS, IDD_WATERMARK,     IDD_WATERMARK_PAGES,
                                 IDD_CUSTOM_COLOR, IDD_COLOR_MATCHING, IDD_SAVE_FAVOURITE};
constexpr unsigned kSheetPages[] = {IDD_SUMMARY, IDD_VERSION};
constexpr unsigned kTabs[] = {IDD_BASIC, IDD_ADVANCED, IDD_FAVOURITES};
constexpr unsigned kTitles[] = {IDS_TAB_BASIC, IDS_TAB_ADVANCED, IDS_TAB_FAVOURITES};
constexpr COLORREF kSidePanelBlue = RGB(0, 0, 255);

WideString TextOf(HMODULE module, unsigned id)
{
    WCHAR text[kMostText];
    const int length = LoadStringW(module, id, text, kMostText);
    return WideString(text, static_cast<size_t>(length));
}

void DrawPlaceholder(const DRAWITEMSTRUCT& item)
{
    const std::string digits = std::to_string(item.CtlID);
    const WideString number(digits.begin(), digits.end());
    RECT box = item.rcItem;
    FillRect(item.hDC, &box, static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
    SetBkMode(item.hDC, TRANSPARENT);
    DrawTextW(item.hDC, number.c_str(), -1, &box, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
}

void DrawListItem(const DRAWITEMSTRUCT& item)
{
    WCHAR text[kMostText] = {};
    const UINT getText = item.CtlType == ODT_LISTBOX ? LB_GETTEXT : CB_GETLBTEXT;
    SendMessageW(item.hwndItem, getText, item.itemID, reinterpret_cast<LPARAM>(text));
    RECT box = item.rcItem;
    SetBkMode(item.hDC, TRANSPARENT);
    DrawTextW(item.hDC, text, -1, &box, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

bool IsSidePanelLine(HWND window)
{
    for (const Filling& row : ProductFacts().fillings) {
        if (row.dialog == IDD_MAIN && GetDlgItem(GetParent(window), static_cast<int>(row.control)) == window)
            return true;
    }
    return false;
}

INT_PTR CALLBACK ShowProc(HWND, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        return TRUE;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        item.CtlType == ODT_BUTTON ? DrawPlaceholder(item) : DrawListItem(item);
        return TRUE;
    }
    case WM_CTLCOLORSTATIC:
        if (!IsSidePanelLine(reinterpret_cast<HWND>(lParam)))
            return FALSE;
        SetTextColor(reinterpret_cast<HDC>(wParam), kSidePanelBlue);
        SetBkColor(reinterpret_cast<HDC>(wParam), RGB(255, 255, 255));
        return reinterpret_cast<INT_PTR>(GetStockObject(WHITE_BRUSH));
    }
    return FALSE;
}

/// Writes the texts of one row: all of them into a list, the longest into another control.
void Fill(HMODULE module, HWND dialog, const Filling& row)
{
    const HWND control = GetDlgItem(dialog, static_cast<int>(row.control));
    WCHAR className[16] = {};
    GetClassNameW(control, className, 16);
    const bool combo = lstrcmpiW(className, TEXT("ComboBox")) == 0,
               list = lstrcmpiW(className, TEXT("ListBox")) == 0;
    const WideString start = row.label ? TextOf(module, row.label) + row.separator : WideString();
    WideString longest;
    for (unsigned id = row.first; id <= row.last; ++id) {
        const WideString text = TextOf(module, id);
        if (text.empty() && row.first)
            continue;
        if (combo || list)
            SendMessageW(control, combo ? CB_ADDSTRING : LB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>(text.c_str()));
        longest = text.size() > longest.size() ? text : longest;
    }
    if (combo)
        SendMessageW(control, CB_SETCURSEL, 0, 0);
    else if (!list)
        SetWindowTextW(control, (start + longest).c_str());
}

HWND Create(HMODULE module, unsigned id, HWND parent)
{
    const HWND dialog = CreateDialogParamW(module, MAKEINTRESOURCEW(id), parent, ShowProc, 0);
    for (const Filling& row : ProductFacts().fillings) {
        if (dialog && row.dialog == id)
            Fill(module, dialog, row);
    }
    return dialog;
}

struct Album
{
    std::filesystem::path folder;
    std::string language;
    HMODULE module;
    bool whole = true; ///< every picture could be made

    void Shoot(HWND window, const std::string& name)
    {
        const std::filesystem::path file = folder / (language + "-" + name + ".png");
        ShowWindow(window, SW_SHOW);
        if (!window || !host::ShootWindow(window, file)) {
            std::fprintf(stderr, "langshots: no picture %s\n", file.c_str());
            whole = false;
        }
    }
};

void ShootDialogs(Album& album)
{
    for (const unsigned id : kDialogs) {
        const HWND dialog = Create(album.module, id, nullptr);
        album.Shoot(dialog, std::to_string(id));
        DestroyWindow(dialog);
    }
}

void ShootSheetPages(Album& album)
{
    for (const unsigned id : kSheetPages) {
        const HWND sheet = CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP, 0, 0, 400, 400, nullptr,
                                           nullptr, nullptr, nullptr);
        const HWND page = Create(album.module, id, sheet);
        RECT box{};
        GetWindowRect(page, &box);
        SetWindowPos(sheet, nullptr, 0, 0, box.right - box.left, box.bottom - box.top,
                     SWP_NOMOVE | SWP_NOZORDER);
        SetWindowPos(page, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);
        album.Shoot(sheet, std::to_string(id));
        DestroyWindow(sheet);
    }
}

void ShootMainDialog(Album& album)
{
    const HWND dialog = Create(album.module, IDD_MAIN, nullptr);
    const HWND tabs = GetDlgItem(dialog, IDC_TABS);
    for (const unsigned title : kTitles) {
        WideString text = TEXT(" ") + TextOf(album.module, title) + TEXT(" ");
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0)),
                     reinterpret_cast<LPARAM>(&item));
    }
    RECT box{};
    GetClientRect(tabs, &box);
    SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&box));
    MapWindowPoints(tabs, dialog, reinterpret_cast<POINT*>(&box), 2);
    for (size_t i = 0; i < std::size(kTabs); ++i) {
        SendMessageW(tabs, TCM_SETCURSEL, i, 0);
        const HWND page = Create(album.module, kTabs[i], dialog);
        SetWindowPos(page, HWND_TOP, box.left, box.top, box.right - box.left, box.bottom - box.top,
                     SWP_SHOWWINDOW);
        album.Shoot(dialog, std::to_string(IDD_MAIN) + "-" + std::to_string(kTabs[i]));
        DestroyWindow(page);
    }
    DestroyWindow(dialog);
}

/// Shows the controls of one page of the dialog and hides those of its others.
void ShowPage(HWND dialog, unsigned id, int page)
{
    for (const PageRange& range : ProductFacts().pages) {
        for (unsigned control = range.first; range.dialog == id && control <= range.last; ++control)
            ShowWindow(GetDlgItem(dialog, static_cast<int>(control)), range.page == page ? SW_SHOW : SW_HIDE);
    }
}

void ShootPages(Album& album, unsigned id)
{
    const HWND dialog = Create(album.module, id, nullptr);
    int last = 0;
    for (const PageRange& range : ProductFacts().pages) {
        if (range.dialog != id || range.page == last)
            continue;
        last = range.page;
        ShowPage(dialog, id, last);
        album.Shoot(dialog, std::to_string(id) + "-" + std::to_string(last));
    }
    DestroyWindow(dialog);
}

/// The library registers the real one; a module has only its place.
void RegisterMicroScroll()
{
    WNDCLASSW description{};
    description.style = CS_GLOBALCLASS;
    description.lpszClassName = TEXT("CL_MUS");
    description.lpfnWndProc = DefWindowProcW;
    description.hbrBackground = static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH));
    RegisterClassW(&description);
}

bool ShootModule(const std::filesystem::path& folder, const std::filesystem::path& file)
{
    const HMODULE module = LoadLibraryExW(host::WindowsPath(file).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) {
        std::fprintf(stderr, "langshots: cannot load %s\n", file.c_str());
        return false;
    }
    Album album{folder, file.parent_path().filename(), module};
    ShootDialogs(album);
    ShootSheetPages(album);
    ShootMainDialog(album);
    ShootPages(album, IDD_DEVICE_OPTIONS);
    FreeLibrary(module);
    return album.whole;
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 3) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    if (!host::Open({":memory:"}, nullptr))
        return 1;
    std::filesystem::create_directories(arguments[1]);
    InitCommonControls();
    RegisterMicroScroll();
    bool whole = true;
    for (int i = 2; i < count; ++i)
        whole = ShootModule(arguments[1], std::filesystem::absolute(arguments[i])) && whole;
    host::Close();
    return whole ? 0 : 1;
}
