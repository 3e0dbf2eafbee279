// Common dialogs that nobody has to answer: each takes the answer that was chosen beforehand, or is
// cancelled.
#include <string>

#include <windows.h>

#include <commdlg.h>

#include "host/shell/comdlg/answer.h"
#include "host/shell/comdlg/record.h"

namespace comdlg {
namespace {

constexpr int kTenthsPerInch = 720; // of points
constexpr int kScreenDpi = 96;

struct Answer
{
    AnswerKind kind = AnswerKind::Nothing;
    std::basic_string<WCHAR> text;
    DWORD number = 0;
};

Answer nextAnswer; // dialogs and their answers are of one thread

/// Takes the answer of a dialog of that kind; anything else counts as cancelled.
Answer Take(AnswerKind kind, const WCHAR* function)
{
    Answer answer;
    std::swap(answer, nextAnswer);
    if (answer.kind != kind)
        answer = {};
    RecordDialog(function, answer.text.c_str());
    return answer;
}

template <typename Request>
bool IsSound(const Request* request)
{
    return request != nullptr && request->lStructSize == sizeof(Request);
}

bool Exists(const std::basic_string<WCHAR>& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool GiveFile(OPENFILENAMEW& request, const std::basic_string<WCHAR>& path)
{
    if ((request.Flags & OFN_FILEMUSTEXIST) != 0 && !Exists(path))
        return false;
    if (request.lpstrFile == nullptr || path.size() >= request.nMaxFile)
        return false;
    path.copy(request.lpstrFile, path.size());
    request.lpstrFile[path.size()] = 0;
    const size_t name = path.find_last_of(TEXT("\\/")) + 1;
    const size_t dot = path.find(WCHAR{'.'}, name);
    request.nFileOffset = static_cast<WORD>(name);
    request.nFileExtension = static_cast<WORD>(dot == std::basic_string<WCHAR>::npos ? 0 : dot + 1);
    return true;
}

bool GiveFont(CHOOSEFONTW& request, const Answer& answer)
{
    const int points = static_cast<int>(answer.number / 10);
    if (request.lpLogFont == nullptr || answer.text.size() >= LF_FACESIZE)
        return false;
    if ((request.Flags & CF_LIMITSIZE) != 0 && (points < request.nSizeMin || points > request.nSizeMax))
        return false;
    if ((request.Flags & CF_INITTOLOGFONTSTRUCT) == 0)
        *request.lpLogFont = {};
    request.lpLogFont->lfHeight =
        -(static_cast<LONG>(answer.number) * kScreenDpi + kTenthsPerInch / 2) / kTenthsPerInch;
    answer.text.copy(request.lpLogFont->lfFaceName, answer.text.size());
    request.lpLogFont->lfFaceName[answer.text.size()] = 0;
    request.iPointSize = static_cast<INT>(answer.number);
    request.nFontType = SCREEN_FONTTYPE;
    return true;
}

} // namespace
} // namespace comdlg

using namespace comdlg;

BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW request)
{
    const Answer answer = Take(AnswerKind::File, TEXT("GetOpenFileNameW"));
    return answer.kind == AnswerKind::File && IsSound(request) && GiveFile(*request, answer.text);
}

BOOL WINAPI ChooseColorW(LPCHOOSECOLORW request)
{
    const Answer answer = Take(AnswerKind::Color, TEXT("ChooseColorW"));
    if (answer.kind != AnswerKind::Color || !IsSound(request))
        return FALSE;
    request->rgbResult = answer.number;
    return TRUE;
}

BOOL WINAPI ChooseFontW(LPCHOOSEFONTW request)
{
    const Answer answer = Take(AnswerKind::Font, TEXT("ChooseFontW"));
    return answer.kind == AnswerKind::Font && IsSound(request) && GiveFont(*request, answer);
}

void WINAPI ChooseCommonDialogAnswer(AnswerKind kind, LPCWSTR text, DWORD number)
{
    nextAnswer = {kind, text, number};
}
