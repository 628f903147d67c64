#pragma once
// The folder of `solve --solved`: answers of earlier runs, each problem in files of its own.

#include <filesystem>
#include <memory>
#include <string>

#include "chess/chessboard.h"
#include "cli/console_dialog.h"
#include "engine/jobs/solve_task.h"
#include "registers/solved_problem_files.h"

namespace tarnwick {

class CSolvedFolder {
  public:
    /// Gives the job what the folder knows of the problem. The folder is made if it is missing. With an
    /// empty name, or for a problem whose files contradict themselves, which the user is told, all
    /// operations do nothing. Throws ChessException if the folder cannot be made.
    CSolvedFolder(const std::string& folder, const TChessboard& board, TSolveTask& task,
                  CConsoleDialog& dialog);

    /// After the job: writes what it found out. False, after a word to the user, if it cannot.
    bool SaveAtEnd();

  private:
    std::filesystem::path m_path;
    TSolveTask& m_task;
    CConsoleDialog& m_dialog;
    std::unique_ptr<CSolvedProblemFiles> m_pFiles;
};

}  // namespace tarnwick
