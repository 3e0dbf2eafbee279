#pragma once
// What tests of painters share: the pictures of the built library, and draw requests on a small picture.
#include "psui/settings/devmode.h"
#include "tests/host/gdi_canvas.h"
#include "tests/settings/support.h"

namespace test {

/// A world in which the painters of this program find the pictures of the built library.
class PictureWorld : public World
{
public:
    PictureWorld() : library_(LoadLibraryW(ProductFile("eng/psui.dll").c_str()))
    {
        EXPECT_NE(library_, nullptr);
        psui::hOwnModule = library_;
    }
    ~PictureWorld()
    {
        psui::hOwnModule = nullptr;
        FreeLibrary(library_);
    }

private:
    HMODULE library_;
};

/// The request to draw the whole of a control that covers `item` of the canvas.
inline DRAWITEMSTRUCT Request(const Canvas& canvas, UINT type, UINT id, const RECT& item)
{
    DRAWITEMSTRUCT request = {};
    request.CtlType = type;
    request.CtlID = id;
    request.itemAction = ODA_DRAWENTIRE;
    request.hDC = canvas.Dc();
    request.rcItem = item;
    return request;
}

inline psui::DriverDevMode Record(short orientation, int pages)
{
    psui::DriverDevMode record = {};
    record.dmPublic.dmOrientation = orientation;
    record.dmPublic.dmColor = DMCOLOR_COLOR;
    record.dmPublic.dmCopies = 1;
    record.dmPrivate.dwPagesPerSheet = pages;
    return record;
}

} // namespace test
