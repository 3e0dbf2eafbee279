#include "tools/psuictl/model_commands.h"

namespace psuictl {
namespace {

constexpr Parameter kCompileParameters[] = {
    {"FILE", nullptr, "model description texts", ParameterKind::Text, true, true},
    {"-o,--output", "IMAGE", "also write the image to this file (one FILE only; - is standard output)"},
};
constexpr Parameter kShowParameters[] = {
    {"FILE", nullptr, "a model description text or a model image (- is standard input)", ParameterKind::Text,
     true},
};
constexpr Parameter kLintParameters[] = {
    {"FILE", nullptr, "model description texts (- is standard input)", ParameterKind::Text, true, true},
};

constexpr Command kCommands[] = {
    {"compile", "load models as the driver does, which writes the image beside the text", kCompileParameters,
     "  psuictl model compile models/*.ppd\n"
     "  psuictl model compile office.ppd -o /tmp/office.BDD\n",
     RunModelCompile},
    {"show", "explain a model: features, options, geometry, constraints", kShowParameters,
     "  psuictl model show office.ppd\n"
     "  psuictl model show office.BDD --json\n",
     RunModelShow},
    {"lint", "tell what the compiler skips, and why", kLintParameters,
     "  psuictl model lint models/*.ppd\n"
     "  psuictl model lint - < office.ppd\n",
     RunModelLint},
};

} // namespace

extern const CommandFamily kModelFamily = {"model", "model descriptions and their images", kCommands};

} // namespace psuictl
