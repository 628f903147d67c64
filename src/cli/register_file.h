#pragma once
// The file of `solve --register`: what a job knows of its subpositions, loaded before the job, saved
// while it runs and at its end.

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <thread>

#include "cli/console_dialog.h"
#include "cli/solve_command.h"
#include "engine/jobs/solve_task.h"

namespace tarnwick {

class CRegisterFile {
  public:
    /// Gives the job a register with what the file holds, and starts the saves between. Tells the user
    /// what was lost of a damaged file, and that a missing one is new. Without a file in the arguments,
    /// or for a problem too short to use a register, all operations do nothing. Throws ChessException
    /// for a file that cannot be read at all, so that it is not overwritten.
    CRegisterFile(const TSolveArguments& arguments, int moves, TSolveTask& task,
                  CConsoleDialog& dialog);
    CRegisterFile(const CRegisterFile&) = delete;
    CRegisterFile& operator=(const CRegisterFile&) = delete;
    ~CRegisterFile() = default;

    /// The last save. False, after a word to the user, if it failed.
    bool SaveAtEnd();

  private:
    void Load(const TEngineOptions& options);
    bool Save(const std::stop_token& stop);
    void SaveNowAndThen(const std::stop_token& stop);

    TSolveTask& m_task;
    CConsoleDialog& m_dialog;
    std::filesystem::path m_path;  ///< Empty: nothing to do.
    std::uint16_t m_shPlies;
    std::uint64_t m_maxBytes;
    bool m_bCompress;
    double m_everyMinutes;
    std::mutex m_lock;
    std::condition_variable_any m_wake;
    std::jthread m_thread;  ///< Last: it uses the others.
};

}  // namespace tarnwick
