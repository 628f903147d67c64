#include "cli/register_file.h"

#include <chrono>
#include <limits>

#include "base/chess_exception.h"

#include "cli/text_style.h"
#include "engine/jobs/job_register.h"
#include "registers/tmp_register_file.h"

namespace tarnwick {

CRegisterFile::CRegisterFile(const TSolveArguments& arguments, int moves, TSolveTask& task,
                             CConsoleDialog& dialog)
    : m_task(task),
      m_dialog(dialog),
      m_path(arguments.registerFile),
      m_shPlies(static_cast<std::uint16_t>(2 * moves - 1)),
      m_maxBytes(arguments.registerMiB == 0 ? std::numeric_limits<std::uint64_t>::max()
                                            : arguments.registerMiB << 20),
      m_bCompress(arguments.bCompress),
      m_everyMinutes(arguments.checkpointMinutes) {
    if (m_path.empty()) {
        return;
    }
    if (!UsesRegister(task.m_options, m_shPlies)) {
        m_dialog.Tell("A problem of five moves or less needs no register: " + m_path.string() +
                      " is not used");
        m_path.clear();
        return;
    }
    Load(task.m_options);
    if (m_everyMinutes > 0) {
        m_thread = std::jthread([this](const std::stop_token& stop) { SaveNowAndThen(stop); });
    }
}

void CRegisterFile::Load(const TEngineOptions& options) {
    m_task.m_pRegister = MakeJobRegister(options, m_shPlies, m_task.m_callbacks.onError);
    if (!std::filesystem::exists(m_path)) {
        m_dialog.Tell(m_path.string() + " is new: nothing is known yet");
        return;
    }
    TTmpRegisterLoadOptions loadOptions;
    loadOptions.scratchFolder = m_path.has_parent_path() ? m_path.parent_path() : ".";
    loadOptions.progress = [this](std::uint64_t done, std::uint64_t total) {
        m_dialog.Progress("Loading " + m_path.string() + ": " +
                          std::to_string(total == 0 ? 0 : 100 * done / total) + " %");
        return true;
    };
    const TTmpRegisterLoaded loaded =
        LoadTmpRegister(*m_task.m_pRegister, m_path, BucketCountForPlies(m_shPlies), loadOptions);
    m_dialog.Progress("");
    m_dialog.Tell(m_path.string() + ": " + GroupedNumber(loaded.records) + " positions loaded");
    if (!loaded.message.empty()) {
        m_dialog.Tell(loaded.message);
    }
}

bool CRegisterFile::Save(const std::stop_token& stop) {
    TTmpRegisterSaveOptions options;
    options.maxBytes = m_maxBytes;
    options.bCompress = m_bCompress;
    options.progress = [&stop](std::uint64_t, std::uint64_t) { return !stop.stop_requested(); };
    try {
        SaveTmpRegister(*m_task.m_pRegister, m_path, m_shPlies, options);
        return true;
    } catch (const ChessException& fault) {
        m_dialog.Tell(fault.what());
        return false;
    }
}

void CRegisterFile::SaveNowAndThen(const std::stop_token& stop) {
    const std::chrono::duration<double, std::ratio<60>> every(m_everyMinutes);
    while (true) {
        {
            std::unique_lock guard(m_lock);
            m_wake.wait_for(guard, stop, every, [] { return false; });
        }
        if (stop.stop_requested()) {
            return;
        }
        Save(stop);
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
    return Save({});
}

}  // namespace tarnwick
