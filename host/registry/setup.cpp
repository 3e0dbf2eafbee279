// The registry of a freshly installed system: what programs may rely on before anyone has written a value.
#include <sqlite3.h>

#include "host/kernel/world.h"
#include "host/registry/database.h"
#include "host/registry/store.h"

namespace host::registry {
namespace {

constexpr char kTables[] = R"(
    CREATE TABLE IF NOT EXISTS registry_keys(
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        parent INTEGER NOT NULL,
        name TEXT NOT NULL,
        path TEXT NOT NULL UNIQUE,
        written INTEGER NOT NULL);
    CREATE INDEX IF NOT EXISTS registry_children ON registry_keys(parent, path);
    CREATE TABLE IF NOT EXISTS registry_values(
        id INTEGER PRIMARY KEY,
        key INTEGER NOT NULL,
        folded TEXT NOT NULL,
        name TEXT NOT NULL,
        type INTEGER NOT NULL,
        data BLOB NOT NULL,
        UNIQUE(key, folded));
)";

struct InitialValue
{
    const char* root;
    const char16_t* key;
    const char16_t* name; ///< null: just the key
    const char16_t* text;
};

constexpr char16_t kInternational[] = u"Control Panel\\International";
constexpr char16_t kPrint[] = u"SYSTEM\\CurrentControlSet\\Control\\Print";
constexpr char16_t kPrinters[] = u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers";
constexpr char16_t kHtmlHelpControl[] = u"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";

// A machine of the United States with no printer; the HTML help control is part of every system.
constexpr InitialValue kInitialValues[] = {
    {kMachine, u"SOFTWARE\\Classes", nullptr, nullptr},
    {kMachine, u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths", nullptr, nullptr},
    {kMachine, u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", nullptr, nullptr},
    {kClasses, kHtmlHelpControl, u"", u"C:\\Windows\\System32\\hhctrl.ocx"},
    {kClasses, kHtmlHelpControl, u"ThreadingModel", u"Apartment"},
    {kMachine, kPrint, nullptr, nullptr},
    {kMachine, kPrinters, u"DefaultSpoolDirectory", u"C:\\windows\\system32\\spool\\PRINTERS"},
    {kUsers, u".DEFAULT", nullptr, nullptr},
    {kCurrentUser, u"Environment", nullptr, nullptr},
    {kCurrentUser, u"Printers", nullptr, nullptr},
    {kCurrentUser, u"Software\\Classes", nullptr, nullptr},
    {kCurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion", nullptr, nullptr},
    {kCurrentUser, u"Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows", nullptr, nullptr},
    {kCurrentUser, kInternational, u"iCountry", u"1"},
    {kCurrentUser, kInternational, u"sCountry", u"United States"},
    {kCurrentUser, kInternational, u"iMeasure", u"1"},
    {kCurrentUser, kInternational, u"iPaperSize", u"1"},
    {kCurrentUser, kInternational, u"Locale", u"00000409"},
    {kCurrentUser, kInternational, u"LocaleName", u"en-US"},
    {kCurrentUser, kInternational, u"sLanguage", u"ENU"},
    {kCurrentUser, kInternational, u"sDecimal", u"."},
    {kCurrentUser, kInternational, u"sThousand", u","},
    {kCurrentUser, kInternational, u"sList", u","},
    {kCurrentUser, kInternational, u"sDate", u"/"},
    {kCurrentUser, kInternational, u"sTime", u":"},
    {kCurrentUser, kInternational, u"sShortDate", u"M/d/yyyy"},
};

bool IsNew()
{
    return FindKey(kMachine) == 0;
}

bool InsertRoots()
{
    Statement insert("INSERT INTO registry_keys(parent, name, path, written) "
                     "VALUES(0, 'MACHINE', 'MACHINE', 0), (0, 'USER', 'USER', 0)");
    return insert.Run() && CreateKey(kUsers, u"S-1-5-21-0-0-0-1000") &&
           CreateKey(kMachine, u"SOFTWARE\\Classes");
}

bool Install(const InitialValue& initial)
{
    KeyId key = CreateKey(initial.root, initial.key);
    return key &&
           (!initial.name || WriteValue(key, initial.name, REG_SZ, TextBytes(initial.text)) == ERROR_SUCCESS);
}

bool InstallInitialValues()
{
    if (!InsertRoots())
        return false;
    for (const InitialValue& initial : kInitialValues) {
        if (!Install(initial))
            return false;
    }
    return true;
}

} // namespace

bool OpenStore(std::string* error)
{
    // Two processes may open a new root at once: the first one installs, the other waits and finds it done.
    Transaction transaction(Transaction::kWrite);
    bool ready = transaction && sqlite3_exec(Database(), kTables, nullptr, nullptr, nullptr) == SQLITE_OK &&
                 (!IsNew() || InstallInitialValues()) && transaction.Commit();
    if (!ready && error)
        *error = std::string("The registry cannot be prepared: ") + sqlite3_errmsg(Database()) + ".";
    return ready;
}

} // namespace host::registry
