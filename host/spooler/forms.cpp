// Forms: the platform's own come from a table, the others are values of the forms key. Any handle may add
// and delete them, because they belong to the machine and not to the printer.
#include "host/spooler/forms.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "host/kernel/call.h"
#include "host/registry/database.h"
#include "host/spooler/answer.h"
#include "host/spooler/spooler.h"

namespace host::spooler {
namespace {

struct Form
{
    std::u16string name;
    SIZEL size = {};
    RECTL area = {};
    DWORD flags = FORM_USER;
};

// A form's value in the forms key; part of the data base's format.
struct StoredForm
{
    LONG width;
    LONG height;
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
    DWORD flags;
};
static_assert(sizeof(StoredForm) == 28);

// A settings record names its form in CCHFORMNAME units, closing zero included.
constexpr size_t kFormNameLimit = CCHFORMNAME - 1;

Form FromBuiltin(const BuiltinForm& form)
{
    return {form.name, {form.width, form.height}, {0, 0, form.width, form.height}, FORM_BUILTIN};
}

std::optional<Form> FromValue(const registry::Value& value)
{
    StoredForm stored;
    if (value.type != REG_BINARY || value.data.size() != sizeof stored)
        return std::nullopt;
    memcpy(&stored, value.data.data(), sizeof stored);
    return Form{value.name,
                {stored.width, stored.height},
                {stored.left, stored.top, stored.right, stored.bottom},
                stored.flags};
}

std::string Bytes(const FORM_INFO_1W& info)
{
    StoredForm stored = {info.Size.cx,
                         info.Size.cy,
                         info.ImageableArea.left,
                         info.ImageableArea.top,
                         info.ImageableArea.right,
                         info.ImageableArea.bottom,
                         info.Flags};
    return {reinterpret_cast<const char*>(&stored), sizeof stored};
}

const BuiltinForm* FindBuiltin(std::u16string_view name)
{
    auto forms = BuiltinForms();
    auto found = std::ranges::find_if(forms, [&](const BuiltinForm& f) { return EqualNoCase(f.name, name); });
    return found == forms.end() ? nullptr : &*found;
}

std::optional<Form> FindForm(std::u16string_view name)
{
    if (const BuiltinForm* builtin = FindBuiltin(name))
        return FromBuiltin(*builtin);
    auto value = registry::ReadValue(registry::FindKey(kFormsPath), name);
    return value ? FromValue(*value) : std::nullopt;
}

std::vector<Form> AllForms()
{
    std::vector<Form> forms;
    for (const BuiltinForm& builtin : BuiltinForms())
        forms.push_back(FromBuiltin(builtin));
    Transaction transaction(Transaction::kRead);
    for (const registry::Value& value : registry::Values(registry::FindKey(kFormsPath))) {
        if (auto form = FromValue(value))
            forms.push_back(std::move(*form));
    }
    return forms;
}

bool IsSound(const SIZEL& size, const RECTL& area)
{
    return size.cx > 0 && size.cy > 0 && area.left >= 0 && area.top >= 0 && area.left < area.right &&
           area.top < area.bottom && area.right <= size.cx && area.bottom <= size.cy;
}

DWORD CheckForm(const FORM_INFO_1W& info)
{
    std::u16string_view name = View(info.pName);
    if (name.empty() || name.size() > kFormNameLimit)
        return ERROR_INVALID_FORM_NAME;
    if (info.Flags != FORM_USER && info.Flags != FORM_PRINTER)
        return ERROR_INVALID_PARAMETER;
    return IsSound(info.Size, info.ImageableArea) ? ERROR_SUCCESS : ERROR_INVALID_FORM_SIZE;
}

DWORD AddNewForm(const FORM_INFO_1W& info)
{
    if (DWORD error = CheckForm(info))
        return error;
    Transaction transaction(Transaction::kWrite);
    if (FindForm(info.pName))
        return ERROR_FILE_EXISTS;
    if (LSTATUS error =
            registry::WriteValue(registry::FindKey(kFormsPath), info.pName, REG_BINARY, Bytes(info)))
        return error;
    return transaction.Commit() ? ERROR_SUCCESS : DatabaseError();
}

DWORD RemoveForm(std::u16string_view name)
{
    if (FindBuiltin(name))
        return ERROR_INVALID_PARAMETER;
    DWORD error = registry::DeleteValue(registry::FindKey(kFormsPath), name);
    return error == ERROR_FILE_NOT_FOUND ? ERROR_INVALID_FORM_NAME : error;
}

void PackForm(Packer& packer, const Form& form)
{
    packer.Add(FORM_INFO_1W{form.flags, packer.Text(form.name), form.size, form.area});
}

DWORD ReadAll(const Request& request, LPDWORD count)
{
    std::vector<Form> forms = AllForms();
    DWORD error = request.Answer([&](Packer& packer) {
        for (const Form& form : forms)
            PackForm(packer, form);
    });
    *count = error ? 0 : static_cast<DWORD>(forms.size());
    return error;
}

DWORD ReadOne(std::u16string_view name, const Request& request)
{
    auto form = FindForm(name);
    if (!form)
        return ERROR_INVALID_FORM_NAME;
    return request.Answer([&](Packer& packer) { PackForm(packer, *form); });
}

} // namespace
} // namespace host::spooler

using namespace host;
using namespace host::spooler;

BOOL WINAPI EnumFormsW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD count)
{
    HOST_CALL(EnumFormsW, FALSE, ERROR_ACCESS_DENIED);
    HOST_READ(FALSE, ERROR_ACCESS_DENIED, &size, needed, nullptr);
    Request request = {buffer, size, needed};
    if (level != 1)
        return Report(ERROR_INVALID_LEVEL);
    if (DWORD error = request.Check())
        return Report(error);
    if (!count)
        return Report(RPC_X_NULL_REF_POINTER);
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    DWORD error = UseHandle(printer, Target::kAny, 0, &open);
    return Report(error ? error : ReadAll(request, count));
}

BOOL WINAPI AddFormW(HANDLE printer, DWORD level, LPBYTE info)
{
    HOST_CALL(AddFormW, FALSE, ERROR_ACCESS_DENIED);
    if (level != 1)
        return Report(ERROR_INVALID_LEVEL);
    if (!info)
        return Report(ERROR_INVALID_PARAMETER);
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    DWORD error = UseHandle(printer, Target::kAny, 0, &open);
    return Report(error ? error : AddNewForm(*reinterpret_cast<const FORM_INFO_1W*>(info)));
}

BOOL WINAPI GetFormW(HANDLE printer, LPWSTR name, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed)
{
    HOST_CALL(GetFormW, FALSE, ERROR_ACCESS_DENIED);
    HOST_READ(FALSE, ERROR_ACCESS_DENIED, &size, needed, nullptr);
    Request request = {buffer, size, needed};
    if (level != 1)
        return Report(ERROR_INVALID_LEVEL);
    if (DWORD error = request.Check())
        return Report(error);
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    DWORD error = UseHandle(printer, Target::kAny, 0, &open);
    return Report(error ? error : ReadOne(View(name), request));
}

BOOL WINAPI DeleteFormW(HANDLE printer, LPWSTR name)
{
    HOST_CALL(DeleteFormW, FALSE, ERROR_ACCESS_DENIED);
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    DWORD error = UseHandle(printer, Target::kAny, 0, &open);
    return Report(error ? error : RemoveForm(View(name)));
}
