#pragma once
// The in-memory model of a printer, which is also the layout of the binary image beside its description text.
//
// Numbers are little-endian. In a file a reference is a byte offset from the start of the image, 0 for none;
// after loading it is an address. Texts are 8-bit and zero-terminated (sourcePath is UTF-16), every text and
// record starts at a multiple of 4 bytes. Lengths are PostScript points in 24.8 fixed point.
// A loaded model is one block, read-only, and may be read by any thread.
#include <cstddef>
#include <cstdint>

#include <windows.h>

namespace psui {

// Records start at multiples of 4, not of 8, so that is what the compiler may assume of their 8-byte fields.
#pragma pack(push, 4)

/// A reference field: an offset in the file, an address once loaded.
template <typename T>
struct Ref
{
    uint64_t value;

    const T* get() const { return reinterpret_cast<const T*>(static_cast<uintptr_t>(value)); }
    const T* operator->() const { return get(); }
    explicit operator bool() const { return value != 0; }
};

using TextRef = Ref<char>;
static_assert(alignof(TextRef) == 4);

/// Slots of ModelDescription::featureByIndex: features with a meaning of their own.
enum FeatureIndex : uint16_t
{
    kFeaturePageSize = 0,
    kFeatureInputSlot = 1,
    kFeatureManualFeed = 2,
    kFeatureDuplex = 3,
    kFeatureCollate = 4,
    kFeatureResolution = 5,
    kFeatureVmOption = 6,
    kFeatureMediaType = 7,
    kFeatureMultiplePage = 8,
    kFeatureTonerSaveMode = 9,
    kFeaturePageProtect = 10,
    kFeatureHrc = 11,
    kFeaturePaper = 12,
    kFeatureTray = 13,
    kFeatureQuality = 14,
    kFeatureCm = 15,
    kFeatureIcm = 16,
    kFeatureCapt = 17,
    kFeatureColor = 18,
    kFeatureCHalftone = 19,
    kFeatureMHalftone = 20,
    kFeatureDocType = 21,
    kFeatureUseDf = 22,
    kFeatureTtMode = 23,
    kFeatureCmpMode = 24,
    kFeatureGMode = 25,
    kFeatureDirMode = 26,
    kFeatureThickness = 27,
    kFeatureInterlace = 28,
    kFeatureKcDraft = 29,
    kFeatureSfQuality = 30,
    kFeaturePrtArea = 31,
    kFeatureGeneric = 32, ///< any other feature; has no slot
};
constexpr uint16_t kBuiltinFeatureCount = 32;

/// Every option of a feature; longer kinds continue after it. Which kind it is follows from the feature's
/// index.
struct ModelOption
{
    Ref<ModelOption> next;
    TextRef name; ///< option keyword; never none
    uint32_t nameHash;
    uint32_t reserved20;
    TextRef translation;
    TextRef invocation; ///< value text; for maker features a decimal code such as "3"
};
static_assert(sizeof(ModelOption) == 40 && offsetof(ModelOption, invocation) == 32);

struct InputSlotOption
{
    ModelOption base;
    uint32_t requiresPageRegion; ///< 0 or 1
    uint32_t reserved44;
};
static_assert(sizeof(InputSlotOption) == 48);

struct MemoryOption
{
    ModelOption base;
    uint32_t memoryValue;
    uint32_t reserved44;
};
static_assert(sizeof(MemoryOption) == 48);

struct ResolutionOption
{
    ModelOption base;
    TextRef jclInvocation;
    TextRef setResolutionInvocation;
    uint32_t screenAngle; ///< 24.8 degrees
    uint32_t screenFreq;  ///< 24.8 lines per inch
};
static_assert(sizeof(ResolutionOption) == 64 && offsetof(ResolutionOption, screenAngle) == 56);

/// Lower-left x, lower-left y, upper-right x, upper-right y, and two further values; 24.8 points.
struct ImageableArea
{
    uint32_t left;
    uint32_t bottom;
    uint32_t right;
    uint32_t top;
    uint32_t further[2];
};

struct PageSizeOption
{
    ModelOption base;
    TextRef pageSizeLInvocation;
    TextRef pageRegionInvocation;
    uint32_t width;  ///< 24.8 points
    uint32_t height; ///< 24.8 points
    ImageableArea imageableArea;
    ImageableArea imageableAreaL;
};
static_assert(sizeof(PageSizeOption) == 112 && offsetof(PageSizeOption, imageableArea) == 64 &&
              offsetof(PageSizeOption, imageableAreaL) == 88);

/// Bits of ModelFeature::flags.
enum FeatureFlag : uint16_t
{
    kFlagAllSlotsRequirePageRegion = 1,
    kFlagNoSlotRequiresPageRegion = 2,
    kFlagJobControl = 4,
};

enum UiType : uint16_t
{
    kUiBoolean = 0,
    kUiPickOne = 1,
    kUiPickMany = 2,
};

struct ModelFeature
{
    Ref<ModelFeature> next;
    TextRef keyword; ///< feature name; never none
    uint32_t nameHash;
    uint32_t reserved20;
    TextRef translation;
    uint64_t defaultOption; ///< index of the default option; for Resolution dots per inch
    uint32_t optionRecordSize;
    uint16_t featureIndex; ///< FeatureIndex
    uint16_t flags;        ///< FeatureFlag bits
    uint16_t uiType;       ///< UiType
    uint16_t ordinal;      ///< position within its group
    uint32_t installable;  ///< 1 for a printer-installable feature
    Ref<ModelOption> options;
};
static_assert(sizeof(ModelFeature) == 64 && offsetof(ModelFeature, defaultOption) == 32 &&
              offsetof(ModelFeature, featureIndex) == 44 && offsetof(ModelFeature, options) == 56);

struct ResidentFont
{
    Ref<ResidentFont> next;
    TextRef name;
    uint32_t nameHash;
    uint32_t reserved20;
    TextRef value;
    uint16_t reserved32;
    uint16_t reserved34;
    uint16_t fontNumber; ///< 1 to 72
    uint16_t reserved38;
};
static_assert(sizeof(ResidentFont) == 40 && offsetof(ResidentFont, fontNumber) == 36);

constexpr uint16_t kUnresolved = 65535; ///< feature number of an entry whose names named nothing
constexpr uint16_t kAnyOption = 255;    ///< option index that stands for any option, or for none chosen

struct OrderEntry
{
    uint16_t featureNumber;
    uint16_t optionIndex;
    uint32_t order;   ///< 24.8
    uint16_t section; ///< setup-section bits
    uint16_t reserved;
};
static_assert(sizeof(OrderEntry) == 12);

struct ConstraintEntry
{
    uint16_t feature1;
    uint16_t option1;
    uint16_t feature2;
    uint16_t option2;
};
static_assert(sizeof(ConstraintEntry) == 8);

/// A packed array: this head, then `count` entries. The constraint array is followed by count x 4 zero bytes.
template <typename Entry>
struct PackedArray
{
    uint16_t count;
    uint16_t entrySize;

    const Entry* begin() const { return reinterpret_cast<const Entry*>(this + 1); }
    const Entry* end() const { return begin() + count; }
};
static_assert(sizeof(PackedArray<OrderEntry>) == 4);

struct CustomPageParam
{
    uint32_t order;
    uint16_t valueType;
    uint16_t reserved;
    uint32_t minimum; ///< 24.8
    uint32_t maximum; ///< 24.8
};
static_assert(sizeof(CustomPageParam) == 16);

enum CustomPageParamIndex
{
    kCustomWidth = 0,
    kCustomHeight = 1,
    kCustomWidthOffset = 2,
    kCustomHeightOffset = 3,
    kCustomOrientation = 4,
    kCustomPageParamCount = 5,
};

struct ModelDescription
{
    uint32_t imageSize; ///< bytes of the whole block
    uint32_t reserved4;
    Ref<WCHAR> sourcePath; ///< path of the text as it was given to the compiler
    TextRef nickName;
    uint16_t formatVersion; ///< kImageFormatVersion
    uint16_t sourceCrc;     ///< CRC-16/XMODEM of the text file
    uint16_t protocols;     ///< bits: PJL 1, BCP 2, TBCP 4, SIC 8
    uint16_t landscapeOrientation;
    uint16_t ttRasterizer;
    uint16_t languageEncoding;
    uint32_t freeVm;
    uint32_t languageLevel;
    uint32_t reserved44;
    TextRef password;
    TextRef exitServer;
    uint32_t jobTimeout;
    uint32_t waitTimeout;
    uint32_t colorDevice;
    uint32_t printPsError;
    uint32_t customPageSize;
    uint32_t hwMarginsPresent;
    uint32_t hwMargins[4]; ///< left, bottom, right, top; 24.8 points
    TextRef customPageSizeCode;
    CustomPageParam customPageParams[kCustomPageParamCount];
    uint32_t maxMediaWidth;  ///< 24.8 points
    uint32_t maxMediaHeight; ///< 24.8 points
    uint16_t extensions;     ///< bits: DPS 1, CMYK 2, Composite 4, FileSystem 8
    uint16_t resolutionKeywordKind;
    uint32_t screenAngle; ///< 24.8 degrees
    uint32_t screenFreq;  ///< 24.8 lines per inch
    uint32_t reserved212;
    TextRef jclBegin;
    TextRef jclEnd;
    TextRef jclToPsInterpreter;
    uint32_t fileVersion; ///< 24.8
    uint32_t printerCaps;
    uint64_t reserved248;
    TextRef sleepModeList;
    TextRef memorySizeList;
    uint16_t documentFeatureCount;
    uint16_t installableFeatureCount;
    uint32_t reserved276;
    Ref<ModelFeature> features; ///< document features first, then installable ones
    Ref<ModelFeature> featureByIndex[kBuiltinFeatureCount]; ///< zero in the file
    uint32_t modelType;
    uint32_t printRatePpm;
    Ref<ResidentFont> residentFonts;
    Ref<PackedArray<OrderEntry>> orderDependencies;
    Ref<PackedArray<ConstraintEntry>> constraints;
};
#pragma pack(pop)
static_assert(sizeof(ModelDescription) == 576 && alignof(ModelDescription) == 4);
static_assert(
    offsetof(ModelDescription, sourceCrc) == 26 && offsetof(ModelDescription, freeVm) == 36 &&
    offsetof(ModelDescription, password) == 48 && offsetof(ModelDescription, hwMargins) == 88 &&
    offsetof(ModelDescription, customPageParams) == 112 && offsetof(ModelDescription, maxMediaWidth) == 192 &&
    offsetof(ModelDescription, extensions) == 200 && offsetof(ModelDescription, jclBegin) == 216 &&
    offsetof(ModelDescription, fileVersion) == 240 && offsetof(ModelDescription, sleepModeList) == 256 &&
    offsetof(ModelDescription, documentFeatureCount) == 272 && offsetof(ModelDescription, features) == 280 &&
    offsetof(ModelDescription, featureByIndex) == 288 && offsetof(ModelDescription, modelType) == 544 &&
    offsetof(ModelDescription, residentFonts) == 552 && offsetof(ModelDescription, constraints) == 568);

constexpr uint16_t kImageFormatVersion = 3;
constexpr uint32_t kSmallestUsableImage = 609; ///< an image of 608 bytes or less is never used

} // namespace psui
