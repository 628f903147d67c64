#pragma once
// CFileSaver: saves a big file while the window goes on.
//
// The text of the problems is made on the window's thread in slices of some milliseconds, since the
// problems are its own; the rest, which takes longest, is done by a thread that has that text alone. Who
// edits meanwhile in spite of the greyed commands loses nothing: the document then stays unsaved.

#include <QObject>
#include <QTimer>
#include <thread>

#include "app/document/problem_files.h"

namespace tarnwick {

class CFileSaver : public QObject {
    Q_OBJECT

  public:
    /// Fewer problems are saved faster than anybody could notice, at once.
    static constexpr std::size_t ManyProblems = 2000;

    explicit CFileSaver(CDocument& document) : m_document(document) {
        connect(&m_slices, &QTimer::timeout, this, &CFileSaver::MakeSlice);
    }
    ~CFileSaver() override;

    /// Asks about the content and begins. False: the user gave up. Not while IsSaving. What host refers
    /// to must outlive the saving.
    bool Start(const std::filesystem::path& path, TFileHost host);
    bool IsSaving() const { return m_host.has_value(); }

  signals:
    void finished(bool bSaved);

  private:
    void BeginText();
    void MakeSlice();
    void Finish(bool bSaved);

    CDocument& m_document;
    std::optional<TFileHost> m_host;  ///< While saving.
    TSaveJob m_job;                   ///< The thread's while there is one.
    std::size_t m_nNext = 0;          ///< Index of the next problem for the text.
    QTimer m_slices;
    std::thread m_thread;
};

}  // namespace tarnwick
