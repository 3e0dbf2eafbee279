#include "tools/psuictl/command.h"

#include "tools/psuictl/text.h"

namespace psuictl {

extern const CommandFamily kPrinterFamily;
extern const CommandFamily kCapsFamily;
extern const CommandFamily kConvertFamily;
extern const CommandFamily kRecordFamily;
extern const CommandFamily kModelFamily;
extern const CommandFamily kCheckFamily;
extern const CommandFamily kEventFamily;
extern const CommandFamily kMonitorFamily;
extern const CommandFamily kHostFamily;
extern const CommandFamily kPreferencesFamily;
extern const CommandFamily kPropertiesFamily;
extern const CommandFamily kSummaryFamily;

std::span<const CommandFamily* const> CommandFamilies()
{
    static constexpr const CommandFamily* kFamilies[] = {
        &kPrinterFamily, &kCapsFamily,        &kConvertFamily,    &kRecordFamily,
        &kModelFamily,   &kCheckFamily,       &kEventFamily,      &kMonitorFamily,
        &kHostFamily,    &kPreferencesFamily, &kPropertiesFamily, &kSummaryFamily,
    };
    return kFamilies;
}

const std::vector<std::string>& Arguments::All(const std::string& name) const
{
    static const std::vector<std::string> kNone;
    const auto found = values_.find(name);
    return found == values_.end() ? kNone : found->second;
}

std::string Arguments::Text(const std::string& name, const std::string& fallback) const
{
    const std::vector<std::string>& values = All(name);
    return values.empty() ? fallback : values.front();
}

std::optional<int64_t> Arguments::Number(const std::string& name) const
{
    return Has(name) ? ParseNumber(All(name).front()) : std::nullopt;
}

} // namespace psuictl
