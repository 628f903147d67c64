#pragma once
// The register of a job: made for its options, before the job when a file is to be loaded into it.

#include <functional>
#include <memory>
#include <string>

#include "engine/engine_options.h"
#include "registers/aggregated_register.h"

namespace tarnwick {

using TJobRegister = std::shared_ptr<TAggregatedTemporaryChessboardRegister>;

/// Whether a job of so many plies uses a register: in short problems it costs more than it gives.
bool UsesRegister(const TEngineOptions& options, int plies);

/// An empty register with the limits of the options and the bucket count of the plies. onError gets
/// contradictions as title and text, from any thread. Throws std::bad_alloc.
TJobRegister MakeJobRegister(
    const TEngineOptions& options, int plies,
    std::function<void(const std::string& title, const std::string& text)> onError);

}  // namespace tarnwick
