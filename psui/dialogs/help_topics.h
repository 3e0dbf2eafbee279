#pragma once
// Topics of the help file, and the controls that they explain.
#include <span>

#include <windows.h>

namespace psui {

/// The page of a topic, in the help file; null for an unknown one.
const WCHAR* HelpPage(DWORD topic);

/// A control of any dialog and the topic that explains it. A topic id of 0 is the contents', never a
/// control's.
struct ControlTopic
{
    int control;
    DWORD topic;
};

/// In the order in which dialogs look for the control under the pointer.
std::span<const ControlTopic> ControlTopics();

/// The topic of a control; 0 for one without help.
DWORD TopicOfControl(int control);

/// Where the small window goes whose upper edge has `pointer` in its middle: a third of the desktop each way,
/// and a margin inside of it.
RECT SmallHelpPlace(POINT pointer, SIZE desktop);

} // namespace psui
