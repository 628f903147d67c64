#include "app/shell/drop_controller.h"

#include <QDropEvent>
#include <QFile>
#include <QUrl>

#include "base/chess_exception.h"

#include "app/clipboard/clipboard_texts.h"
#include "app/clipboard/pasted_text.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr qint64 LargestPicture = 64LL << 20;

/// The first file of this computer that was dropped; empty for none.
QString FirstFile(const QMimeData& data) {
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            return url.toLocalFile();
        }
    }
    return {};
}

bool HasSuffix(const QString& name, const QStringList& suffixes) {
    return suffixes.contains(name.section('.', -1).toLower());
}

QByteArray BytesOf(const QString& name, qint64 nMost) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw ChessException(file.errorString().toStdString());
    }
    if (file.size() > nMost) {
        throw ChessException(UserText(TooBigToPasteText));
    }
    return file.read(nMost);
}

}  // namespace

CDropController::CDropController(QWidget& window, CWorkbench& workbench, CFileController& files,
                                 CClipboardController& clipboard)
    : m_workbench(workbench), m_files(files), m_clipboard(clipboard) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool CDropController::eventFilter(QObject* pObject, QEvent* pEvent) {
    const QEvent::Type type = pEvent->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) {
        return QObject::eventFilter(pObject, pEvent);
    }
    auto& drop = static_cast<QDropEvent&>(*pEvent);
    const QMimeData& data = *drop.mimeData();
    if (data.hasUrls() || data.hasText() || data.hasImage()) {
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
        if (type == QEvent::Drop) {
            TakeLater(data);
        }
    }
    return true;
}

/// The program that the data comes from waits for the end of the event, and no question may open before.
void CDropController::TakeLater(const QMimeData& data) {
    auto pCopy = std::make_shared<QMimeData>();
    for (const QString& format : data.formats()) {
        pCopy->setData(format, data.data(format));
    }
    if (data.hasImage()) {
        pCopy->setImageData(data.imageData());
    }
    QMetaObject::invokeMethod(
        this, [this, pCopy] { Take(*pCopy); }, Qt::QueuedConnection);
}

void CDropController::Take(const QMimeData& data) {
    const TCommandState state = StateOfCommand(TCommand::Paste, m_workbench.State());
    if (!state.bEnabled) {
        m_workbench.Dialog().Tell(UserText(*state.pWhyNot));
        return;
    }
    const QString name = FirstFile(data);
    try {
        if (name.isEmpty()) {
            m_clipboard.Paste(data, false);
        } else {
            TakeFile(QFile::encodeName(name).toStdString());
        }
        if (data.urls().size() > 1) {
            m_workbench.SetStatus(UserText(OneFileOnlyText));
        }
    } catch (const ChessException& error) {
        m_workbench.Dialog().Tell(error.what());
    }
    m_workbench.StateChanged();
}

void CDropController::TakeFile(const fs::path& path) {
    const QString name = QFile::decodeName(path.c_str());
    if (HasSuffix(name, {"cp", "cpx", "epd"})) {
        const TCommandState state = StateOfCommand(TCommand::OpenFile, m_workbench.State());
        if (!state.bEnabled) {
            throw ChessException(UserText(*state.pWhyNot));
        }
        m_files.Open(path);
    } else if (HasSuffix(name, {"svg", "png", "jpg", "jpeg", "bmp", "gif", "webp"})) {
        m_clipboard.PastePicture(BytesOf(name, LargestPicture), false);
    } else if (HasSuffix(name, {"txt", "fen", "pgn"})) {
        QMimeData text;
        text.setText(QString::fromUtf8(BytesOf(name, static_cast<qint64>(MaxPastedText))));
        m_clipboard.Paste(text, false);
    } else {
        throw ChessException(UserText(DropUnknownText));
    }
}

}  // namespace tarnwick
