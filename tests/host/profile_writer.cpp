// Writes entries into a section of a private-profile file of a world, as another process would.
//   profile_writer ROOT FILE SECTION COUNT
#include <cstdlib>
#include <string>

#include <windows.h>

#include "host/host.h"

int main(int count, char** arguments)
{
    if (count != 5 || !host::Open({arguments[1]}, nullptr))
        return 2;
    const auto wide = [](const char* text) {
        return std::u16string(text, text + std::string_view(text).size());
    };
    const std::u16string file = wide(arguments[2]);
    const std::u16string section = wide(arguments[3]);
    bool done = true;
    for (int i = 0; i < std::atoi(arguments[4]); ++i) {
        const std::u16string number = wide(std::to_string(i).c_str());
        done =
            done && WritePrivateProfileStringW(section.c_str(), number.c_str(), number.c_str(), file.c_str());
    }
    GlobalAddAtomW((u"writer of " + section).c_str());
    WinExec("writer.exe", SW_HIDE);
    host::Close();
    return done ? 0 : 1;
}
