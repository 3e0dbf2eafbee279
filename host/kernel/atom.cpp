// Global atoms: names with numbers, counted by how often they were added. Numbers below MAXINTATOM are atoms
// of their own; their names are "#" and the number.
#include "host/kernel/atom.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <sqlite3.h>

#include <windows.h>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"
#include "host/registry/database.h"

namespace host {
namespace {

constexpr size_t kLongestName = 255;

constexpr char kTable[] = R"(
    CREATE TABLE IF NOT EXISTS atoms(
        id INTEGER PRIMARY KEY CHECK(id <= 0xFFFF),
        folded TEXT NOT NULL UNIQUE,
        name TEXT NOT NULL,
        uses INTEGER NOT NULL);
)";

// A new name takes the lowest number that is free. 0xC000 is among the candidates for when there is no atom
// yet.
constexpr char kAddUse[] =
    "INSERT INTO atoms(id, folded, name, uses) VALUES("
    "(SELECT MIN(free) FROM (SELECT 0xC000 AS free UNION ALL SELECT id + 1 FROM atoms) "
    "WHERE free NOT IN (SELECT id FROM atoms)), ?, ?, 1) "
    "ON CONFLICT(folded) DO UPDATE SET uses = uses + 1 RETURNING id";

/// What a caller's name means: the number of an integer atom (0: none that there can be), or a name to look
/// up.
struct AtomName
{
    std::optional<unsigned> number;
    std::u16string text;
    DWORD error = ERROR_SUCCESS;
};

/// The number of a name of the form "#123", if it has that form.
std::optional<unsigned> NumberIn(std::u16string_view text)
{
    if (text.size() < 2 || text.front() != u'#')
        return std::nullopt;
    unsigned number = 0;
    for (const char16_t unit : text.substr(1)) {
        if (unit < u'0' || unit > u'9')
            return std::nullopt;
        number = std::min(number * 10 + (unit - u'0'), static_cast<unsigned>(MAXINTATOM));
    }
    return number;
}

AtomName Parse(LPCWSTR name)
{
    AtomName atom;
    if (IS_INTRESOURCE(name)) {
        atom.number = static_cast<unsigned>(reinterpret_cast<uintptr_t>(name));
    } else {
        atom.text = name;
        atom.number = NumberIn(atom.text);
    }
    if (atom.number && (*atom.number == 0 || *atom.number >= MAXINTATOM))
        atom.error = ERROR_INVALID_PARAMETER;
    else if (!atom.number && atom.text.empty())
        atom.error = ERROR_INVALID_NAME;
    else if (!atom.number && atom.text.size() > kLongestName)
        atom.error = ERROR_INVALID_PARAMETER;
    return atom;
}

std::string Folded(std::u16string text)
{
    std::transform(text.begin(), text.end(), text.begin(), UpperCase);
    return Utf8(text);
}

/// Counts one more use of a name. Returns its number, or 0.
int64_t Add(const std::u16string& text)
{
    const std::string folded = Folded(text);
    const std::string name = Utf8(text);
    std::lock_guard lock(DatabaseLock());
    Statement add(kAddUse);
    const int64_t id = add.Text(folded).Text(name).Step() ? add.NumberAt(0) : 0;
    return add.Run() ? id : 0;
}

/// Takes one use back. Returns 0 or the error code.
DWORD Release(ATOM atom)
{
    std::lock_guard lock(DatabaseLock());
    Transaction transaction(Transaction::kWrite);
    Statement count("UPDATE atoms SET uses = uses - 1 WHERE id = ? RETURNING uses");
    if (!transaction)
        return DatabaseError();
    if (!count.Number(atom).Step())
        return ERROR_INVALID_HANDLE;
    const bool done = count.Run() && Statement("DELETE FROM atoms WHERE uses <= 0").Run();
    return done && transaction.Commit() ? static_cast<DWORD>(ERROR_SUCCESS) : DatabaseError();
}

/// Empty when there is no such atom.
std::u16string NameOf(ATOM atom)
{
    if (atom < MAXINTATOM)
        return atom != 0 ? u"#" + Utf16(std::to_string(atom)) : std::u16string();
    std::lock_guard lock(DatabaseLock());
    Statement find("SELECT name FROM atoms WHERE id = ?");
    return find.Number(atom).Step() ? Utf16(find.BytesAt(0)) : std::u16string();
}

ATOM FailAtom(DWORD error)
{
    SetLastError(error);
    return 0;
}

} // namespace

bool OpenAtoms(std::string* error)
{
    std::lock_guard lock(DatabaseLock());
    if (sqlite3_exec(Database(), kTable, nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    if (error != nullptr)
        *error = std::string("The atom table cannot be made: ") + sqlite3_errmsg(Database()) + ".";
    return false;
}

} // namespace host

using namespace host;

ATOM WINAPI GlobalAddAtomW(LPCWSTR name)
{
    HOST_CALL(GlobalAddAtomW, 0, ERROR_NOT_ENOUGH_MEMORY);
    const AtomName atom = Parse(name);
    if (atom.error != ERROR_SUCCESS)
        return FailAtom(atom.error);
    if (atom.number)
        return static_cast<ATOM>(*atom.number);
    const int64_t id = Add(atom.text);
    return id != 0 ? static_cast<ATOM>(id) : FailAtom(ERROR_NOT_ENOUGH_MEMORY);
}

ATOM WINAPI GlobalFindAtomW(LPCWSTR name)
{
    HOST_CALL(GlobalFindAtomW, 0, ERROR_FILE_NOT_FOUND);
    const AtomName atom = Parse(name);
    if (atom.error != ERROR_SUCCESS)
        return FailAtom(atom.error);
    if (atom.number)
        return static_cast<ATOM>(*atom.number);
    const std::string folded = Folded(atom.text);
    std::lock_guard lock(DatabaseLock());
    Statement find("SELECT id FROM atoms WHERE folded = ?");
    const int64_t id = find.Text(folded).Step() ? find.NumberAt(0) : 0;
    return id != 0 ? static_cast<ATOM>(id) : FailAtom(ERROR_FILE_NOT_FOUND);
}

ATOM WINAPI GlobalDeleteAtom(ATOM atom)
{
    HOST_CALL_VOID(GlobalDeleteAtom);
    const DWORD error = atom < MAXINTATOM ? static_cast<DWORD>(ERROR_SUCCESS) : Release(atom);
    // The result is 0 even then; only the last-error code tells.
    return error == ERROR_SUCCESS ? 0 : FailAtom(error);
}

UINT WINAPI GlobalGetAtomNameW(ATOM atom, LPWSTR buffer, int size)
{
    HOST_CALL(GlobalGetAtomNameW, 0, ERROR_INVALID_HANDLE);
    if (buffer == nullptr || size <= 0)
        return static_cast<UINT>(FailWith(ERROR_MORE_DATA));
    const std::u16string name = NameOf(atom);
    if (name.empty())
        return static_cast<UINT>(FailWith(atom == 0 ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE));
    const size_t count = std::min(name.size(), static_cast<size_t>(size) - 1);
    std::copy_n(name.begin(), count, buffer);
    buffer[count] = 0;
    if (count < name.size())
        SetLastError(ERROR_MORE_DATA);
    return static_cast<UINT>(count);
}
