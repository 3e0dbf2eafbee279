#pragma once
// What the shell room's files share.
#include <string>
#include <string_view>

namespace host {

/// The user's profile folder, a Windows path.
std::u16string UserFolder();

/// Makes the folders that an installed system has for its user. They may be there already.
void MakeUserFolders();

/// The application-data folder can be found again.
void ResetFolders();

/// The user is "user" again.
void ResetUser();

/// Launches work again.
void ResetLaunches();

/// Help windows are closed.
void ResetHelp();

/// Adds to what host::Recorded lists.
void RecordEvent(const std::string& kind, std::u16string_view text, std::u16string_view detail);

/// Makes the table of recorded events.
bool OpenEvents(std::string* error);

} // namespace host
