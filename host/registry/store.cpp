#include "host/registry/store.h"

#include <algorithm>
#include <chrono>
#include <cstring>

#include "host/kernel/world.h"
#include "host/registry/database.h"

namespace host::registry {
namespace {

std::string Folded(std::u16string_view name)
{
    std::u16string folded(name);
    for (char16_t& unit : folded)
        unit = UpperCase(unit);
    return Utf8(folded);
}

// Takes the first component off `path`, without the backslashes around it.
std::u16string_view TakeComponent(std::u16string_view* path)
{
    size_t start = std::min(path->find_first_not_of(u'\\'), path->size());
    path->remove_prefix(start);
    std::u16string_view component = path->substr(0, path->find(u'\\'));
    path->remove_prefix(component.size());
    return component;
}

// 1601-01-01 to 1970-01-01 in 100 ns.
constexpr int64_t kUnixEpoch = 116444736000000000;

int64_t Now()
{
    using Ticks = std::chrono::duration<int64_t, std::ratio<1, 10'000'000>>;
    auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return kUnixEpoch + std::chrono::duration_cast<Ticks>(sinceEpoch).count();
}

KeyId InsertKey(KeyId parent, std::u16string_view name, std::string_view path)
{
    std::string stored = Utf8(name);
    Statement insert("INSERT INTO registry_keys(parent, name, path, written) VALUES(?, ?, ?, ?) "
                     "RETURNING id");
    insert.Number(parent).Text(stored).Text(path).Number(Now());
    return insert.Step() ? insert.NumberAt(0) : 0;
}

bool Touch(KeyId key)
{
    return Statement("UPDATE registry_keys SET written = ? WHERE id = ?").Number(Now()).Number(key).Run();
}

Value CurrentValue(const Statement& row)
{
    return {Utf16(row.BytesAt(0)), static_cast<DWORD>(row.NumberAt(1)), std::string(row.BytesAt(2))};
}

// The bounds of the paths below `path`: a backslash follows it, and "]" is the next character.
struct Below
{
    std::string from;
    std::string to;

    explicit Below(std::string_view path) : from(path), to(path)
    {
        from += '\\';
        to += ']';
    }
};

} // namespace

std::optional<std::string> JoinPath(std::string_view base, std::u16string_view subKey)
{
    if (subKey.starts_with(u'\\'))
        return std::nullopt;
    std::string path(base);
    for (;;) {
        std::u16string_view name = TakeComponent(&subKey);
        if (name.empty())
            return path;
        if (name.size() > kKeyNameLimit)
            return std::nullopt;
        path += '\\';
        path += Folded(name);
    }
}

KeyId FindKey(std::string_view path)
{
    Statement find("SELECT id FROM registry_keys WHERE path = ?");
    return find.Text(path).Step() ? find.NumberAt(0) : 0;
}

bool KeyExists(KeyId key)
{
    return Statement("SELECT 1 FROM registry_keys WHERE id = ?").Number(key).Step();
}

std::u16string KeyName(KeyId key)
{
    Statement find("SELECT name FROM registry_keys WHERE id = ?");
    return find.Number(key).Step() ? Utf16(find.BytesAt(0)) : std::u16string();
}

KeyId CreateKey(std::string_view base, std::u16string_view subKey, bool* created)
{
    if (created)
        *created = false;
    Transaction transaction(Transaction::kWrite);
    std::string path(base);
    KeyId key = FindKey(path);
    while (key) {
        std::u16string_view name = TakeComponent(&subKey);
        if (name.empty())
            return transaction.Commit() ? key : 0;
        path += '\\';
        path += Folded(name);
        KeyId next = FindKey(path);
        if (!next && !Touch(key))
            return 0;
        if (!next && created)
            *created = true;
        key = next ? next : InsertKey(key, name, path);
    }
    return 0;
}

std::vector<std::u16string> SubKeyNames(KeyId key)
{
    std::vector<std::u16string> names;
    Statement list("SELECT name FROM registry_keys WHERE parent = ? ORDER BY path");
    list.Number(key);
    while (list.Step())
        names.push_back(Utf16(list.BytesAt(0)));
    return names;
}

std::optional<std::u16string> SubKeyName(KeyId key, DWORD index, int64_t* written)
{
    Statement pick("SELECT name, written FROM registry_keys WHERE parent = ? ORDER BY path LIMIT 1 OFFSET ?");
    if (!pick.Number(key).Number(index).Step())
        return std::nullopt;
    *written = pick.NumberAt(1);
    return Utf16(pick.BytesAt(0));
}

std::vector<Value> Values(KeyId key)
{
    std::vector<Value> values;
    Statement list("SELECT name, type, data FROM registry_values WHERE key = ? ORDER BY id");
    list.Number(key);
    while (list.Step())
        values.push_back(CurrentValue(list));
    return values;
}

std::optional<Value> ReadValue(KeyId key, std::u16string_view name)
{
    std::string folded = Folded(name);
    Statement find("SELECT name, type, data FROM registry_values WHERE key = ? AND folded = ?");
    if (!find.Number(key).Text(folded).Step())
        return std::nullopt;
    return CurrentValue(find);
}

std::optional<Value> ReadValueAt(KeyId key, DWORD index)
{
    Statement pick("SELECT name, type, data FROM registry_values WHERE key = ? ORDER BY id LIMIT 1 OFFSET ?");
    if (!pick.Number(key).Number(index).Step())
        return std::nullopt;
    return CurrentValue(pick);
}

LSTATUS WriteValue(KeyId key, std::u16string_view name, DWORD type, std::string_view data)
{
    Transaction transaction(Transaction::kWrite);
    if (!transaction)
        return DatabaseError();
    if (!KeyExists(key))
        return ERROR_KEY_DELETED;
    std::string stored = Utf8(name);
    std::string folded = Folded(name);
    Statement write("INSERT INTO registry_values(key, folded, name, type, data) VALUES(?, ?, ?, ?, ?) "
                    "ON CONFLICT DO UPDATE SET type = excluded.type, data = excluded.data");
    bool done = write.Number(key).Text(folded).Text(stored).Number(type).Blob(data).Run();
    return done && Touch(key) && transaction.Commit() ? ERROR_SUCCESS : DatabaseError();
}

LSTATUS DeleteValue(KeyId key, std::u16string_view name)
{
    Transaction transaction(Transaction::kWrite);
    if (!transaction)
        return DatabaseError();
    if (!KeyExists(key))
        return ERROR_KEY_DELETED;
    std::string folded = Folded(name);
    Statement remove("DELETE FROM registry_values WHERE key = ? AND folded = ? RETURNING id");
    if (!remove.Number(key).Text(folded).Step())
        return ERROR_FILE_NOT_FOUND;
    return remove.Run() && Touch(key) && transaction.Commit() ? ERROR_SUCCESS : DatabaseError();
}

LSTATUS DeleteTree(KeyId key, std::string_view path, bool keepKey)
{
    Transaction transaction(Transaction::kWrite);
    if (!transaction)
        return DatabaseError();
    if (!KeyExists(key))
        return ERROR_KEY_DELETED;
    Below below(path);
    bool done =
        Statement("DELETE FROM registry_values WHERE key IN "
                  "(SELECT id FROM registry_keys WHERE path = ? OR path > ? AND path < ?)")
            .Text(path)
            .Text(below.from)
            .Text(below.to)
            .Run() &&
        Statement("DELETE FROM registry_keys WHERE path > ? AND path < ?")
            .Text(below.from)
            .Text(below.to)
            .Run() &&
        (keepKey ? Touch(key) : Statement("DELETE FROM registry_keys WHERE id = ?").Number(key).Run());
    return done && transaction.Commit() ? ERROR_SUCCESS : DatabaseError();
}

int64_t LastWritten(KeyId key)
{
    Statement find("SELECT written FROM registry_keys WHERE id = ?");
    return find.Number(key).Step() ? find.NumberAt(0) : 0;
}

std::optional<std::u16string> AsText(const Value& value)
{
    if (value.type != REG_SZ && value.type != REG_EXPAND_SZ)
        return std::nullopt;
    std::u16string text(value.data.size() / sizeof(char16_t), u'\0');
    memcpy(text.data(), value.data.data(), text.size() * sizeof(char16_t));
    text.resize(std::min(text.find(u'\0'), text.size()));
    return text;
}

std::string TextBytes(std::u16string_view text)
{
    std::string bytes(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
    bytes.append(sizeof(char16_t), '\0');
    return bytes;
}

} // namespace host::registry
