#pragma once
// CClipboardController: copies the problem, its FEN and its moves as text, and pastes whatever may be a
// problem, a position or moves: a text in any of its forms, a picture that carries its position, or any
// other picture of a board.
//
// What is sure changes the problem at once, as one step of undo. A picture with fields in doubt, or with a
// position that cannot be, opens in the position setting mode for the user to check.

#include <QImage>
#include <QMimeData>
#include <QObject>
#include <functional>

#include "app/clipboard/pasted_picture.h"
#include "app/clipboard/pasted_text.h"
#include "app/shell/command_dispatcher.h"
#include "app/shell/setup_controller.h"

namespace tarnwick {

class CClipboardController : public QObject {
    Q_OBJECT

  public:
    CClipboardController(CWorkbench& workbench, CSetupController& setup);
    void AddCommands(CCommandDispatcher& dispatcher);

    // Both show the user what is wrong with what cannot be pasted. Nothing must be solved meanwhile.

    /// The text if there is one, else the picture.
    void Paste(const QMimeData& data, bool bMirror);
    /// The bytes of a picture file.
    void PastePicture(const QByteArray& bytes, bool bMirror);

    using TRecogniser = std::function<TPastedPicture(const QImage& image)>;
    /// In place of the built-in one, for tests.
    void SetRecogniser(TRecogniser recogniser) { m_recogniser = std::move(recogniser); }

  private:
    void AddCopies(CCommandDispatcher& dispatcher);
    void Copy(const std::string& text);
    std::string Fen(bool bPlacementOnly);
    bool PasteText(const QString& text, bool bMirror);
    bool PasteCarriedFen(const QByteArray& bytes, bool bMirror);
    void PasteImage(const QImage& image, bool bMirror);
    void PasteProblem(TPastedText& pasted, bool bMirror);
    void PasteFields(const TSetupFields& fields, bool bMirror);
    void PasteMoves(const std::vector<TMove>& moves);

    CWorkbench& m_workbench;
    CSetupController& m_setup;
    TRecogniser m_recogniser;
};

}  // namespace tarnwick
