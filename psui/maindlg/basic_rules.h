#pragma once
// What the choices of the Basic tab do to the record, and which of them the settings refuse. No window takes
// part.
#include <span>

#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Messages of the Basic tab, by their number in its table of texts.
enum class BasicMessage
{
    None,
    BorderlessExcluded,  ///< borderless printing needs another quality or media
    BestQuality,         ///< asks whether the best quality is wanted
    Tray2Excluded,       ///< tray 2 cannot take the media or the size
    Tray2PrintsSimply,   ///< tray 2 prints neither to the edges nor on both sides
    InkjetHagaki,        ///< notice on a media
    BorderlessOn,        ///< borderless printing is now in effect
    BookletNeedsBorders, ///< a size excluded while booklets are printed
    DuplexExcludes,      ///< duplex printing excludes the media or the size
    LayoutEndsScaling,   ///< asks whether several pages a sheet may end the scaling
};

/// Why the media or the paper cannot be chosen; None when it can.
BasicMessage MediaRefusal(const DriverDevMode& record, DWORD media);
BasicMessage PaperRefusal(const DriverDevMode& record, short paper);

/// Why the source cannot stay tray 2; None when it can or is another.
BasicMessage SourceRefusal(const DriverDevMode& record);

/// Chooses a media that is not refused, with the quality that it starts with.
void TakeMedia(DriverDevMode& record, DWORD media);

/// The quality at a position of the quality list; false, with nothing changed, when there is none.
bool TakeQuality(DriverDevMode& record, int listPosition);

/// Whether borderless printing excludes the record's quality, on a borderless size.
bool QualityNeedsBorders(const DriverDevMode& record);

/// Chooses a paper that is not refused.
void TakePaper(DriverDevMode& record, short paper);

/// Sets the size as it is offered: the paper in the record is the list's.
void TakeOfferedPaper(DriverDevMode& record, short paper);

/// The list's paper stands in for one that the record has and the list has not, with all that hangs on it.
void TakeOtherPaper(DriverDevMode& record, short paper);

/// The notice that follows the choice of a paper: the photo notice's dialog, or the one on borderless
/// printing.
struct PaperNotice
{
    bool photoDialog;
    BasicMessage message;
};
PaperNotice NoticeAfterPaper(const DriverDevMode& record, short former, short paper, bool tray2Failed);

/// Borderless printing on or off, with the paper's form.
void TakeBorderless(DriverDevMode& record, bool on);

/// Thickness and bi-directional mode follow the paper that is printed on.
void UpdateThicknessAndBidi(DriverDevMode& record);

/// One page a sheet, and no poster.
void TakeOnePage(DriverDevMode& record);

/// Entry of the multiple-page list. Scaling ends with every entry but the first; with that too when the user
/// chose it.
void TakeLayout(DriverDevMode& record, int position, bool byUser);

/// Whether the entry needs the user's consent, because it ends the scaling.
bool LayoutEndsScaling(const DriverDevMode& record, int position);
void EndScaling(DriverDevMode& record);

/// Item data of the page-order list's entry.
void TakePageOrder(DriverDevMode& record, int order);

/// Duplex printing on or off. Off ends a booklet too, and its layout.
void TakeDuplex(DriverDevMode& record, bool on);

/// dmDuplex of the duplex flags, orientation and layout.
short DuplexOf(const DriverDevMode& record);

/// dmDuplex follows orientation and layout, on a printer that has it.
void UpdateDuplex(DriverDevMode& record);

/// A record without the field bits of copies and collation counts as one that does not say: chosen ones have
/// them, or the next merge would drop the choice.
void TakeCopies(DriverDevMode& record, int copies);
void TakeCollate(DriverDevMode& record, bool on);
void TakeReverseOrder(DriverDevMode& record, bool on);
void TakeSlowDrying(DriverDevMode& record, bool on);
void TakeOrientation(DriverDevMode& record, short orientation);

constexpr int kFewestCopies = 1;
constexpr int kMostCopies = 999;
constexpr bool AreCopies(int copies)
{
    return copies >= kFewestCopies && copies <= kMostCopies;
}

/// Everything that the Default button resets. `media` is the first of the media table.
void TakeBasicDefaults(DriverDevMode& record, const ModelDescription* model, DWORD media, bool metric);

/// Whether a control of the tab is enabled; true for one that no rule concerns.
bool IsBasicEnabled(const PrinterUiContext* context, int control);

/// Controls that IsBasicEnabled knows.
std::span<const int> BasicEnableControls();

/// Takes the layout back to one page where it has to: a borderless size prints one. Returns whether the
/// record changed.
bool MakeLayoutSingle(PrinterUiContext* context);

} // namespace psui
