#include "app/shell/export_controller.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"
#include "platform/atomic_file.h"

#include "app/clipboard/clipboard_texts.h"
#include "app/commands/command_table.h"
#include "app/document/export_losses.h"
#include "app/shell/diagram_painting.h"
#include "app/shell/window_texts.h"
#include "diagram/diagram_fen.h"
#include "diagram/diagram_svg.h"
#include "problems/file_text.h"
#include "problems/pgn_writer.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

QByteArray ToBytes(const std::string& text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

void CExportController::AddCommands(CCommandDispatcher& dispatcher) {
    dispatcher.Add(TCommand::CopyBoardPicture, [this] { CopyPicture(); });
    dispatcher.Add(TCommand::SaveBoardPicture, [this] { SavePicture(); });
    dispatcher.Add(TCommand::ExportPgn, [this] { ExportPgn(); });
}

/// The board as it stands in the window: its size, its side, its position.
std::string CExportController::Svg() const {
    const TChessboard& board = m_workbench.Line().Board();
    return DiagramSvg(board, {.size = m_board.Geometry().Board().width,
                              .style = TDiagramStyle::Window,
                              .bBlackBelow = m_board.IsRotated(),
                              .bCoordinates = true,
                              .stipulation = {},
                              .title = ToUtf8(m_workbench.Document().Current()->m_description),
                              .fen = DiagramFen(board)});
}

std::string CExportController::Png() const {
    const std::string png = PngOfSvg(Svg());
    if (png.empty()) {
        throw ChessException(UserText(OperationFailedText));
    }
    return AddFenToPng(png, DiagramFen(m_workbench.Line().Board()));
}

void CExportController::CopyPicture() {
    const QByteArray png = ToBytes(Png());
    auto* const pData = new QMimeData;
    pData->setData("image/svg+xml", ToBytes(Svg()));
    pData->setData("image/png", png);
    pData->setImageData(QImage::fromData(png));  // for programs that ask for any picture
    QGuiApplication::clipboard()->setMimeData(pData);
    m_workbench.SetStatus(UserText(CopiedText));
}

void CExportController::Save(TCommand command, TFileUse use,
                             const std::function<std::string(const fs::path& path)>& content) {
    const auto path = m_workbench.Dialog().ChooseFile(*TextOfCommand(command), use,
                                                      m_workbench.Document().Path());
    if (!path) {
        return;
    }
    const std::string name = FileNameForMessage(*path);
    const std::string text = content(*path);
    std::error_code ignored;
    const bool bReplaces = fs::exists(*path, ignored);
    if (!text.empty() &&
        (!bReplaces || m_workbench.Dialog().Ask(FilledText(ReplaceFileText, {name})))) {
        SaveFileAtomically(*path, text);
        m_workbench.SetStatus(FilledText(PictureSavedText, {name}));
    }
}

void CExportController::SavePicture() {
    Save(TCommand::SaveBoardPicture, TFileUse::SavePicture, [this](const fs::path& path) {
        return path.extension() == ".png" || path.extension() == ".PNG" ? Png() : Svg();
    });
}

void CExportController::ExportPgn() {
    Save(TCommand::ExportPgn, TFileUse::SavePgn, [this](const fs::path& /*path*/) {
        const std::vector<TChessProblem*> problems = m_workbench.Document().Problems().Problems();
        TExportedText exported = PgnOfProblems({problems.begin(), problems.end()});
        const bool bGoOn =
            exported.losses.empty() || m_workbench.Dialog().Ask(QuestionAboutLosses(exported));
        return bGoOn ? exported.text : std::string();
    });
}

}  // namespace tarnwick
