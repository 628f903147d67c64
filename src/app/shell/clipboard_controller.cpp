#include "app/shell/clipboard_controller.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <bit>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/clipboard/clipboard_texts.h"
#include "app/clipboard/copied_text.h"
#include "app/document/line_text.h"
#include "app/document/problem_state.h"
#include "app/shell/position_controller.h"
#include "app/shell/window_texts.h"
#include "chess/fen.h"
#include "chess/notation_texts.h"
#include "diagram/diagram_fen.h"

namespace tarnwick {
namespace {

/// Formats of a clipboard that may carry the position, the exact ones first.
constexpr const char* PictureFormats[] = {"image/svg+xml", "image/png"};

TPastedPicture Recognise(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    return ReadPastedPicture(
        {.width = pixels.width(),
         .height = pixels.height(),
         .bitsPerPixel = pixels.depth(),
         .stride = pixels.bytesPerLine(),
         .bBottomUp = false,
         .bytes = {pixels.constBits(), static_cast<std::size_t>(pixels.sizeInBytes())}});
}

/// Transparent pictures are meant for white paper.
QImage OnWhite(const QImage& image) {
    if (!image.hasAlphaChannel()) {
        return image;
    }
    QImage paper(image.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, image);
    return paper;
}

}  // namespace

CClipboardController::CClipboardController(CWorkbench& workbench, CSetupController& setup)
    : m_workbench(workbench), m_setup(setup), m_recogniser(Recognise) {}

void CClipboardController::AddCommands(CCommandDispatcher& dispatcher) {
    AddCopies(dispatcher);
    for (const auto& [command, bMirror] :
         {std::pair{TCommand::Paste, false}, std::pair{TCommand::PasteAsMirror, true}}) {
        dispatcher.Add(command, [this, bMirror = bMirror] {
            const QMimeData nothing;
            const QMimeData* const pData = QGuiApplication::clipboard()->mimeData();
            Paste(pData != nullptr ? *pData : nothing, bMirror);
        });
    }
}

// Copies.

void CClipboardController::AddCopies(CCommandDispatcher& dispatcher) {
    for (const auto& [command, parts] :
         {std::pair{TCommand::CopyProblem, TCopiedParts::All},
          std::pair{TCommand::CopyWithoutVariants, TCopiedParts::NoVariants},
          std::pair{TCommand::CopyWithoutVariantsOrTags, TCopiedParts::NoVariantsOrTags}}) {
        dispatcher.Add(command, [this, parts = parts] {
            Copy(CopiedProblem(*m_workbench.Document().Current(), parts));
        });
    }
    for (const auto& [command, bPlacementOnly] :
         {std::pair{TCommand::CopyFen, true}, std::pair{TCommand::CopyFullFen, false}}) {
        dispatcher.Add(command,
                       [this, bPlacementOnly = bPlacementOnly] { Copy(Fen(bPlacementOnly)); });
    }
    for (const auto& [command, bShort] :
         {std::pair{TCommand::CopyMovesShort, true}, std::pair{TCommand::CopyMovesInFull, false}}) {
        dispatcher.Add(command,
                       [this, bShort = bShort] { Copy(TextOfLine(m_workbench.Line(), bShort)); });
    }
    for (const auto& [command, bShort] : {std::pair{TCommand::CopyVariantsShort, true},
                                          std::pair{TCommand::CopyVariantsInFull, false}}) {
        dispatcher.Add(command, [this, bShort = bShort] {
            Copy(TextOfVariants(*m_workbench.Document().Current(), bShort));
        });
    }
}

void CClipboardController::Copy(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    m_workbench.SetStatus(UserText(CopiedText));
}

/// Of what the board shows.
std::string CClipboardController::Fen(bool bPlacementOnly) {
    return m_setup.IsActive() ? CopiedFen(m_setup.Setup().Fields(), bPlacementOnly)
                              : WriteFen(m_workbench.Line().Board(), bPlacementOnly);
}

// Pastes.

void CClipboardController::Paste(const QMimeData& data, bool bMirror) {
    const QString text = data.hasText() ? data.text() : QString();
    std::string refusal;
    if (!text.trimmed().isEmpty()) {
        try {
            if (PasteText(text, bMirror)) {
                return;
            }
        } catch (const ChessException& error) {
            refusal = error.what();
        }
    }
    for (const char* const format : PictureFormats) {
        if (PasteCarriedFen(data.data(format), bMirror)) {
            return;
        }
    }
    if (data.hasImage()) {
        PasteImage(qvariant_cast<QImage>(data.imageData()), bMirror);
    } else {
        throw ChessException(refusal.empty() ? UserText(NoTextText) : refusal);
    }
}

bool CClipboardController::PasteText(const QString& text, bool bMirror) {
    TPastedText pasted = ReadPastedText(text.toStdString(), m_workbench.Document().Current(),
                                        m_workbench.Line(), bMirror);
    if (pasted.pProblem != nullptr) {
        PasteProblem(pasted, bMirror);
    } else if (pasted.fields) {
        if (pasted.bFenNote) {
            m_workbench.Dialog().Tell(UserText(FenNoteText));
        }
        PasteFields(*pasted.fields, bMirror);
    } else {
        PasteMoves(pasted.moves);
    }
    return true;
}

/// A problem takes the place of the one on show, whose number stays.
void CClipboardController::PasteProblem(TPastedText& pasted, bool bMirror) {
    const TProblemState state = StateOf(*pasted.pProblem);
    if (m_setup.IsActive()) {
        m_setup.PutAll(bMirror ? Mirrored({state.fields, 0}).fields : state.fields, 0,
                       MovesOfStipulation(*pasted.pProblem));
        return;
    }
    const TChessProblem* const pProblem = m_workbench.Document().Current();
    const auto lost = pProblem == nullptr
                          ? 0
                          : std::ranges::count_if(pProblem->m_variants, [&](const auto& variant) {
                                return !state.variants.contains(variant.first);
                            });
    if (lost > 0 &&
        !m_workbench.Dialog().Ask(FilledText(ReplaceProblemText, {std::to_string(lost)}))) {
        return;
    }
    if (pProblem == nullptr) {
        m_workbench.Document().AddNewProblem();
        m_workbench.ShowProblem();
    }
    TTransformNotes notes;
    m_workbench.Edit([&](TChessProblem& problem) {
        RestoreState(problem, state);
        if (bMirror) {
            notes = MirrorPasted(problem);
        }
    });
    m_workbench.SetStatus(
        UserText(pasted.bMoreProblems ? PastedFirstProblemText : PastedProblemText));
    TellTransformNotes(m_workbench, notes);
}

void CClipboardController::PasteFields(const TSetupFields& fields, bool bMirror) {
    if (m_setup.IsActive()) {
        m_setup.PutAll(bMirror ? Mirrored({fields, 0}).fields : fields, 0, 0);
        return;
    }
    const TChessProblem* const pProblem = m_workbench.Document().Current();
    const int nMoves = pProblem != nullptr ? MovesOfStipulation(*pProblem) : 2;
    TTransformNotes notes;
    m_workbench.SetStatus(UserText(PastedPositionText));
    const bool bPasted =
        m_setup.GiveToProblem({fields, std::max(nMoves, 1)}, [&](TChessProblem& problem) {
            if (bMirror) {
                notes = MirrorPasted(problem);
            }
        });
    if (bPasted) {
        TellTransformNotes(m_workbench, notes);
    } else {
        m_workbench.SetStatus("");
    }
}

void CClipboardController::PasteMoves(const std::vector<TMove>& moves) {
    if (m_setup.IsActive()) {
        throw ChessException(UserText(OperationFailedText));
    }
    for (const TMove move : moves) {
        if (!m_workbench.Play(move)) {
            return;  // the reason is on show
        }
    }
    m_workbench.SetStatus(FilledText(PastedMovesText, {std::to_string(moves.size())}));
}

// Pictures.

/// False if the picture carries no position.
bool CClipboardController::PasteCarriedFen(const QByteArray& bytes, bool bMirror) {
    const auto fen = ReadDiagramFen({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return fen && PasteText(QString::fromStdString(*fen), bMirror);
}

void CClipboardController::PastePicture(const QByteArray& bytes, bool bMirror) {
    if (PasteCarriedFen(bytes, bMirror)) {
        return;
    }
    const QImage image = QImage::fromData(bytes);
    if (image.isNull()) {
        throw ChessException(UserText(NoPictureText));
    }
    PasteImage(image, bMirror);
}

/// What is sure is pasted like a FEN code; the rest is for the user to look at.
void CClipboardController::PasteImage(const QImage& image, bool bMirror) {
    TPastedPicture picture = m_recogniser(OnWhite(image));
    const bool bFaulty = !FaultsOfPosition(picture.fields).empty();
    if (picture.doubtful == 0 && !bFaulty) {
        PasteFields(picture.fields, bMirror);
        return;
    }
    if (bMirror) {
        picture = Mirrored(picture);
    }
    m_setup.PutAll(picture.fields, picture.doubtful, 0);
    m_workbench.SetStatus(
        picture.doubtful != 0
            ? FilledText(RecognisedText, {std::to_string(std::popcount(picture.doubtful))})
            : UserText(RecognisedRefusedText));
}

}  // namespace tarnwick
