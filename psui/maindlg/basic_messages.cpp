#include "psui/maindlg/basic_messages.h"

#include <iterator>

#include "lang/ids/strings.h"
#include "psui/base/label.h"
#include "psui/base/memory.h"
#include "psui/base/module.h"
#include "psui/maindlg/message_tails.h"
#include "psui/settings/language.h"

namespace psui {

namespace {

constexpr int kCaptionUnits = 256;
constexpr int kTextUnits = 2048;
constexpr int kPieceUnits = 512;

struct MessageRow
{
    BasicMessage message;
    UINT caption;
    UINT first;
    UINT second; // 0 for none
    UINT style;
};

constexpr UINT kWarning = MB_OK | MB_ICONEXCLAMATION;

constexpr MessageRow kMessages[] = {
    {BasicMessage::BorderlessExcluded, IDS_BORDERLESS_CAPTION, IDS_BORDERLESS_REFUSED, IDS_BORDERLESS_ALLOWED,
     kWarning},
    {BasicMessage::BestQuality, IDS_BEST_PHOTO_CAPTION, IDS_BEST_PHOTO_QUESTION, IDS_BEST_PHOTO_QUESTION2,
     MB_YESNO | MB_ICONQUESTION},
    {BasicMessage::Tray2Excluded, IDS_TRAY2_CAPTION, IDS_TRAY2_REFUSED, 0, kWarning},
    {BasicMessage::Tray2PrintsSimply, IDS_TRAY2_CAPTION, IDS_TRAY2_BORDERLESS, IDS_TRAY2_BORDERLESS2,
     kWarning},
    {BasicMessage::InkjetHagaki, IDS_INKJET_HAGAKI_CAPTION, IDS_INKJET_HAGAKI_NOTICE,
     IDS_INKJET_HAGAKI_NOTICE2, kWarning},
    {BasicMessage::BorderlessOn, IDS_BORDERLESS_ON_CAPTION, IDS_BORDERLESS_ON_NOTICE,
     IDS_BORDERLESS_ON_NOTICE2, MB_OK},
    {BasicMessage::BookletNeedsBorders, IDS_BORDERLESS_CAPTION, IDS_BOOKLET_BORDERLESS,
     IDS_BOOKLET_BORDERLESS2, kWarning},
    {BasicMessage::DuplexExcludes, IDS_DUPLEX_CAPTION, IDS_DUPLEX_REFUSED, IDS_DUPLEX_REFUSED2, kWarning},
    {BasicMessage::LayoutEndsScaling, IDS_LAYOUT_SCALING_CAPTION, IDS_LAYOUT_SCALING_QUESTION, 0,
     MB_OKCANCEL},
};

// Printers with duplex name it beside borderless printing.
constexpr MessageRow kTray2WithDuplex = {BasicMessage::Tray2PrintsSimply, IDS_TRAY2_CAPTION, IDS_TRAY2_DUPLEX,
                                         IDS_TRAY2_DUPLEX2, kWarning};

const MessageRow* RowOf(const PrinterUiContext* context, BasicMessage message)
{
    if (message == BasicMessage::Tray2PrintsSimply && (context->dmWork.dmPublic.dmFields & DM_DUPLEX))
        return &kTray2WithDuplex;
    for (const MessageRow& row : kMessages)
        if (row.message == message)
            return &row;
    return nullptr;
}

void AppendString(TextCursor& cursor, const PrinterUiContext* context, UINT id)
{
    WCHAR piece[kPieceUnits];
    if (id && LoadModuleString(context->hPageRes, id, piece, kPieceUnits) > 0)
        Append(cursor, piece);
}

void AppendSecond(TextCursor& cursor, const PrinterUiContext* context, const MessageRow& row)
{
    MessageTail tail;
    if (row.message == BasicMessage::Tray2Excluded) {
        BuildTray2Tail(context, tail);
        Append(cursor, tail);
    } else if (row.message == BasicMessage::BorderlessExcluded && IsJapaneseLanguage()) {
        BuildBorderlessTail(context, tail);
        Append(cursor, tail);
    } else {
        AppendString(cursor, context, row.second);
    }
}

} // namespace

int ShowBasicMessage(HWND tab, const PrinterUiContext* context, BasicMessage message)
{
    const MessageRow* const row = RowOf(context, message);
    if (!row)
        return IDOK;
    const HeapPtr<WCHAR> text = AllocateZeroed<WCHAR>(kTextUnits);
    if (!text)
        return IDOK;
    WCHAR caption[kCaptionUnits];
    LoadModuleString(context->hPageRes, row->caption, caption, kCaptionUnits);
    TextCursor cursor = {text.get(), kTextUnits};
    AppendString(cursor, context, row->first);
    AppendSecond(cursor, context, *row);
    return MessageBoxW(tab, text.get(), caption, row->style);
}

} // namespace psui
