#include "engine/jobs/moves_logger.h"

#include <mutex>

#include "chess/chessboard_id.h"
#include "chess/move_text.h"
#include "engine/jobs/solve_task.h"
#include "engine/search/thread_context.h"

namespace tarnwick {
namespace {

/// One for all logs of the process, so that lines of threads that share a file stay whole.
std::mutex g_logLock;

constexpr const char* Unit = "  ";
constexpr int DeepestIndent = 600;

int PliesPlayed(const TChessboard& child) {
    return child.m_shRootPlies - child.m_shPlies;
}

/// The side that made the move that led here.
bool WhiteMoved(const TChessboard& child) {
    return !IsWhiteToMove(child);
}

int FullMoveNumber(const TChessboard& child) {
    return (PliesPlayed(child) - 1) / 2 + 1;
}

std::string Indent(const TChessboard& child, int more) {
    std::string indent;
    for (int i = 0; i < PliesPlayed(child) + more; ++i) {
        indent += Unit;
    }
    return indent;
}

std::string MoveText(const TChessboard& child) {
    const TMove move = child.m_lastMove;
    if (child.m_pPrevious != nullptr) {
        return MoveToDisplayText(move, *child.m_pPrevious);
    }
    const auto field = [](TField f) {
        return std::string{static_cast<char>('a' + FileOf(f)), static_cast<char>('1' + RankOf(f))};
    };
    return field(move.from) + '-' + field(move.to);
}

}  // namespace

std::string LogMoveNumber(const TChessboard& child) {
    return std::to_string(FullMoveNumber(child)) + (WhiteMoved(child) ? "." : " ... ");
}

std::string LogPassText(const TChessboard& child) {
    if (child.m_pass != 1) {
        return std::to_string(child.m_pass);
    }
    return "1 Heur=" + std::to_string(static_cast<std::int32_t>(child.m_heuristicFlags.Raw())) +
           " HeurParams=" + std::to_string(static_cast<std::int32_t>(child.m_heuristicKey)) + " " +
           ToAlphanum6(TChessboardId::Build(child));
}

std::string LogResultText(const TChessboard& child, TNodeResult result) {
    const std::string head =
        std::to_string(FullMoveNumber(child)) + (WhiteMoved(child) ? "" : " ...");
    switch (result) {
        case ResultMate:
            return head + "mate";
        case ResultNoMate:
            return head + "no mate";
        case ResultDoubtful:
            return head + "doubtful";
        case ResultRepetition:
            return head + "position repetition";
        case ResultEndOfFFMDepth:
            return head + "end of FindForcedMate depth";
        default:
            return head + "result error";
    }
}

bool TMovesLogger::IsOn(const TChessboard& child) const noexcept {
    return m_thread.m_quickerMateNesting == 0 && PliesPlayed(child) <= DeepestIndent;
}

void TMovesLogger::LogMove(const TChessboard& child) noexcept {
    if (!IsOn(child)) {
        return;
    }
    try {
        std::string line = Indent(child, 1) + LogMoveNumber(child) + ' ' + MoveText(child);
        line += PliesPlayed(child) == 1 ? " Pass " + LogPassText(child)
                                        : " " + ToAlphanum6(TChessboardId::Build(child));
        Write(line);
    } catch (...) {  // A line that cannot be made or written is not worth the solve.
    }
}

void TMovesLogger::LogResult(const TChessboard& child, TNodeResult result) noexcept {
    if (!IsOn(child)) {
        return;
    }
    try {
        Write(Indent(child, result == ResultMate ? 0 : 1) + LogResultText(child, result));
    } catch (...) {
    }
}

void TMovesLogger::LogText(const TChessboard& child, const char* text) noexcept {
    if (!IsOn(child)) {
        return;
    }
    try {
        Write(Indent(child, 0) + text);
    } catch (...) {
    }
}

void TMovesLogger::Open() {
    const std::filesystem::path name =
        m_thread.m_task.m_options.logFolder /
        ("MovesLogger_problem" + std::to_string(m_thread.m_task.m_problemNumber) + "_thread" +
         std::to_string(m_thread.m_shThreadNumber) + ".log");
    m_file.reset(std::fopen(name.c_str(), "a"));
    m_openNumber = m_thread.m_shThreadNumber;
    if (m_file) {
        std::fputs("----------------------------------------------------\n", m_file.get());
        if (m_bLevelThread) {
            std::fputs("NextMultithreadingLevel analysis...\n", m_file.get());
        }
    }
}

void TMovesLogger::Write(const std::string& line) {
    const std::lock_guard guard(g_logLock);
    if (m_openNumber != m_thread.m_shThreadNumber) {
        Open();
    }
    if (m_file) {
        std::fprintf(m_file.get(), "%s\n", line.c_str());
    }
}

}  // namespace tarnwick
