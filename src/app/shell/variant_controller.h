#pragma once
// CVariantController: variants of the problem, comments to their moves, and tags.

#include <QObject>
#include <QTimer>

#include "app/document/variants.h"
#include "app/shell/command_dispatcher.h"
#include "app/shell/moves_panel.h"
#include "app/shell/text_dialog.h"
#include "app/shell/workbench.h"

namespace tarnwick {

class CVariantController : public QObject {
    Q_OBJECT

  public:
    CVariantController(CWorkbench& workbench, CMovesPanel& panel);
    void AddCommands(CCommandDispatcher& dispatcher);

    /// Puts the variant into the line of play.
    void Show(const std::wstring& key);
    void RemoveTagNow(const QString& tag);

  private:
    /// Asks for a variant, or takes the one whose menu is open, and goes on with its key.
    void Choose(TCommand command, void (CVariantController::*action)(const std::wstring& key));
    void ForAnswer(CTextDialog& dialog,
                   std::function<void(TChessProblem& problem, const std::wstring& answer)> change);
    void SaveAs();
    void Rename(const std::wstring& key);
    void Remove(const std::wstring& key);
    void Animate(const std::wstring& key);
    void AnimateNext();
    void StopAnimation();
    void AskComment(int nPly);
    void AskTag();
    void AskTagToRemove();
    std::vector<TVariantItem> Items() const;

    CWorkbench& m_workbench;
    CMovesPanel& m_panel;
    QTimer m_animation;
    std::vector<TAnimationStep> m_steps;
    std::size_t m_nStep = 0;
};

}  // namespace tarnwick
