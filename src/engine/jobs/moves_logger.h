#pragma once
// TMovesLogger: the log of all moves and answers that one search thread goes through, outside of
// quicker-mate work. For the study of single solves: it makes solving many times longer.
//
// The file is MovesLogger_problemN_threadM.log, N the problem, M the thread, in the folder that the job's
// options name. Lines are indented by the plies played.

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "chess/chessboard.h"
#include "engine/search/node_result.h"

namespace tarnwick {

struct TThreadContext;

class TMovesLogger {
  public:
    /// bLevelThread: the thread belongs to a level, not to the root. No file is opened before the first
    /// line.
    TMovesLogger(const TThreadContext& thread, bool bLevelThread)
        : m_thread(thread), m_bLevelThread(bLevelThread) {}

    /// The board after the move.
    void LogMove(const TChessboard& child) noexcept;
    /// The answer to that move.
    void LogResult(const TChessboard& child, TNodeResult result) noexcept;
    void LogText(const TChessboard& child, const char* text) noexcept;

  private:
    struct TCloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool IsOn(const TChessboard& child) const noexcept;
    void Write(const std::string& line);
    void Open();

    const TThreadContext& m_thread;
    bool m_bLevelThread;
    int m_openNumber = -1;  ///< Thread number in the open file's name.
    std::unique_ptr<std::FILE, TCloseFile> m_file;
};

/// "%d." with White's full move number, "%d ... " for Black.
std::string LogMoveNumber(const TChessboard& child);
/// What stands in place of the position at White's first move: the pass with its heuristics.
std::string LogPassText(const TChessboard& child);
/// "4 ...no mate" and the like, without the indent.
std::string LogResultText(const TChessboard& child, TNodeResult result);

}  // namespace tarnwick
