#pragma once
#include <gtest/gtest.h>
#include <windows.h>
#include <winspool.h>

#include "tests/entry/printer.h"

namespace test {

/// A printer's handle with the right to change its data.
class Administered
{
public:
    explicit Administered(Printer& printer)
    {
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        EXPECT_TRUE(OpenPrinterW(printer.name(), &handle_, &defaults));
    }
    ~Administered() { ClosePrinter(handle_); }
    Administered(const Administered&) = delete;
    Administered& operator=(const Administered&) = delete;

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_ = nullptr;
};

} // namespace test
