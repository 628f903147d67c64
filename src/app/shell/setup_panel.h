#pragma once
// The right panel while a position is being set up: the men of both colours, the buttons for the whole
// board, what is wrong or doubtful, and how everything is done.

#include <optional>
#include <vector>

#include "app/shell/palette_button.h"
#include "app/shell/panel.h"
#include "app/view/window_layout.h"

class QPushButton;
class QTextBrowser;

namespace tarnwick {

/// What the panel shows beside the men.
struct TSetupView {
    std::optional<TFigureCode> stamp;  ///< The chosen man; EmptyField is the eraser.
    QString faults;                    ///< Why the position was refused; empty unless it was.
    QString doubts;                    ///< Fields to check; empty for none.
    QString castlings;
    bool operator==(const TSetupView&) const = default;
};

class CSetupPanel : public CPanel {
    Q_OBJECT

  public:
    explicit CSetupPanel(QWidget* pParent);

    void Show(const TSetupView& view);
    void Place(const TWindowLayout& layout);
    /// The button of the man; of the eraser for EmptyField.
    CPaletteButton* Button(TFigureCode man) const;
    /// Everything that the text area says.
    QString Text() const;
    QPushButton* EmptyBoardButton() const { return m_pEmptyBoard; }
    QPushButton* DoneButton() const { return m_pDone; }

  signals:
    void manPressed(tarnwick::TFigureCode man);
    void mouseDragged(const QPoint& globalPlace);
    /// bOverButton: over the man that was pressed.
    void mouseReleased(const QPoint& globalPlace, bool bOverButton);
    /// By keyboard or a screen reader.
    void manChosen(tarnwick::TFigureCode man);
    void emptyBoardWanted();
    void startingArrayWanted();
    void doneWanted();
    void cancelWanted();

  protected:
    void Retranslate() override;
    void Recolour() override;
    void paintEvent(QPaintEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;

  private:
    void AddMan(TFigureCode man);
    void ShowText();

    CPieceSet m_pieces;
    std::vector<CPaletteButton*> m_men;  ///< White's, Black's, the eraser.
    QPushButton* m_pEmptyBoard;
    QPushButton* m_pStartingArray;
    QTextBrowser* m_pText;
    QPushButton* m_pDone;
    QPushButton* m_pCancel;
    TSetupView m_view;
};

}  // namespace tarnwick
