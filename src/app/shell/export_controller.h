#pragma once
// CExportController: the board as a picture, on the clipboard or in a file, and the problems of the file as
// games. A picture carries the FEN of its position, so that pasting it gives back exactly what it shows.

#include <QObject>

#include "app/shell/board_widget.h"
#include "app/shell/command_dispatcher.h"
#include "app/shell/workbench.h"

namespace tarnwick {

class CExportController : public QObject {
    Q_OBJECT

  public:
    CExportController(CWorkbench& workbench, CBoardWidget& board)
        : m_workbench(workbench), m_board(board) {}
    void AddCommands(CCommandDispatcher& dispatcher);

  private:
    std::string Svg() const;
    std::string Png() const;
    void CopyPicture();
    void SavePicture();
    void ExportPgn();
    void Save(TCommand command, TFileUse use,
              const std::function<std::string(const std::filesystem::path& path)>& content);

    CWorkbench& m_workbench;
    CBoardWidget& m_board;
};

}  // namespace tarnwick
