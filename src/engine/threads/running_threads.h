#pragma once
// A job's running search threads. Only a thread that runs can be told to stop: a stop for one that has
// ended would stay in force for ever.

#include <cstdint>
#include <map>
#include <mutex>
#include <vector>

#include "engine/jobs/engine_control.h"

namespace tarnwick {

struct TThreadContext;

class TRunningThreads {
  public:
    explicit TRunningThreads(TEngineControl& control) : m_control(control) {}

    void Add(std::uint16_t number, TThreadContext& thread);
    /// The thread is about to end. Takes back a stop that was meant for it alone and counts it in its
    /// context.
    void Remove(TThreadContext& thread);
    /// Asks a running thread to stop, from outside of the search. False when no such thread runs or when
    /// all are stopped.
    bool Stop(std::uint16_t number);
    /// In ascending order.
    std::vector<std::uint16_t> Numbers() const;

  private:
    TEngineControl& m_control;
    mutable std::mutex m_lock;
    std::map<std::uint16_t, TThreadContext*> m_threads;
};

}  // namespace tarnwick
