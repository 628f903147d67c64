#pragma once
// The bar at the top: previous and next problem, the number and stipulation, and the description, which
// is edited where it stands.

#include <QString>
#include <vector>

#include "app/commands/command_states.h"
#include "app/commands/command_table.h"
#include "app/shell/panel.h"
#include "app/view/window_layout.h"

class QLineEdit;

namespace tarnwick {

class CDescriptionLine;
class CNumberButton;
class CPictureButton;

/// A part of the description that leads to a page.
struct TDescriptionLink {
    int nStart = 0;  ///< In characters of the description.
    int nLength = 0;
    QString address;
};

struct TTitle {
    QString number;       ///< "12: #3".
    QString description;  ///< One line.
    std::vector<TDescriptionLink> links;
};

/// What the bar shows of a problem.
TTitle TitleOf(const TChessProblem& problem);

class CTitleBar : public CPanel {
    Q_OBJECT

  public:
    explicit CTitleBar(QWidget* pParent);

    /// Another problem, or the same one changed: that gives up an edit that goes on. The same title again
    /// does not.
    void ShowTitle(const TTitle& title);
    /// Which buttons can be had; the arrows of the stipulation show while a position is being set up.
    void ShowState(const TWindowState& state);
    /// Takes its place and that of its parts. The layout wants to know NumberWidth.
    void Place(const TWindowLayout& layout);
    int NumberWidth() const;

    /// Opens the edit box over the description: Enter keeps the text, Escape restores the old one. The box
    /// stays open when the keyboard goes elsewhere, so that a text can be fetched from there. Accelerators
    /// must be off while IsEditing.
    void EditDescription();
    bool IsEditing() const;
    void CommitEdit();
    void AbandonEdit();

    /// Of the link that was clicked or whose menu was opened last; for OpenLink and CopyLink.
    const QString& MenuLink() const { return m_menuLink; }
    CDescriptionLine* Description() const { return m_pDescription; }

  signals:
    /// Of a click on a link: OpenLink, for MenuLink.
    void commandWanted(tarnwick::TCommand command);
    void contextMenuWanted(tarnwick::TContextMenu menu, const QPoint& globalPlace);
    /// The user entered another description.
    void descriptionEdited(const QString& text);
    void editingChanged(bool bEditing);
    /// The window must be laid out again.
    void numberWidthChanged();

  protected:
    void Retranslate() override;
    void Recolour() override;
    void paintEvent(QPaintEvent* pEvent) override;
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

  private:
    void ConnectParts();
    void EndEdit();

    // In the order in which Tab goes through them.
    CPictureButton* m_pPrevious;
    CNumberButton* m_pNumber;
    CPictureButton* m_pMoves;
    CDescriptionLine* m_pDescription;
    QLineEdit* m_pEdit;
    CPictureButton* m_pNext;
    TTitle m_title;
    QString m_menuLink;
};

}  // namespace tarnwick
