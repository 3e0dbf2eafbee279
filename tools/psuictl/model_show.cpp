#include "tools/psuictl/model_commands.h"

#include "tools/psuictl/model_file.h"

namespace psuictl {
namespace {

std::string Plain(const Json& value)
{
    if (value.is_null())
        return "";
    return value.is_string() ? ReadableLine(value.get_ref<const std::string&>()) : value.dump();
}

double Millimetres(double points)
{
    return points * 25.4 / 72;
}

/// "595.28 x 841.89 pt (210.00 x 297.00 mm)"
std::string SizeText(double width, double height)
{
    return Fixed2(width) + " x " + Fixed2(height) + " pt (" + Fixed2(Millimetres(width)) + " x " +
           Fixed2(Millimetres(height)) + " mm)";
}

/// The area's corners in points, and what it leaves free at each edge of the page in millimetres.
std::string AreaText(const Json& area, double width, double height)
{
    const double left = area[0], bottom = area[1], right = area[2], top = area[3];
    std::string text = Fixed2(left) + " " + Fixed2(bottom) + " " + Fixed2(right) + " " + Fixed2(top) +
                       " pt (margins left " + Fixed2(Millimetres(left)) + " bottom " +
                       Fixed2(Millimetres(bottom)) + " right " + Fixed2(Millimetres(width - right)) +
                       " top " + Fixed2(Millimetres(height - top)) + " mm)";
    if (area[4] != 0.0 || area[5] != 0.0)
        text += ", further " + Fixed2(area[4]) + " " + Fixed2(area[5]) + " pt";
    return text;
}

void PrintHeader(std::ostream& out, const Json& model)
{
    Table table;
    for (const auto& [key, value] : model.items()) {
        const bool hasOwnSection = value.is_array() && !value.empty() && value[0].is_object();
        if (hasOwnSection || key == "customPageParams" || value.is_null() ||
            (value.is_array() && value.empty()))
            continue;
        table.Add({key, value.is_number_float() ? Fixed2(value) : Shortened(Plain(value))});
    }
    table.Print(out);
}

void PrintCustomParams(std::ostream& out, const Json& model)
{
    if (!model["customPageSize"])
        return;
    out << "\nCustom page size\n";
    Table table;
    for (const auto& [name, param] : model["customPageParams"].items())
        table.Add({name, Plain(param["order"]), Plain(param["valueType"]), Fixed2(param["minimum"]),
                   Fixed2(param["maximum"])});
    table.Print(out, 2);
}

/// What an option's kind adds, in one cell.
std::string OptionDetail(const Json& option)
{
    if (option.contains("width"))
        return SizeText(option["width"], option["height"]);
    if (option.contains("requiresPageRegion"))
        return option["requiresPageRegion"] ? "needs PageRegion" : "";
    if (option.contains("memoryValue"))
        return "memory " + Plain(option["memoryValue"]);
    if (option.contains("screenAngle") && option["screenFreq"] != 0.0)
        return Fixed2(option["screenFreq"]) + " lpi, " + Fixed2(option["screenAngle"]) + " degrees";
    return "";
}

bool IsDefault(const Json& feature, const Json& option)
{
    return feature.contains("defaultIndex") && feature["defaultIndex"] == option["index"];
}

/// An area that the description does not give is empty; it is left out.
void AddArea(Table& table, const Json& option, const char* key, const char* title)
{
    const Json& area = option[key];
    if (area[0] < area[2] && area[1] < area[3])
        table.Add({Plain(option["name"]), title, AreaText(area, option["width"], option["height"])});
}

void PrintAreas(std::ostream& out, const Json& feature)
{
    Table table;
    for (const Json& option : feature["options"]) {
        if (!option.contains("imageableArea"))
            return;
        AddArea(table, option, "imageableArea", "area");
        AddArea(table, option, "imageableAreaL", "area L");
    }
    table.Print(out, 4);
}

void PrintFeature(std::ostream& out, const Json& feature)
{
    out << "\n" << Plain(feature["number"]) << " " << Plain(feature["keyword"]);
    if (!feature["translation"].is_null())
        out << " (" << Plain(feature["translation"]) << ")";
    out << ": " << Plain(feature["uiType"]) << (feature["installable"] ? ", installable" : "");
    for (const Json& flag : feature["flags"])
        out << ", " << Plain(flag);
    if (feature.contains("defaultDpi"))
        out << ", default " << Plain(feature["defaultDpi"]) << " dpi";
    out << "\n";
    Table table;
    for (const Json& option : feature["options"])
        table.Add({IsDefault(feature, option) ? "*" : "", Plain(option["index"]), Plain(option["name"]),
                   Plain(option["translation"]), Shortened(Plain(option["invocation"])),
                   OptionDetail(option)});
    table.Print(out, 2);
    PrintAreas(out, feature);
}

/// "Duplex" alone, or "Duplex=None".
std::string Choice(const Json& feature, const Json& option)
{
    return Plain(feature) + (option.is_null() ? "" : "=" + Plain(option));
}

std::vector<std::string> ConstraintCells(const Json& entry)
{
    if (!entry["resolved"])
        return {"(names nothing)"};
    return {Choice(entry["feature1"], entry["option1"]), "forbids",
            Choice(entry["feature2"], entry["option2"])};
}

std::vector<std::string> OrderCells(const Json& entry)
{
    return {Fixed2(entry["order"]), Plain(entry["section"]),
            entry["resolved"] ? Choice(entry["feature"], entry["option"]) : "(names nothing)"};
}

std::vector<std::string> FontCells(const Json& entry)
{
    return {Plain(entry["number"]), Plain(entry["name"]), Shortened(Plain(entry["value"]))};
}

void PrintList(std::ostream& out, const char* title, const Json& list,
               std::vector<std::string> (*cells)(const Json&))
{
    if (list.empty())
        return;
    out << "\n" << title << "\n";
    Table table;
    for (const Json& entry : list)
        table.Add(cells(entry));
    table.Print(out, 2);
}

} // namespace

void PrintModel(std::ostream& out, const Json& model)
{
    PrintHeader(out, model);
    PrintCustomParams(out, model);
    for (const Json& feature : model["features"])
        PrintFeature(out, feature);
    PrintList(out, "Constraints", model["constraints"], ConstraintCells);
    PrintList(out, "Order", model["orderDependencies"], OrderCells);
    PrintList(out, "Resident fonts", model["residentFonts"], FontCells);
}

ExitCode RunModelShow(const Session& session, const Arguments& arguments)
{
    const LoadedModel model(arguments.Text("FILE"));
    const Json description = DescribeModel(*model);
    if (session.json)
        PrintJson(session.out, description);
    else
        PrintModel(session.out, description);
    return kDone;
}

} // namespace psuictl
