#include "app/tables/table_run.h"

#include <exception>
#include <utility>

namespace tarnwick {

CTableRun::CTableRun(TTableRunEvents events) : m_events(std::move(events)) {}

CTableRun::~CTableRun() {
    {
        const std::lock_guard guard(m_lock);
        m_bSilent = true;
    }
    Stop();
    if (m_worker.joinable()) {
        m_worker.join();
    }
}

// ---- The window's side

void CTableRun::Start(TWork work) {
    if (m_worker.joinable()) {
        m_worker.join();
    }
    m_pControl = std::make_unique<CRunControl>();
    {
        const std::lock_guard guard(m_lock);
        m_end.reset();
        m_progress.clear();
        m_bRunning = true;
    }
    try {
        m_worker = std::thread([this, work = std::move(work)] { Run(work); });
    } catch (...) {
        const std::lock_guard guard(m_lock);
        m_bRunning = false;
        throw;
    }
}

void CTableRun::Stop() noexcept {
    if (m_pControl != nullptr) {
        m_pControl->Stop();
        const std::lock_guard guard(m_lock);
        m_answered.notify_all();
    }
}

void CTableRun::Pause() noexcept {
    if (m_pControl != nullptr) {
        m_pControl->Pause();
    }
}

void CTableRun::Resume() noexcept {
    if (m_pControl != nullptr) {
        m_pControl->Resume();
    }
}

bool CTableRun::IsRunning() const {
    const std::lock_guard guard(m_lock);
    return m_bRunning;
}

bool CTableRun::IsPaused() const {
    return m_pControl != nullptr && m_pControl->IsPaused() && IsRunning();
}

std::optional<TTableRunEnd> CTableRun::TakeEnd() {
    const std::lock_guard guard(m_lock);
    return std::exchange(m_end, std::nullopt);
}

std::string CTableRun::ProgressText() const {
    const std::lock_guard guard(m_lock);
    return m_progress;
}

std::optional<TTableRunQuestion> CTableRun::Question() const {
    const std::lock_guard guard(m_lock);
    return m_question;
}

void CTableRun::Answer(std::uint64_t number, bool bYes) {
    const std::lock_guard guard(m_lock);
    if (m_question && m_question->number == number) {
        m_answer = bYes;
        m_answered.notify_all();
    }
}

// ---- The work's side

void CTableRun::Run(const TWork& work) {
    m_workerId = std::this_thread::get_id();
    TTableRunEnd end;
    try {
        end.finish = work(*m_pControl);
    } catch (const std::exception& error) {
        end.error = error.what();
    }
    {
        const std::lock_guard guard(m_lock);
        m_end = std::move(end);
        m_progress.clear();
        m_bRunning = false;
        if (m_bSilent) {
            return;
        }
    }
    m_events.onEnd();
}

void CTableRun::Tell(std::string_view text) {
    {
        const std::lock_guard guard(m_lock);
        if (m_bSilent) {
            return;
        }
    }
    m_events.onTell(std::string(text));
}

bool CTableRun::Ask(std::string_view text) {
    std::unique_lock lock(m_lock);
    const auto bMayAsk = [&] { return m_bRunning && !m_bSilent && !m_pControl->IsStopped(); };
    m_answered.wait(lock, [&] { return !m_question || !bMayAsk(); });  // of another thread
    if (!bMayAsk()) {
        return false;
    }
    m_question = {++m_nQuestions, std::string(text)};
    m_answer.reset();
    lock.unlock();
    m_events.onQuestion();
    lock.lock();
    m_answered.wait(lock, [&] { return m_answer || !bMayAsk(); });
    m_question.reset();
    m_answered.notify_all();
    return std::exchange(m_answer, std::nullopt).value_or(false);
}

void CTableRun::Progress(std::string_view text) {
    const std::lock_guard guard(m_lock);
    m_progress = text;
}

bool CTableRun::CLoadDialog::Ask(std::string_view text) {
    return std::this_thread::get_id() == m_run.m_workerId.load() && m_run.Ask(text);
}

}  // namespace tarnwick
