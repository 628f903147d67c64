#include "cli/solved_folder.h"

#include "base/chess_exception.h"

#include "engine/jobs/job_memory.h"

namespace tarnwick {

CSolvedFolder::CSolvedFolder(const std::string& folder, const TChessboard& board, TSolveTask& task,
                             CConsoleDialog& dialog)
    : m_path(folder), m_task(task), m_dialog(dialog) {
    if (m_path.empty()) {
        return;
    }
    std::error_code error;
    std::filesystem::create_directories(m_path, error);
    if (error) {
        throw ChessException(m_path.string() + ": " + error.message());
    }
    m_pFiles = std::make_unique<CSolvedProblemFiles>(m_path);
    task.m_resultsCache = std::make_shared<TChessboardRegister<bool>>();
    task.m_resultsCache->UpdateLimits(RegisterLimitsFor(task.m_options));
    task.m_resultsCache->SetFiles(m_pFiles.get());
    task.m_resultsCache->SetRootPosition(board);
}

void CSolvedFolder::SaveAtEnd() {
    if (m_pFiles == nullptr || m_task.m_resultsCache->Answers().empty()) {
        return;
    }
    if (!m_pFiles->SaveSummary(*m_task.m_resultsCache)) {
        m_dialog.Tell("The answer could not be kept in " + m_path.string());
    }
}

}  // namespace tarnwick
