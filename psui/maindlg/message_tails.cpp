#include "psui/maindlg/message_tails.h"

#include <initializer_list>

#include "lang/ids/strings.h"
#include "psui/base/label.h"
#include "psui/settings/language.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr UINT kLargePapers[] = {IDS_PAPER_A3,    IDS_PAPER_B4JIS,    IDS_PAPER_LEDGER,
                                 IDS_PAPER_A3_SG, IDS_PAPER_B4JIS_SG, IDS_PAPER_LEDGER_SG};
constexpr UINT kTray2Papers[] = {IDS_PAPER_A4, IDS_PAPER_LETTER, IDS_PAPER_LEGAL, IDS_PAPER_EXECUTIVE,
                                 IDS_PAPER_B5JIS};
constexpr UINT kBorderlessPapers[] = {IDS_PAPER_A4,        IDS_PAPER_LETTER,     IDS_PAPER_A6,
                                      IDS_PAPER_POST_CARD, IDS_PAPER_INDEX_CARD, IDS_PAPER_PHOTO_L,
                                      IDS_PAPER_PHOTO_2L,  IDS_PAPER_HAGAKI};
constexpr UINT kTray2Media[] = {IDS_MEDIA_PLAIN_PAPER};
constexpr UINT kBorderlessMedia[] = {IDS_MEDIA_PLAIN_PAPER, IDS_MEDIA_INKJET_PAPER, IDS_MEDIA_GLOSSY_RB,
                                     IDS_MEDIA_GLOSSY_CB, IDS_MEDIA_GLOSSY_C};
constexpr UINT kBorderlessQualities[] = {IDS_QUALITY_FAST, IDS_QUALITY_NORMAL, IDS_QUALITY_FINE,
                                         IDS_QUALITY_PHOTO};

/// A tail being built.
struct Tail
{
    TextCursor cursor;
    HMODULE strings;

    void Text(UINT id) { AppendLabel(cursor, strings, id, cursor.left); }
    void Literal(const WCHAR* text) { Append(cursor, text); }
    void Heading(UINT id)
    {
        Text(id);
        Literal(TEXT(":\n  "));
    }
    template <size_t N>
    void List(const UINT (&ids)[N])
    {
        for (size_t i = 0; i < N; ++i) {
            if (i > 0)
                Literal(TEXT("/"));
            Text(ids[i]);
        }
    }
    void LargePapersOf(const PrinterUiContext* context)
    {
        if ((context->dmWork.dmPrivate.wModelType & kModelA3) == 0)
            return;
        List(kLargePapers);
        Literal(TEXT("/"));
    }
};

Tail BeginTail(const PrinterUiContext* context, MessageTail& text)
{
    text[0] = 0;
    return {{text, kTailUnits}, context->hPageRes};
}

} // namespace

void BuildTray2Tail(const PrinterUiContext* context, MessageTail& text)
{
    Tail tail = BeginTail(context, text);
    tail.Heading(IDS_LABEL_PAPER);
    tail.LargePapersOf(context);
    tail.List(kTray2Papers);
    tail.Literal(TEXT("\n\n"));
    tail.Heading(IDS_LABEL_MEDIA);
    tail.List(kTray2Media);
    if (IsJapaneseLanguage()) {
        tail.Literal(TEXT("/"));
        tail.Text(IDS_MEDIA_GLOSSYHAGAKIATN);
    }
}

void BuildBorderlessTail(const PrinterUiContext* context, MessageTail& text)
{
    Tail tail = BeginTail(context, text);
    tail.Literal(TEXT("\n\n"));
    tail.Heading(IDS_LABEL_PAPER);
    tail.LargePapersOf(context);
    tail.List(kBorderlessPapers);
    tail.Literal(TEXT("\n\n"));
    tail.Heading(IDS_LABEL_MEDIA);
    tail.List(kBorderlessMedia);
    if (IsJapaneseLanguage()) {
        tail.Literal(TEXT("/\n  "));
        tail.Text(IDS_MEDIA_GLOSSYHAGAKIATN);
        tail.Literal(TEXT("/"));
        tail.Text(IDS_MEDIA_GLOSSYHAGAKIURA);
    }
    tail.Literal(TEXT("\n\n"));
    tail.Heading(IDS_LABEL_QUALITY);
    tail.List(kBorderlessQualities);
}

} // namespace psui
