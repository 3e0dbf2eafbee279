#include "psui/model/compiler.h"

#include <algorithm>
#include <tuple>

#include "model_fixture.h"
#include "psui/model/image_layout.h"
#include "psui/model/keywords.h"
#include "psui/model/values.h"

namespace psui::test {

namespace {

using Model = ModelDescription;

constexpr uint32_t Model::*kNumbers[] = {
    &Model::languageLevel, &Model::jobTimeout,    &Model::waitTimeout,    &Model::freeVm,
    &Model::printerCaps,   &Model::modelType,     &Model::printRatePpm,   &Model::screenAngle,
    &Model::screenFreq,    &Model::maxMediaWidth, &Model::maxMediaHeight, &Model::fileVersion,
    &Model::colorDevice,   &Model::printPsError,  &Model::customPageSize, &Model::hwMarginsPresent};
constexpr uint16_t Model::*kWords[] = {
    &Model::protocols,    &Model::extensions,           &Model::languageEncoding,
    &Model::ttRasterizer, &Model::landscapeOrientation, &Model::resolutionKeywordKind};

/// What the fields above, and then the header's texts, are called below.
constexpr std::string_view kFieldNames =
    "languageLevel jobTimeout waitTimeout freeVm printerCaps modelType printRatePpm screenAngle screenFreq "
    "maxMediaWidth maxMediaHeight fileVersion colorDevice printPsError customPageSize hwMargins protocols "
    "extensions encoding rasterizer landscape resolutionKind nickName password exitServer customPage "
    "jclBegin jclToPs jclEnd sleepModes memorySizes";

/// "field=value ..." of the header's fields that an empty description has otherwise.
std::string Header(std::string_view text)
{
    const ModelPtr model = CompileModel(text), empty = CompileModel("");
    compiler::WordReader names(kFieldNames);
    std::string fields;
    const auto add = [&](const std::string& value, const std::string& usual) {
        const std::string name(names.Next());
        fields += value != usual ? name + "=" + value + " " : "";
    };
    for (const auto number : kNumbers)
        add(std::to_string(uint32_t{(*model).*number}), std::to_string(uint32_t{(*empty).*number}));
    for (const auto word : kWords)
        add(std::to_string(uint16_t{(*model).*word}), std::to_string(uint16_t{(*empty).*word}));
    for (const auto member : kHeaderTexts)
        add(TextOf((*model).*member), TextOf((*empty).*member));
    return fields;
}

struct SummaryCase
{
    const char* why;
    const char* text;
    const char* expected;
};

void ExpectSummaries(std::span<const SummaryCase> cases)
{
    for (const SummaryCase& c : cases)
        EXPECT_EQ(Summary(CompileModel(c.text)), c.expected) << c.why;
}

} // namespace

TEST(Header, TakesTheFirstGoodValueOfEachField)
{
    const std::tuple<const char*, const char*> cases[] = {
        {"*LanguageLevel: \"3\"\n*SuggestedJobTimeout: 7\n*SuggestedWaitTimeout: \"-1\"\n*FreeVM: 200000\n"
         "*PrinterCaps: 5\n*ModelType: 4294967295\n*PrintRatePPM: 22\n*FileVersion: \"2.5\"\n",
         "languageLevel=3 jobTimeout=7 waitTimeout=0 freeVm=200000 printerCaps=5 modelType=4294967295 "
         "printRatePpm=22 fileVersion=640 "},
        {"*ScreenAngle: \"18.5\"\n*ScreenFreq: 1\n*MaxMediaWidth: \"1.5\"\n*MaxMediaHeight: 2\n"
         "*PrintPSError: True\n*ColorDevice: True x\n*HWMargins: 1 2 3 4\n",
         "screenAngle=4736 screenFreq=256 maxMediaWidth=384 maxMediaHeight=512 colorDevice=1 printPsError=1 "
         "hwMargins=1 "},
        {"*LanguageLevel: 2 level\n*LanguageLevel: \"3\"\n", "languageLevel=2 "},
        {"*LanguageLevel: x\n*LanguageLevel: \"3\"\n*HWMargins: 1 2 3 x\n*HWMargins: 1 2 3 4\n",
         "languageLevel=3 hwMargins=1 "},
        {"*LanguageLevel: ^3\n*LanguageLevel a: 3\n*LanguageLevel\n*FreeVM: \"102399\"\n"
         "*ModelType: 4294967296\n*ColorDevice: \"True\"\n*HWMargins: 1 2 3\n",
         ""},
        {"*ColorDevice: Truex\n*ColorDevice: True\n", ""},
        {"*Extensions: DPS CMYK\n", "colorDevice=1 extensions=3 "},
        {"*Extensions: CMYK FileSystem\n*ColorDevice: False\n*Extensions: Composite\n", "extensions=14 "},
        {"*CustomPageSize True/<zz>: \"a\"\n*CustomPageSize True: \"b\"\n*MaxMediaWidth: 1\n",
         "maxMediaWidth=256 customPageSize=1 customPage=a "},
        {"*CustomPageSize True: \"a\"\n", "customPage=a "},
        {"*CustomPageSize False: \"a\"\n*CustomPageSize Maybe: \"a\"\n*MaxMediaWidth: 1\n",
         "maxMediaWidth=256 "},
        {"*Protocols: PJL TBCP\n*Protocols:  SIC x\n*TTRasterizer: Type42\n*LandscapeOrientation: Minus90 \n",
         "protocols=13 rasterizer=2 landscape=2 "},
        {"*Protocols: \"PJL\"\n", ""},
        {"*LanguageEncoding: JIS83-RKSJ\n", "encoding=2 "},
        {"*LanguageEncoding: WindowsANSI\n*LanguageEncoding: ISOLatin1\n", "encoding=4 "},
        {"*LanguageEncoding: Nonsense\n*LanguageEncoding: ISOLatin1\n", ""},
        {"*LanguageVersion: Swedish\n", "encoding=1 "},
        {"*LanguageEncoding: MaxStandard\n*LanguageVersion: Japanese\n", "encoding=3 "},
        {"*LanguageEncoding: None\n*LanguageVersion: Japanese\n", "encoding=2 "},
        {"*LanguageVersion: Japanese\n*LanguageEncoding: ISOLatin1\n", "encoding=1 "},
        {"*Resolution 1: \"\"\n*SetResolution 1: \"\"\n", "resolutionKind=2 "},
        {"*SetResolution 1: \"\"\n*JCLResolution 1: x\n*Resolution 1: x\n", "resolutionKind=1 "},
        {"*JCLResolution 1: x\n*Resolution 1: \"\"\n", ""},
        {"*JCLBegin: \"<1B>%-12345X\"\n*JCLToPSInterpreter: \"p\"\n*JCLEnd: \"e\"\n*ExitServer: \"<41>\"\n"
         "*Password: \"()\"\n*SleepMode x: 10,20\n*SleepMode y: 30\n*MemorySize x: \"8,16\"\n",
         "password=() exitServer=<41> jclBegin=\x1B%-12345X jclToPs=p jclEnd=e sleepModes=10,20 "
         "memorySizes=8,16 "},
        {"*ExitServer: bare\n*MemorySize: \"8,16\"\n", ""},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Header(text), expected) << text;
}

TEST(Header, DecodesTheNameUnlessAStretchIsNotWellFormed)
{
    const std::tuple<const char*, const char*> cases[] = {{"\"\"", "nickName= "},
                                                          {"Plain name", "nickName=Plain name "},
                                                          {"\"a<424a>c<4B>\"", "nickName=aBJcK "},
                                                          {"\"a<>b>\"", "nickName=ab> "},
                                                          {"\"a<4200>c\"", "nickName=aB "}};
    for (const auto& [name, expected] : cases)
        EXPECT_EQ(Header(std::string("*NickName: ") + name + "\n*NickName: \"other\"\n"), expected) << name;
    for (const char* bad : {"<4>", "<4 2>", "<4g>", "x<42", "x<"})
        EXPECT_EQ(Header(std::string("*NickName: \"") + bad + "\"\n*NickName: \"good\"\n"), "nickName=good ")
            << bad;
}

TEST(Header, RecordsCustomPageParametersOnlyWhenAllFourValuesAreGood)
{
    const ModelPtr model = CompileModel("*ParamCustomPageSize Width: 2 points 1.5 3\n"
                                        "*ParamCustomPageSize Height: 6 points 1 3\n"
                                        "*ParamCustomPageSize WidthOffset: 1 inches 1 3\n"
                                        "*ParamCustomPageSize HeightOffset: 1 real 1 x\n"
                                        "*ParamCustomPageSize Orientation: 5 int 0\n"
                                        "*ParamCustomPageSize Depth: 1 int 0 1\n");
    const CustomPageParam expected[kCustomPageParamCount] = {{2, 2, 0, 384, 768}, {}, {}, {}, {}};
    EXPECT_EQ(std::memcmp(model->customPageParams, expected, sizeof(expected)), 0);
}

TEST(Options, AreCreatedOnceAndCompletedLater)
{
    const SummaryCase cases[] = {
        {"first invocation stays", "*MediaType 0/Plain: \"0\"\n*MediaType 0/Other: \"9\"\n",
         "MediaType[0]: 0=0/Plain\n"},
        {"a later translation is taken when there was none", "*Tray 1: \"1\"\n*Tray 1/One: \"2\"\n",
         "Tray[0]: 1=1/One\n"},
        {"an option keeps its place", "*CM a: \"1\"\n*CM b: \"2\"\n*CM a: \"3\"\n", "CM[0]: a=1 b=2\n"},
        {"maker features want a quoted value", "*CM a: 1\n*CM: \"1\"\n", ""},
        {"an invocation is kept as written", "*CM a: \"<41>\r\n x\"\n", "CM[0]: a=<41>\r\n x\n"},
        {"a translation is decoded", "*CM a/<4142>c: \"1\"\n", "CM[0]: a=1/ABc\n"},
        {"a bad translation rejects the statement", "*CM a/<4>: \"1\"\n*GMODE b: \"1\"\n", "GMODE[0]: b=1\n"},
        {"several keywords feed one option",
         "*PageRegion A4: \"r\"\n*PageSize A4/A4: \"s\"\n*PageSizeL A4: \"l\"\n", "PageSize[0]: A4=s/A4\n"},
        {"memory options have no invocation", "*VMOption 8: \"8\"\n*InstalledMemory 16: \"x\"\n",
         "VMOption(i)[0]: 8=(none)\n"},
        {"case matters", "*mediatype 0: \"0\"\n*MEDIATYPE 0: \"0\"\n", ""},
        {"queries, unknown keywords and includes are nobody's",
         "*?CM: \"x\"\n*Unheard: 1\n*Include: \"other.ppd\"\n*End\n*CM a: \"\"\n", "CM[0]: a=\n"},
        {"input slots require a page region",
         "*InputSlot A: \"\"\n*InputSlot B: \"\"\n*RequiresPageRegion B: False\n", "InputSlot[0]: A!= B=\n"},
        {"a slot's statement decides",
         "*InputSlot A: \"\"\n*RequiresPageRegion A: Perhaps\n*RequiresPageRegion N: True\n",
         "InputSlot[0]: A= N!=(none)\n"},
        {"no slot does", "*RequiresPageRegion All: False\n*InputSlot A: \"\"\n", "InputSlot[0]: A=\n"},
        {"all slots do", "*RequiresPageRegion All: True\n*InputSlot A: \"\"\n*RequiresPageRegion A: False\n",
         "InputSlot[0]: A!=\n"},
        {"all slots perhaps", "*RequiresPageRegion All: Perhaps\n*InputSlot A: \"\"\n",
         "InputSlot[0]: A!=\n"},
        {"fonts are listed once with their number",
         "*Font Wingdings: Special\n*Font Unheard-of: x\n*Font PC-Brussels: \"a\"\n*Font Wingdings: again\n"
         "*Font Letter-Goth16.6-BoldItalic: z\n",
         "font Wingdings=Special#62\nfont PC-Brussels=a#1\nfont Letter-Goth16.6-BoldItalic=z#72\n"},
    };
    ExpectSummaries(cases);
}

TEST(Options, OfEveryBuiltinFeatureReachTheirSlot)
{
    std::string text;
    for (const compiler::KeywordEntry& entry : compiler::AllKeywords())
        if (entry.FeatureIndex() < kBuiltinFeatureCount)
            text += "*" + std::string(entry.keyword) + " o: \"1 2 3 4\"\n";
    text += "*Collate True: \"\"\n*Duplex None: \"\"\n*ManualFeed True: \"\"\n*RequiresPageRegion o: True\n";
    const ModelPtr model = CompileModel(text);
    EXPECT_EQ(model->documentFeatureCount, 31);
    EXPECT_EQ(model->installableFeatureCount, 1);
    for (uint16_t index = 0; index < kBuiltinFeatureCount; ++index) {
        const ModelFeature* feature = BuiltinFeature(model.get(), static_cast<FeatureIndex>(index));
        ASSERT_TRUE(feature) << index;
        EXPECT_EQ(feature->featureIndex, index);
        EXPECT_EQ(TextOf(feature->keyword), compiler::BuiltinRow(index).name);
        EXPECT_EQ(feature->uiType,
                  index == kFeatureManualFeed || index == kFeatureCollate ? kUiBoolean : kUiPickOne);
        EXPECT_EQ(OptionCount(feature), 1u) << index;
    }
}

TEST(Options, OfSpecialKindsKeepTheirOwnValues)
{
    const ModelPtr model = CompileModel("*Resolution 600dpi: \"a\"\n*JCLResolution 600dpi: \"<42>\"\n"
                                        "*SetResolution 600dpi: \"c\"\n*ResScreenAngle 600dpi: \"1.5\"\n"
                                        "*ResScreenFreq 600dpi: 2\n*ResScreenFreq 300dpi: x\n"
                                        "*PageSize A4: \"s\"\n*PageRegion A4: \"r\"\n*PageSizeL A4: \"l\"\n"
                                        "*VMOption 8: 100\n*VMOption 8: 200\n");
    const ResolutionOption* resolution = FindResolutionOption(model.get(), 600);
    ASSERT_TRUE(resolution);
    EXPECT_EQ(TextOf(resolution->base.invocation), "a");
    EXPECT_EQ(TextOf(resolution->jclInvocation), "B");
    EXPECT_EQ(TextOf(resolution->setResolutionInvocation), "c");
    EXPECT_EQ(resolution->screenAngle, 384u);
    EXPECT_EQ(resolution->screenFreq, 512u);
    EXPECT_FALSE(FindResolutionOption(model.get(), 300));
    EXPECT_EQ(TextOf(PageSizeOf(model, "A4")->pageRegionInvocation), "r");
    EXPECT_EQ(TextOf(PageSizeOf(model, "A4")->pageSizeLInvocation), "l");
    EXPECT_EQ(reinterpret_cast<const MemoryOption*>(OptionOf(model, "VMOption", "8"))->memoryValue, 200u);
}

TEST(PageSizes, AreLimitedToTheirDimensions)
{
    const std::tuple<const char*, const char*> cases[] = {// in points
                                                          {"10 20 90 180", "10 20 90 180 0 0 "},
                                                          {"10 20 90 180 5", "10 20 90 180 0 0 "},
                                                          {"10 20 90 180 5 6", "10 20 90 180 5 6 "},
                                                          {"10 20 90 180 5 x", "10 20 90 180 0 0 "},
                                                          {"10 20 90 180 100 200", "10 20 90 180 100 200 "},
                                                          {"10 20 90 180 101 201", "10 20 90 180 0 0 "},
                                                          {"-5 20 900 1800", "0 20 100 200 0 0 "},
                                                          {"90 20 90 180", "0 0 90 200 0 0 "},
                                                          {"10 180 90 180", "0 0 90 200 0 0 "},
                                                          {"10 20 90", "0 0 0 200 0 0 "},
                                                          {"1 x 90 180", "0 0 0 200 0 0 "}};
    for (const auto& [text, expected] : cases)
        for (const std::string keyword : {"ImageableArea", "ImageableAreaL"}) {
            const ModelPtr model =
                CompileModel("*PaperDimension A: \"100 200\"\n*" + keyword + " A: \"" + text + "\"\n");
            const PageSizeOption* size = PageSizeOf(model, "A");
            const ImageableArea& area =
                keyword == "ImageableArea" ? size->imageableArea : size->imageableAreaL;
            std::string points;
            for (const uint32_t value :
                 {uint32_t{area.left}, uint32_t{area.bottom}, uint32_t{area.right}, uint32_t{area.top},
                  uint32_t{area.further[0]}, uint32_t{area.further[1]}})
                points += std::to_string(value / 256) + (value % 256 ? "+ " : " ");
            EXPECT_EQ(points, expected) << keyword << ' ' << text;
        }
}

TEST(UiBlocks, FeedTheirFeatureWhileTheyAreOpen)
{
    const SummaryCase cases[] = {
        {"options, default and translation",
         "*OpenUI *Stapler/Staple it: PickOne\n*DefaultStapler: On\n*Stapler Off: \"0\"\n*Stapler On/Yes: "
         "\"1\"\n"
         "*CloseUI: *Stapler \n*Stapler Late: \"2\"\n",
         "Stapler[1]/Staple it: Off=0 On=1/Yes\n"},
        {"any kind of value, or none",
         "*OpenUI *S: PickOne\n*S a: bare/x\n*S b: ^sym\n*S c\n*S c: \"x\"\n*S\n*S d\n*S: y\n*CloseUI: *S\n",
         "S[0]: a=bare b=^sym c=x =y\n"},
        {"table keywords work inside", "*OpenUI *S: PickOne\n*CM a: \"1\"\n*S a: \"1\"\n",
         "S[0]: a=1\nCM[0]: a=1\n"},
        {"a new block closes the old one", "*OpenUI *S: PickOne\n*OpenUI *T: PickOne\n*S a: \"1\"\n",
         "S[0]:\nT[0]:\n"},
        {"even a rejected one does", "*OpenUI *S: PickOne\n*OpenUI *: PickOne\n*S a: \"1\"\n", "S[0]:\n"},
        {"closing another block changes nothing",
         "*OpenUI *S: PickOne\n*CloseUI: *T\n*CloseUI: *CM\n*CloseUI: *\n*S a: \"1\"\n*JCLCloseUI: S\n*S b: "
         "\"1\"\n",
         "S[0]: a=1\n"},
        {"a block may be opened again",
         "*OpenUI *S: PickOne\n*S a: \"1\"\n*CloseUI: *S\n*OpenUI *S/T: PickOne\n*S b: \"2\"\n",
         "S[0]/T: a=1 b=2\n"},
        {"built-in features need no block", "*OpenUI *PageRegion/Size: PickOne\n*OpenUI *Duplex/D: PickOne\n",
         "PageSize[0]/Size:\n"},
        {"a built-in feature's block does not take other keywords", "*OpenUI *CM: PickOne\n*CMX a: \"1\"\n",
         "CM[0]:\n"},
        {"job-control blocks decode",
         "*JCLOpenUI *J: PickOne\n*J a: \"<41>\"\n*J b: \"<4>\"\n*Duplex N: \"<42>\"\n*CM c: "
         "\"<43>\"\n*JCLCloseUI: *J\n"
         "*Duplex T: \"<44>\"\n",
         "J(j)[0]: a=A\nDuplex[0]: N=B T=<44>\nCM[0]: c=<43>\n"},
        {"a bare star or a bad translation names nothing",
         "*OpenUI *: PickOne\n*OpenUI *S/<4>: PickOne\n*S a: \"1\"\n", ""},
        {"the kind of choice",
         "*OpenUI *A: Boolean\n*OpenUI *B: PickMany\n*OpenUI *C: Nonsense\n*JCLOpenUI *D: PickOne\n"
         "*OpenUI *Tray: Boolean\n",
         "A(b)[0]:\nB(m)[0]:\nC[0]:\nD(j)[0]:\nTray(b)[0]:\n"},
        {"the installable group holds memory and the generic features created inside",
         "*VMOption 8: 8\n*OpenUI *First: PickOne\n*OpenGroup: InstallableOptions/Installed\n"
         "*OpenGroup: InstallableOptions\n*OpenUI *First: PickOne\n*OpenUI *Stacker: Boolean\n"
         "*MediaType 0: \"0\"\n*CloseGroup: Other\n*OpenUI *Sorter: Boolean\n"
         "*CloseGroup: InstallableOptions\n*CloseGroup: InstallableOptions\n*OpenUI *Last: PickOne\n",
         "First[0]:\nMediaType[0]: 0=0\nLast[0]:\nVMOption(i)[0]: "
         "8=(none)\nStacker(bi)[0]:\nSorter(bi)[0]:\n"},
    };
    ExpectSummaries(cases);
}

TEST(Defaults, AreResolvedToTheOptionTheyName)
{
    const SummaryCase cases[] = {
        {"named", "*DefaultMediaType: 1\n*MediaType 0: \"0\"\n*MediaType 1: \"1\"\n",
         "MediaType[1]: 0=0 1=1\n"},
        {"first wins", "*DefaultCM: b\n*DefaultCM: a\n*CM a: \"\"\n*CM b: \"\"\n", "CM[1]: a= b=\n"},
        {"naming nothing", "*DefaultCM: z\n*CM a: \"\"\n", "CM[0]: a=\n"},
        {"cut at the slash, not at blanks",
         "*DefaultCM: b/x\n*DefaultICM: b \n*CM a: \"\"\n*CM b: \"\"\n"
         "*ICM a: \"\"\n*ICM b: \"\"\n",
         "CM[1]: a= b=\nICM[0]: a= b=\n"},
        {"quoted", "*DefaultCM: \"b\"\n*CM a: \"\"\n*CM b: \"\"\n", "CM[0]: a= b=\n"},
        {"Interlace has none", "*INTERLACE a: \"\"\n*INTERLACE b: \"\"\n*DefaultINTERLACE: b\n",
         "INTERLACE[0]: a= b=\n"},
        {"resolution is a number", "*DefaultResolution: 600dpi\n*Resolution 300dpi: \"\"\n",
         "Resolution[600]: 300dpi=\n"},
        {"by either keyword", "*DefaultJCLResolution: 1200\n*DefaultResolution: 600dpi\n",
         "Resolution[1200]:\n"},
        {"of the first option", "*Resolution 150dpi: \"\"\n*Resolution 300dpi: \"\"\n",
         "Resolution[150]: 150dpi= 300dpi=\n"},
        {"or 300", "*DefaultResolution: high\n*Resolution 150dpi: \"\"\n", "Resolution[300]: 150dpi=\n"},
        {"features of their own", "*DefaultInstalledMemory: 8\n*DefaultPageSizeL: A4\n",
         "InstalledMemory[0]:\nPageSizeL[0]:\n"},
    };
    ExpectSummaries(cases);
}

namespace {

// CM is feature 0, ICM feature 1.
constexpr char kNamed[] = "*CM x: \"\"\n*CM None: \"\"\n*ICM y: \"\"\n*ICM z: \"\"\n";

std::string Numbers(std::initializer_list<uint16_t> numbers)
{
    std::string text;
    for (uint16_t number : numbers)
        text += (number == kUnresolved ? "?" : std::to_string(number)) + " ";
    return text;
}

} // namespace

TEST(Constraints, AreResolvedByName)
{
    const std::tuple<const char*, const char*> cases[] = {
        {"*CM *ICM", "0 255 1 255 "},         {"*CM x *ICM", "0 0 1 255 "},  {"*CM *ICM z", "0 255 1 1 "},
        {"*CM None *ICM z rest", "0 1 1 1 "}, {"*CM x ICM y", "0 0 1 0 "},   {"CM x *ICM", "0 0 1 255 "},
        {"*CM w *ICM", "? ? 1 255 "},         {"*Nix *ICM", "? 255 1 255 "}, {"*CM *Nix y", "? 255 ? ? "},
        {"*CM *ICM *y", "? 255 1 ? "},
    };
    for (const auto& [value, expected] : cases) {
        const ModelPtr model = CompileModel(std::string("*UIConstraints: ") + value + "\n" + kNamed);
        ASSERT_EQ(model->constraints->count, 1) << value;
        const ConstraintEntry& e = *model->constraints->begin();
        EXPECT_EQ(Numbers({e.feature1, e.option1, e.feature2, e.option2}), expected) << value;
    }
    for (const char* bad : {"*CM", "*CM x", "* *ICM", "*CM *", "*CM x *", "\"*CM *ICM\""})
        EXPECT_EQ(CompileModel(std::string("*UIConstraints: ") + bad + "\n" + kNamed)->constraints->count, 0)
            << bad;
}

TEST(Orders, AreResolvedByName)
{
    const std::tuple<const char*, const char*> cases[] = {
        {"10 AnySetup *ICM", "1 255 2560 32 "}, {"1.5 Prolog *ICM z", "1 1 384 2 "},
        {"1 Nonsense ICM y", "1 0 256 32 "},    {"1 JCLSetup *Nix", "? 255 256 16 "},
        {"1 PageSetup *ICM w", "? ? 256 8 "},
    };
    for (const auto& [value, expected] : cases) {
        const ModelPtr model = CompileModel(std::string("*OrderDependency: ") + value + "\n" + kNamed);
        ASSERT_EQ(model->orderDependencies->count, 1) << value;
        const OrderEntry& e = *model->orderDependencies->begin();
        EXPECT_EQ(Numbers({e.featureNumber, e.optionIndex, static_cast<uint16_t>(e.order), e.section}),
                  expected)
            << value;
    }
    for (const char* bad : {"10 AnySetup", "x AnySetup *CM", "10 AnySetup *", "10"})
        EXPECT_EQ(CompileModel(std::string("*OrderDependency: ") + bad + "\n")->orderDependencies->count, 0)
            << bad;
}

TEST(Limits, KeepTheFirst65535OfWhatIsNumberedIn16Bits)
{
    std::string text = "*CM a: \"\"\n";
    for (int i = 0; i < 65540; ++i)
        text += "*OpenUI *G" + std::to_string(i) + ": PickOne\n*G" + std::to_string(i) + " a: \"1\"\n";
    for (int i = 0; i < 65540; ++i)
        text += "*UIConstraints: *CM *G" + std::to_string(i) + "\n*OrderDependency: 1 Prolog *CM\n";
    Collector collector;
    const ModelPtr model = CompileModel(text, &collector);
    ASSERT_TRUE(model);
    EXPECT_EQ(std::count_if(collector.all.begin(), collector.all.end(),
                            [](const Skipped& s) { return s.rejected && s.kind == DiagnosticKind::TooMany; }),
              6 + 5 + 5)
        << "features, constraints, orders";
    EXPECT_EQ(model->documentFeatureCount, 65535);
    EXPECT_EQ(ListLength(model->features.get()), 65535u);
    EXPECT_EQ(model->constraints->count, 65535);
    EXPECT_EQ(model->constraints->end()[-2].feature2, 65534);
    EXPECT_EQ(model->constraints->end()[-1].feature1, kUnresolved);
    EXPECT_EQ(model->orderDependencies->count, 65535);
}

TEST(Limits, LetAFeatureHaveMoreOptionsThan16BitsCount)
{
    std::string text = "*DefaultCM: o69999\n";
    for (int i = 0; i < 70000; ++i)
        text += "*CM o" + std::to_string(i) + ": \"\"\n";
    for (const char* option : {"254", "255", "256", "65534", "65536"})
        text += std::string("*UIConstraints: *CM o") + option + " *CM\n";
    const ModelPtr model = CompileModel(text);
    const ModelFeature* feature = BuiltinFeature(model.get(), kFeatureCm);
    EXPECT_EQ(OptionCount(feature), 70000u);
    EXPECT_EQ(uint64_t{feature->defaultOption}, 69999u);
    EXPECT_EQ(FindByNameIndexed(FirstOption(feature), "o65534").index, 65534);
    EXPECT_EQ(FindByNameIndexed(FirstOption(feature), "o65536").index, kNotFound);
    const ConstraintEntry* e = model->constraints->begin();
    EXPECT_EQ(Numbers({e[0].option1, e[1].option1, e[2].option1, e[3].option1, e[4].option1}),
              "254 ? 256 65534 ? ")
        << "255 means any option";
}

} // namespace psui::test
