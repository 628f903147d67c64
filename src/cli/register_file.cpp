#include "cli/register_file.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <limits>

#include "base/chess_exception.h"
#include "platform/atomic_file.h"
#include "platform/stop_signals.h"

#include "cli/text_style.h"
#include "engine/jobs/job_register.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// Years: what the clock's numbers can still hold.
constexpr double MostMinutes = 1e7;

/// Throws what a save there would throw. Without a commit the writer leaves no trace.
void TryToWrite(const fs::path& path) {
    const CAtomicFileWriter trial(path);
}

/// A name beside the file that nothing has yet.
fs::path FreeBackupOf(const fs::path& file) {
    fs::path backup = file;
    backup += ".BAK";
    for (int i = 2; fs::exists(backup); ++i) {
        backup = file;
        backup += ".BAK" + std::to_string(i);
    }
    return backup;
}

}  // namespace

CRegisterFile::CRegisterFile(const TSolveArguments& arguments, int moves, TSolveTask& task,
                             CConsoleDialog& dialog)
    : m_task(task),
      m_dialog(dialog),
      m_path(arguments.registerFile),
      m_shPlies(static_cast<std::uint16_t>(2 * moves - 1)),
      m_savedPlies(m_shPlies),
      m_maxBytes(arguments.registerMiB == 0 ? std::numeric_limits<std::uint64_t>::max()
                                            : arguments.registerMiB << 20),
      m_bCompress(arguments.bCompress),
      m_everyMinutes(std::min(arguments.checkpointMinutes, MostMinutes)) {
    if (m_path.empty()) {
        return;
    }
    if (!UsesRegister(task.m_options, m_shPlies)) {
        LeaveAlone("A problem of five moves or less needs no register");
        return;
    }
    Open();
    if (!m_path.empty() && m_everyMinutes > 0) {
        m_thread = std::jthread([this](const std::stop_token& stop) { SaveNowAndThen(stop); });
    }
}

void CRegisterFile::LeaveAlone(const std::string& why) {
    m_dialog.Tell(why + ": " + m_path.string() + " is not used");
    m_path.clear();
}

void CRegisterFile::Open() {
    m_task.m_pRegister = MakeJobRegister(m_task.m_options, m_shPlies, m_task.m_callbacks.onError);
    if (m_task.m_pRegister->MaxElements() == 0) {
        LeaveAlone("There is no memory for a register");
        return;
    }
    TryToWrite(m_path);
    std::error_code error;
    if (fs::exists(m_path, error)) {
        Load();
    } else {
        m_dialog.Tell(m_path.string() + " is new: nothing is known yet");
    }
}

void CRegisterFile::Load() {
    TTmpRegisterLoadOptions options;
    options.scratchFolder = m_path.has_parent_path() ? m_path.parent_path() : ".";
    options.progress = [this](std::uint64_t done, std::uint64_t total) {
        m_dialog.Progress("Loading " + m_path.string() + ": " +
                          std::to_string(total == 0 ? 0 : 100 * done / total) + " %");
        return !StopRequested();
    };
    const TTmpRegisterLoaded loaded =
        LoadTmpRegister(*m_task.m_pRegister, m_path, BucketCountForPlies(m_shPlies), options);
    m_dialog.Progress("");
    if (loaded.bStopped) {
        LeaveAlone("Stopped while loading");
        return;
    }
    m_dialog.Tell(m_path.string() + ": " + GroupedNumber(loaded.records) + " positions loaded");
    if (!loaded.message.empty()) {
        m_dialog.Tell(loaded.message);
    }
    if (!loaded.IsWhole() || loaded.bRegisterFull) {
        KeepOriginal();
    }
    m_savedPlies = std::max(m_shPlies, loaded.mostPlies);
}

/// The next save would replace more than the register holds. Throws ChessException if that fails.
void CRegisterFile::KeepOriginal() {
    const fs::path original = fs::canonical(m_path);  // a link to a link would not keep the content
    const fs::path backup = FreeBackupOf(original);
    std::error_code error;
    fs::create_hard_link(original, backup, error);
    if (error) {
        fs::copy_file(original, backup, error);
    }
    if (error) {
        throw ChessException(backup.string() + ": " + error.message());
    }
    m_dialog.Tell("The register could not take over all of it: the file as it was stays as " +
                  backup.string());
}

std::optional<TTmpRegisterSaved> CRegisterFile::Save(const TFileProgress& progress) {
    TTmpRegisterSaveOptions options;
    options.maxBytes = m_maxBytes;
    options.bCompress = m_bCompress;
    options.progress = progress;
    try {
        return SaveTmpRegister(*m_task.m_pRegister, m_path, m_savedPlies, options);
    } catch (const std::exception& fault) {
        m_dialog.Tell(fault.what());
        return std::nullopt;
    }
}

void CRegisterFile::SaveNowAndThen(const std::stop_token& stop) {
    const std::chrono::duration<double, std::ratio<60>> every(m_everyMinutes);
    const auto isOver = [&stop] { return stop.stop_requested(); };
    // The threads of a job that is to stop may have to wait for a save to get on: it gives way.
    const auto mayGoOn = [&](std::uint64_t, std::uint64_t) {
        return !isOver() && !m_task.IsStopped();
    };
    std::unique_lock guard(m_lock);
    while (!m_wake.wait_for(guard, stop, every, isOver)) {
        Save(mayGoOn);
    }
}

bool CRegisterFile::SaveAtEnd() {
    if (m_path.empty()) {
        return true;
    }
    m_thread.request_stop();
    if (m_thread.joinable()) {
        m_thread.join();
    }
    const std::optional<TTmpRegisterSaved> saved = Save({});
    if (saved && saved->stoppedAtPlies) {
        const int moves = (*saved->stoppedAtPlies + 1) / 2;
        m_dialog.Tell(m_path.string() + " has reached its size: positions of " +
                      std::to_string(moves) + " moves and less are not all in it");
    }
    return saved.has_value();
}

}  // namespace tarnwick
