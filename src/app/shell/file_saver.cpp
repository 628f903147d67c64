#include "app/shell/file_saver.h"

#include <QElapsedTimer>

#include "problems/cp_writer.h"

namespace tarnwick {
namespace {

constexpr qint64 SliceMs = 8;

}  // namespace

CFileSaver::~CFileSaver() {
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

bool CFileSaver::Start(const std::filesystem::path& path, TFileHost host) {
    std::error_code ignored;
    m_job = TSaveJob();
    m_job.path = std::filesystem::absolute(path, ignored);
    if (!ConfirmSave(m_document, m_job.path, host)) {
        return false;
    }
    m_host.emplace(std::move(host));
    BeginText();
    m_slices.start();
    return true;
}

void CFileSaver::BeginText() {
    m_job.text = BeginningOfProblemFile;
    m_job.nRevision = m_document.Revision();
    m_nNext = 0;
}

/// Whatever is edited between two slices makes the text begin again.
void CFileSaver::MakeSlice() {
    if (m_document.Revision() != m_job.nRevision) {
        BeginText();
    }
    QElapsedTimer timer;
    timer.start();
    const std::vector<int>& ids = m_document.Ids();
    for (; m_nNext < ids.size(); ++m_nNext) {
        if (timer.elapsed() >= SliceMs) {
            return;
        }
        m_job.text += EntryOfProblemFile(*m_document.Problems().Find(ids[m_nNext]));
    }
    m_slices.stop();
    m_job.watch = m_document.Watch();
    m_thread = std::thread([this] {
        bool bSaved = false;
        try {
            bSaved = RunSave(m_job, *m_host);
        } catch (const std::exception& error) {
            m_host->dialog.Tell(error.what());
        }
        QMetaObject::invokeMethod(
            this, [this, bSaved] { Finish(bSaved); }, Qt::QueuedConnection);
    });
}

void CFileSaver::Finish(bool bSaved) {
    m_thread.join();
    m_host.reset();
    FinishSave(m_document, std::exchange(m_job, {}), bSaved);
    emit finished(bSaved);
}

}  // namespace tarnwick
