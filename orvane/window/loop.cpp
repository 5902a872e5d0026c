// SPDX-License-Identifier: MIT
#include "orvane/window/loop.h"

#include "host/globals.h"
#include "orvane/window/event_translator.h"
#include "orvane/window/frame_clock.h"

#include <SDL.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <limits>
#include <map>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace orvane
{

namespace
{

std::uint64_t MonotonicTime()
{
    using namespace std::chrono;
    return static_cast<std::uint64_t>(duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count());
}

/// The number of the window an event is for; 0 when it is for none.
Uint32 WindowOf(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_WINDOWEVENT:
        return event.window.windowID;
    case SDL_MOUSEMOTION:
        return event.motion.windowID;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        return event.button.windowID;
    case SDL_MOUSEWHEEL:
        return event.wheel.windowID;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        return event.key.windowID;
    case SDL_TEXTINPUT:
        return event.text.windowID;
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
        return event.tfinger.windowID;
    default:
        return 0;
    }
}

/// Sleeps in the kernel until an event is there, or that many microseconds have passed. The system counts whole
/// milliseconds; the rest of the last one is slept through.
void Sleep(const std::optional<std::uint64_t>& time)
{
    if (!time) {
        SDL_WaitEvent(nullptr);
    } else if (*time >= 1000) {
        constexpr std::uint64_t kMost = std::numeric_limits<int>::max();
        SDL_WaitEventTimeout(nullptr, static_cast<int>(std::min(*time / 1000, kMost)));
    } else {
        std::this_thread::sleep_for(std::chrono::microseconds(*time));
    }
}

} // namespace

class Loop::State
{
public:
    State(Host& ownHost, Window& ownWindow, Program& ownProgram, Clock ownClock)
        : host(ownHost), window(ownWindow), program(ownProgram), clock(ownClock ? std::move(ownClock) : &MonotonicTime),
          frameClock(clock()), wakeEvent(SDL_RegisterEvents(1))
    {
    }

    void Step();
    std::optional<std::uint64_t> TimeToNext() const;

    Host& host;
    Window& window;
    Program& program;
    Clock clock;
    Clock earlierClock;
    FrameClock frameClock;
    EventTranslator translator;
    LoopCounters counters;
    std::map<std::pair<std::uint64_t, Timer>, std::function<void()>> timers;
    Timer lastTimer = 0;
    std::uint64_t nextFrame = 0; ///< no frame starts before this time
    Uint32 wakeEvent;
    std::atomic<bool> wakePending = false;
    bool framePending = true;
    bool started = false;
    bool ended = false;
    bool stepping = false;

private:
    void TakeEvents();
    void Take(const SDL_Event& event);
    void TakeWindowEvent(Uint8 event);
    void CallTimers();
    void FollowSize();
    void RunFrame();
    void Show();
};

void Loop::State::Step()
{
    frameClock.Follow(clock(), glb->framePeriod);
    if (!started) {
        started = true;
        window.FollowSize();
        program.Resized(window.Width(), window.Height());
    }
    TakeEvents();
    if (!ended && wakePending.exchange(false)) {
        framePending = true;
        program.Woken();
    }
    CallTimers();
    if (ended || window.IsHidden()) {
        return;
    }
    if (framePending && clock() >= nextFrame) {
        RunFrame();
    } else if (window.IsExposed()) {
        Show();
    }
}

void Loop::State::TakeEvents()
{
    SDL_Event event;
    while (!ended && SDL_PollEvent(&event) != 0) {
        ++counters.events;
        Take(event);
    }
}

void Loop::State::Take(const SDL_Event& event)
{
    if (event.type == SDL_QUIT) {
        framePending = true;
        ended = program.Quit() || ended;
        return;
    }
    const Uint32 id = WindowOf(event);
    if (id != 0 && id != window.Id()) {
        return;
    }
    if (event.type == SDL_WINDOWEVENT) {
        TakeWindowEvent(event.window.event);
    } else if (translator.Translate(event, window.Scale(), program)) {
        framePending = true;
    }
}

void Loop::State::TakeWindowEvent(Uint8 event)
{
    switch (event) {
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_RESTORED:
    case SDL_WINDOWEVENT_SHOWN:
        window.Expose();
        break;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
    case SDL_WINDOWEVENT_DISPLAY_CHANGED:
        FollowSize();
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        framePending = true;
        translator.CancelPresses(program);
        program.FocusChanged(false);
        break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        framePending = true;
        program.FocusChanged(true);
        break;
    default:
        break;
    }
}

void Loop::State::FollowSize()
{
    window.Expose(); // the system made a new surface
    if (window.FollowSize()) {
        framePending = true;
        program.Resized(window.Width(), window.Height());
    }
}

void Loop::State::CallTimers()
{
    if (timers.empty()) {
        return;
    }
    // Only those that are due by now: one that sets itself again for a time gone by waits for the next step.
    const std::uint64_t now = clock();
    std::vector<std::pair<std::uint64_t, Timer>> due;
    for (auto timer = timers.begin(); timer != timers.end() && timer->first.first <= now; ++timer) {
        due.push_back(timer->first);
    }
    for (const auto& key : due) {
        auto timer = timers.extract(key); // empty when an earlier call cancelled it
        if (!ended && !timer.empty()) {
            framePending = true;
            timer.mapped()();
        }
    }
}

void Loop::State::RunFrame()
{
    // Frames keep to their beat; after one that was missed a new beat begins.
    const std::uint64_t now = clock();
    const std::uint32_t period = glb->framePeriod;
    nextFrame = (now - nextFrame < period ? nextFrame : now) + period;
    frameClock.Follow(now, period);
    ++counters.framesRun;
    framePending = false;
    const bool goesOn = program.Frame();
    framePending = framePending || goesOn; // the program may have asked for one
    Show();
}

void Loop::State::Show()
{
    const std::uint64_t pixels = window.Refresh();
    counters.pixelsPresented += pixels;
    counters.framesComposed += pixels > 0 ? 1U : 0U;
}

std::optional<std::uint64_t> Loop::State::TimeToNext() const
{
    if (ended) {
        return {};
    }
    constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t frame = framePending && !window.IsHidden() ? nextFrame : kNever;
    const std::uint64_t timer = timers.empty() ? kNever : timers.begin()->first.first;
    const std::uint64_t next = std::min(frame, timer);
    if (next == kNever) {
        return {};
    }
    const std::uint64_t now = clock();
    return next > now ? next - now : 0;
}

Loop::Loop(Host& host, Window& window, Program& program, Clock clock)
    : m_state(std::make_unique<State>(host, window, program, std::move(clock)))
{
    m_state->earlierClock = host.SetClock([state = m_state.get()] { return state->frameClock.Now(); });
}

Loop::~Loop()
{
    m_state->host.SetClock(std::move(m_state->earlierClock));
}

void Loop::Run()
{
    while (true) {
        const auto time = Step();
        if (HasEnded()) {
            return;
        }
        Sleep(time);
        ++m_state->counters.wakeUps;
    }
}

std::optional<std::uint64_t> Loop::Step()
{
    if (m_state->stepping) {
        throw std::logic_error("orvane: the loop runs already");
    }
    struct Guard {
        explicit Guard(bool& flag) : stepping(flag) { stepping = true; }
        ~Guard() { stepping = false; }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
        bool& stepping;
    };
    const Guard guard(m_state->stepping);
    if (!m_state->ended) {
        m_state->Step();
    }
    return m_state->TimeToNext();
}

void Loop::Stop()
{
    m_state->ended = true;
}

bool Loop::HasEnded() const
{
    return m_state->ended;
}

void Loop::Wake()
{
    if (m_state->wakePending.exchange(true)) {
        return;
    }
    SDL_Event event{};
    event.type = m_state->wakeEvent;
    SDL_PushEvent(&event); // a full queue refuses it: then the loop does not sleep
}

void Loop::RequestFrame()
{
    m_state->framePending = true;
}

std::uint64_t Loop::Now() const
{
    return m_state->clock();
}

Loop::Timer Loop::CallAt(std::uint64_t time, std::function<void()> call)
{
    const Timer timer = ++m_state->lastTimer;
    if (call) {
        m_state->timers.emplace(std::pair(time, timer), std::move(call));
    }
    return timer;
}

void Loop::Cancel(Timer timer)
{
    std::erase_if(m_state->timers, [&](const auto& entry) { return entry.first.second == timer; });
}

const LoopCounters& Loop::Counters() const
{
    return m_state->counters;
}

} // namespace orvane
