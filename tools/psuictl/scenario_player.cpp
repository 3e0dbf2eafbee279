#include "tools/psuictl/scenario_player.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>

#include "tools/psuictl/common_dialogs.h"
#include "tools/psuictl/desktop.h"
#include "tools/psuictl/dialog_window.h"
#include "tools/psuictl/failure.h"
#include "tools/psuictl/files.h"
#include "tools/psuictl/record_value.h"

namespace psuictl {
namespace {

constexpr unsigned kPatience = 5000; // ms, for what a step needs to come about
constexpr unsigned kPause = 10;      // ms between looks
constexpr int kMaxClosings = 100;

/// How a step went.
struct Outcome
{
    enum Kind
    {
        Done,
        NotYet, ///< looked for again, up to a limit
        Failed,
    };

    Kind kind = Done;
    std::string reason;
};

Outcome Failed(std::string reason)
{
    return {Outcome::Failed, std::move(reason)};
}

Outcome NotYet(std::string reason)
{
    return {Outcome::NotYet, std::move(reason)};
}

/// What a step is played on.
struct Scene
{
    const Step& step;
    const Stage& stage;
    HWND dialog;                   ///< on top; null when none is open
    unsigned waited;               ///< ms since the step was first tried
    std::optional<int64_t> result; ///< of the sheet, once it is closed
    size_t eventsBefore;

    const StepValue& value(size_t index) const { return step.values[index]; }
    int64_t number(size_t index) const { return value(index).number; }

    std::string text(size_t index) const
    {
        return value(index).isTextId ? stage.text(static_cast<int>(value(index).number)) : value(index).text;
    }

    /// The texts from `first` on, one behind the other.
    std::string textsFrom(size_t first) const
    {
        std::string all;
        for (size_t i = first; i < step.values.size(); ++i)
            all += text(i);
        return all;
    }
};

std::string Quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

std::string DialogName(HWND dialog)
{
    return dialog ? "the dialog " + Quoted(WindowText(dialog)) : "no dialog";
}

/// Compares what was expected with what is there.
Outcome Expect(const std::string& expected, const std::string& found)
{
    return expected == found ? Outcome() : NotYet("expected " + expected + ", found " + found);
}

Outcome ExpectNumber(int64_t expected, int64_t found)
{
    return Expect(std::to_string(expected), std::to_string(found));
}

Outcome ExpectQuoted(const std::string& expected, const std::string& found)
{
    return Expect(Quoted(expected), Quoted(found));
}

Outcome ExpectSwitch(bool expected, bool found)
{
    return Expect(expected ? "on" : "off", found ? "on" : "off");
}

/// Runs `act` with the control that the step names first.
template <typename Act>
Outcome WithControl(const Scene& scene, Act act)
{
    if (!scene.dialog)
        return NotYet("no dialog is open");
    const HWND control = FindControl(scene.dialog, scene.number(0));
    if (!control)
        return NotYet(DialogName(scene.dialog) + " has no control " + ControlName(scene.number(0)));
    return act(control);
}

/// The same with a control that a user can reach.
template <typename Act>
Outcome WithUsable(const Scene& scene, Act act)
{
    return WithControl(scene, [&](HWND control) {
        if (!IsWindowVisible(control))
            return NotYet("control " + ControlName(scene.number(0)) + " is not visible");
        if (!IsWindowEnabled(control))
            return NotYet("control " + ControlName(scene.number(0)) + " is disabled");
        return act(control);
    });
}

template <typename Act>
Outcome WithList(const Scene& scene, Act act)
{
    return WithControl(scene, [&](HWND control) {
        const std::optional<ListContents> contents = ReadList(control);
        return contents ? act(*contents) : Failed("control " + ControlName(scene.number(0)) + " is no list");
    });
}

std::string SelectedText(const ListContents& contents)
{
    return contents.selected >= 0 ? Quoted(contents.texts[static_cast<size_t>(contents.selected)])
                                  : "nothing selected";
}

std::string Joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : " ") + Quoted(text);
    return all.empty() ? "no entries" : all;
}

// What the user does

Outcome Click(const Scene& scene)
{
    return WithUsable(scene, [&](HWND control) {
        PostClick(control, CentreOf(control), scene.step.kind == StepKind::DoubleClick);
        return Outcome();
    });
}

Outcome RightClick(const Scene& scene)
{
    return WithUsable(scene, [&](HWND control) {
        PostMouse(control, WM_RBUTTONDOWN, MK_RBUTTON, CentreOf(control));
        PostMouse(control, WM_RBUTTONUP, 0, CentreOf(control));
        return Outcome();
    });
}

Outcome Check(const Scene& scene)
{
    return WithUsable(scene, [&](HWND control) {
        const bool on = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
        if (on != (scene.number(1) != 0))
            PostClick(control, CentreOf(control), false);
        return Outcome();
    });
}

Outcome Select(const Scene& scene)
{
    return WithUsable(scene, [&](HWND control) {
        const std::optional<ListContents> contents = ReadList(control);
        if (!contents)
            return Failed("control " + ControlName(scene.number(0)) + " is no list");
        int64_t index = scene.number(1);
        if (scene.step.kind == StepKind::SelectText) {
            const auto at = std::find(contents->texts.begin(), contents->texts.end(), scene.text(1));
            index = at != contents->texts.end() ? at - contents->texts.begin() : -1;
        }
        if (scene.step.kind == StepKind::SelectData) {
            const auto at = std::find(contents->data.begin(), contents->data.end(), scene.number(1));
            index = at != contents->data.end() ? at - contents->data.begin() : -1;
        }
        return SelectEntry(control, static_cast<int>(index))
                   ? Outcome()
                   : NotYet("the list has no such entry; it has " + Joined(contents->texts));
    });
}

void PostText(HWND window, const std::string& text)
{
    for (const WCHAR unit : Wide(text))
        PostMessageW(window, WM_CHAR, unit == '\n' ? WPARAM{'\r'} : WPARAM{unit}, 1);
}

Outcome TypeInto(const Scene& scene)
{
    return WithUsable(scene, [&](HWND control) {
        SetFocus(control);
        SendMessageW(control, EM_SETSEL, 0, -1);
        PostText(control, scene.text(1));
        return Outcome();
    });
}

Outcome Type(const Scene& scene)
{
    const HWND focus = GetFocus();
    if (!focus)
        return NotYet("no control has the focus");
    PostText(focus, scene.text(0));
    return {};
}

struct KeyName
{
    const char* name;
    int key;
};

constexpr KeyName kKeys[] = {
    {"enter", VK_RETURN},  {"esc", VK_ESCAPE},     {"tab", VK_TAB},      {"space", VK_SPACE},
    {"up", VK_UP},         {"down", VK_DOWN},      {"left", VK_LEFT},    {"right", VK_RIGHT},
    {"home", VK_HOME},     {"end", VK_END},        {"pageup", VK_PRIOR}, {"pagedown", VK_NEXT},
    {"delete", VK_DELETE}, {"backspace", VK_BACK}, {"f1", VK_F1},        {"f4", VK_F4},
};

constexpr KeyName kModifiers[] = {
    {"shift+", platform::kShiftHeld},
    {"ctrl+", platform::kControlHeld},
    {"alt+", platform::kAltHeld},
};

int KeyOf(const std::string& name)
{
    for (const KeyName& each : kKeys) {
        if (each.name == name)
            return each.key;
    }
    const bool letter = name.size() == 1 && name[0] >= 'a' && name[0] <= 'z';
    const bool digit = name.size() == 1 && name[0] >= '0' && name[0] <= '9';
    return letter ? name[0] - 'a' + 'A' : digit ? name[0] : 0;
}

Outcome Key(const Scene& scene)
{
    std::string name = scene.value(0).text;
    unsigned modifiers = 0;
    for (bool more = true; more;) {
        more = false;
        for (const KeyName& each : kModifiers) {
            if (!name.starts_with(each.name))
                continue;
            modifiers |= static_cast<unsigned>(each.key);
            name.erase(0, std::string_view(each.name).size());
            more = true;
        }
    }
    const int key = KeyOf(name);
    if (key == 0)
        return Failed("'" + name + "' is no key");
    if (!scene.dialog)
        return NotYet("no dialog is open");
    platform::PressKey(key, modifiers);
    return {};
}

Outcome Tab(const Scene& scene)
{
    if (!scene.dialog)
        return NotYet("no dialog is open");
    const int64_t count = scene.step.values.empty() ? 1 : scene.number(0);
    for (int64_t i = 0; i < std::abs(count); ++i)
        platform::PressKey(VK_TAB, count < 0 ? platform::kShiftHeld : 0);
    return {};
}

/// The window that gets the mouse at `place` of a control, which becomes its own: what is disabled leaves the
/// mouse to the windows it is in.
HWND WindowUnderMouse(HWND control, POINT& place)
{
    HWND window = control;
    while (!IsWindowEnabled(window) && GetParent(window))
        window = GetParent(window);
    MapWindowPoints(control, window, &place, 1);
    return window;
}

Outcome Mouse(const Scene& scene)
{
    return WithControl(scene, [&](HWND control) {
        if (!IsWindowVisible(control))
            return NotYet("control " + ControlName(scene.number(0)) + " is not visible");
        POINT place = {static_cast<LONG>(scene.number(1)), static_cast<LONG>(scene.number(2))};
        const HWND window = WindowUnderMouse(control, place);
        const bool down = scene.step.kind == StepKind::MouseDown;
        const bool held = down || (scene.step.kind == StepKind::MouseMove && GetCapture() != nullptr);
        const UINT message = down                                   ? WM_LBUTTONDOWN
                             : scene.step.kind == StepKind::MouseUp ? WM_LBUTTONUP
                                                                    : WM_MOUSEMOVE;
        PostMouse(window, message, held ? MK_LBUTTON : 0, place);
        return Outcome();
    });
}

struct AnswerName
{
    const char* name;
    int button;
};

constexpr AnswerName kAnswers[] = {
    {"ok", IDOK},       {"cancel", IDCANCEL}, {"yes", IDYES},       {"no", IDNO},
    {"retry", IDRETRY}, {"abort", IDABORT},   {"ignore", IDIGNORE}, {"help", IDHELP},
};

Outcome Answer(const Scene& scene)
{
    const std::string& name = scene.value(0).text;
    const auto answer = std::find_if(std::begin(kAnswers), std::end(kAnswers),
                                     [&](const AnswerName& each) { return each.name == name; });
    if (answer == std::end(kAnswers))
        return Failed("'" + name + "' is no answer");
    if (!scene.dialog)
        return NotYet("no dialog is open");
    const HWND button = GetDlgItem(scene.dialog, answer->button);
    if (!button || !IsWindowEnabled(button))
        return NotYet(DialogName(scene.dialog) + " has no button to answer " + name);
    PostClick(button, CentreOf(button), false);
    return {};
}

Outcome Choose(const Scene& scene)
{
    CommonDialogAnswer answer;
    switch (scene.step.kind) {
    case StepKind::GiveFile:
        answer = {CommonDialogKind::File, HostPath(scene.text(0)), 0};
        break;
    case StepKind::GiveColor:
        answer = {CommonDialogKind::Color, {}, static_cast<DWORD>(scene.number(0))};
        break;
    case StepKind::GiveFont:
        answer = {CommonDialogKind::Font, Wide(scene.text(0)), static_cast<DWORD>(scene.number(1))};
        break;
    default:
        break;
    }
    return ChooseDialogAnswer(answer) ? Outcome()
                                      : Failed("this host's common dialogs cannot be answered beforehand");
}

Outcome Advance(const Scene& scene)
{
    const bool passed =
        platform::PassTime(static_cast<unsigned>(scene.number(0))) || scene.waited >= scene.number(0);
    return passed ? Outcome() : NotYet("");
}

Outcome Wait(const Scene& scene)
{
    return WithControl(scene, [](HWND) { return Outcome(); });
}

Outcome Close(const Scene& scene)
{
    if (!scene.dialog)
        return NotYet("no dialog is open");
    PostMessageW(scene.dialog, WM_CLOSE, 0, 0);
    return {};
}

Outcome Shot(const Scene& scene)
{
    if (!scene.dialog)
        return NotYet("no dialog is open");
    const std::string& folder = scene.stage.shotFolder;
    if (!folder.empty())
        MakeFolder(folder);
    platform::Shoot(scene.dialog, (folder.empty() ? "" : folder + "/") + scene.value(0).text);
    return {};
}

// What the user expects

Outcome ExpectChecked(const Scene& scene)
{
    return WithControl(scene, [&](HWND control) {
        return ExpectSwitch(scene.number(1) != 0, SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED);
    });
}

Outcome ExpectEnabled(const Scene& scene)
{
    return WithControl(scene, [&](HWND control) {
        return ExpectSwitch(scene.number(1) != 0, IsWindowEnabled(control) != FALSE);
    });
}

Outcome ExpectVisible(const Scene& scene)
{
    return WithControl(scene, [&](HWND control) {
        return ExpectSwitch(scene.number(1) != 0, IsWindowVisible(control) != FALSE);
    });
}

Outcome ExpectFocus(const Scene& scene)
{
    return WithControl(scene, [&](HWND control) {
        const HWND focus = GetFocus();
        const std::string found = focus ? ControlName(GetDlgCtrlID(focus)) : "no focus";
        return focus == control ? Outcome() : Expect(ControlName(scene.number(0)), found);
    });
}

Outcome ExpectText(const Scene& scene)
{
    return WithControl(scene,
                       [&](HWND control) { return ExpectQuoted(scene.textsFrom(1), WindowText(control)); });
}

Outcome ExpectContains(const Scene& scene)
{
    return WithControl(scene, [&](HWND control) {
        const std::string expected = scene.textsFrom(1), found = WindowText(control);
        return found.find(expected) != std::string::npos
                   ? Outcome()
                   : NotYet("expected " + Quoted(expected) + " somewhere in " + Quoted(found));
    });
}

Outcome ExpectItems(const Scene& scene)
{
    return WithList(scene, [&](const ListContents& contents) {
        std::vector<std::string> expected;
        for (size_t i = 1; i < scene.step.values.size(); ++i)
            expected.push_back(scene.text(i));
        return Expect(Joined(expected), Joined(contents.texts));
    });
}

Outcome ExpectCount(const Scene& scene)
{
    return WithList(scene, [&](const ListContents& contents) {
        return ExpectNumber(scene.number(1), static_cast<int64_t>(contents.texts.size()));
    });
}

Outcome ExpectSelected(const Scene& scene)
{
    return WithList(scene, [&](const ListContents& contents) {
        return Expect(Quoted(scene.text(1)), SelectedText(contents));
    });
}

Outcome ExpectIndex(const Scene& scene)
{
    return WithList(scene, [&](const ListContents& contents) {
        return ExpectNumber(scene.number(1), contents.selected);
    });
}

Outcome ExpectData(const Scene& scene)
{
    return WithList(scene, [&](const ListContents& contents) {
        return contents.selected < 0
                   ? NotYet("nothing is selected")
                   : ExpectNumber(scene.number(1), contents.data[static_cast<size_t>(contents.selected)]);
    });
}

Outcome ExpectTabStop(const Scene& scene)
{
    return WithControl(scene, [&](HWND control) {
        const std::optional<int> stop = FirstTabStop(control);
        return stop ? ExpectNumber(scene.number(1), *stop) : NotYet("the text has no tab");
    });
}

Outcome ExpectRecord(const Scene& scene)
{
    const RecordField* const field = FindRecordField(scene.value(0).text);
    if (!field)
        return Failed("'" + scene.value(0).text + "' is no field of the record");
    const uint8_t* const record = scene.stage.record();
    if (!record)
        return Failed("there is no settings record to look at");
    Bytes expected(field->width);
    SetValue(*field, scene.value(1).text, expected.data());
    const uint8_t* const found = record + field->offset;
    return std::equal(expected.begin(), expected.end(), found)
               ? Outcome()
               : Expect(ShowValue(*field, expected.data()), ShowValue(*field, found));
}

Outcome ExpectMessage(const Scene& scene)
{
    if (!scene.dialog)
        return NotYet("no dialog is open");
    return ExpectQuoted(scene.textsFrom(0), MessageText(scene.dialog));
}

struct IconName
{
    const char* name;
    LPCWSTR icon;
};

const IconName kIcons[] = {
    {"error", IDI_HAND},
    {"question", IDI_QUESTION},
    {"exclamation", IDI_EXCLAMATION},
    {"information", IDI_ASTERISK},
};

std::string NameOfIcon(HICON icon)
{
    for (const IconName& each : kIcons) {
        if (LoadIconW(nullptr, each.icon) == icon)
            return each.name;
    }
    return icon ? "another" : "none";
}

Outcome ExpectIcon(const Scene& scene)
{
    if (!scene.dialog)
        return NotYet("no dialog is open");
    return Expect(scene.value(0).text, NameOfIcon(MessageIcon(scene.dialog)));
}

Outcome ExpectCaption(const Scene& scene)
{
    if (!scene.dialog)
        return NotYet("no dialog is open");
    return ExpectQuoted(scene.text(0), WindowText(scene.dialog));
}

Outcome ExpectRecorded(const Scene& scene)
{
    if (!platform::IsRecording()) {
        *scene.stage.notes
            << "psuictl: line " << scene.step.line
            << " is not checked: this host records no launches, pages, help requests or beeps\n";
        return {};
    }
    const bool detailed = scene.step.values.size() > 2;
    const auto describe = [=](const std::string& text, const std::string& detail) {
        return detailed ? text + " (" + detail + ")" : text;
    };
    const std::string expected = describe(scene.text(1), detailed ? scene.text(2) : "");
    const std::vector<platform::RecordedEvent> events = platform::Recorded();
    std::vector<std::string> found;
    for (size_t i = scene.eventsBefore; i < events.size(); ++i) {
        if (events[i].kind == scene.value(0).text)
            found.push_back(describe(events[i].text, events[i].detail));
    }
    const bool there = std::find(found.begin(), found.end(), expected) != found.end();
    return there ? Outcome() : NotYet("expected " + Quoted(expected) + ", found " + Joined(found));
}

std::string ResultName(int64_t result)
{
    return result == 1 ? "ok" : result == 0 ? "cancel" : std::to_string(result);
}

Outcome ExpectResult(const Scene& scene)
{
    if (!scene.result)
        return NotYet("the sheet is still open: " + DialogName(scene.dialog));
    return Expect(scene.value(0).text, ResultName(*scene.result));
}

struct Player
{
    StepKind kind;
    Outcome (*play)(const Scene& scene);
};

constexpr Player kPlayers[] = {
    {StepKind::Click, Click},
    {StepKind::DoubleClick, Click},
    {StepKind::RightClick, RightClick},
    {StepKind::Check, Check},
    {StepKind::SelectText, Select},
    {StepKind::SelectIndex, Select},
    {StepKind::SelectData, Select},
    {StepKind::TypeInto, TypeInto},
    {StepKind::Type, Type},
    {StepKind::Key, Key},
    {StepKind::Tab, Tab},
    {StepKind::MouseDown, Mouse},
    {StepKind::MouseMove, Mouse},
    {StepKind::MouseUp, Mouse},
    {StepKind::Answer, Answer},
    {StepKind::GiveFile, Choose},
    {StepKind::GiveColor, Choose},
    {StepKind::GiveFont, Choose},
    {StepKind::GiveNothing, Choose},
    {StepKind::Advance, Advance},
    {StepKind::Wait, Wait},
    {StepKind::Close, Close},
    {StepKind::Shot, Shot},
    {StepKind::ExpectChecked, ExpectChecked},
    {StepKind::ExpectEnabled, ExpectEnabled},
    {StepKind::ExpectVisible, ExpectVisible},
    {StepKind::ExpectFocus, ExpectFocus},
    {StepKind::ExpectText, ExpectText},
    {StepKind::ExpectContains, ExpectContains},
    {StepKind::ExpectItems, ExpectItems},
    {StepKind::ExpectCount, ExpectCount},
    {StepKind::ExpectSelected, ExpectSelected},
    {StepKind::ExpectIndex, ExpectIndex},
    {StepKind::ExpectData, ExpectData},
    {StepKind::ExpectTabStop, ExpectTabStop},
    {StepKind::ExpectRecord, ExpectRecord},
    {StepKind::ExpectMessage, ExpectMessage},
    {StepKind::ExpectIcon, ExpectIcon},
    {StepKind::ExpectCaption, ExpectCaption},
    {StepKind::ExpectRecorded, ExpectRecorded},
    {StepKind::ExpectResult, ExpectResult},
};

constexpr bool IsInOrder()
{
    for (size_t i = 0; i < std::size(kPlayers); ++i) {
        if (static_cast<size_t>(kPlayers[i].kind) != i)
            return false;
    }
    return true;
}
static_assert(IsInOrder(), "kPlayers is indexed by StepKind");

/// Plays the step. A step that cannot even be tried fails it.
Outcome PlayOn(const Scene& scene)
{
    try {
        return kPlayers[static_cast<size_t>(scene.step.kind)].play(scene);
    } catch (const Failure& failure) {
        return Failed(failure.what());
    }
}

} // namespace

ScenarioPlayer::ScenarioPlayer(std::vector<Step> steps, Stage stage)
    : steps_(std::move(steps)), stage_(std::move(stage))
{
    if (platform::IsRecording())
        eventsBefore_ = platform::Recorded().size();
}

void ScenarioPlayer::Fail(const Step& step, const std::string& reason)
{
    failure_ = {step.line, step.source, reason};
}

bool ScenarioPlayer::PlayStep()
{
    const Step& step = steps_[next_];
    const Outcome outcome = PlayOn({step, stage_, TopDialog(), waited_, result_, eventsBefore_});
    // A sheet that is closed changes no more, so there is nothing to wait for; only the passing of time.
    const bool patient = step.kind == StepKind::Advance || (!result_ && waited_ < kPatience);
    if (outcome.kind == Outcome::NotYet && patient) {
        if (!platform::PassTime(kPause))
            Sleep(kPause);
        waited_ += kPause;
        return true;
    }
    waited_ = 0;
    ++next_;
    if (outcome.kind != Outcome::Done)
        Fail(step, outcome.reason);
    return true;
}

bool ScenarioPlayer::CloseWhatIsOpen()
{
    const HWND dialog = TopDialog();
    if (!dialog)
        return false;
    if (!failure_)
        failure_ = {steps_.empty() ? 0 : steps_.back().line, "",
                    "the scenario ends while " + DialogName(dialog) + " is still open"};
    if (++closings_ > kMaxClosings) {
        // Nothing can be unwound from inside the library's dialogs.
        std::cerr << "psuictl: line " << failure_->line << ": " << failure_->reason << "; "
                  << DialogName(dialog) << " cannot be closed\n";
        std::_Exit(kFailed);
    }
    PostMessageW(dialog, WM_CLOSE, 0, 0);
    return true;
}

bool ScenarioPlayer::Play()
{
    if (playing_)
        return false;
    playing_ = true;
    const bool more = !failure_ && next_ < steps_.size();
    const bool acted = more ? PlayStep() : CloseWhatIsOpen();
    playing_ = false;
    return acted;
}

void ScenarioPlayer::Finish(int64_t result)
{
    result_ = result;
    while (!failure_ && next_ < steps_.size())
        PlayStep();
}

} // namespace psuictl
