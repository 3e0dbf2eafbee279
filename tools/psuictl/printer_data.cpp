// Printer data: the named values that are stored with a printer.
#include <algorithm>
#include <cstring>

#include "tools/psuictl/files.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/printer_commands.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

/// Bytes of a value that a list shows.
constexpr size_t kListedBytes = 16;

constexpr struct
{
    DWORD type;
    const char* name;
} kTypes[] = {
    {REG_NONE, "REG_NONE"},     {REG_SZ, "REG_SZ"},       {REG_EXPAND_SZ, "REG_EXPAND_SZ"},
    {REG_BINARY, "REG_BINARY"}, {REG_DWORD, "REG_DWORD"}, {REG_MULTI_SZ, "REG_MULTI_SZ"},
    {REG_QWORD, "REG_QWORD"},
};

struct DataValue
{
    DWORD type = REG_NONE;
    Bytes bytes;
};

struct NamedValue
{
    WideString name;
    DataValue value;
};

[[noreturn]] void ThrowDataError(const std::string& what, DWORD error, const std::string& advice)
{
    throw Failure(what + ": " + ErrorWords(error) + "; " + advice);
}

std::string TypeName(DWORD type)
{
    const auto* row = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [=](const auto& entry) { return entry.type == type; });
    return row == std::end(kTypes) ? "type " + std::to_string(type) : row->name;
}

bool IsNumber(const DataValue& value)
{
    return value.type == REG_DWORD && value.bytes.size() == sizeof(DWORD);
}

DWORD NumberOf(const DataValue& value)
{
    DWORD number;
    std::memcpy(&number, value.bytes.data(), sizeof number);
    return number;
}

bool IsText(const DataValue& value)
{
    return (value.type == REG_SZ || value.type == REG_EXPAND_SZ) && value.bytes.size() % sizeof(WCHAR) == 0;
}

std::string TextOf(const DataValue& value)
{
    WideString text(value.bytes.size() / sizeof(WCHAR), 0);
    std::memcpy(text.data(), value.bytes.data(), value.bytes.size());
    return FieldText(text);
}

std::string HexOf(const DataValue& value, size_t most)
{
    const size_t shown = std::min(most, value.bytes.size());
    return HexBytes({reinterpret_cast<const char*>(value.bytes.data()), shown}) +
           (shown < value.bytes.size() ? "..." : "");
}

std::string Shown(const DataValue& value, size_t mostBytes)
{
    if (IsNumber(value))
        return std::to_string(NumberOf(value));
    return IsText(value) ? "\"" + ReadableLine(TextOf(value)) + "\"" : HexOf(value, mostBytes);
}

Json JsonOf(const DataValue& value)
{
    Json shown;
    if (IsNumber(value))
        shown = NumberOf(value);
    else
        shown = IsText(value) ? TextOf(value) : HexOf(value, value.bytes.size());
    return {{"type", TypeName(value.type)}, {"size", value.bytes.size()}, {"value", shown}};
}

std::vector<NamedValue> ListValues(HANDLE printer)
{
    DWORD nameBytes = 0, dataBytes = 0;
    EnumPrinterDataW(printer, 0, nullptr, 0, &nameBytes, nullptr, nullptr, 0, &dataBytes);
    WideString name(nameBytes / sizeof(WCHAR) + 1, 0);
    Bytes data(dataBytes + 1);
    std::vector<NamedValue> values;
    for (DWORD index = 0;; ++index) {
        DWORD type = REG_NONE;
        const DWORD error =
            EnumPrinterDataW(printer, index, name.data(), static_cast<DWORD>(name.size() * sizeof(WCHAR)),
                             &nameBytes, &type, data.data(), static_cast<DWORD>(data.size()), &dataBytes);
        if (error == ERROR_NO_MORE_ITEMS)
            return values;
        if (error != ERROR_SUCCESS)
            ThrowDataError("the printer's data cannot be listed", error, "try again");
        values.push_back({name.c_str(), {type, Bytes(data.begin(), data.begin() + dataBytes)}});
    }
}

DataValue ReadValue(HANDLE printer, const WideString& name)
{
    DataValue value;
    DWORD size = 0;
    DWORD error = GetPrinterDataW(printer, SpoolerText(name), &value.type, nullptr, 0, &size);
    if (error == ERROR_MORE_DATA) {
        value.bytes.resize(size);
        error = GetPrinterDataW(printer, SpoolerText(name), &value.type, value.bytes.data(), size, &size);
    }
    const char advice[] = "'psuictl printer data' with the printer's name alone lists the values";
    if (error == ERROR_FILE_NOT_FOUND)
        throw Failure("the printer has no value '" + Utf8(name) + "'; " + advice);
    if (error != ERROR_SUCCESS)
        ThrowDataError("value '" + Utf8(name) + "' cannot be read", error, advice);
    value.bytes.resize(std::min<size_t>(size, value.bytes.size()));
    return value;
}

std::optional<DataValue> ParseNumberValue(const std::string& text)
{
    const std::optional<int64_t> number = ParseNumber(text);
    if (!number || *number < 0 || *number > UINT32_MAX)
        return std::nullopt;
    const DWORD value = static_cast<DWORD>(*number);
    DataValue parsed{REG_DWORD, Bytes(sizeof value)};
    std::memcpy(parsed.bytes.data(), &value, sizeof value);
    return parsed;
}

std::optional<DataValue> ParseBytesValue(const std::string& text)
{
    const std::optional<std::string> bytes = ParseHexBytes(text);
    if (!bytes)
        return std::nullopt;
    return DataValue{REG_BINARY, Bytes(bytes->begin(), bytes->end())};
}

std::optional<DataValue> ParseTextValue(const std::string& text)
{
    const WideString wide = Wide(text);
    DataValue parsed{REG_SZ, Bytes((wide.size() + 1) * sizeof(WCHAR))};
    std::memcpy(parsed.bytes.data(), wide.c_str(), parsed.bytes.size());
    return parsed;
}

constexpr struct
{
    const char* type;
    std::optional<DataValue> (*parse)(const std::string& text);
} kParsers[] = {
    {"number", ParseNumberValue},
    {"bytes", ParseBytesValue},
    {"text", ParseTextValue},
};

/// Without a type the first one that fits; an empty text is a text.
DataValue ParseValue(const std::string& text, const std::string& type)
{
    for (const auto& parser : kParsers) {
        const bool wanted =
            type.empty() ? !text.empty() || parser.parse == ParseTextValue : type == parser.type;
        const std::optional<DataValue> value = wanted ? parser.parse(text) : std::nullopt;
        if (value)
            return *value;
    }
    throw Failure("'" + text + "' is no value of type " + type +
                      "; give a number from 0 to 4294967295, pairs of hex digits, or a text",
                  kWrongUsage);
}

void ShowList(const Session& session, const std::vector<NamedValue>& values)
{
    Json json = Json::object();
    Table table({"VALUE", "TYPE", "BYTES", "DATA"});
    for (const NamedValue& row : values) {
        json[Utf8(row.name)] = JsonOf(row.value);
        table.Add({Utf8(row.name), TypeName(row.value.type), std::to_string(row.value.bytes.size()),
                   Shown(row.value, kListedBytes)});
    }
    if (session.json)
        PrintJson(session.out, json);
    else if (!table.empty())
        table.Print(session.out);
}

void ShowOne(const Session& session, const DataValue& value)
{
    if (session.json)
        PrintJson(session.out, JsonOf(value));
    else
        session.out << TypeName(value.type) << ' ' << Shown(value, value.bytes.size()) << '\n';
}

void SetOne(const WideString& printer, const WideString& name, DataValue value)
{
    const PrinterHandle handle = OpenPrinter(printer, PRINTER_ALL_ACCESS);
    const DWORD error = SetPrinterDataW(handle.get(), SpoolerText(name), value.type, value.bytes.data(),
                                        static_cast<DWORD>(value.bytes.size()));
    if (error != ERROR_SUCCESS)
        ThrowDataError("value '" + Utf8(name) + "' cannot be stored", error, "check its name");
}

} // namespace

ExitCode RunPrinterData(const Session& session, const Arguments& arguments)
{
    const WideString printer = Wide(arguments.Text("NAME"));
    const WideString name = Wide(arguments.Text("VALUE"));
    if (arguments.Has("DATA"))
        SetOne(printer, name, ParseValue(arguments.Text("DATA"), arguments.Text("type")));
    const PrinterHandle handle = OpenPrinter(printer);
    if (arguments.Has("VALUE"))
        ShowOne(session, ReadValue(handle.get(), name));
    else
        ShowList(session, ListValues(handle.get()));
    return kDone;
}

} // namespace psuictl
