#include "engine/jobs/job_register.h"

#include "engine/jobs/job_memory.h"
#include "engine/search/known_positions.h"

namespace tarnwick {

bool UsesRegister(const TEngineOptions& options, int plies) {
    return plies > MostPliesWithoutRegister || options.bRegisterAlways;
}

TJobRegister MakeJobRegister(
    const TEngineOptions& options, int plies,
    std::function<void(const std::string& title, const std::string& text)> onError) {
    TRegisterSettings settings;
    settings.m_bCheckTempRegCoherency = options.bCheckRegisterCoherency;
    settings.m_bRegisterInfoLog = options.bRegisterInfoLog;
    settings.m_logFolder = options.logFolder;
    settings.m_tellError = std::move(onError);
    auto jobRegister =
        std::make_shared<TAggregatedTemporaryChessboardRegister>(std::move(settings));
    jobRegister->UpdateLimits(RegisterLimitsFor(options));
    jobRegister->SetBucketCount(BucketCountForPlies(static_cast<std::uint16_t>(plies)), true);
    return jobRegister;
}

}  // namespace tarnwick
