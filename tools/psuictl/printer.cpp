#include "tools/psuictl/files.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/model_file.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/printer_commands.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

constexpr Parameter kAddParameters[] = {
    {"NAME", nullptr, "the new printer's name", ParameterKind::Text, true},
    {"--model", "FILE", "model description of the printer", ParameterKind::Text, true},
    {"--driver", "NAME", "driver name (default: the model's nickname, or the file's base name)"},
    {"--processor", "NAME", "print processor (default: winprint)"},
    {"--port", "NAME", "port (default: FILE:)"},
};
constexpr Parameter kRemoveParameters[] = {
    {"NAME", nullptr, "the printer to remove", ParameterKind::Text, true},
};
constexpr const char* kDataTypes[] = {"number", "bytes", "text"};
constexpr Parameter kDataParameters[] = {
    {"NAME", nullptr, "the printer", ParameterKind::Text, true},
    {"VALUE", nullptr, "the value to show or set (default: list all)"},
    {"DATA", nullptr, "what to store: a number (decimal or 0x hex), pairs of hex digits, or a text"},
    {"--type", "TYPE", "how DATA is read: number, bytes or text (default: the first that fits)",
     ParameterKind::Text, false, false, kDataTypes},
};
constexpr Parameter kDefaultParameters[] = {
    {"NAME", nullptr, "the printer", ParameterKind::Text, true},
    {"RECORD", nullptr, "the settings record to store (- is standard input)", ParameterKind::Text, true},
};
constexpr Parameter kFormsParameters[] = {
    {"NAME", nullptr, "the printer", ParameterKind::Text, true},
};

/// What `printer add` is about to install.
struct Installation
{
    WideString printer;
    WideString driver;
    WideString modelPath;
    WideString processor;
    WideString port;
};

[[noreturn]] void ThrowSpoolerError(const std::string& what, const std::string& advice)
{
    const std::string words = ErrorWords(GetLastError());
    throw Failure(what + ": " + words + "; " + advice);
}

WideString DefaultDriverName(const CompiledText& compiled, const WideString& modelPath)
{
    const LoadedModel model(compiled);
    const char* nickName = model->nickName.get();
    return nickName && *nickName ? Wide(ReadableLine(nickName)) : FileStem(modelPath);
}

Installation PlanInstallation(const Arguments& arguments)
{
    const std::string file = arguments.Text("model");
    const WideString path = HostPath(file);
    const CompiledText compiled = CompileText(LoadHostFile(path), path);
    if (!compiled.image)
        throw Failure("'" + file + "' does not compile: " + ReasonOf(compiled));
    Installation plan;
    plan.printer = Wide(arguments.Text("NAME"));
    plan.driver =
        arguments.Has("driver") ? Wide(arguments.Text("driver")) : DefaultDriverName(compiled, path);
    plan.modelPath = path;
    plan.processor = Wide(arguments.Text("processor", "winprint"));
    plan.port = Wide(arguments.Text("port", "FILE:"));
    return plan;
}

/// Installed drivers share one folder, so two of them cannot have data files of the same name.
void CheckDataFileIsFree(const Installation& plan, const std::vector<DriverRow>& drivers)
{
    for (const DriverRow& driver : drivers) {
        if (SameName(FileName(driver.dataFile), FileName(plan.modelPath)) &&
            !SameName(driver.name, plan.driver) &&
            LoadHostFile(driver.dataFile) != LoadHostFile(plan.modelPath))
            throw Failure("driver '" + Utf8(driver.name) + "' has another model in a file named '" +
                          Utf8(FileName(plan.modelPath)) + "'; rename the model file");
    }
}

/// The driver directory keeps the image of a model that was there before, and an image is trusted as long as
/// its version number fits. Installing and removing a model therefore drops it.
void DropImage(const WideString& dataFile)
{
    WCHAR image[psui::kImagePathUnits];
    if (psui::ImagePathOf(dataFile.c_str(), image) && FileExists(image))
        DeleteFileW(image);
}

void InstallDriver(const Session& session, const Installation& plan)
{
    WideString name = plan.driver;
    WideString environment = kEnvironment;
    WideString library = ProductFile(session.language, TEXT("psui.dll"));
    WideString model = plan.modelPath;
    WideString dependents = ProductFile(session.language, TEXT("VMLANG.DLL"));
    dependents.push_back(0); // the list ends with an empty name

    DRIVER_INFO_3W info = {};
    info.cVersion = kDriverVersion;
    info.pName = name.data();
    info.pEnvironment = environment.data();
    info.pDriverPath = library.data();
    info.pDataFile = model.data();
    info.pConfigFile = library.data();
    info.pDependentFiles = dependents.data();
    if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&info),
                             APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY))
        ThrowSpoolerError("driver '" + Utf8(plan.driver) + "' cannot be installed",
                          "check that its files can be read");
    const std::vector<DriverRow> drivers = ListDrivers();
    if (const DriverRow* installed = FindRow(drivers, plan.driver))
        DropImage(installed->dataFile);
}

/// Returns false, with the platform's error code set, when the driver stays. A spooler that deletes no files
/// refuses the flag; it is asked to forget the driver at least.
bool RemoveDriver(const DriverRow& driver)
{
    WideString name = driver.name;
    WideString environment = kEnvironment;
    const auto remove = [&](DWORD flags) {
        return DeletePrinterDriverExW(nullptr, environment.data(), name.data(), flags, 0) != FALSE;
    };
    if (!remove(DPD_DELETE_UNUSED_FILES) && (GetLastError() != ERROR_INVALID_PARAMETER || !remove(0)))
        return false;
    if (!FileExists(driver.dataFile))
        DropImage(driver.dataFile);
    return true;
}

void CreatePrinter(const Installation& plan)
{
    WideString printer = plan.printer;
    WideString driver = plan.driver;
    WideString processor = plan.processor;
    WideString port = plan.port;
    WideString dataType = TEXT("RAW");
    PRINTER_INFO_2W info = {};
    info.pPrinterName = printer.data();
    info.pDriverName = driver.data();
    info.pPrintProcessor = processor.data();
    info.pPortName = port.data();
    info.pDatatype = dataType.data();
    const HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    if (!handle)
        ThrowSpoolerError("printer '" + Utf8(plan.printer) + "' cannot be added",
                          "check its name, port and print processor");
    ClosePrinter(handle);
}

ExitCode RunAdd(const Session& session, const Arguments& arguments)
{
    const Installation plan = PlanInstallation(arguments);
    if (FindRow(ListPrinters(), plan.printer))
        throw Failure("printer '" + Utf8(plan.printer) + "' exists; remove it first or choose another name");
    const std::vector<DriverRow> before = ListDrivers();
    CheckDataFileIsFree(plan, before);
    InstallDriver(session, plan);
    try {
        CreatePrinter(plan);
    } catch (const Failure&) {
        const std::vector<DriverRow> drivers = ListDrivers();
        const DriverRow* driver = FindRow(drivers, plan.driver);
        if (driver && !FindRow(before, plan.driver))
            RemoveDriver(*driver);
        throw;
    }
    if (session.json)
        PrintJson(session.out, {{"printer", Utf8(plan.printer)}, {"driver", Utf8(plan.driver)}});
    else
        session.out << "Added printer '" << Utf8(plan.printer) << "' with driver '" << Utf8(plan.driver)
                    << "'.\n";
    return kDone;
}

ExitCode RunList(const Session& session, const Arguments&)
{
    const std::vector<DriverRow> drivers = ListDrivers();
    Json list = Json::array();
    Table table({"NAME", "DRIVER", "MODEL", "PROCESSOR", "PORT"});
    for (const PrinterRow& printer : ListPrinters()) {
        const DriverRow* driver = FindRow(drivers, printer.driver);
        const std::string dataFile = driver ? Utf8(driver->dataFile) : "";
        const std::string name = Utf8(printer.name), driverName = Utf8(printer.driver);
        const std::string processor = Utf8(printer.processor), port = Utf8(printer.port);
        table.Add({name, driverName, dataFile, processor, port});
        list.push_back({{"name", name},
                        {"driver", driverName},
                        {"dataFile", dataFile},
                        {"processor", processor},
                        {"port", port}});
    }
    if (session.json)
        PrintJson(session.out, list);
    else if (!table.empty())
        table.Print(session.out);
    return kDone;
}

void DeletePrinterNamed(const WideString& name)
{
    const PrinterHandle printer = OpenPrinter(name, PRINTER_ALL_ACCESS);
    if (!DeletePrinter(printer.get()))
        ThrowSpoolerError("printer '" + Utf8(name) + "' cannot be removed", "close what uses it");
}

/// Removes the driver unless a printer still uses it; returns whether it is gone.
bool RemoveUnusedDriver(const WideString& name)
{
    for (const PrinterRow& printer : ListPrinters()) {
        if (SameName(printer.driver, name))
            return false;
    }
    const std::vector<DriverRow> drivers = ListDrivers();
    const DriverRow* driver = FindRow(drivers, name);
    if (!driver)
        return false;
    if (!RemoveDriver(*driver))
        ThrowSpoolerError("driver '" + Utf8(name) + "' cannot be removed", "close what uses it");
    return true;
}

ExitCode RunRemove(const Session& session, const Arguments& arguments)
{
    const WideString name = Wide(arguments.Text("NAME"));
    const std::vector<PrinterRow> printers = ListPrinters();
    const PrinterRow* printer = FindRow(printers, name);
    if (!printer)
        throw Failure("there is no printer '" + Utf8(name) + "'; 'psuictl printer list' shows them");
    DeletePrinterNamed(printer->name);
    const bool driverGone = RemoveUnusedDriver(printer->driver);
    const std::string driver = Utf8(printer->driver);
    if (session.json)
        PrintJson(session.out,
                  {{"printer", Utf8(printer->name)}, {"driver", driver}, {"driverRemoved", driverGone}});
    else
        session.out << "Removed printer '" << Utf8(printer->name) << "'"
                    << (driverGone ? " and its driver '" + driver + "'" : "") << ".\n";
    return kDone;
}

constexpr Command kCommands[] = {
    {"add", "install a driver for a model description and add a printer that uses it", kAddParameters,
     "  psuictl printer add Office --model models/office.ppd\n"
     "  psuictl printer add Photo --model photo.ppd --driver 'Photo driver' --port LPT1:\n",
     RunAdd},
    {"list", "list the printers", {}, "  psuictl printer list\n  psuictl printer list --json\n", RunList},
    {"remove", "remove a printer, and its driver when no other printer uses it", kRemoveParameters,
     "  psuictl printer remove Office\n", RunRemove},
    {"data", "list, show or set a printer's stored values", kDataParameters,
     "  psuictl printer data Office\n"
     "  psuictl printer data Office Forms?\n"
     "  psuictl printer data Office FreeMem 4096\n"
     "  psuictl printer data Office Note 1234 --type text\n",
     RunPrinterData},
    {"default", "store a settings record as the printer's default", kDefaultParameters,
     "  psuictl printer default Office office.dm\n", RunPrinterDefault},
    {"forms", "list the forms that a printer knows", kFormsParameters,
     "  psuictl printer forms Office\n"
     "  psuictl printer forms Office --json\n",
     RunPrinterForms},
};

} // namespace

extern const CommandFamily kPrinterFamily = {"printer", "printers of this host", kCommands};

} // namespace psuictl
