// A printer's forms, and the record that it hands out as its default.
#include <cstdlib>

#include "tools/psuictl/output.h"
#include "tools/psuictl/printer_commands.h"
#include "tools/psuictl/record_file.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

constexpr double kMicronsPerMillimetre = 1000;

constexpr struct
{
    DWORD flags;
    const char* kind;
} kFormKinds[] = {
    {FORM_USER, "user"},
    {FORM_BUILTIN, "builtin"},
    {FORM_PRINTER, "printer"},
};

std::string KindOf(const FormRow& form)
{
    for (const auto& row : kFormKinds) {
        if (row.flags == form.flags)
            return row.kind;
    }
    return Hex(form.flags, 8);
}

} // namespace

ExitCode RunPrinterForms(const Session& session, const Arguments& arguments)
{
    const PrinterHandle printer = OpenPrinter(Wide(arguments.Text("NAME")));
    Json json = Json::array();
    Table table({"FORM", "WIDTH MM", "LENGTH MM", "KIND"});
    for (const FormRow& form : ListForms(printer)) {
        const double width = form.width / kMicronsPerMillimetre, length = form.length / kMicronsPerMillimetre;
        const std::string name = Utf8(form.name), kind = KindOf(form);
        table.Add({name, Fixed2(width), Fixed2(length), kind});
        json.push_back({{"name", name}, {"width", width}, {"length", length}, {"kind", kind}});
    }
    if (session.json)
        PrintJson(session.out, json);
    else if (!table.empty())
        table.Print(session.out);
    return kDone;
}

ExitCode RunPrinterDefault(const Session& session, const Arguments& arguments)
{
    const WideString name = Wide(arguments.Text("NAME"));
    Bytes record = LoadRecordForCall(arguments.Text("RECORD"));
    StoreDefaultRecord(OpenPrinter(name, PRINTER_ALL_ACCESS), reinterpret_cast<PDEVMODEW>(record.data()));
    const size_t size = RecordLayout(record).statedSize();
    if (session.json)
        PrintJson(session.out, {{"printer", Utf8(name)}, {"size", size}});
    else
        session.out << "Stored a record of " << Counted(size, "byte") << " as the default of printer '"
                    << Utf8(name) << "'.\n";
    return kDone;
}

} // namespace psuictl
