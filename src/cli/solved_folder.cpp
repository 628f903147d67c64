#include "cli/solved_folder.h"

#include "base/chess_exception.h"

#include "cli/make_folder.h"
#include "engine/jobs/job_memory.h"

namespace tarnwick {

CSolvedFolder::CSolvedFolder(const std::string& folder, const TChessboard& board, TSolveTask& task,
                             CConsoleDialog& dialog)
    : m_path(folder), m_task(task), m_dialog(dialog) {
    if (m_path.empty()) {
        return;
    }
    MakeFolder(m_path);
    m_pFiles = std::make_unique<CSolvedProblemFiles>(m_path);
    auto cache = std::make_shared<TChessboardRegister<bool>>();
    cache->UpdateLimits(RegisterLimitsFor(task.m_options));
    cache->SetFiles(m_pFiles.get());
    try {
        cache->SetRootPosition(board);
        task.m_resultsCache = cache;
    } catch (const ChessException& contradiction) {
        m_dialog.Tell(m_path.string() + ": " + contradiction.what() +
                      "\nThe folder is not used for this problem");
        m_pFiles = nullptr;
    }
}

bool CSolvedFolder::SaveAtEnd() {
    if (m_pFiles == nullptr || m_task.m_resultsCache->Answers().empty()) {
        return true;
    }
    const bool bSummary = m_pFiles->SaveSummary(*m_task.m_resultsCache);
    if (!bSummary || m_pFiles->HasLostAnswers()) {
        m_dialog.Tell("The answer could not be kept in " + m_path.string());
        return false;
    }
    return true;
}

}  // namespace tarnwick
