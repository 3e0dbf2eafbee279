#pragma once
// Plays a scenario on the dialogs of the calling thread.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/psuictl/platform.h"
#include "tools/psuictl/record_file.h"
#include "tools/psuictl/scenario.h"

namespace psuictl {

/// What a scenario can ask besides the dialogs themselves.
struct Stage
{
    /// The settings record as it is now, or null when there is none to look at.
    std::function<const uint8_t*()> record;
    /// A text of the language module, UTF-8.
    std::function<std::string(int id)> text;
    /// Folder of the pictures, empty for the current one.
    std::string shotFolder;
    /// Where notes about what could not be checked go.
    std::ostream* notes;
};

/// What a failed step says.
struct ScenarioFailure
{
    int line;
    std::string source;
    std::string reason; ///< "expected ..., found ..."
};

class ScenarioPlayer
{
public:
    ScenarioPlayer(std::vector<Step> steps, Stage stage);

    /// Plays on, when nothing else is to be done; one step a call. Returns whether it did something. After a
    /// failure, and after the last step, it closes what is still open.
    bool Play();

    /// Plays what is left once the dialogs are closed; `result` is what the sheet ended with.
    void Finish(int64_t result);

    const std::optional<ScenarioFailure>& failure() const { return failure_; }
    size_t played() const { return next_; }

private:
    bool PlayStep();
    bool CloseWhatIsOpen();
    void Fail(const Step& step, const std::string& reason);

    std::vector<Step> steps_;
    Stage stage_;
    size_t next_ = 0;
    bool playing_ = false; ///< a step that is being played made a loop run
    unsigned waited_ = 0;  ///< ms that the next step has waited for what it needs
    std::optional<int64_t> result_;
    size_t eventsBefore_ = 0; ///< recorded before the scenario began
    int closings_ = 0;
    std::optional<ScenarioFailure> failure_;
};

} // namespace psuictl
