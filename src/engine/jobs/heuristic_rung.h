#pragma once
// A set of heuristics with all that a pass needs of it.

#include <array>
#include <cstdint>

#include "chess/chessboard.h"
#include "engine/heuristics/special_heuristics.h"

namespace tarnwick {

/// One rung of the ladder of weaker and weaker sets: what a pass has on its root and its threads.
struct THeuristicRung {
    std::uint32_t mask = 0;
    std::uint32_t key = 0;
    std::uint8_t oneColourMode = 0;
    std::array<TField, MaxTrackedMen> trackedFields = NoFields();
    TSpecialHeuristics parameters;
    bool bTimeDependent = false;  ///< Comes only when all passes before it end early.

  private:
    static constexpr std::array<TField, MaxTrackedMen> NoFields() {
        std::array<TField, MaxTrackedMen> fields{};
        fields.fill(NoField);
        return fields;
    }
};

}  // namespace tarnwick
