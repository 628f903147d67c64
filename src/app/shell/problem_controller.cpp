#include "app/shell/problem_controller.h"

#include <QClipboard>
#include <QGuiApplication>

#include "base/encoding.h"
#include "base/filled_text.h"

#include "app/document/line_text.h"
#include "app/document/problem_state.h"
#include "app/shell/questions.h"
#include "app/shell/window_texts.h"
#include "chess/chessboard_id.h"
#include "chess/fen.h"
#include "problems/cp_writer.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

/// The problem without variants, and without tags if they are not wanted either.
std::unique_ptr<TChessProblem> CopyForClipboard(const TChessProblem& problem, bool bWithTags) {
    TProblemState state = StateOf(problem);
    state.variants.clear();
    if (!bWithTags) {
        state.tags.clear();
    }
    auto pCopy = std::make_unique<TChessProblem>();
    pCopy->m_id = problem.m_id;
    RestoreState(*pCopy, state);
    return pCopy;
}

}  // namespace

CProblemController::CProblemController(CWorkbench& workbench, CTitleBar& titleBar)
    : m_workbench(workbench), m_titleBar(titleBar) {
    connect(&m_titleBar, &CTitleBar::descriptionEdited, this, &CProblemController::EditDescription);
    connect(&m_workbench, &CWorkbench::problemShown, this, [this] {
        if (m_pList) {
            m_pList->SelectShownProblem();
        }
    });
    connect(&m_workbench, &CWorkbench::problemChanged, this, [this] {
        if (m_pList) {
            m_pList->Refresh();
        }
    });
}

void CProblemController::AddCommands(CCommandDispatcher& dispatcher) {
    AddBrowsing(dispatcher);
    AddTransforms(dispatcher);
    AddCopies(dispatcher);
    dispatcher.Add(TCommand::UndoChange, [this] { m_workbench.Undo(); });
    dispatcher.Add(TCommand::RedoChange, [this] {
        if (m_workbench.Document().Redo()) {
            m_workbench.ProblemChanged();
        }
    });
    dispatcher.Add(TCommand::EditDescription, [this] { m_titleBar.EditDescription(); });
    dispatcher.Add(TCommand::DisplayPositionId, [this] { ShowPositionId(); });
}

void CProblemController::AddBrowsing(CCommandDispatcher& dispatcher) {
    struct TStep {
        TCommand command;
        bool (CDocument::*go)();
    };
    for (const auto& [command, go] :
         {TStep{TCommand::NextProblem, &CDocument::GoToNext},
          TStep{TCommand::PreviousProblem, &CDocument::GoToPrevious},
          TStep{TCommand::FirstProblem, &CDocument::GoToFirst},
          TStep{TCommand::LastProblem, &CDocument::GoToLast},
          TStep{TCommand::PreviouslyViewedProblem, &CDocument::GoBack},
          TStep{TCommand::ReturnToViewedProblem, &CDocument::GoForward}}) {
        dispatcher.Add(command, [this, go = go] {
            if ((m_workbench.Document().*go)()) {
                m_workbench.ShowProblem();
            }
        });
    }
    dispatcher.Add(TCommand::NewProblem, [this] {
        m_workbench.Document().AddNewProblem();
        m_workbench.ShowProblem();
        if (m_pList) {
            m_pList->Refresh();
        }
    });
    dispatcher.Add(TCommand::SelectProblemNumber, [this] { AskNumber(); });
    dispatcher.Add(TCommand::SelectProblemFromList, [this] { ShowList(); });
}

void CProblemController::GoTo(int id) {
    if (m_workbench.Document().GoTo(id)) {
        m_workbench.ShowProblem();
    }
}

void CProblemController::AskNumber() {
    const CDocument& document = m_workbench.Document();
    CTextDialog* const pDialog =
        NewNumberQuestion(document.Ids(), document.Current()->m_id, m_titleBar.window());
    connect(pDialog, &CTextDialog::answered, this,
            [this](const QString& number) { GoTo(number.toInt()); });
    pDialog->open();
}

void CProblemController::ShowList() {
    if (!m_pList) {
        m_pList = new CProblemListDialog(m_workbench.Document(), m_titleBar.window());
        m_pList->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_pList, &CProblemListDialog::problemWanted, this, &CProblemController::GoTo);
    }
    m_pList->SelectShownProblem();
    m_pList->show();
    m_pList->raise();
    m_pList->activateWindow();
}

void CProblemController::EditDescription(const QString& text) {
    m_workbench.Edit([&](TChessProblem& problem) { SetDescription(problem, text.toStdWString()); });
}

// Transforms.

void CProblemController::AddTransforms(CCommandDispatcher& dispatcher) {
    const auto add = [&](TCommand command, auto transform) {
        dispatcher.Add(command, [this, transform] { Transform(transform); });
    };
    add(TCommand::RotatePosition, [](TChessProblem& p) { return RotatePosition(p); });
    add(TCommand::SwapColours, [](TChessProblem& p) { return SwapColours(p); });
    add(TCommand::ShiftLeft, [](TChessProblem& p) { return ShiftPosition(p, -1); });
    add(TCommand::ShiftRight, [](TChessProblem& p) { return ShiftPosition(p, 1); });
    add(TCommand::ShiftUp, [](TChessProblem& p) { return ShiftPosition(p, 8); });
    add(TCommand::ShiftDown, [](TChessProblem& p) { return ShiftPosition(p, -8); });
}

void CProblemController::Transform(
    const std::function<TTransformNotes(TChessProblem&)>& transform) {
    TTransformNotes notes;
    m_workbench.Edit([&](TChessProblem& problem) { notes = transform(problem); });
    if (notes.bVariantHadCastling) {
        m_workbench.Dialog().Tell(UserText(CastlingNotRotatedText));
    } else if (notes.bHadCastlingRights) {
        m_workbench.SetStatus(UserText(CastlingChangedText));
    }
}

// Copies.

void CProblemController::AddCopies(CCommandDispatcher& dispatcher) {
    using TMakeText = std::string (*)(CWorkbench&);
    const auto add = [&](TCommand command, TMakeText makeText) {
        dispatcher.Add(command, [this, makeText] { Copy(makeText(m_workbench)); });
    };
    add(TCommand::CopyProblem,
        [](CWorkbench& w) { return ProblemToText(*w.Document().Current()); });
    add(TCommand::CopyWithoutVariants, [](CWorkbench& w) {
        return ProblemToText(*CopyForClipboard(*w.Document().Current(), true));
    });
    add(TCommand::CopyWithoutVariantsOrTags, [](CWorkbench& w) {
        return ProblemToText(*CopyForClipboard(*w.Document().Current(), false));
    });
    add(TCommand::CopyFen, [](CWorkbench& w) { return WriteFen(w.Line().Board(), true); });
    add(TCommand::CopyFullFen, [](CWorkbench& w) { return WriteFen(w.Line().Board(), false); });
    add(TCommand::CopyMovesShort, [](CWorkbench& w) { return TextOfLine(w.Line(), true); });
    add(TCommand::CopyMovesInFull, [](CWorkbench& w) { return TextOfLine(w.Line(), false); });
    add(TCommand::CopyVariantsShort,
        [](CWorkbench& w) { return TextOfVariants(*w.Document().Current(), true); });
    add(TCommand::CopyVariantsInFull,
        [](CWorkbench& w) { return TextOfVariants(*w.Document().Current(), false); });
}

void CProblemController::Copy(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    m_workbench.SetStatus(UserText(CopiedText));
}

void CProblemController::ShowPositionId() {
    const TChessboard& board = m_workbench.Line().Board();
    const TChessboardId id = TChessboardId::Build(board);
    std::string fileName = SolvedProblemName(id);
    fileName.erase(0, fileName.find_last_of('\\') + 1);
    const std::string text = ToAlphanum6(id);
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    m_workbench.Dialog().Tell(
        FilledText(UserText(PositionIdText), {text, fileName, WriteFen(board, false)}));
}

}  // namespace tarnwick
