// Messages: sent ones, which are calls, and the queues of threads.
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <ctime>
#include <map>
#include <sys/stat.h>

#include "host/host.h"
#include "host/pace.h"
#include "host/window/handles.h"

namespace host {
namespace {

constexpr UINT kFirstRegistered = 0xC000;
constexpr uint64_t kWaitForThreads = 10000; // ms without anything to do, while other threads may still send
constexpr int kDisplaySlice = 20;           // ms between looks at the display

std::mutex queueLock;
std::condition_variable queuesChanged;
std::map<DWORD, std::shared_ptr<Queue>> queues; // by thread
std::atomic<uint64_t> worldNumber = 1;
std::atomic<uint64_t> timeAhead = 0; // ms that the host advanced the clock
std::atomic<uint64_t> timeHeld = 0;  // ms at which the host stopped the clock; 0 while it runs
std::atomic<bool> paintingHeld = false;
std::map<std::u16string, UINT> registeredMessages;
std::function<bool()> idleHook;
thread_local std::shared_ptr<Queue> ownQueue;

uint64_t MachineTime()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000;
}

bool InRange(UINT message, UINT first, UINT last)
{
    return (first == 0 && last == 0) || (message >= first && message <= last);
}

const HWND kNoWindow = reinterpret_cast<HWND>(-1); // a filter for what was posted to the thread

bool IsFor(const MSG& message, HWND window)
{
    if (window == nullptr || message.hwnd == window)
        return true;
    return window == kNoWindow ? message.hwnd == nullptr : IsChild(window, message.hwnd);
}

bool TakePosted(Queue& queue, HWND window, UINT first, UINT last, bool remove, MSG& message)
{
    std::lock_guard lock(queueLock);
    for (auto each = queue.posted.begin(); each != queue.posted.end(); ++each) {
        if (!IsFor(*each, window) || !InRange(each->message, first, last))
            continue;
        message = *each;
        if (remove)
            queue.posted.erase(each);
        return true;
    }
    return false;
}

bool TakeQuit(Queue& queue, bool remove, MSG& message)
{
    if (!queue.quit)
        return false;
    message = {nullptr, WM_QUIT, static_cast<WPARAM>(queue.exitCode), 0, static_cast<DWORD>(RoomTime()), {}};
    if (remove)
        queue.quit = false;
    return true;
}

bool TakePaint(Queue& queue, HWND window, UINT first, UINT last, MSG& message)
{
    if (!InRange(WM_PAINT, first, last) || paintingHeld.load(std::memory_order_relaxed))
        return false;
    const HWND next = NextToPaint(queue);
    if (next == nullptr || (window != nullptr && next != window && !IsChild(window, next)))
        return false;
    message = {next, WM_PAINT, 0, 0, static_cast<DWORD>(RoomTime()), queue.messagePoint};
    return true;
}

/// In the platform's order: what others sent, what was posted, the quit mark, input, painting, timers.
bool Take(Queue& queue, HWND window, UINT first, UINT last, bool remove, MSG& message)
{
    ServeSent(queue);
    const bool found = TakePosted(queue, window, first, last, remove, message) ||
                       TakeQuit(queue, remove, message) ||
                       TakeInput(queue, window, first, last, remove, message) ||
                       TakePaint(queue, window, first, last, message) ||
                       TakeTimer(queue, window, first, last, remove, message);
    if (found && remove) {
        queue.messageTime = message.time;
        queue.messagePoint = message.pt;
    }
    return found;
}

bool OtherThreadsRun()
{
    struct stat tasks = {};
    constexpr nlink_t kOwnLinks = 3; // "." and "..", and the calling thread
    return stat("/proc/self/task", &tasks) == 0 && tasks.st_nlink > kOwnLinks;
}

/// Asks whoever may have something to do. Returns false when nothing ever can.
bool WaitForWork(Queue& queue, uint64_t idleSince)
{
    if (idleHook) {
        CallbackScope outside;
        if (idleHook())
            return true;
    }
    uint64_t due = 0;
    const uint64_t now = RoomTime();
    const bool timer = NextTimerDue(queue, due);
    const uint64_t untilTimer = timer ? (due > now ? due - now : 0) : kWaitForThreads;
    if (HasDisplay()) {
        PumpDisplay(static_cast<int>(std::min<uint64_t>(untilTimer, kDisplaySlice)));
        return true;
    }
    const bool others = OtherThreadsRun() && now - idleSince < kWaitForThreads;
    if (!timer && !others)
        return false;
    std::unique_lock lock(queueLock);
    if (queue.posted.empty() && queue.sent.empty() && queue.input.empty())
        queuesChanged.wait_for(lock,
                               std::chrono::milliseconds(std::min<uint64_t>(untilTimer, kDisplaySlice)));
    return true;
}

void Deliver(SentMessage& sent)
{
    const std::shared_ptr<Queue> queue = CurrentQueue();
    SentMessage* const outer = std::exchange(queue->serving, &sent);
    const MSG& m = sent.message;
    const WindowPtr window = LookUp(m.hwnd);
    const LRESULT result =
        window != nullptr ? CallProcedure(window->procedure, m.hwnd, m.message, m.wParam, m.lParam) : 0;
    queue->serving = outer;
    std::lock_guard lock(queueLock);
    if (!sent.done) {
        sent.result = result;
        sent.done = true;
    }
    queuesChanged.notify_all();
}

/// Hands a message to another thread; the caller serves its own queue while it waits.
bool SendAcross(Queue& target, const MSG& message, uint64_t timeout, LRESULT& result)
{
    const std::shared_ptr<Queue> own = CurrentQueue();
    const auto sent = std::make_shared<SentMessage>();
    sent->message = message;
    sent->sender = own;
    const uint64_t start = RoomTime();
    std::unique_lock lock(queueLock);
    target.sent.push_back(sent);
    queuesChanged.notify_all();
    while (!sent->done) {
        if (!own->sent.empty()) {
            lock.unlock();
            ServeSent(*own);
            lock.lock();
            continue;
        }
        if (RoomTime() - start >= timeout || !queues.contains(target.thread)) {
            std::erase(target.sent, sent);
            return false;
        }
        queuesChanged.wait_for(lock, std::chrono::milliseconds(kDisplaySlice));
    }
    result = sent->result;
    return true;
}

MSG MessageFor(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, static_cast<DWORD>(RoomTime()), CurrentQueue()->messagePoint};
}

bool Send(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, uint64_t timeout, LRESULT& result)
{
    result = 0;
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return false;
    if (window->queue == nullptr) // another program's: nobody is there to answer
        return true;
    if (window->queue != CurrentQueue())
        return SendAcross(*window->queue, MessageFor(handle, message, wParam, lParam), timeout, result);
    result = CallProcedure(window->procedure, handle, message, wParam, lParam);
    return true;
}

void SendToAll(UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const HWND window : ChildrenOf(Desktop())) {
        if (LookUp(window) != nullptr)
            SendMessageW(window, message, wParam, lParam);
    }
}

} // namespace

std::mutex& QueueLock()
{
    return queueLock;
}

void WakeQueues()
{
    queuesChanged.notify_all();
}

uint64_t RoomTime()
{
    const uint64_t held = timeHeld.load(std::memory_order_relaxed);
    return (held != 0 ? held : MachineTime()) + timeAhead.load(std::memory_order_relaxed);
}

void AdvanceTime(unsigned milliseconds)
{
    timeAhead.fetch_add(milliseconds, std::memory_order_relaxed);
    WakeQueues();
}

void HoldTime()
{
    timeHeld.store(MachineTime(), std::memory_order_relaxed);
}

void HoldPainting(bool held)
{
    paintingHeld.store(held, std::memory_order_relaxed);
}

void SetIdleHook(std::function<bool()> hook)
{
    idleHook = std::move(hook);
}

std::shared_ptr<Queue> CurrentQueue()
{
    // The queue ends with the world or with the thread.
    struct Leaver
    {
        ~Leaver()
        {
            if (ownQueue == nullptr)
                return;
            std::lock_guard lock(queueLock);
            const auto found = queues.find(ownQueue->thread);
            if (found != queues.end() && found->second == ownQueue)
                queues.erase(found);
            queuesChanged.notify_all();
        }
    };
    thread_local Leaver leaver;
    const uint64_t world = worldNumber.load(std::memory_order_relaxed);
    if (ownQueue == nullptr || ownQueue->world != world) {
        ownQueue = std::make_shared<Queue>();
        ownQueue->thread = GetCurrentThreadId();
        ownQueue->world = world;
        std::lock_guard lock(queueLock);
        queues[ownQueue->thread] = ownQueue;
    }
    return ownQueue;
}

std::shared_ptr<Queue> QueueOfThread(DWORD thread)
{
    std::lock_guard lock(queueLock);
    const auto found = queues.find(thread);
    return found != queues.end() ? found->second : nullptr;
}

void PostTo(Queue& queue, const MSG& message)
{
    std::lock_guard lock(queueLock);
    queue.posted.push_back(message);
    queuesChanged.notify_all();
}

void ForgetWindowInQueue(Queue& queue, HWND window)
{
    std::erase_if(queue.timers, [=](const Timer& each) { return each.window == window; });
    for (HWND* each : {&queue.focus, &queue.active, &queue.capture, &queue.clickWindow, &queue.mouseWindow,
                       &queue.caret.window, &queue.track.hwndTrack}) {
        if (*each == window)
            *each = nullptr;
    }
    std::lock_guard lock(queueLock);
    std::erase_if(queue.posted, [=](const MSG& each) { return each.hwnd == window; });
}

LRESULT CallProcedure(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (procedure == nullptr)
        return 0;
    if (IsBuiltInProcedure(procedure))
        return procedure(window, message, wParam, lParam);
    CallbackScope outside;
    return procedure(window, message, wParam, lParam);
}

void ServeSent(Queue& queue)
{
    for (;;) {
        std::shared_ptr<SentMessage> next;
        {
            std::lock_guard lock(queueLock);
            if (queue.sent.empty())
                return;
            next = queue.sent.front();
            queue.sent.pop_front();
        }
        Deliver(*next);
    }
}

void CloseQueues()
{
    std::lock_guard lock(queueLock);
    worldNumber.fetch_add(1, std::memory_order_relaxed);
    queues.clear();
    registeredMessages.clear();
    idleHook = nullptr;
    timeAhead = 0;
    timeHeld = 0;
    paintingHeld = false;
}

bool NextWhileCaptured(HWND window, MSG& message)
{
    if (GetCapture() != window)
        return false;
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0)
        PostQuitMessage(static_cast<int>(message.wParam));
    return got > 0;
}

} // namespace host

using namespace host;

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL_VOID(CallWindowProcW);
    return CallProcedure(procedure, window, message, wParam, lParam);
}

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL_VOID(SendMessageW);
    if (window == HWND_BROADCAST) {
        SendToAll(message, wParam, lParam);
        return TRUE;
    }
    LRESULT result;
    Send(window, message, wParam, lParam, UINT64_MAX, result);
    return result;
}

LRESULT WINAPI SendMessageTimeoutW(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT,
                                   UINT timeout, DWORD_PTR* result)
{
    HOST_CALL(SendMessageTimeoutW, 0, ERROR_TIMEOUT);
    LRESULT answer;
    SetLastError(ERROR_SUCCESS);
    if (!Send(window, message, wParam, lParam, timeout, answer)) {
        if (GetLastError() == ERROR_SUCCESS)
            SetLastError(ERROR_TIMEOUT);
        return 0;
    }
    if (result != nullptr)
        *result = static_cast<DWORD_PTR>(answer);
    return 1;
}

BOOL WINAPI SendNotifyMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL(SendNotifyMessageW, FALSE, ERROR_INVALID_WINDOW_HANDLE);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (window->queue == nullptr || window->queue == CurrentQueue()) {
        SendMessageW(handle, message, wParam, lParam);
        return TRUE;
    }
    const auto sent = std::make_shared<SentMessage>();
    sent->message = MessageFor(handle, message, wParam, lParam);
    std::lock_guard lock(queueLock);
    window->queue->sent.push_back(sent);
    queuesChanged.notify_all();
    return TRUE;
}

BOOL WINAPI InSendMessage(void)
{
    HOST_CALL_VOID(InSendMessage);
    return CurrentQueue()->serving != nullptr;
}

BOOL WINAPI ReplyMessage(LRESULT result)
{
    HOST_CALL_VOID(ReplyMessage);
    SentMessage* const serving = CurrentQueue()->serving;
    std::lock_guard lock(queueLock);
    if (serving == nullptr || serving->done)
        return FALSE;
    serving->result = result;
    serving->done = true;
    queuesChanged.notify_all();
    return TRUE;
}

BOOL WINAPI PostMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL(PostMessageW, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    if (handle == nullptr)
        return PostThreadMessageW(GetCurrentThreadId(), message, wParam, lParam);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (window->queue != nullptr)
        PostTo(*window->queue, MessageFor(handle, message, wParam, lParam));
    return TRUE;
}

BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL(PostThreadMessageW, FALSE, ERROR_INVALID_THREAD_ID);
    const std::shared_ptr<Queue> queue =
        thread == GetCurrentThreadId() ? CurrentQueue() : QueueOfThread(thread);
    if (queue == nullptr)
        return FailWith(ERROR_INVALID_THREAD_ID);
    PostTo(*queue, MessageFor(nullptr, message, wParam, lParam));
    return TRUE;
}

void WINAPI PostQuitMessage(int exitCode)
{
    HOST_CALL_VOID(PostQuitMessage);
    const std::shared_ptr<Queue> queue = CurrentQueue();
    queue->quit = true;
    queue->exitCode = exitCode;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove)
{
    HOST_CALL_VOID(PeekMessageW);
    if (message == nullptr)
        return FALSE;
    return Take(*CurrentQueue(), window, first, last, (remove & PM_REMOVE) != 0, *message);
}

BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last)
{
    HOST_CALL_VOID(GetMessageW);
    if (message == nullptr || (window != nullptr && window != kNoWindow && WindowOf(window) == nullptr))
        return -1;
    const std::shared_ptr<Queue> queue = CurrentQueue();
    const uint64_t start = RoomTime();
    while (!Take(*queue, window, first, last, true, *message)) {
        if (!WaitForWork(*queue, start)) {
            std::fputs("The message queue is empty, and neither an idle hook nor a display can fill it.\n",
                       stderr);
            SetLastError(ERROR_TIMEOUT);
            return -1;
        }
    }
    return message->message != WM_QUIT;
}

BOOL WINAPI WaitMessage(void)
{
    HOST_CALL_VOID(WaitMessage);
    MSG message;
    const std::shared_ptr<Queue> queue = CurrentQueue();
    const uint64_t start = RoomTime();
    while (!Take(*queue, nullptr, 0, 0, false, message)) {
        if (!WaitForWork(*queue, start))
            return FailWith(ERROR_TIMEOUT);
    }
    return TRUE;
}

LRESULT WINAPI DispatchMessageW(const MSG* message)
{
    HOST_CALL_VOID(DispatchMessageW);
    if (message == nullptr)
        return 0;
    if (message->message == WM_TIMER && message->lParam != 0) {
        CallbackScope outside;
        reinterpret_cast<TIMERPROC>(message->lParam)(message->hwnd, WM_TIMER, message->wParam,
                                                     static_cast<DWORD>(RoomTime()));
        return 0;
    }
    const WindowPtr window = message->hwnd != nullptr ? WindowOf(message->hwnd) : nullptr;
    if (window == nullptr)
        return 0;
    return CallProcedure(window->procedure, message->hwnd, message->message, message->wParam,
                         message->lParam);
}

UINT WINAPI RegisterWindowMessageW(LPCWSTR name)
{
    HOST_CALL(RegisterWindowMessageW, 0, ERROR_NOT_ENOUGH_MEMORY);
    if (name == nullptr || *name == 0)
        return static_cast<UINT>(FailWith(ERROR_INVALID_PARAMETER));
    std::u16string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), UpperCase);
    std::lock_guard lock(queueLock);
    const UINT number = kFirstRegistered + static_cast<UINT>(registeredMessages.size());
    return registeredMessages.try_emplace(folded, number).first->second;
}

DWORD WINAPI GetMessagePos(void)
{
    HOST_CALL_VOID(GetMessagePos);
    const POINT point = CurrentQueue()->messagePoint;
    return static_cast<DWORD>(MAKELONG(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

LONG WINAPI GetMessageTime(void)
{
    HOST_CALL_VOID(GetMessageTime);
    return static_cast<LONG>(CurrentQueue()->messageTime);
}
