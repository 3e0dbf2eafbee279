#include <algorithm>
#include <cstring>

#include "tools/psuictl/record_commands.h"
#include "tools/psuictl/record_value.h"
#include "tools/psuictl/record_words.h"

namespace psuictl {
namespace {

constexpr Parameter kShowParameters[] = {
    {"FILE", nullptr, "a settings record (- is standard input)", ParameterKind::Text, true},
};
constexpr Parameter kDiffParameters[] = {
    {"A", nullptr, "a settings record", ParameterKind::Text, true},
    {"B", nullptr, "another settings record", ParameterKind::Text, true},
};
constexpr Parameter kSetParameters[] = {
    {"FILE", nullptr, "the settings record to start from (- is standard input)", ParameterKind::Text, true},
    {"FIELD=VALUE", nullptr,
     "a field and its new value: a number, a word that 'record show' prints, a text, or hex bytes; "
     "@OFFSET=HEX sets bytes, @OFFSET/WIDTH=NUMBER a number of 1, 2 or 4 bytes",
     ParameterKind::Text, true, true},
    {"-o,--output", "OUT", "where the changed record goes (- is standard output)", ParameterKind::Text, true},
};
constexpr Parameter kDefaultParameters[] = {
    {"NAME", nullptr, "the printer", ParameterKind::Text, true},
    {"-o,--output", "OUT", "where the record goes (- is standard output)", ParameterKind::Text, true},
};
constexpr Parameter kMergeParameters[] = {
    {"NAME", nullptr, "the printer", ParameterKind::Text, true},
    {"IN", nullptr, "the application's record (- is standard input; none: the printer's own settings)"},
    {"-o,--output", "OUT", "where the merged record goes (- is standard output)", ParameterKind::Text, true},
};

const char kPlaceHelp[] = "'psuictl record show --json' lists the fields of a record";

bool IsReservedZero(const RecordField& field, const uint8_t* bytes)
{
    return field.kind == psui::FieldKind::Bytes && field.name.starts_with("reserved") &&
           std::all_of(bytes, bytes + field.width, [](uint8_t byte) { return byte == 0; });
}

/// Whether the field's bytes mean what its name says: a foreign private part is not ours to read.
std::optional<size_t> ReadablePlace(const RecordLayout& layout, const RecordField& field)
{
    const bool isPrivate = field.offset >= psui::kPublicSize;
    return isPrivate && !layout.ownPrivate() ? std::nullopt : layout.Place(field);
}

void ShowAsText(const Session& session, const Bytes& record, const RecordLayout& layout)
{
    std::ostream& out = session.out;
    const RecordNames names(session.language);
    out << Counted(record.size(), "byte")
        << (layout.notes().empty() ? ", a whole record of this driver\n" : "\n");
    for (const std::string& note : layout.notes())
        out << "note: " << note << '\n';
    Table table({"OFFSET", "FIELD", "VALUE"});
    for (const RecordField& field : RecordFields()) {
        const std::optional<size_t> place = ReadablePlace(layout, field);
        if (place && !IsReservedZero(field, record.data() + *place))
            table.Add({std::to_string(*place), field.name, names.Show(field, record.data() + *place)});
    }
    if (!table.empty())
        table.Print(out);
}

void ShowAsJson(const Session& session, const Bytes& record, const RecordLayout& layout)
{
    for (const std::string& note : layout.notes())
        session.complaints << "psuictl: note: " << note << '\n';
    Json fields = Json::object();
    for (const RecordField& field : RecordFields()) {
        if (const std::optional<size_t> place = ReadablePlace(layout, field))
            fields[field.name] = JsonValue(field, record.data() + *place);
    }
    PrintJson(session.out, fields);
}

ExitCode RunShow(const Session& session, const Arguments& arguments)
{
    const Bytes record = LoadFile(arguments.Text("FILE"));
    const RecordLayout layout(record);
    if (session.json)
        ShowAsJson(session, record, layout);
    else
        ShowAsText(session, record, layout);
    return kDone;
}

struct Side
{
    Bytes record;
    RecordLayout layout;

    explicit Side(const std::string& file) : record(LoadFile(file)), layout(record) {}

    const uint8_t* Find(const RecordField& field) const
    {
        const std::optional<size_t> place = ReadablePlace(layout, field);
        return place ? record.data() + *place : nullptr;
    }
};

struct Difference
{
    std::string name;
    Json json[2]; ///< null on the side that has no such field
    std::string text[2];
};

/// The field as it differs: by value, or by bytes when the values look alike (what follows a text's end).
Difference Describe(const RecordNames& names, const RecordField& field, const uint8_t* const (&bytes)[2])
{
    const bool alike = bytes[0] && bytes[1] && JsonValue(field, bytes[0]) == JsonValue(field, bytes[1]);
    Difference difference{.name = field.name, .json = {}, .text = {"(none)", "(none)"}};
    for (int i = 0; i < 2; ++i) {
        if (!bytes[i])
            continue;
        const std::string hex = HexBytes({reinterpret_cast<const char*>(bytes[i]), field.width});
        difference.json[i] = alike ? Json(hex) : JsonValue(field, bytes[i]);
        difference.text[i] = alike ? hex : names.Show(field, bytes[i]);
    }
    return difference;
}

/// What differs outside every field: a foreign private part, bytes after the record.
Difference DescribeRest(const Side& a, const Side& b)
{
    const size_t common = std::min(a.record.size(), b.record.size());
    size_t offset = 0;
    while (offset < common && a.record[offset] == b.record[offset])
        ++offset;
    Difference difference{.name = "@" + std::to_string(offset), .json = {}, .text = {}};
    const Bytes* records[] = {&a.record, &b.record};
    for (int i = 0; i < 2; ++i) {
        const Bytes& record = *records[i];
        const bool inside = offset < record.size();
        difference.text[i] = inside ? Hex(record[offset], 2) : "(none)";
        difference.json[i] =
            inside ? Json(HexBytes({reinterpret_cast<const char*>(&record[offset]), 1})) : Json(nullptr);
    }
    return difference;
}

std::vector<Difference> Compare(const RecordNames& names, const Side& a, const Side& b)
{
    std::vector<Difference> differences;
    for (const RecordField& field : RecordFields()) {
        const uint8_t* const bytes[2] = {a.Find(field), b.Find(field)};
        const bool same =
            bytes[0] && bytes[1] ? std::memcmp(bytes[0], bytes[1], field.width) == 0 : bytes[0] == bytes[1];
        if (!same)
            differences.push_back(Describe(names, field, bytes));
    }
    if (differences.empty() && a.record != b.record)
        differences.push_back(DescribeRest(a, b));
    return differences;
}

/// As compare programs do: unreadable files are trouble of another kind than a difference.
Side LoadSide(const std::string& file)
{
    try {
        return Side(file);
    } catch (const Failure& failure) {
        throw Failure(failure.what(), kWrongUsage);
    }
}

ExitCode RunDiff(const Session& session, const Arguments& arguments)
{
    const std::string a = arguments.Text("A"), b = arguments.Text("B");
    const std::vector<Difference> differences =
        Compare(RecordNames(session.language), LoadSide(a), LoadSide(b));
    Json json = Json::object();
    Table table({"FIELD", a, b});
    for (const Difference& difference : differences) {
        json[difference.name] = {{"a", difference.json[0]}, {"b", difference.json[1]}};
        table.Add({difference.name, difference.text[0], difference.text[1]});
    }
    if (session.json)
        PrintJson(session.out, json);
    else if (!table.empty())
        table.Print(session.out);
    return differences.empty() ? kDone : kFailed;
}

/// A field for a place given as "@OFFSET=HEX" or "@OFFSET/WIDTH=NUMBER"; the value decides how many bytes.
RecordField FieldAt(const std::string& place, const std::string& value)
{
    const size_t slash = place.find('/');
    const std::optional<int64_t> offset = ParseNumber(std::string_view(place).substr(1, slash - 1));
    const std::optional<int64_t> width =
        slash == std::string::npos
            ? std::optional<int64_t>(static_cast<int64_t>(ParseHexBytes(value).value_or("").size()))
            : ParseNumber(std::string_view(place).substr(slash + 1));
    const bool isNumber = slash != std::string::npos;
    const bool fits = offset && *offset >= 0 && *offset <= UINT16_MAX && width && *width > 0 &&
                      *width <= psui::kRecordSize && (!isNumber || *width == 1 || *width == 2 || *width == 4);
    if (!fits)
        throw Failure("'" + place + "=" + value +
                          "' is no place and value; write @OFFSET=HEX, or @OFFSET/WIDTH=NUMBER with a width "
                          "of 1, 2 or 4",
                      kWrongUsage);
    using psui::FieldKind;
    const FieldKind number = *width == 1 ? FieldKind::U8 : *width == 2 ? FieldKind::U16 : FieldKind::U32;
    return {place,
            static_cast<uint16_t>(*offset),
            static_cast<uint16_t>(*width),
            isNumber ? number : FieldKind::Bytes,
            psui::FieldStyle::Decimal,
            false,
            {}};
}

void Assign(Bytes& record, const RecordLayout& layout, const std::string& assignment)
{
    const size_t equals = assignment.find('=');
    if (equals == std::string::npos || equals == 0)
        throw Failure("'" + assignment + "' sets nothing; write FIELD=VALUE", kWrongUsage);
    const std::string name = assignment.substr(0, equals);
    const std::string value = assignment.substr(equals + 1);
    if (name[0] == '@') {
        const RecordField field = FieldAt(name, value);
        if (size_t{field.offset} + field.width > record.size())
            throw Failure("the record ends before " + name + "; " + kPlaceHelp);
        return SetValue(field, value, record.data() + field.offset);
    }
    const RecordField* field = FindRecordField(name);
    if (!field)
        throw Failure("there is no field '" + name + "'; " + kPlaceHelp);
    const std::optional<size_t> place = layout.Place(*field);
    if (!place)
        throw Failure("this record has no " + name + "; " + kPlaceHelp);
    SetValue(*field, value, record.data() + *place);
}

ExitCode RunSet(const Session&, const Arguments& arguments)
{
    Bytes record = LoadFile(arguments.Text("FILE"));
    const RecordLayout layout(record);
    for (const std::string& assignment : arguments.All("FIELD=VALUE"))
        Assign(record, layout, assignment);
    SaveFile(arguments.Text("output"), record.data(), record.size());
    return kDone;
}

constexpr Command kCommands[] = {
    {"show", "print the fields of a settings record", kShowParameters,
     "  psuictl record show office.dm\n"
     "  psuictl record show office.dm --json | jq .dmPaperSize\n",
     RunShow},
    {"diff", "compare two settings records: 0 equal, 1 different, 2 unreadable", kDiffParameters,
     "  psuictl record diff before.dm after.dm\n", RunDiff},
    {"set", "change fields of a settings record", kSetParameters,
     "  psuictl record set a.dm dmPaperSize=9 dmOrientation=landscape -o b.dm\n"
     "  psuictl record set a.dm lfDateFont.lfFaceName=Arial @482/2=0x10 -o b.dm\n",
     RunSet},
    {"default", "make the driver's default record for a printer", kDefaultParameters,
     "  psuictl record default Office -o office.dm\n"
     "  psuictl --country 49 record default Office -o - | psuictl record show -\n",
     RunRecordDefault},
    {"merge", "merge a record as an application gets it back", kMergeParameters,
     "  psuictl record merge Office -o current.dm\n"
     "  psuictl record merge Office wanted.dm -o valid.dm\n",
     RunRecordMerge},
};

} // namespace

extern const CommandFamily kRecordFamily = {"record", "settings records", kCommands};

} // namespace psuictl
