#include "engine/jobs/start_solving.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <new>

#include "base/chess_exception.h"
#include "platform/clock.h"

#include "chess/field_transforms.h"
#include "engine/engine_texts.h"
#include "engine/heuristics/search_hooks.h"
#include "engine/jobs/heuristic_passes.h"
#include "engine/jobs/job_memory.h"
#include "engine/jobs/job_register.h"
#include "engine/jobs/moves_logger.h"
#include "engine/jobs/prepare_root.h"
#include "engine/jobs/result_texts.h"
#include "engine/jobs/results_cache.h"
#include "engine/jobs/root_search.h"
#include "engine/search/engine_state.h"
#include "engine/threads/context_pool.h"
#include "engine/threads/level_quantum.h"
#include "engine/threads/multithreading_level.h"

namespace tarnwick {
namespace {

/// Jobs that run at once. Each has a register that takes its share of the memory.
std::atomic<int> g_activeTasks{0};

TSolveResult Refusal(std::string text) {
    TSolveResult result;
    result.message = std::move(text);
    return result;
}

/// The place of one job among those that run at once.
class CActiveTask {
  public:
    CActiveTask() : m_bHasPlace(g_activeTasks.fetch_add(1) < TasksLimit) {}
    ~CActiveTask() { --g_activeTasks; }
    CActiveTask(const CActiveTask&) = delete;
    CActiveTask& operator=(const CActiveTask&) = delete;
    bool HasPlace() const { return m_bHasPlace; }

  private:
    bool m_bHasPlace;
};

/// Numbers that the rest of the job reads, from the options.
void SettleOptions(TSolveTask& task, int moves) {
    task.m_shPlies = static_cast<std::uint16_t>(2 * moves - 1);
    task.m_shRepetitionFrom = task.m_shPlies;
    task.m_bSafeMode = !task.m_options.bQuickMode;
    task.m_threadCount =
        static_cast<std::uint16_t>(std::clamp<int>(task.m_options.threads, 1, MostThreadsPerLevel));
    task.m_multithreadingLevels = std::max<std::uint8_t>(task.m_options.multithreadingLevels, 1);
    task.m_schedulerLevels =
        task.m_options.bLogMoves
            ? std::uint8_t{0}
            : std::min<std::uint8_t>(task.m_options.schedulerLevels, MostSchedulerLevels);
    task.m_bCustomScheduler = task.m_options.bCustomScheduler && task.m_schedulerLevels > 0;
    task.m_maxRunningThreads = MostJuggledThreads(task.m_options);
    task.m_startMs = NowMs();
}

/// The register of the job, made or taken over. Null when the problem is too short to gain from one.
TAggregatedTemporaryChessboardRegister* PrepareRegister(TSolveTask& task) {
    if (!UsesRegister(task.m_options, task.m_shPlies)) {
        return nullptr;
    }
    if (task.m_pRegister == nullptr) {
        task.m_pRegister =
            MakeJobRegister(task.m_options, task.m_shPlies,
                            [&task](const std::string& title, const std::string& text) {
                                task.Report(task.m_callbacks.onError, title, text);
                            });
    }
    task.m_pRegister->SetSafeMode(task.m_bSafeMode);
    return task.m_pRegister->MaxElements() > 0 ? task.m_pRegister.get() : nullptr;
}

std::unique_ptr<TThreadContext> PrepareThread(TSolveTask& task) {
    auto thread = task.m_pContexts->Take();
    thread->m_pRegister = PrepareRegister(task);
    thread->m_threadsPerLevel = task.m_threadCount;
    thread->m_pHooks = &HeuristicMakeHooks;
    if (task.m_options.bLogMoves) {
        thread->m_pLogger = std::make_unique<TMovesLogger>(*thread, false);
    }
    return thread;
}

bool IsBeforeByFields(TMove a, TMove b) {
    return a.from != b.from ? a.from < b.from : a.to < b.to;
}

/// Keys are what is wanted, and a search that ended by itself without any left its question open. What
/// ended before its end was stopped, unless no first move was open any more.
TSolveStatus StatusOf(const TRootSearch& search, bool bAllSettled, bool bKeys) {
    if (search.bStopRuleMet) {
        return TSolveStatus::Mate;
    }
    if (bAllSettled) {
        return bKeys ? TSolveStatus::Mate : TSolveStatus::NoMate;
    }
    const bool bEndedByItself = !search.task.IsStopped() && search.error.empty() &&
                                !search.task.m_options.bRunPassWithoutHeuristics;
    if (!bEndedByItself) {
        return TSolveStatus::Stopped;
    }
    return bKeys ? TSolveStatus::Mate : TSolveStatus::Open;
}

TSolveResult Summarise(const TRootSearch& search) {
    TSolveResult result;
    bool bAllSettled = true;
    for (const TRootMove& rootMove : search.moves) {
        if (rootMove.result == TRootResult::Mate) {
            result.keys.push_back(rootMove.move);
        }
        bAllSettled = bAllSettled && rootMove.result != TRootResult::Unknown;
    }
    std::sort(result.keys.begin(), result.keys.end(), IsBeforeByFields);
    result.bSafeMode = search.task.m_bSafeMode;
    result.passes = search.passes;
    result.passFound = search.found;
    result.bComplete = bAllSettled && !search.bStopRuleMet;
    result.status = StatusOf(search, bAllSettled, !result.keys.empty());
    if (search.bStopRuleMet) {
        result.message = StopRuleText(search.task.m_options, search.solutions);
    }
    if (!search.error.empty()) {
        result.message = ThreadErrorText(search.task.m_problemNumber, search.error);
    }
    return result;
}

/// The user decides over the engine's wish; what he takes to do so is not solving time.
void AskForThreads(TSolveTask& task, TThreadContext& thread, int advised) {
    advised = std::min(advised, MostThreadsPerLevel);
    const std::uint64_t mostThreads = MostThreads(advised, task.m_multithreadingLevels);
    const std::int64_t before = NowMs();
    if (mostThreads <= MostThreadsAtOnce && task.m_callbacks.onThreadAdvice(advised)) {
        task.m_threadCount = static_cast<std::uint16_t>(advised);
        task.m_forcedThreads = task.m_threadCount;
        thread.m_threadsPerLevel = task.m_threadCount;
        task.m_pContexts = std::make_unique<TContextPool>(
            task, PositionMemoryMiB(task.m_options, task.m_shPlies, mostThreads));
    }
    task.m_startMs += NowMs() - before;
}

/// The search throws nothing, but what it calls back may: then what was found until there is the answer.
int SearchRoot(TRootSearch& search, bool bAllowForce) {
    try {
        return FindMateAtRoot(search, bAllowForce);
    } catch (const ChessException&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& fault) {
        search.error = fault.what();
    } catch (...) {
        search.error = "unknown exception";
    }
    return 0;
}

/// The contexts of a job point to it, so they end with its run.
class CContextsOfRun {
  public:
    explicit CContextsOfRun(TSolveTask& task) : m_task(task) {}
    ~CContextsOfRun() { m_task.m_pContexts.reset(); }
    CContextsOfRun(const CContextsOfRun&) = delete;
    CContextsOfRun& operator=(const CContextsOfRun&) = delete;

  private:
    TSolveTask& m_task;
};

TSolveResult RunJob(TSolveTask& task, const TChessboard& position) {
    const CContextsOfRun contexts(task);
    const std::size_t memoryMiB =
        PositionMemoryMiB(task.m_options, task.m_shPlies,
                          MostThreads(task.m_threadCount, task.m_multithreadingLevels));
    task.m_pContexts = std::make_unique<TContextPool>(task, memoryMiB);
    std::unique_ptr<TThreadContext> thread = PrepareThread(task);
    TChessboard root = PrepareRoot(task, *thread, position);
    thread->m_pRootBoard = &root;
    if (task.m_resultsCache != nullptr) {
        if (auto known = FindInResultsCache(*task.m_resultsCache, root, task.m_options)) {
            return *known;
        }
    }
    ChooseHeuristics(task, *thread, root);
    {
        TRootSearch search{.task = task, .thread = *thread, .root = root};
        const int advised = SearchRoot(search, task.m_callbacks.onThreadAdvice != nullptr);
        if (advised == 0) {
            TellNodesAndCheckLimits(*thread);
            return Summarise(search);
        }
        AskForThreads(task, *thread, -advised);
    }
    TRootSearch search{.task = task, .thread = *thread, .root = root};
    SearchRoot(search, false);
    TellNodesAndCheckLimits(*thread);
    return Summarise(search);
}

/// Into the cache of results. What contradicts it is told and not kept.
void KeepResult(TSolveTask& task, const TChessboard& position, const TSolveResult& result) {
    if (task.m_resultsCache == nullptr || result.bFromResultsCache) {
        return;
    }
    TChessboard root = EmptyChessboard();
    std::copy(std::begin(position.m_fields), std::end(position.m_fields), root.m_fields);
    root.m_shPlies = task.m_shPlies;
    try {
        StoreInResultsCache(*task.m_resultsCache, root, result);
    } catch (const ChessException& contradiction) {
        task.Report(task.m_callbacks.onError, "Error", contradiction.what());
    }
}

}  // namespace

TSolveResult StartSolving(TSolveTask& task, const TChessboard& position, int moves) {
    if (moves < 1) {
        return Refusal(UserText(StipulationTooShortText));
    }
    if (moves > MaxPlies / 2) {
        return Refusal(UserText(StipulationTooLongText));
    }
    const CActiveTask place;
    if (!place.HasPlace()) {
        return Refusal(UserText(TooManyProblemsText));
    }
    SettleOptions(task, moves);
    try {
        TSolveResult result = RunJob(task, position);
        result.nodes = task.m_nodes;
        result.workNodes = task.m_workNodes;
        result.tableHits = task.m_tableHits;
        result.elapsedMs = static_cast<std::uint64_t>(NowMs() - task.m_startMs);
        result.registerElements =
            task.m_pRegister == nullptr ? 0 : task.m_pRegister->ElementCount();
        KeepResult(task, position, result);
        return result;
    } catch (const ChessException& refused) {
        return Refusal(refused.what());
    } catch (const std::bad_alloc&) {
        return Refusal(UserText(OutOfMemoryText));
    } catch (const std::exception& fault) {  // of a callback, before or behind the search
        return Refusal(ThreadErrorText(task.m_problemNumber, fault.what()));
    } catch (...) {
        return Refusal(ThreadErrorText(task.m_problemNumber, "unknown exception"));
    }
}

TSolveResult StartSolvingMirrored(TSolveTask& task, const TChessboard& position, int moves) {
    TChessboard mirrored = position;
    TransformPosition(TTransform::Mirror, mirrored);
    task.m_bMirrored = true;
    task.m_sortHints = {};
    TSolveResult result = StartSolving(task, mirrored, moves);
    for (TMove& key : result.keys) {
        TransformMove(TTransform::Mirror, key);
    }
    std::sort(result.keys.begin(), result.keys.end(), IsBeforeByFields);
    return result;
}

}  // namespace tarnwick
