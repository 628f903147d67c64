#include "app/shell/problem_controller.h"

#include <QClipboard>
#include <QGuiApplication>

#include "base/filled_text.h"

#include "app/shell/questions.h"
#include "app/shell/window_texts.h"
#include "chess/chessboard_id.h"
#include "chess/fen.h"

namespace tarnwick {

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

// The position.

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
