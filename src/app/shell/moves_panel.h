#pragma once
// The right panel below the progress: the moves played, the variants of the problem and its tags.

#include <QStringList>
#include <string>
#include <vector>

#include "app/commands/command_table.h"
#include "app/document/played_line.h"
#include "app/shell/panel.h"
#include "app/view/window_layout.h"

class QAbstractItemView;
class QCheckBox;
class QContextMenuEvent;
class QListWidget;
class QModelIndex;
class QTableView;

namespace tarnwick {

class CMoveListModel;
class CTagChips;

struct TVariantItem {
    std::wstring key;  ///< In TChessProblem::m_variants.
    std::wstring name;
    bool bMain = false;
};

/// The variants of a problem for the list: the main variant first, the others by name.
std::vector<TVariantItem> VariantItems(const TChessProblem& problem);

class CMovesPanel : public CPanel {
    Q_OBJECT

  public:
    explicit CMovesPanel(QWidget* pParent);

    /// CPlayedLine::Rows with RemainingMoves(). The current move is scrolled into view.
    void ShowMoves(const std::vector<TMoveRow>& rows);
    /// What was selected stays selected if it is still there.
    void ShowVariants(std::vector<TVariantItem> items);
    void ShowTags(const QStringList& tags);
    bool RemainingMoves() const;
    void Place(const TWindowLayout& layout);

    /// The half-move whose menu was opened last, from 1; for TCommand::CommentListedMove.
    int MenuPly() const { return m_nMenuPly; }
    /// Key of the variant that is selected in the list, also by the opening of its menu; empty for none.
    std::wstring SelectedVariant() const;
    QTableView* MoveTable() const { return m_pMoves; }
    QListWidget* VariantList() const { return m_pVariants; }

  signals:
    /// Show the position after so many half-moves; 0 is the start.
    void plyWanted(int nPly);
    void variantWanted(const std::wstring& key);
    void tagRemovalWanted(const QString& tag);
    void remainingMovesChanged(bool bRemaining);
    /// ListedMove for MenuPly; MainVariantButton for SelectedVariant.
    void contextMenuWanted(tarnwick::TContextMenu menu, const QPoint& globalPlace);
    /// RemoveTag, when there are more tags than chips find room.
    void commandWanted(tarnwick::TCommand command);

  protected:
    void Retranslate() override;
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;

  private:
    void SetUpMoves();
    void SetUpVariants();
    void ConnectParts();
    void GoTo(const QModelIndex& index);
    void WantVariant(int row);
    void OpenMenu(QAbstractItemView& view, const QContextMenuEvent& event);

    QCheckBox* m_pRemaining;
    QTableView* m_pMoves;
    CMoveListModel* m_pModel;
    QListWidget* m_pVariants;
    CTagChips* m_pTags;
    std::vector<TVariantItem> m_items;
    int m_nMenuPly = 0;
    bool m_bShowing = false;  ///< The current cell changes by the program, not by the user.
};

}  // namespace tarnwick
