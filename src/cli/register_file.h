#pragma once
// The file of `solve --register`: what a job knows of its subpositions, loaded before the job, saved
// while it runs and at its end.

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "cli/console_dialog.h"
#include "cli/solve_command.h"
#include "engine/jobs/solve_task.h"
#include "registers/tmp_register_file.h"

namespace tarnwick {

class CRegisterFile {
  public:
    /// Gives the job a register with what the file holds, and starts the saves between. Tells the user
    /// what was lost of a damaged file, and that a missing one is new. A file that the register could not
    /// take over whole stays as FILE.BAK, or FILE.BAK2 and so on if there are others. Without a file in
    /// the arguments, for a job that uses no register, or after Ctrl-C while loading, all operations do
    /// nothing and the file stays as it is.
    /// Throws ChessException for a file that cannot be read at all, so that it is not overwritten, or
    /// cannot be written, which nobody wants to learn after days of solving.
    CRegisterFile(const TSolveArguments& arguments, int moves, TSolveTask& task,
                  CConsoleDialog& dialog);
    CRegisterFile(const CRegisterFile&) = delete;
    CRegisterFile& operator=(const CRegisterFile&) = delete;
    ~CRegisterFile() = default;

    /// The last save. False, after a word to the user, if it failed.
    bool SaveAtEnd();

  private:
    void Open();
    void Load();
    void KeepOriginal();
    void LeaveAlone(const std::string& why);
    /// Nothing, after a word to the user, if it failed.
    std::optional<TTmpRegisterSaved> Save(const TFileProgress& progress);
    void SaveNowAndThen(const std::stop_token& stop);

    TSolveTask& m_task;
    CConsoleDialog& m_dialog;
    std::filesystem::path m_path;  ///< Empty: nothing to do.
    std::uint16_t m_shPlies;
    std::uint16_t m_savedPlies;  ///< Of the job or the longest loaded record: no save drops one.
    std::uint64_t m_maxBytes;
    bool m_bCompress;
    double m_everyMinutes;
    std::mutex m_lock;
    std::condition_variable_any m_wake;
    std::jthread m_thread;  ///< Last: it uses the others.
};

}  // namespace tarnwick
