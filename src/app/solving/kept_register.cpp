#include "app/solving/kept_register.h"

#include "engine/jobs/job_memory.h"

namespace tarnwick {

CKeptRegister::CKeptRegister(const TEngineOptions& options, int plies)
    : m_pRegister(MakeJobRegister(
          options, plies,
          [pListener = m_pListener](const std::string& title, const std::string& text) {
              const std::lock_guard guard(pListener->lock);
              if (pListener->tellError) {
                  pListener->tellError(title, text);
              }
          })),
      m_bFilledInQuickMode(options.bQuickMode) {}

void CKeptRegister::Prepare(const TEngineOptions& options, int plies) {
    if (m_bFilledInQuickMode && !options.bQuickMode) {
        m_pRegister->Clear(TClearMode::All, true);
        m_bFilledInQuickMode = false;
    }
    m_bFilledInQuickMode = m_bFilledInQuickMode || options.bQuickMode;
    m_pRegister->UpdateLimits(RegisterLimitsFor(options));
    m_pRegister->SetBucketCount(BucketCountForPlies(static_cast<std::uint16_t>(plies)), true);
}

void CKeptRegister::SetTellError(TTellError tellError) {
    const std::lock_guard guard(m_pListener->lock);
    m_pListener->tellError = std::move(tellError);
}

}  // namespace tarnwick
