#pragma once
// A printer whose data the fuzzer writes.
#include "fuzz/settings_input.h"
#include "tests/settings/administered.h"

namespace fuzz {

class PrinterStore
{
public:
    explicit PrinterStore(std::string_view modelText) : printer_(u"P1", modelText), administered_(printer_) {}

    HANDLE handle() const { return administered_.get(); }

    void Write(const WCHAR* name, DWORD type, std::string_view bytes)
    {
        BYTE nothing = 0;
        auto* data = bytes.empty() ? &nothing : reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data()));
        Require(SetPrinterDataW(handle(), const_cast<WCHAR*>(name), type, data,
                                static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS,
                "a value is written");
    }

    void WriteNumber(const WCHAR* name, DWORD number)
    {
        Write(name, REG_DWORD, {reinterpret_cast<const char*>(&number), sizeof(number)});
    }

    void Delete(const WCHAR* name) { DeletePrinterDataW(handle(), const_cast<WCHAR*>(name)); }

    /// The value's bytes; empty when it is missing.
    std::string Read(const WCHAR* name)
    {
        static BYTE data[1 << 17];
        DWORD needed = 0;
        if (GetPrinterDataW(handle(), const_cast<WCHAR*>(name), nullptr, data, sizeof(data), &needed) !=
            ERROR_SUCCESS)
            return {};
        return {reinterpret_cast<char*>(data), needed};
    }

private:
    test::Printer printer_;
    test::Administered administered_;
};

} // namespace fuzz
