#include "model_fixture.h"
#include "psui/model/values.h"

namespace psui::test {

namespace {

constexpr std::string_view kKinds =
    "BadShape FieldTooLong UnknownKeyword WrongValueKind OptionNotAllowed OptionMissing RepeatedKeyword "
    "BadNumber BadHexText UnknownWord TooFewValues BadBlock EmptyName UnfinishedStatement "
    "DefaultNamesNothing ConstraintNamesNothing OrderNamesNothing PageSizeWithoutGeometry "
    "PaperListsOutOfStep OutOfMemory TooMany";

std::string NameOf(DiagnosticKind kind)
{
    compiler::WordReader words(kKinds);
    for (int i = 0; i < static_cast<int>(kind); ++i)
        words.Next();
    return std::string(words.Next());
}

// "line Kind keyword detail", with "!" before what was rejected; one line each.
std::string Report(std::string_view text)
{
    Collector collector;
    CompileModel(text, &collector);
    std::string lines;
    for (const Skipped& s : collector.all)
        lines += std::to_string(s.line) + (s.rejected ? " !" : " ") + NameOf(s.kind) + " " + s.keyword + " " +
                 s.detail + "\n";
    return lines;
}

} // namespace

TEST(Diagnostics, TellWhatWasSkippedAndWhy)
{
    const std::pair<const char*, const char*> cases[] = {
        {"*% all good\r\n*CM a: \"1\"\r\n*?Query: \"x\"\r\n*End\r\n", ""},
        {"\r\n*CM\r\n* x\r\n", "2 !OptionMissing CM \n3 !BadShape  \n"},
        {"\r\r*CM a b: \"1\"\r", "3 !BadShape CM \n"},
        {"\n\n*Unheard: 1\n", "3 UnknownKeyword Unheard \n"},
        {"*NickName a: b\n", "1 !OptionNotAllowed NickName a\n"},
        {"*CM a: bare\n*ColorDevice: \"True\"\n*NickName: ^s\n",
         "1 !WrongValueKind CM bare\n2 !WrongValueKind ColorDevice True\n3 !WrongValueKind NickName ^s\n"},
        {"*FreeVM: 1\n*FreeVM: 2\n", "2 RepeatedKeyword FreeVM 2\n"},
        {"*FreeVM: x\n*ModelType: 4294967296\n*FileVersion: \"v1\"\n",
         "1 !BadNumber FreeVM x\n2 !BadNumber ModelType 4294967296\n3 !BadNumber FileVersion v1\n"},
        {"*NickName: \"a\n<zz>\"\n*CM a/<1>: \"\"\n",
         "1 !BadHexText NickName a\n<zz>\n3 !BadHexText CM <1>\n"},
        {"*TTRasterizer: Vector\n*Protocols: PJL XML\n*Font Times: x\n*RequiresPageRegion All: Maybe\n",
         "1 UnknownWord TTRasterizer Vector\n2 UnknownWord Protocols XML\n3 UnknownWord Font Times\n"
         "4 !UnknownWord RequiresPageRegion Maybe\n"},
        {"*HWMargins: 1 2\n*PaperDimension A: \"1 x\"\n*ImageableArea A: \"1 2 3\"\n*UIConstraints: *CM\n",
         "1 !TooFewValues HWMargins 1 2\n2 !BadNumber PaperDimension x\n3 !TooFewValues ImageableArea 1 2 3\n"
         "4 !TooFewValues UIConstraints *CM\n"},
        {"*ParamCustomPageSize Width: 1 points 2\n*ParamCustomPageSize Width: 9 points 2 3\n"
         "*ParamCustomPageSize Width: 1 feet 2 3\n*ParamCustomPageSize Depth: 1 points 2 3\n"
         "*ParamCustomPageSize Width: 1 points x 3\n*ParamCustomPageSize Width: 1 points 2 y\n",
         "1 !TooFewValues ParamCustomPageSize 1 points 2\n2 !BadNumber ParamCustomPageSize 9\n"
         "3 UnknownWord ParamCustomPageSize feet\n4 UnknownWord ParamCustomPageSize Depth\n"
         "5 !BadNumber ParamCustomPageSize x\n6 !BadNumber ParamCustomPageSize y\n"},
        {"*CloseGroup: InstallableOptions\n*OpenUI *S: PickOne\n*OpenUI *T: PickOne\n*CloseUI: *U\n",
         "1 !BadBlock CloseGroup InstallableOptions\n3 BadBlock OpenUI S\n4 !BadBlock CloseUI U\n3 BadBlock "
         "CloseUI T\n"},
        {"*OpenGroup: InstallableOptions\n", "0 BadBlock CloseGroup \n"},
        {"*OpenUI *: PickOne\n*CloseUI: *\n*UIConstraints: *CM *\n*OrderDependency: 1 Prolog *\n",
         "1 !EmptyName OpenUI *\n2 !EmptyName CloseUI *\n3 !EmptyName UIConstraints *CM *\n"
         "4 !EmptyName OrderDependency *\n"},
        {"*End\n*CM a: \"", "2 !UnfinishedStatement CM \n"},
        {"*End\n*CM aaaaaaaaaabbbbbbbbbbccccccccccddddddddddE: \"\"\n", "2 !FieldTooLong CM \n"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Report(text), expected) << text;
}

TEST(Diagnostics, TellOfNamesAndSizesInTheFinishedModel)
{
    const std::pair<const char*, const char*> cases[] = {
        {"*DefaultCM: b\n*CM a: \"1\"\n", "1 DefaultNamesNothing CM b\n"},
        {"*DefaultResolution: 600\n*Resolution 300dpi: \"\"\n", "1 DefaultNamesNothing Resolution 600\n"},
        {"*DefaultResolution: 300\n*Resolution 300dpi: \"\"\n", ""},
        {"*DefaultPageSizeL: A4\n*DefaultInstalledMemory: 8\n", ""},
        {"*CM a: \"1\"\n*UIConstraints: *CM *ICM\n", "2 ConstraintNamesNothing UIConstraints CM\n"},
        {"*CM a: \"1\"\n\n*OrderDependency: 1 Prolog *CM b\n", "3 OrderNamesNothing OrderDependency CM\n"},
        {"*PageSize A4: \"\"\n*PaperDimension A5: \"420 0\"\n*PaperDimension A6: \"298 420\"\n",
         "1 PageSizeWithoutGeometry PageSize A4\n2 PageSizeWithoutGeometry PageSize A5\n"},
        {"*PaperDimension A: \"1 1\"\n*PaperDimension B: \"1 1\"\n*Paper A: \"0\"\n*Paper B: \"1\"\n", ""},
        {"*PaperDimension A: \"1 1\"\n*PaperDimension B: \"1 1\"\n*Paper B: \"0\"\n*Paper A: \"1\"\n",
         "3 PaperListsOutOfStep Paper B\n"},
        {"*PaperDimension A: \"1 1\"\n*PaperDimension B: \"1 1\"\n*Paper A: \"0\"\n",
         "2 PaperListsOutOfStep PageSize B\n"},
        {"*PaperDimension A: \"1 1\"\n*Paper A: \"0\"\n*Paper B: \"0\"\n", "3 PaperListsOutOfStep Paper B\n"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Report(text), expected) << text;
}

} // namespace psui::test
