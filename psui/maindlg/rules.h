#pragma once
// What settings allow and exclude each other. Everything here is a function of the record alone, but for the
// two that ask for the language; only functions whose names say so change the record.
#include <cstdint>

#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

/// Whether the paper id is a size printed to the edges.
bool IsBorderlessSize(int paper);

/// Whether the paper can be printed to its edges: a borderless size, or one that has a borderless form.
bool AllowsBorderless(int paper);

/// The borderless form of a paper id, and the form with borders. An id that has none becomes A4's.
short BorderlessForm(short paper);
short BorderedForm(short paper);

/// Whether media and quality leave the choice between borders and none.
bool MediaAndQualityAllowBorderless(const DriverDevMode& record);

/// Whether borderless printing is chosen on a paper that allows it.
bool PrintsBorderless(const DriverDevMode& record);

/// Plain paper and the address side of postcards: the media that can be printed on both sides.
bool IsTwoSidedMedia(DWORD media);

/// Plain paper and postcards that print like it. Bi-directional printing has one choice for them and one for
/// all others.
bool IsPlainMedia(DWORD media);

bool IsTransparency(DWORD media);

bool IsGlossyClass(DWORD media);

/// Whether the paper id excludes duplex printing.
bool ExcludesDuplex(int paper);

/// The paper id that is printed on: the output paper when the document is fitted to it.
int PaperInForce(const DriverDevMode& record);

/// Whether tray 2 cannot take the record's media or paper.
bool FailsTray2(const DriverDevMode& record);

/// Whether the settings exclude the choice of a print order. The caller then clears bPrintOrderOpt.
bool FailsPrintOrderCombination(const DriverDevMode& record);

/// Whether this model has the notice on postcards and photo papers, in the language at hand.
bool NoticeEnabled(const DriverDevMode& record);

/// Whether bi-directional printing can be chosen for the paper printed on and the quality.
bool BidiApplicable(const DriverDevMode& record);

/// The user's bi-directional choice for the class of the record's media.
bool BidiChosen(const DriverDevMode& record);

/// The thickness that the paper printed on asks for: envelope, the user-defined size's own, or regular.
uint16_t ThicknessOf(const DriverDevMode& record);

/// Sets the bi-directional mode in effect for the class of the record's media; the other class keeps its.
void UpdateBidiMode(DriverDevMode& record);

/// Whether two pages on a portrait sheet stand in the second of their two orders. The first is kept under
/// several numbers, because the landscape sheet's order shares the field.
bool TwoPagesRunBackwards(uint8_t pageOrder);

/// Clears bPrintOrderOpt when the settings exclude a choice.
void ClearExcludedPrintOrder(DriverDevMode& record);

} // namespace psui
