#pragma once

// A root whose first moves are searched with forcing moves only, as a job would do it.

#include "chess/evasions.h"
#include "chess/generate_moves.h"
#include "engine/forced/find_forced_mate.h"
#include "engine/heuristics/search_hooks.h"
#include "engine/jobs/job_register.h"
#include "engine/search/find_mate.h"
#include "engine/threads/context_pool.h"
#include "heuristic_line.h"

namespace tarnwick {

/// What a forced pass found at the root.
struct TForcedPass {
    std::vector<std::string> keys;  ///< In full notation, sorted.
    bool bOnlyDoubtful = true;      ///< Every move that does not mate was left open.
};

class CForcedLine : public CHeuristicLine {
  public:
    /// others: heuristics beside the forced search, which hold there if its parameters say so.
    CForcedLine(const std::string& fen, int moves, TForcedLevel level, std::uint32_t others = 0,
                const TEngineOptions& options = WithRegister())
        : CHeuristicLine(fen, SH_FINDFORCEDMATE | others, 2 * moves - 1) {
        Task().m_options = options;
        Task().m_pRegister = MakeJobRegister(options, 2 * moves - 1, nullptr);
        Task().m_pContexts =
            std::make_unique<TContextPool>(Task(), AllKeysWanted().positionMemoryMiB);
        SearchThread().m_pRegister = Task().m_pRegister.get();
        SearchThread().m_pHooks = &HeuristicMakeHooks;
        Parameters().ForcedLevel = level;
        Parameters().ForcedWithOthers = TForcedWithOthers::No;
        Set(SH_FINDFORCEDMATE | others);
    }

    static TEngineOptions WithRegister() {
        TEngineOptions options = AllKeysWanted();
        options.bRegisterAlways = true;
        options.memoryMiB = 64;
        return options;
    }

    TForcedPass RunPass() {
        TForcedPass pass;
        TMove moves[MaxMovesOfSide];
        const int count = Root().m_whiteChecker != NoChecker ? GenerateWhiteEvasions(Root(), moves)
                                                             : GenerateAllWhiteMoves(Root(), moves);
        for (int i = 0; i < count; ++i) {
            const TNodeResult result = SearchForcedFirstMove(SearchThread(), Root(), moves[i]);
            if (result == ResultMate) {
                pass.keys.push_back(MoveToDisplayText(moves[i], Root()));
            }
            pass.bOnlyDoubtful =
                pass.bOnlyDoubtful && (result == ResultMate || result == ResultDoubtful);
        }
        std::sort(pass.keys.begin(), pass.keys.end());
        return pass;
    }

    /// The ordinary search on the same thread, register and memory, without heuristics: all first moves of
    /// the list that mate.
    std::vector<std::string> OrdinaryKeys(const std::vector<std::string>& moves) {
        Set(0);
        Root().m_pass = 2;
        std::vector<std::string> keys;
        for (const std::string& text : moves) {
            Restart().Play({text});
            if (FindMateBlackToMove(Board()) == ResultMate) {
                keys.push_back(text);
            }
        }
        return keys;
    }

    std::uint64_t WorkNodes() { return SearchThread().m_workNodes; }
};

}  // namespace tarnwick
