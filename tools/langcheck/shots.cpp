// langshots: pictures of every dialog of language modules, filled with the longest texts that the code writes
// into them, with the library's own pictures and lists.
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "host/host.h"
#include "lang/ids/color_settings.h"
#include "lang/ids/device_options.h"
#include "lang/ids/dialogs.h"
#include "lang/ids/favourites.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "lang/ids/support.h"
#include "lang/ids/version.h"
#include "psui/base/module.h"
#include "psui/controls/color_sample.h"
#include "psui/controls/owner_draw.h"
#include "psui/controls/pictures.h"
#include "psui/maindlg/main_layout.h"
#include "psui/settings/record_values.h"
#include "tools/langcheck/facts.h"

namespace {

using namespace langcheck;

constexpr char kUsage[] =
    "Usage: langshots FOLDER PRODUCT...\n"
    "Writes a PNG a dialog, and one a page where a dialog has pages, to FOLDER/LANGUAGE-DIALOG[-PAGE].png, "
    "and\n"
    "the main dialog on finer displays to FOLDER/LANGUAGE-DIALOG-PAGE@DPI.png. A product is a folder with\n"
    "psui.dll and VMLANG.DLL; its name is the language.\n";

constexpr int kMostText = 256;
constexpr int kListItemHeight = 36;     // pixels
constexpr UINT kServicePicture = 10800; // the number that the version page has its picture painted by
constexpr int kUsualDisplay = 96;       // dots per inch
constexpr int kFinerDisplays[] = {120, 144};
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

/// What the painters draw from, in the language of the pictures.
struct Scene
{
    psui::DriverDevMode record = {};
    std::vector<psui::FavouriteItem> favourites;

    explicit Scene(HMODULE module)
    {
        record.dmPublic.dmOrientation = DMORIENT_PORTRAIT;
        record.dmPublic.dmColor = DMCOLOR_COLOR;
        record.dmPublic.dmCopies = 3;
        record.dmPrivate.dwPagesPerSheet = 1;
        record.dmPrivate.bQualityLevel = psui::kQualityPhotoFine - 1;
        record.dmPrivate.dwColorModeOn = 1;
        record.dmPrivate.bTailCollate = 1;
        record.dmPrivate.bFitToPaper = 1;
        record.dmPrivate.wDuplexFlags = psui::kDuplexOn;
        for (unsigned id = IDS_FAVOURITE_STANDARD; id <= IDS_FAVOURITE_CUSTOM; ++id) {
            psui::FavouriteItem item = {id - IDS_FAVOURITE_STANDARD, {}};
            lstrcpynW(item.name, TextOf(module, id).c_str(), psui::kFavouriteTextUnits);
            favourites.push_back(item);
        }
    }

    void Draw(HWND dialog, const DRAWITEMSTRUCT& item) const
    {
        constexpr uint32_t kColorModes[] = {2, 1};
        const psui::OwnerDrawSource source = {
            .language = psui::hLangModule,
            .deviceName = TEXT("Velmora Palette 940 Printer"),
            .colorModes = kColorModes,
            .favourites = favourites,
            .linkHover = false,
            .bannerDiagnostics = false,
        };
        DRAWITEMSTRUCT request = item;
        if (request.CtlID == IDC_VERSION_PICTURE)
            request.CtlID = kServicePicture;
        if (request.CtlID == IDC_SAMPLE)
            psui::DrawColorSample(request, record);
        else
            psui::DrawOwnerItem(dialog, request, source, record);
    }
};

const Scene* scene; // of the language at work

/// The template that a dialog was made from.
unsigned TemplateOf(HWND dialog)
{
    return static_cast<unsigned>(GetWindowLongPtrW(dialog, DWLP_USER));
}

bool IsSidePanelLine(HWND dialog, HWND window)
{
    for (const Filling& row : ProductFacts().fillings)
        if (row.dialog == TemplateOf(dialog) && row.dialog == IDD_MAIN &&
            GetDlgItem(dialog, static_cast<int>(row.control)) == window)
            return true;
    return false;
}

/// Whether a control stands on white: on the version page, or on the panel of the support dialog.
bool StandsOnWhite(HWND dialog, HWND window)
{
    RECT place, panel, common;
    return TemplateOf(dialog) == IDD_VERSION ||
           (TemplateOf(dialog) == IDD_SUPPORT && GetWindowRect(window, &place) &&
            GetWindowRect(GetDlgItem(dialog, IDC_SUPPORT_PANEL), &panel) &&
            IntersectRect(&common, &place, &panel));
}

INT_PTR White(HDC dc)
{
    SetBkColor(dc, RGB(255, 255, 255));
    return reinterpret_cast<INT_PTR>(GetStockObject(WHITE_BRUSH));
}

INT_PTR ColorOf(HWND dialog, HDC dc, HWND control)
{
    if (StandsOnWhite(dialog, control))
        return White(dc);
    if (!IsSidePanelLine(dialog, control))
        return FALSE;
    SetTextColor(dc, kSidePanelBlue);
    return White(dc);
}

INT_PTR CALLBACK ShowProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        return TRUE;
    case WM_DRAWITEM:
        scene->Draw(dialog, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_CTLCOLORDLG:
        return TemplateOf(dialog) == IDD_VERSION ? White(reinterpret_cast<HDC>(wParam)) : FALSE;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
        return ColorOf(dialog, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
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
        if (combo || list) {
            const LRESULT place = SendMessageW(control, combo ? CB_ADDSTRING : LB_ADDSTRING, 0,
                                               reinterpret_cast<LPARAM>(text.c_str()));
            SendMessageW(control, combo ? CB_SETITEMDATA : LB_SETITEMDATA, static_cast<WPARAM>(place), place);
        }
        longest = text.size() > longest.size() ? text : longest;
    }
    if (combo)
        SendMessageW(control, CB_SETCURSEL, 0, 0);
    else if (!list)
        SetWindowTextW(control, (start + longest).c_str());
}

/// A control of its class as a user finds it: in the middle of its range.
BOOL CALLBACK Prepare(HWND control, LPARAM)
{
    constexpr LPARAM kRange = MAKELPARAM(static_cast<WORD>(-20), 20);
    WCHAR className[32] = {};
    GetClassNameW(control, className, 32);
    if (lstrcmpiW(className, TRACKBAR_CLASSW) == 0) {
        SendMessageW(control, TBM_SETRANGE, FALSE, kRange);
        SendMessageW(control, TBM_SETPOS, TRUE, 0);
    } else if (lstrcmpiW(className, TEXT("ScrollBar")) == 0) {
        SetScrollRange(control, SB_CTL, -20, 20, FALSE);
        SetScrollPos(control, SB_CTL, 0, TRUE);
    } else if (lstrcmpiW(className, TEXT("Edit")) == 0 &&
               GetWindowLongPtrW(control, GWL_STYLE) & ES_READONLY &&
               !(GetWindowLongPtrW(control, GWL_STYLE) & ES_MULTILINE)) {
        SetWindowTextW(control, TEXT("0"));
    }
    return TRUE;
}

HWND Create(HMODULE module, unsigned id, HWND parent)
{
    const HWND dialog =
        CreateDialogParamW(module, MAKEINTRESOURCEW(id), parent, ShowProc, static_cast<LPARAM>(id));
    if (!dialog)
        return nullptr;
    for (const unsigned list : {IDC_FAVOURITES, IDC_SLOT_LIST, IDC_OPTION_LIST})
        SendDlgItemMessageW(dialog, static_cast<int>(list), LB_SETITEMHEIGHT, 0, kListItemHeight);
    for (const Filling& row : ProductFacts().fillings)
        if (row.dialog == id)
            Fill(module, dialog, row);
    EnumChildWindows(dialog, Prepare, 0);
    for (const Picture& row : ProductFacts().pictures)
        if (row.dialog == id && row.inset == 0)
            psui::FitControlToBitmap(dialog, static_cast<int>(row.control), row.bitmap);
    if (id == IDD_MAIN)
        psui::LayOutPictures(dialog);
    return dialog;
}

struct Album
{
    std::filesystem::path folder;
    std::string language;
    HMODULE module;
    std::string display = {}; ///< what the names of its pictures end with
    bool whole = true;        ///< every picture could be made

    void Shoot(HWND window, const std::string& name)
    {
        const std::filesystem::path file = folder / (language + "-" + name + display + ".png");
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

/// The library of a folder, at work with the language module beside it, until this goes.
class Product
{
public:
    explicit Product(const std::filesystem::path& folder)
        : library_(LoadLibraryW(host::WindowsPath(folder / "psui.dll").c_str())),
          language_(LoadLibraryW(host::WindowsPath(folder / "VMLANG.DLL").c_str()))
    {
        psui::hOwnModule = library_;
        psui::hLangModule = language_;
    }
    ~Product()
    {
        psui::hOwnModule = psui::hLangModule = nullptr;
        FreeLibrary(language_);
        FreeLibrary(library_);
    }
    Product(const Product&) = delete;
    Product& operator=(const Product&) = delete;

    HMODULE language() const { return library_ ? language_ : nullptr; }

private:
    HMODULE library_;
    HMODULE language_;
};

bool ShootProduct(const std::filesystem::path& folder, const std::filesystem::path& product)
{
    const Product loaded(product);
    if (!loaded.language()) {
        std::fprintf(stderr, "langshots: no psui.dll and VMLANG.DLL in %s\n", product.c_str());
        return false;
    }
    const Scene drawn(loaded.language());
    scene = &drawn;
    Album album{folder, product.filename(), loaded.language()};
    ShootDialogs(album);
    ShootSheetPages(album);
    ShootMainDialog(album);
    ShootPages(album, IDD_DEVICE_OPTIONS);
    for (const int dpi : kFinerDisplays) {
        host::SetDotsPerInch(dpi);
        album.display = "@" + std::to_string(dpi);
        ShootMainDialog(album);
    }
    host::SetDotsPerInch(kUsualDisplay);
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
    bool whole = true;
    for (int i = 2; i < count; ++i)
        whole = ShootProduct(arguments[1], std::filesystem::canonical(arguments[i])) && whole;
    host::Close();
    return whole ? 0 : 1;
}
