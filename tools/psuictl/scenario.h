#pragma once
// Scenarios: text files of what a user does with dialogs and what he then expects to see, a line a step.
// docs/scenarios.md defines them; the table in scenario.cpp holds every form that a step can have.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace psuictl {

enum class StepKind
{
    // What the user does
    Click,
    DoubleClick,
    RightClick,
    Check,
    SelectText,
    SelectIndex,
    SelectData,
    TypeInto,
    Type,
    Key,
    Tab,
    MouseDown,
    MouseMove,
    MouseUp,
    Answer,
    GiveFile, ///< to the next common dialog
    GiveColor,
    GiveFont,
    GiveNothing,
    Advance,
    Wait,
    Close,
    Shot,
    // What he expects
    ExpectChecked,
    ExpectEnabled,
    ExpectVisible,
    ExpectFocus,
    ExpectText,
    ExpectContains,
    ExpectItems,
    ExpectCount,
    ExpectSelected,
    ExpectIndex,
    ExpectData,
    ExpectTabStop,
    ExpectRecord,
    ExpectMessage,
    ExpectIcon,
    ExpectCaption,
    ExpectRecorded,
    ExpectResult,
};

/// One argument of a step.
struct StepValue
{
    std::string text;      ///< as written, quotes and escapes undone
    int64_t number = 0;    ///< of a number, control or text id; 1 for "on", 0 for "off"
    bool isTextId = false; ///< a text of the language module, by id
};

struct Step
{
    int line; ///< from 1
    StepKind kind;
    std::vector<StepValue> values; ///< in the order of the form's placeholders
    std::string source;            ///< the line without comment and outer blanks
};

/// A scenario that cannot be read: its line, from 1, and why.
struct ScenarioError
{
    int line = 0;
    std::string reason;
};

/// Reads a scenario (UTF-8). Returns false with `error` set, and `steps` empty, for the first line that is no
/// step.
bool ParseScenario(std::string_view text, std::vector<Step>& steps, ScenarioError& error);

/// The id of a control, dialog or text by its name ("IDC_SETTINGS", "IDS_NOTICE", "IDOK"); -1 for a name that
/// nobody knows.
int64_t FindResourceName(std::string_view name);

/// The name of a control's id with its number, for complaints: "IDC_SETTINGS (3032)".
std::string ControlName(int64_t id);

} // namespace psuictl
