// Timers. A timer that is due makes one WM_TIMER, however often its period went by.
#include <algorithm>

#include "host/window/room.h"

namespace host {

bool NextTimerDue(const Queue& queue, uint64_t& due)
{
    const auto next = std::min_element(queue.timers.begin(), queue.timers.end(),
                                       [](const Timer& a, const Timer& b) { return a.due < b.due; });
    if (next == queue.timers.end())
        return false;
    due = next->due;
    return true;
}

bool TakeTimer(Queue& queue, HWND window, UINT first, UINT last, bool remove, MSG& message)
{
    if ((first != 0 || last != 0) && (WM_TIMER < first || WM_TIMER > last))
        return false;
    const uint64_t now = RoomTime();
    Timer* next = nullptr;
    for (Timer& each : queue.timers) {
        const bool wanted = window == nullptr || each.window == window || IsChild(window, each.window);
        if (wanted && each.due <= now && (next == nullptr || each.due < next->due))
            next = &each;
    }
    if (next == nullptr)
        return false;
    message = {next->window,
               WM_TIMER,
               next->id,
               reinterpret_cast<LPARAM>(next->procedure),
               static_cast<DWORD>(now),
               queue.messagePoint};
    if (remove)
        next->due = now + next->period;
    return true;
}

} // namespace host

using namespace host;

UINT_PTR WINAPI SetTimer(HWND handle, UINT_PTR id, UINT period, TIMERPROC procedure)
{
    HOST_CALL(SetTimer, 0, ERROR_NOT_ENOUGH_MEMORY);
    if (handle != nullptr && OwnWindowOf(handle) == nullptr)
        return 0;
    const std::shared_ptr<Queue> queue = CurrentQueue();
    period = std::clamp<UINT>(period, USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
    const auto found = std::find_if(queue->timers.begin(), queue->timers.end(), [=](const Timer& each) {
        return each.window == handle && each.id == id;
    });
    const uint64_t due = RoomTime() + period;
    if (found != queue->timers.end()) {
        *found = {handle, id, period, procedure, due};
        return handle != nullptr && id == 0 ? 1 : id;
    }
    if (handle == nullptr)
        id = queue->nextTimer++;
    queue->timers.push_back({handle, id, period, procedure, due});
    return handle != nullptr && id == 0 ? 1 : id;
}

BOOL WINAPI KillTimer(HWND handle, UINT_PTR id)
{
    HOST_CALL_VOID(KillTimer);
    return std::erase_if(CurrentQueue()->timers,
                         [=](const Timer& each) { return each.window == handle && each.id == id; }) != 0;
}
