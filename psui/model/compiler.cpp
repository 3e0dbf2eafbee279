#include "psui/model/compiler.h"

#include <bitset>
#include <utility>

#include "psui/model/crc.h"
#include "psui/model/image.h"
#include "psui/model/keywords.h"
#include "psui/model/names.h"

namespace psui {

namespace compiler {

namespace {

constexpr char kQueryMark = '?';

constexpr uint32_t kDefaultLanguageLevel = 1;
constexpr uint32_t kDefaultWaitTimeout = 240;
constexpr uint32_t kDefaultScreenAngle = 45 * 256;
constexpr uint32_t kDefaultScreenFreq = 60 * 256;

// Whether the statement has the kind of value that the rule asks for.
bool HasValueOf(const ModelStatement& statement, uint32_t rule)
{
    switch (rule) {
    case kQuotedValue:
        return statement.kind == ValueKind::Quoted;
    case kQuotedOrBareValue:
        return statement.kind == ValueKind::Quoted || statement.kind == ValueKind::Bare;
    case kBareValue:
        return statement.kind == ValueKind::Bare && !statement.value.empty();
    default:
        return true;
    }
}

bool IsDefaultOf(std::string_view keyword, std::string_view feature)
{
    return keyword.starts_with(kDefaultPrefix) && IsSameName(keyword.substr(kDefaultPrefix.size()), feature);
}

using SeenKeywords = std::bitset<kKeywordCount>;

// What the statements so far leave behind for the dispatch of the next one.
struct DispatchState
{
    SeenKeywords seen;
    std::string_view keyword; ///< the last one looked up: statements of one keyword come in runs
    const KeywordEntry* entry = nullptr;

    const KeywordEntry* Find(std::string_view wanted)
    {
        if (!IsSameName(wanted, keyword)) {
            keyword = wanted;
            entry = FindKeyword(wanted);
        }
        return entry;
    }
};

Outcome HandleKeyword(Compilation& c, const KeywordEntry& keyword, SeenKeywords& seen)
{
    const ModelStatement& statement = c.statement;
    if (keyword.TakesOption() && statement.option.empty())
        return Reject(c, DiagnosticKind::OptionMissing);
    if (!keyword.TakesOption() && !statement.option.empty())
        return Reject(c, DiagnosticKind::OptionNotAllowed, statement.option);
    if (!HasValueOf(statement, keyword.ValueRule()))
        return Reject(c, DiagnosticKind::WrongValueKind, statement.value);
    const uint16_t number = KeywordNumber(keyword);
    if (keyword.IsSingleValued() && seen[number]) {
        Note(c, DiagnosticKind::RepeatedKeyword, statement.value);
        return Outcome::Done;
    }
    const Outcome outcome = keyword.handler(c);
    if (outcome == Outcome::Done)
        seen.set(number);
    return outcome;
}

Outcome Dispatch(Compilation& c, DispatchState& state)
{
    const std::string_view keyword = c.statement.keyword;
    if (keyword.starts_with(kQueryMark))
        return Outcome::Done;
    if (c.root.openBlock) {
        const std::string_view block = c.root.openBlock->Name();
        if (IsSameName(keyword, block))
            return RecordOpenBlockOption(c);
        if (IsDefaultOf(keyword, block))
            return RecordOpenBlockDefault(c);
    }
    if (const KeywordEntry* entry = state.Find(keyword))
        return HandleKeyword(c, *entry, state.seen);
    Note(c, DiagnosticKind::UnknownKeyword);
    return Outcome::Done;
}

// Compiles the whole text. False when the compilation stopped before its end.
bool Compile(Compilation& c, std::string_view text)
{
    DispatchState state;
    Tokenizer tokenizer(text);
    for (;;) {
        switch (tokenizer.Next(c.statement)) {
        case TokenStatus::Statement:
            if (Dispatch(c, state) == Outcome::OutOfMemory) {
                Reject(c, DiagnosticKind::OutOfMemory);
                return false;
            }
            break;
        case TokenStatus::Rejected:
            Reject(c, DiagnosticKind::BadShape);
            break;
        case TokenStatus::FieldTooLong:
            Reject(c, DiagnosticKind::FieldTooLong);
            return false;
        case TokenStatus::EndOfText:
            if (c.statement.star)
                Reject(c, DiagnosticKind::UnfinishedStatement);
            return true;
        }
    }
}

bool CopyPath(CompileRoot& root, const WCHAR* path)
{
    const size_t length = static_cast<size_t>(lstrlenW(path));
    auto* copy = static_cast<WCHAR*>(root.pool->Allocate((length + 1) * sizeof(WCHAR)));
    if (!copy)
        return false;
    std::copy(path, path + length + 1, copy);
    root.sourcePath = copy;
    root.sourcePathLength = length;
    return true;
}

CompileRootPtr NewRoot(std::string_view text, const WCHAR* path)
{
    std::unique_ptr<ParsePool, ParsePoolDeleter> pool(ParsePool::Create());
    CompileRoot* root = pool ? pool->New<CompileRoot>() : nullptr;
    if (!root)
        return nullptr;
    root->pool = pool.release();
    CompileRootPtr owner(root);
    root->header.sourceCrc = CrcOf(text);
    root->header.languageLevel = kDefaultLanguageLevel;
    root->header.waitTimeout = kDefaultWaitTimeout;
    root->header.screenAngle = kDefaultScreenAngle;
    root->header.screenFreq = kDefaultScreenFreq;
    return CopyPath(*root, path) ? std::move(owner) : nullptr;
}

} // namespace

} // namespace compiler

void CompileRootDeleter::operator()(CompileRoot* root) const
{
    root->names.Clear();
    if (root->description)
        HeapFree(GetProcessHeap(), 0, root->description);
    compiler::ParsePool::Release(root->pool);
}

CompileRootPtr CompileDescriptionText(std::string_view text, const WCHAR* path, DiagnosticSink* sink)
{
    if (text.size() >= UINT32_MAX)
        return nullptr;
    CompileRootPtr root = compiler::NewRoot(text, path);
    if (!root)
        return nullptr;
    compiler::Compilation compilation{*root, sink, compiler::LineCounter(text), {}};
    return compiler::Compile(compilation, text) ? std::move(root) : nullptr;
}

CompileRootPtr CompileModelDescription(DescriptionText text, const WCHAR* path)
{
    CompileRootPtr root = CompileDescriptionText({text.bytes.get(), text.size}, path, nullptr);
    if (root)
        root->description = text.bytes.release();
    return root;
}

ModelDescription* CompileToImage(std::span<const char> text, const WCHAR* path, DiagnosticSink* sink)
{
    const std::string_view view(text.data(), text.size());
    CompileRootPtr root = CompileDescriptionText(view, path, sink);
    if (!root)
        return nullptr;
    FinishModelDescription(*root, view, sink);
    return PackModelDescription(std::move(root));
}

} // namespace psui
