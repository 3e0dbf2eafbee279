#pragma once
// A property sheet of the common UI as data: sheet functions own groups, groups hold pages and further
// groups. A handle that the common UI hands out is the address of such a node.
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

#include <compstui.h>
#include <prsht.h>

namespace compstui {

using Text = std::basic_string<WCHAR>;

struct Sheet;

/// A group with its sheet function, or a page.
struct Node
{
    Sheet* sheet = nullptr;
    Node* parent = nullptr; ///< null for the root group

    // Groups
    PFNPROPSHEETUI function = nullptr; ///< null for a page
    PROPSHEETUI_INFO info = {};
    std::vector<std::unique_ptr<Node>> children;

    // Pages
    std::vector<BYTE> record; ///< the caller's page record, whole; at least PROPSHEETPAGEW_V1_SIZE bytes
    std::vector<BYTE> dialog; ///< its template as a child window
    Text title;
    HWND window = nullptr; ///< once the page has been shown

    bool IsPage() const { return function == nullptr; }
    const PROPSHEETPAGEW& page() const { return *reinterpret_cast<const PROPSHEETPAGEW*>(record.data()); }
};

struct Sheet
{
    Sheet();
    ~Sheet();
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    Node root;
    const Node* startPage = nullptr;

    // What the root's sheet function answered for the header
    Text title;
    bool canApply = true;
    HICON icon = nullptr;    ///< the caller's or our own
    HICON ownIcon = nullptr; ///< destroyed with the sheet

    // While the window is open
    HWND window = nullptr;
    std::vector<Node*> pages; ///< in tab order
    size_t active = 0;        ///< index of the page shown
    bool ended = false;
};

/// The service function that sheet functions and pages call. The functions of a sheet are called on the
/// thread that runs it.
LONG_PTR CALLBACK Service(HANDLE comPropSheet, UINT function, LPARAM param1, LPARAM param2);

/// Adds a group at `place` and lets its function initialise it. Returns null when that refuses; everything it
/// had added is gone then.
Node* AddGroup(Node& parent, size_t place, PFNPROPSHEETUI function, LPARAM param);

/// Makes `group` ready for its function and calls it with the reasons that begin a sheet.
bool InitialiseGroup(Node& group, PFNPROPSHEETUI function, LPARAM param);

/// Calls a group's sheet function.
LONG CallGroup(Node& group, WORD reason, LPARAM param);

/// Tells every sheet function below and at `group`, last ones first, that the sheet is gone.
void DestroyGroup(Node& group);

/// Every page in tab order.
std::vector<Node*> PagesOf(Node& group);

} // namespace compstui
