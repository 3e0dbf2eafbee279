#include <algorithm>
#include <cstring>

#include "psui/model/queries.h"
#include "psui/settings/copy.h"
#include "psui/settings/record.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

/// Papers that resolving marks as borderless; narrower than the group that the merge marks.
constexpr struct
{
    short first, last;
} kResolvedBorderless[] = {{274, 281}, {283, 285}, {290, 292}};

bool ResolvesBorderless(short paper)
{
    return std::any_of(std::begin(kResolvedBorderless), std::end(kResolvedBorderless),
                       [=](const auto& range) { return range.first <= paper && paper <= range.last; });
}

/// Tenths of a millimetre to 24.8 points, in whole points.
uint32_t Points256OfTenths(uint32_t tenths)
{
    return (tenths * 100 / 254 * 72 / 100) << 8;
}

const ModelOption* PaperWithId(const ModelDescription* model, int paper)
{
    return FindFirstMatching(
        FirstOption(BuiltinFeature(model, kFeaturePaper)),
        [=](const ModelOption* option) { return DecimalOf(option->invocation.get()) == paper ? 0 : 1; });
}

void TakeListedSize(const ModelDescription* model, const ModelOption* paper, PaperForm* form)
{
    const ModelOption* size =
        FindByName(FirstOption(BuiltinFeature(model, kFeaturePageSize)), paper->name.get());
    if (!size)
        return;
    const auto* pageSize = reinterpret_cast<const PageSizeOption*>(size);
    form->width = pageSize->width;
    form->height = pageSize->height;
}

/// The fields that resolving works on, inside a caller's record of any size.
class ForeignRecord
{
public:
    explicit ForeignRecord(DEVMODEW* record)
        : bytes_(reinterpret_cast<BYTE*>(record)), own_(IsOwnRecord(record))
    {
        std::memcpy(&public_, record, std::min<size_t>(ShapeOf(record).publicSize, sizeof(public_)));
    }

    const DEVMODEW& Public() const { return public_; }
    bool IsOwn() const { return own_; }

    template <typename Field>
    Field Private(size_t offset) const
    {
        Field value = {};
        if (own_)
            std::memcpy(&value, bytes_ + kPublicSize + offset, sizeof(value));
        return value;
    }

    void SetBorderless(bool borderless)
    {
        if (own_)
            bytes_[kPublicSize + offsetof(PrivateDevMode, bBorderless)] = borderless;
    }

    void SetFormName(const WCHAR (&name)[CCHFORMNAME])
    {
        if (ShapeOf(bytes_).publicSize >= offsetof(DEVMODEW, dmFormName) + sizeof(name))
            std::memcpy(bytes_ + offsetof(DEVMODEW, dmFormName), name, sizeof(name));
    }

private:
    BYTE* bytes_;
    bool own_;
    DEVMODEW public_ = {};
};

} // namespace

ResolvedPaper ResolvePaper(HANDLE, DEVMODEW* record, PaperForm* form, const ModelDescription* model)
{
    *form = {};
    ForeignRecord foreign(record);
    if ((foreign.Public().dmFields & DM_PAPERSIZE) == 0)
        return ResolvedPaper::Unknown;

    const short id = foreign.Public().dmPaperSize;
    const ModelOption* paper = PaperWithId(model, id);
    if (paper) {
        WideFromNarrow(form->name, paper->name.get(), CCHFORMNAME);
        foreign.SetFormName(form->name);
    }
    if (id == DMPAPER_USER) {
        form->width = Points256OfTenths(foreign.Private<uint16_t>(offsetof(PrivateDevMode, wCustomWidth)));
        form->height = Points256OfTenths(foreign.Private<uint16_t>(offsetof(PrivateDevMode, wCustomLength)));
        return ResolvedPaper::User;
    }
    foreign.SetBorderless(ResolvesBorderless(id));
    if (!paper)
        return ResolvedPaper::Unknown;
    TakeListedSize(model, paper, form);
    return ResolvedPaper::Listed;
}

} // namespace psui
