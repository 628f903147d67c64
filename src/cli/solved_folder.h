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
    /// empty name all operations do nothing.
    CSolvedFolder(const std::string& folder, const TChessboard& board, TSolveTask& task,
                  CConsoleDialog& dialog);

    /// After the job: writes what it found out. Tells the user when it cannot.
    void SaveAtEnd();

  private:
    std::filesystem::path m_path;
    TSolveTask& m_task;
    CConsoleDialog& m_dialog;
    std::unique_ptr<CSolvedProblemFiles> m_pFiles;
};

}  // namespace tarnwick
