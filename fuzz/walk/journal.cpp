#include "fuzz/walk/journal.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

// Only there with a sanitizer.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace walk {
namespace {

constexpr unsigned kLongestStep = 60; // s

const Journal* journal;

void OnDeath()
{
    if (journal)
        journal->Print();
}

void OnSignal(int number)
{
    std::fprintf(stderr, number == SIGALRM ? "broken: a step does not end\n" : "broken: signal %d\n", number);
    OnDeath();
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

} // namespace

Journal::Journal(bool verbose) : verbose_(verbose)
{
    journal = this;
    std::signal(SIGALRM, OnSignal);
    if (__sanitizer_set_death_callback) {
        __sanitizer_set_death_callback(OnDeath);
        return;
    }
    for (const int number : {SIGSEGV, SIGBUS, SIGFPE, SIGABRT})
        std::signal(number, OnSignal);
}

Journal::~Journal()
{
    journal = nullptr;
}

void Journal::Begin(const Itinerary& itinerary)
{
    itinerary_ = itinerary;
    step_ = sheets_ = notes_ = 0;
}

void Journal::BeginSheet(const std::string& description)
{
    ++sheets_;
    sheet_ = description;
    Note("-- sheet " + std::to_string(sheets_) + ": " + description);
}

void Journal::BeginStep()
{
    ++step_;
    alarm(kLongestStep);
}

void Journal::Note(const std::string& action)
{
    std::string& line = last_[notes_++ % kKept];
    line = std::to_string(step_) + "  " + action;
    if (verbose_)
        std::fprintf(stderr, "%s\n", line.c_str());
}

void Journal::Fail(const std::string& what) const
{
    std::fprintf(stderr, "broken: %s\n", what.c_str());
    Print();
    std::_Exit(EXIT_FAILURE);
}

void Journal::Print() const
{
    std::fprintf(stderr, "at step %zu of sheet %zu (%s)\nlast actions:\n", step_, sheets_, sheet_.c_str());
    for (size_t i = notes_ > kKept ? notes_ - kKept : 0; i < notes_; ++i)
        std::fprintf(stderr, "  %s\n", last_[i % kKept].c_str());
    std::fprintf(stderr, "again: ui_walk --seed %llu --steps %zu --model %s --language %s\n",
                 static_cast<unsigned long long>(itinerary_.seed), itinerary_.steps, itinerary_.model.c_str(),
                 itinerary_.language.c_str());
}

} // namespace walk
