#pragma once
// CDropController: what is dropped onto the window. A problem file is opened, with the question about
// unsaved changes; a text or a picture, from another program or as a file, is pasted.

#include <QMimeData>
#include <QObject>
#include <filesystem>
#include <memory>

#include "app/shell/clipboard_controller.h"
#include "app/shell/file_controller.h"

namespace tarnwick {

class CDropController : public QObject {
    Q_OBJECT

  public:
    /// Listens to the window, which must accept drops.
    CDropController(QWidget& window, CWorkbench& workbench, CFileController& files,
                    CClipboardController& clipboard);

  protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

  private:
    void TakeLater(const QMimeData& data);
    void Take(const QMimeData& data);
    void TakeFile(const std::filesystem::path& path);

    CWorkbench& m_workbench;
    CFileController& m_files;
    CClipboardController& m_clipboard;
};

}  // namespace tarnwick
