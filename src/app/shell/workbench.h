#pragma once
// CWorkbench: what the controllers and the widgets of the window share.
//
// It holds the open file, the line being played, the options and the way to the user, and tells by
// signals what has changed, so that no controller need know the others. Each controller also adds the
// facts that it alone knows to the state by which commands are enabled.

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "app/commands/command_states.h"
#include "app/document/document.h"
#include "app/document/played_line.h"
#include "app/settings/home_folder.h"
#include "app/settings/options.h"
#include "app/shell/window_dialog.h"
#include "tables/register/global_register_set.h"

namespace tarnwick {

/// What the start of the program has found out.
struct TProgramSettings {
    TOptions options;
    THomeFolders folders;
    std::filesystem::path program;  ///< Of a further instance; empty: none can be started.
    int threads = 1;                ///< To start with.
    std::string statusHead;         ///< In front of the first status text.
};

class CWorkbench : public QObject {
    Q_OBJECT

  public:
    CWorkbench(TProgramSettings settings, CWindowDialog& dialog);

    TOptions& Options() { return m_settings.options; }
    const THomeFolders& Folders() const { return m_settings.folders; }
    std::filesystem::path& Program() { return m_settings.program; }
    int& Threads() { return m_settings.threads; }
    const std::string& StatusHead() const { return m_settings.statusHead; }
    CWindowDialog& Dialog() { return m_dialog; }
    CDocument& Document() { return m_document; }
    CPlayedLine& Line() { return m_line; }
    /// Tables of few men, for solves and for commands. Replaced by others when their files have changed.
    std::shared_ptr<TGlobalRegisterSet>& Tables() { return m_pTables; }

    /// The document shows another problem, or it was read anew: the line begins again.
    void ShowProblem();
    /// Changes the problem on show as one step of undo. The line stays if the position does. A change that
    /// throws ChessException does nothing but show its text.
    void Edit(const CDocument::TChange& change);
    /// The same for the problem of that number: while a question was open the user may have gone on to
    /// another one.
    void EditProblem(int id, const CDocument::TChange& change);
    /// The change of a record or of undo is done: tells everybody.
    void ProblemChanged();
    /// Plays at the cursor of the line; a refusal is explained to the user. True if it was made.
    bool Play(TMove move);
    /// The cursor or the moves of the line are different now.
    void LineMoved();
    /// Takes back the last change: the line that a move cut off, or an edit.
    bool CanUndo() const { return m_nCuts > 0 || m_document.CanUndo(); }
    void Undo();
    /// Does the last edit again that was undone.
    void Redo();
    /// In the present language from now on.
    void ChangeLanguage(LanguageId language);

    /// Why a move was not made.
    void Refuse(const std::string& text) { emit moveRefused(QString::fromStdString(text)); }
    void SetStatus(const std::string& text) { emit statusChanged(QString::fromStdString(text)); }

    using TAddFacts = std::function<void(TWindowState&)>;
    void AddFacts(TAddFacts addFacts) { m_facts.push_back(std::move(addFacts)); }
    TWindowState State() const;
    /// Something else than problem or line has changed that commands depend on.
    void StateChanged() { emit stateChanged(); }

  signals:
    void problemShown();    ///< Another problem; lineChanged follows.
    void problemChanged();  ///< The record of the same problem.
    void lineChanged();
    void statusChanged(const QString& text);
    void moveRefused(const QString& text);
    void stateChanged();
    void languageChanged();

  private:
    void RestartLine();

    TProgramSettings m_settings;
    CWindowDialog& m_dialog;
    CDocument m_document;
    CPlayedLine m_line;
    std::shared_ptr<TGlobalRegisterSet> m_pTables;
    int m_nCuts = 0;  ///< Moves since the last edit that cut off a part of the line.
    std::vector<TAddFacts> m_facts;
};

}  // namespace tarnwick
