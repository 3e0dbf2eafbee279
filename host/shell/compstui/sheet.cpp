#include "host/shell/compstui/sheet.h"

#include <algorithm>
#include <cstring>

#include "host/shell/compstui/page_template.h"

namespace compstui {
namespace {

constexpr DWORD kMaxPageRecord = 4096; // callers may append data of their own to a page record
constexpr int kMaxTitleUnits = 256;
constexpr WORD kBeforeInitialise = 5; // PROPSHEETUI_REASON_BEFORE_INIT, which not every header has

// Handles are looked up among the sheets of the calling thread, so a wrong one is refused.
thread_local std::vector<Sheet*> openSheets;

Node* FindBelow(Node& node, HANDLE handle)
{
    if (&node == handle)
        return &node;
    for (const std::unique_ptr<Node>& child : node.children) {
        if (Node* const found = FindBelow(*child, handle))
            return found;
    }
    return nullptr;
}

Node* FindNode(HANDLE handle)
{
    for (Sheet* const sheet : openSheets) {
        if (Node* const found = FindBelow(sheet->root, handle))
            return found;
    }
    return nullptr;
}

Text ResourceText(HINSTANCE module, LPCWSTR text)
{
    if (!IS_INTRESOURCE(text))
        return text;
    WCHAR buffer[kMaxTitleUnits];
    const auto id = static_cast<UINT>(reinterpret_cast<ULONG_PTR>(text));
    return Text(buffer, static_cast<size_t>(LoadStringW(module, id, buffer, kMaxTitleUnits)));
}

Node* Insert(Node& parent, size_t place, std::unique_ptr<Node> node)
{
    node->sheet = parent.sheet;
    node->parent = &parent;
    place = std::min(place, parent.children.size());
    return parent.children.insert(parent.children.begin() + static_cast<ptrdiff_t>(place), std::move(node))
        ->get();
}

void Remove(Node& node)
{
    std::vector<std::unique_ptr<Node>>& siblings = node.parent->children;
    siblings.erase(std::find_if(siblings.begin(), siblings.end(),
                                [&](const std::unique_ptr<Node>& each) { return each.get() == &node; }));
}

Node* AddPage(Node& parent, size_t place, const PROPSHEETPAGEW* source)
{
    if (source == nullptr || source->dwSize < PROPSHEETPAGEW_V1_SIZE || source->dwSize > kMaxPageRecord)
        return nullptr;
    auto page = std::make_unique<Node>();
    page->record.resize(std::max<size_t>(source->dwSize, sizeof(PROPSHEETPAGEW)));
    std::memcpy(page->record.data(), source, source->dwSize);
    const PageTemplate dialog = ReadPageTemplate(*source);
    if (dialog.bytes.empty())
        return nullptr;
    page->dialog = dialog.bytes;
    page->title =
        source->dwFlags & PSP_USETITLE ? ResourceText(source->hInstance, source->pszTitle) : dialog.title;
    return Insert(parent, place, std::move(page));
}

size_t IndexOf(const Node& child)
{
    const std::vector<std::unique_ptr<Node>>& siblings = child.parent->children;
    const auto at = std::find_if(siblings.begin(), siblings.end(),
                                 [&](const std::unique_ptr<Node>& each) { return each.get() == &child; });
    return static_cast<size_t>(at - siblings.begin());
}

/// Where an insertion goes.
struct Place
{
    Node* parent = nullptr; ///< null when the insertion names no place
    size_t index = 0;
};

Place PlaceOf(Node& group, HANDLE at, BYTE mode)
{
    if (mode == INSPSUIPAGE_MODE_INDEX)
        return {&group, LOWORD(reinterpret_cast<ULONG_PTR>(at))};
    if (at == HINSPSUIPAGE_FIRST)
        return {&group, 0};
    if (at == HINSPSUIPAGE_LAST)
        return {&group, group.children.size()};
    Node* const node = FindBelow(group, at);
    if (node == nullptr)
        return {};
    if (mode == INSPSUIPAGE_MODE_BEFORE || mode == INSPSUIPAGE_MODE_AFTER)
        return node == &group ? Place()
                              : Place{node->parent, IndexOf(*node) + (mode == INSPSUIPAGE_MODE_AFTER)};
    if (node->IsPage())
        return {};
    return {node, mode == INSPSUIPAGE_MODE_FIRST_CHILD ? 0 : node->children.size()};
}

// Services. Those that return a handle return 0 for a failure.

LONG_PTR AddPropertyPage(Node& group, LPARAM record, LPARAM)
{
    return reinterpret_cast<LONG_PTR>(
        AddPage(group, group.children.size(), reinterpret_cast<const PROPSHEETPAGEW*>(record)));
}

LONG_PTR AddSheetFunction(Node& group, LPARAM function, LPARAM param)
{
    return reinterpret_cast<LONG_PTR>(
        AddGroup(group, group.children.size(), reinterpret_cast<PFNPROPSHEETUI>(function), param));
}

LONG_PTR InsertPage(Node& group, LPARAM at, LPARAM record)
{
    const auto* const info = reinterpret_cast<const INSERTPSUIPAGE_INFO*>(record);
    if (info == nullptr || info->cbSize < sizeof(INSERTPSUIPAGE_INFO))
        return 0;
    const Place place = PlaceOf(group, reinterpret_cast<HANDLE>(at), info->Mode);
    if (place.parent == nullptr)
        return 0;
    Node* node = nullptr;
    if (info->Type == PSUIPAGEINSERT_PROPSHEETPAGE)
        node = AddPage(*place.parent, place.index, reinterpret_cast<const PROPSHEETPAGEW*>(info->dwData1));
    if (info->Type == PSUIPAGEINSERT_PFNPROPSHEETUI)
        node = AddGroup(*place.parent, place.index, reinterpret_cast<PFNPROPSHEETUI>(info->dwData1),
                        static_cast<LPARAM>(info->dwData2));
    return reinterpret_cast<LONG_PTR>(node);
}

LONG_PTR DeletePages(Node& group, LPARAM handle, LPARAM)
{
    Node* const node = FindBelow(group, reinterpret_cast<HANDLE>(handle));
    if (node == nullptr || node->parent == nullptr || node->sheet->window != nullptr)
        return 0;
    if (!node->IsPage())
        DestroyGroup(*node);
    Remove(*node);
    return 1;
}

LONG_PTR SetStartPage(Node& group, LPARAM handle, LPARAM)
{
    Node* const node = FindBelow(group, reinterpret_cast<HANDLE>(handle));
    if (node == nullptr || !node->IsPage())
        return 0;
    group.sheet->startPage = node;
    return 1;
}

LONG_PTR CountPages(Node& group, LPARAM, LPARAM)
{
    return static_cast<LONG_PTR>(PagesOf(group).size());
}

/// The result goes up from group to group for as long as their functions pass it on. Returns how many took
/// it.
LONG_PTR SetResult(Node& group, LPARAM handle, LPARAM result)
{
    Node* origin = FindBelow(group, reinterpret_cast<HANDLE>(handle));
    if (origin == nullptr)
        return ERR_CPSUI_INVALID_PDATA;
    LONG_PTR taken = 0;
    Node* taker = origin->IsPage() ? origin->parent : origin;
    for (; taker != nullptr; origin = taker, taker = taker->parent) {
        SETRESULT_INFO info = {sizeof(info), 0, origin, result};
        if (CallGroup(*taker, PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&info)) <= 0)
            break;
        result = static_cast<LRESULT>(taker->info.Result);
        ++taken;
    }
    return taken;
}

LONG_PTR ListPages(Node& group, LPARAM handles, LPARAM count)
{
    const std::vector<Node*> pages = PagesOf(group);
    const auto room = static_cast<size_t>(std::max<LPARAM>(count, 0));
    auto* const list = reinterpret_cast<HANDLE*>(handles);
    if (list != nullptr)
        std::copy_n(pages.begin(), std::min(room, pages.size()), list);
    return static_cast<LONG_PTR>(list != nullptr ? std::min(room, pages.size()) : pages.size());
}

LONG_PTR SetPageTitle(Node& group, LPARAM handle, LPARAM title)
{
    Node* const node = FindBelow(group, reinterpret_cast<HANDLE>(handle));
    if (node == nullptr || !node->IsPage() || title == 0 || node->sheet->window != nullptr)
        return 0;
    node->title = ResourceText(node->page().hInstance, reinterpret_cast<LPCWSTR>(title));
    return 1;
}

struct ServiceRow
{
    UINT function;
    LONG_PTR (*serve)(Node& group, LPARAM param1, LPARAM param2);
};

constexpr ServiceRow kServices[] = {
    {CPSFUNC_ADD_PROPSHEETPAGEW, AddPropertyPage}, {CPSFUNC_ADD_PFNPROPSHEETUIW, AddSheetFunction},
    {CPSFUNC_DELETE_HCOMPROPSHEET, DeletePages},   {CPSFUNC_SET_HSTARTPAGE, SetStartPage},
    {CPSFUNC_GET_PAGECOUNT, CountPages},           {CPSFUNC_SET_RESULT, SetResult},
    {CPSFUNC_GET_HPSUIPAGES, ListPages},           {CPSFUNC_INSERT_PSUIPAGEW, InsertPage},
    {CPSFUNC_SET_PSUIPAGE_TITLEW, SetPageTitle},
};

} // namespace

Sheet::Sheet()
{
    root.sheet = this;
    openSheets.push_back(this);
}

Sheet::~Sheet()
{
    openSheets.erase(std::find(openSheets.begin(), openSheets.end(), this));
    if (ownIcon)
        DestroyIcon(ownIcon);
}

LONG CallGroup(Node& group, WORD reason, LPARAM param)
{
    group.info.Reason = reason;
    return group.function(&group.info, param);
}

bool InitialiseGroup(Node& group, PFNPROPSHEETUI function, LPARAM param)
{
    group.function = function;
    group.info = {};
    group.info.cbSize = sizeof(group.info);
    group.info.Version = PROPSHEETUI_INFO_VERSION;
    group.info.Flags = PSUIINFO_UNICODE;
    group.info.hComPropSheet = &group;
    group.info.pfnComPropSheet = Service;
    group.info.lParamInit = param;
    // Only functions that want to change the process before their module is used care about this one.
    CallGroup(group, kBeforeInitialise, param);
    if (CallGroup(group, PROPSHEETUI_REASON_INIT, param) > 0)
        return true;
    for (const std::unique_ptr<Node>& child : group.children) {
        if (!child->IsPage())
            DestroyGroup(*child);
    }
    group.children.clear();
    return false;
}

Node* AddGroup(Node& parent, size_t place, PFNPROPSHEETUI function, LPARAM param)
{
    if (function == nullptr)
        return nullptr;
    auto group = std::make_unique<Node>();
    group->function = function;
    Node* const node = Insert(parent, place, std::move(group));
    if (InitialiseGroup(*node, function, param))
        return node;
    Remove(*node);
    return nullptr;
}

void DestroyGroup(Node& group)
{
    for (auto child = group.children.rbegin(); child != group.children.rend(); ++child) {
        if (!(*child)->IsPage())
            DestroyGroup(**child);
    }
    CallGroup(group, PROPSHEETUI_REASON_DESTROY, 0);
}

std::vector<Node*> PagesOf(Node& group)
{
    std::vector<Node*> pages;
    for (const std::unique_ptr<Node>& child : group.children) {
        if (child->IsPage()) {
            pages.push_back(child.get());
            continue;
        }
        const std::vector<Node*> below = PagesOf(*child);
        pages.insert(pages.end(), below.begin(), below.end());
    }
    return pages;
}

LONG_PTR CALLBACK Service(HANDLE comPropSheet, UINT function, LPARAM param1, LPARAM param2)
{
    Node* const group = FindNode(comPropSheet);
    if (group == nullptr || group->IsPage())
        return ERR_CPSUI_INVALID_PDATA;
    for (const ServiceRow& row : kServices) {
        if (row.function == function)
            return row.serve(*group, param1, param2);
    }
    return ERR_CPSUI_FUNCTION_NOT_IMPLEMENTED;
}

} // namespace compstui
