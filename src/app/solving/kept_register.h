#pragma once
// The register of a solve that may outlive it: the next solve of the same problem begins with what this
// one has learned, and the window asks it about the positions of the line being played.
//
// One solve at a time fills it. The register itself may be asked from any thread at any time.

#include <functional>
#include <mutex>
#include <string>

#include "engine/jobs/job_register.h"

namespace tarnwick {

class CKeptRegister {
  public:
    using TTellError = std::function<void(const std::string& title, const std::string& text)>;

    /// Empty. Throws std::bad_alloc.
    CKeptRegister(const TEngineOptions& options, int plies);

    const TJobRegister& Register() const { return m_pRegister; }

    /// For a further solve, whose options may grant another size. What was learned in quick mode is no
    /// proof and goes before a solve in safe mode. Throws std::bad_alloc.
    void Prepare(const TEngineOptions& options, int plies);

    /// Who is told of contradictions from now on; nobody with an empty function. No call is on its way
    /// to the one before any more.
    void SetTellError(TTellError tellError);

  private:
    /// The register outlives those who want to be told, so it tells somebody in between.
    struct TListener {
        std::mutex lock;
        TTellError tellError;
    };

    std::shared_ptr<TListener> m_pListener = std::make_shared<TListener>();
    TJobRegister m_pRegister;
    bool m_bFilledInQuickMode = false;
};

}  // namespace tarnwick
