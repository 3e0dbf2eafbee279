// Every size, every byte, every cut: what callers can get wrong about a record, tried out completely. Each
// record ends where an unreadable page begins.
#include "psui/entry/convert.h"
#include "psui/entry/exports.h"
#include "psui/settings/record.h"
#include "tests/settings/guarded.h"
#include "tests/settings/merge_checks.h"
#include "tests/settings/support.h"

namespace {

using namespace test;
using psui::RecordShape;

/// Sizes around everything that means something, and around the limits of the field.
constexpr uint16_t kBoundarySizes[] = {
    0,    1,    2,    3,    4,    7,    8,    63,   64,   65,   66,    67,    68,    69,    70,    71,
    72,   73,   75,   76,   77,   111,  112,  113,  155,  156,  165,   166,   187,   188,   189,   195,
    196,  197,  211,  212,  213,  219,  220,  221,  222,  223,  255,   256,   257,   299,   300,   1411,
    1631, 1632, 1633, 1664, 1851, 1852, 1853, 4095, 4096, 4097, 32767, 32768, 65315, 65316, 65534, 65535,
};
static_assert(std::size(kBoundarySizes) == 64);

class Exhaustive : public DefaultRecord
{
protected:
    GuardedMemory memory_{2 * 65535};
    GuardedMemory output_{2 * 65535};

    static size_t OwnedBytes(const RecordShape& shape)
    {
        return std::max(shape.TotalSize(), psui::kHeaderSize);
    }

    DEVMODEW* Place(const RecordShape& shape)
    {
        BYTE* record = memory_.Last(OwnedBytes(shape));
        psui::SetShape(record, shape);
        return reinterpret_cast<DEVMODEW*>(record);
    }

    /// One record of that shape through the merge and every conversion, as source and as destination.
    void TryShape(const RecordShape& shape)
    {
        DEVMODEW* record = Place(shape);
        LONG size = 300;
        psui::ConvertDevMode(nullptr, record, reinterpret_cast<DEVMODEW*>(output_.Last(300)), &size,
                             psui::kConvertToOldFormat);
        alignas(8) psui::DriverDevMode whole = record_;
        size = sizeof(whole);
        psui::ConvertDevMode(nullptr, record, &whole.dmPublic, &size, psui::kConvertRecord);

        whole = record_;
        psui::MergeDevMode(&whole, record, model_);
        ASSERT_EQ(FieldOutOfRange(whole), "")
            << "dmSize " << shape.publicSize << ", dmDriverExtra " << shape.privateSize;

        size = static_cast<LONG>(OwnedBytes(shape));
        const BOOL converted =
            psui::ConvertDevMode(nullptr, &record_.dmPublic, record, &size, psui::kConvertRecord);
        ASSERT_EQ(converted, shape.publicSize >= psui::kHeaderSize && shape.specVersion != 0)
            << "dmSize " << shape.publicSize << ", dmDriverExtra " << shape.privateSize;
    }
};

TEST_F(Exhaustive, EverySizeStaysInsideItsRecord)
{
    for (uint32_t n = 0; n <= 65535 && !HasFatalFailure(); ++n)
        for (const uint16_t other : kBoundarySizes) {
            const uint16_t size = static_cast<uint16_t>(n);
            TryShape({psui::kSpecVersion, psui::kDriverVersion, size, other});
            TryShape({psui::kSpecVersion, psui::kDriverVersion, other, size});
        }
}

TEST_F(Exhaustive, BoundarySizesMergeToAStableRecord)
{
    for (const uint16_t size : kBoundarySizes)
        for (const uint16_t extra : kBoundarySizes)
            for (const uint16_t version : {uint16_t{0}, psui::kSpecVersion})
                ASSERT_EQ(CheckMerge(record_, Place({version, psui::kDriverVersion, size, extra}), model_),
                          "")
                    << "dmSize " << size << ", dmDriverExtra " << extra << ", version " << version;
}

TEST_F(Exhaustive, EveryCutOfAnOwnRecordMerges)
{
    const BYTE* whole = reinterpret_cast<const BYTE*>(&record_);
    for (size_t length = psui::kHeaderSize; length <= sizeof(record_) && !HasFatalFailure(); ++length) {
        BYTE* record = memory_.Last(length);
        std::copy_n(whole, length, record);
        const uint16_t publicSize = static_cast<uint16_t>(std::min<size_t>(length, psui::kPublicSize));
        psui::SetShape(record, {psui::kSpecVersion, psui::kDriverVersion, publicSize,
                                static_cast<uint16_t>(length - publicSize)});
        ASSERT_EQ(CheckMerge(record_, reinterpret_cast<DEVMODEW*>(record), model_), "") << length;
    }
}

TEST_F(Exhaustive, EveryValueOfEveryByteMergesToARecordInRange)
{
    const BYTE* whole = reinterpret_cast<const BYTE*>(&record_);
    // The header states how many bytes the record has; those are the sweeps above.
    constexpr size_t kSizes = offsetof(DEVMODEW, dmSize);
    BYTE* record = memory_.Last(sizeof(record_));
    for (size_t at = 0; at < sizeof(record_); ++at) {
        std::copy_n(whole, sizeof(record_), record);
        for (int value = 0; value < 256 && !(kSizes <= at && at < psui::kHeaderSize); ++value) {
            record[at] = static_cast<BYTE>(value);
            ASSERT_EQ(CheckMerge(record_, reinterpret_cast<DEVMODEW*>(record), model_), "")
                << "byte " << at << " = " << value;
        }
    }
}

} // namespace
