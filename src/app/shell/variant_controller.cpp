#include "app/shell/variant_controller.h"

#include <QListWidget>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "app/shell/questions.h"

namespace tarnwick {
namespace {

/// Between two moves of a variant that plays itself.
constexpr int AnimationDelayMs = 1000;

}  // namespace

CVariantController::CVariantController(CWorkbench& workbench, CMovesPanel& panel)
    : m_workbench(workbench), m_panel(panel) {
    m_animation.setSingleShot(true);
    connect(&m_animation, &QTimer::timeout, this, &CVariantController::AnimateNext);
    connect(&m_workbench, &CWorkbench::problemShown, this, &CVariantController::StopAnimation);
    connect(&m_panel, &CMovesPanel::variantWanted, this, [this](const std::wstring& key) {
        StopAnimation();
        Show(key);
    });
    connect(&m_panel, &CMovesPanel::tagRemovalWanted, this, &CVariantController::RemoveTagNow);
    m_workbench.AddFacts([this](TWindowState& state) { state.bAnimating = !m_steps.empty(); });
}

void CVariantController::AddCommands(CCommandDispatcher& dispatcher) {
    dispatcher.Add(TCommand::SaveMainVariant, [this] {
        m_workbench.Edit([this](TChessProblem& problem) {
            tarnwick::SaveMainVariant(problem, m_workbench.Line());
        });
    });
    dispatcher.Add(TCommand::SaveVariant, [this] { SaveAs(); });
    const auto withMain = [this](void (CVariantController::*action)(const std::wstring&)) {
        return [this, action] {
            (this->*action)(*FindMainVariant(*m_workbench.Document().Current()));
        };
    };
    dispatcher.Add(TCommand::ShowMainVariant, withMain(&CVariantController::Show));
    dispatcher.Add(TCommand::AnimateMainVariant, withMain(&CVariantController::Animate));
    const auto choosing = [this](TCommand command,
                                 void (CVariantController::*action)(const std::wstring&)) {
        return [this, command, action] { Choose(command, action); };
    };
    for (const auto& [command, action] :
         {std::pair{TCommand::ShowVariant, &CVariantController::Show},
          std::pair{TCommand::AnimateVariant, &CVariantController::Animate},
          std::pair{TCommand::RenameVariant, &CVariantController::Rename},
          std::pair{TCommand::RemoveVariant, &CVariantController::Remove}}) {
        dispatcher.Add(command, choosing(command, action));
    }
    dispatcher.Add(TCommand::StopAnimation, [this] { StopAnimation(); });
    dispatcher.Add(TCommand::CommentLastMove, [this] { AskComment(m_workbench.Line().Ply()); });
    dispatcher.Add(TCommand::CommentListedMove, [this] { AskComment(m_panel.MenuPly()); });
    dispatcher.Add(TCommand::AddTag, [this] { AskTag(); });
    dispatcher.Add(TCommand::RemoveTag, [this] { AskTagToRemove(); });
}

std::vector<TVariantItem> CVariantController::Items() const {
    return VariantItems(*m_workbench.Document().Current());
}

/// Opens the question; its answer changes the problem that is on show now.
void CVariantController::ForAnswer(
    CTextDialog& dialog,
    std::function<void(TChessProblem& problem, const std::wstring& answer)> change) {
    const int id = m_workbench.Document().Current()->m_id;
    connect(&dialog, &CTextDialog::answered, this, [this, id, change](const QString& answer) {
        m_workbench.EditProblem(
            id, [&](TChessProblem& problem) { change(problem, answer.toStdWString()); });
    });
    dialog.open();
}

void CVariantController::Choose(TCommand command,
                                void (CVariantController::*action)(const std::wstring& key)) {
    const std::vector<TVariantItem> items = Items();
    if (items.size() == 1) {
        (this->*action)(items.front().key);
        return;
    }
    CTextDialog* const pDialog = NewVariantChoice(command, items, &m_panel);
    connect(pDialog, &CTextDialog::chosen, this, [this, items, action](int nIndex) {
        try {
            (this->*action)(items.at(static_cast<std::size_t>(nIndex)).key);
        } catch (const ChessException& error) {
            m_workbench.Dialog().TellLater("", error.what());
        }
    });
    pDialog->open();
}

void CVariantController::Show(const std::wstring& key) {
    const auto& variants = m_workbench.Document().Current()->m_variants;
    const auto variant = variants.find(key);
    if (variant == variants.end()) {
        return;
    }
    try {
        ShowVariant(variant->second, m_workbench.Line());
    } catch (const ChessException& error) {
        m_workbench.LineMoved();
        m_workbench.SetStatus(error.what());
        return;
    }
    m_workbench.LineMoved();
}

void CVariantController::SaveAs() {
    CTextDialog* const pDialog = NewVariantNameQuestion(Items(), "", true, &m_panel);
    ForAnswer(*pDialog, [this](TChessProblem& problem, const std::wstring& name) {
        if (&problem == m_workbench.Document().Current()) {  // else the line is another problem's
            SaveVariant(problem, name, m_workbench.Line());
        }
    });
}

void CVariantController::Rename(const std::wstring& key) {
    const auto& variants = m_workbench.Document().Current()->m_variants;
    const auto variant = variants.find(key);
    if (variant == variants.end()) {
        return;
    }
    CTextDialog* const pDialog = NewVariantNameQuestion(
        Items(), QString::fromStdWString(variant->second.m_name), false, &m_panel);
    ForAnswer(*pDialog, [key](TChessProblem& problem, const std::wstring& name) {
        RenameVariant(problem, key, name);
    });
}

void CVariantController::Remove(const std::wstring& key) {
    m_workbench.Edit([&](TChessProblem& problem) { RemoveVariant(problem, key); });
}

// Animation.

void CVariantController::Animate(const std::wstring& key) {
    StopAnimation();
    Show(key);
    const auto& variants = m_workbench.Document().Current()->m_variants;
    const auto variant = variants.find(key);
    if (variant == variants.end()) {
        return;
    }
    m_steps = AnimationOf(variant->second, m_workbench.Line(), AnimationDelayMs);
    m_nStep = 0;
    AnimateNext();
}

void CVariantController::AnimateNext() {
    if (m_nStep >= m_steps.size()) {
        StopAnimation();
        return;
    }
    const TAnimationStep& step = m_steps[m_nStep++];
    if (!m_workbench.Line().GoTo(step.nPly)) {
        StopAnimation();  // the user has played something else
        return;
    }
    m_workbench.LineMoved();
    const int nNextMs = m_nStep < m_steps.size() ? m_steps[m_nStep].nAfterMs - step.nAfterMs : 0;
    m_animation.start(nNextMs);
}

void CVariantController::StopAnimation() {
    m_animation.stop();
    if (!m_steps.empty()) {
        m_steps.clear();
        m_workbench.StateChanged();
    }
}

// Comments and tags.

void CVariantController::AskComment(int nPly) {
    CPlayedLine& line = m_workbench.Line();
    if (nPly < 1 || nPly > line.Length()) {
        return;
    }
    const std::vector<TMove> moves = line.Moves(nPly);
    const auto entries = EntriesOfLine(*m_workbench.Document().Current(), moves);
    if (entries.empty() || entries.back() == nullptr) {
        // Explains that only moves of a variant take comments.
        m_workbench.Edit([&](TChessProblem& problem) { SetMoveComment(problem, moves, L""); });
        return;
    }
    CTextDialog* const pDialog =
        NewCommentQuestion(QString::fromStdString(line.MoveText(nPly)),
                           QString::fromStdWString(entries.back()->m_comment), &m_panel);
    ForAnswer(*pDialog, [moves](TChessProblem& problem, const std::wstring& comment) {
        SetMoveComment(problem, moves, comment);
    });
}

void CVariantController::AskTag() {
    CDocument& document = m_workbench.Document();
    CTextDialog* const pDialog =
        NewTagQuestion(document.KnownTags(), document.Current()->m_tags, &m_panel);
    ForAnswer(*pDialog, [](TChessProblem& problem, const std::wstring& tag) {
        tarnwick::AddTag(problem, tag);
    });
}

void CVariantController::AskTagToRemove() {
    CTextDialog* const pDialog =
        NewTagRemovalQuestion(m_workbench.Document().Current()->m_tags, &m_panel);
    ForAnswer(*pDialog, [](TChessProblem& problem, const std::wstring& tag) {
        tarnwick::RemoveTag(problem, tag);
    });
}

void CVariantController::RemoveTagNow(const QString& tag) {
    m_workbench.Edit(
        [&](TChessProblem& problem) { tarnwick::RemoveTag(problem, tag.toStdWString()); });
}

}  // namespace tarnwick
