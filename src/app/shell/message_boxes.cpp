#include "app/shell/message_boxes.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>
#include <memory>

#include "app/clipboard/clipboard_texts.h"
#include "app/commands/command_table.h"
#include "app/shell/panel.h"
#include "app/shell/window_texts.h"

namespace tarnwick {
namespace {

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

void CMessageBoxes::OnWindowThread(const std::function<void()>& call) {
    if (QThread::currentThread() == thread()) {
        call();
    } else {
        QMetaObject::invokeMethod(this, call, Qt::BlockingQueuedConnection);
    }
}

QMessageBox* CMessageBoxes::NewBox(const QString& title, const QString& text) {
    auto* const pBox =
        new QMessageBox(QMessageBox::NoIcon, title, text, QMessageBox::NoButton, m_pWindow);
    pBox->setTextFormat(Qt::PlainText);
    pBox->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return pBox;
}

int CMessageBoxes::Show(QMessageBox& box) {
    ++m_nOpen;
    const int result = box.exec();
    --m_nOpen;
    return result;
}

void CMessageBoxes::OpenAndForget(QMessageBox* pBox) {
    ++m_nOpen;
    connect(pBox, &QDialog::finished, this, [this, pBox] {
        --m_nOpen;
        pBox->deleteLater();
    });
    pBox->open();
}

void CMessageBoxes::Tell(std::string_view text) {
    OnWindowThread([&] {
        const std::unique_ptr<QMessageBox> pBox(
            NewBox(ShownText(InformationTitle), ToQString(text)));
        pBox->setIcon(QMessageBox::Information);
        pBox->addButton(ShownText(OkText), QMessageBox::AcceptRole);
        Show(*pBox);
    });
}

bool CMessageBoxes::Ask(std::string_view text) {
    bool bYes = false;
    OnWindowThread([&] {
        const std::unique_ptr<QMessageBox> pBox(NewBox(ShownText(WarningTitle), ToQString(text)));
        pBox->setIcon(QMessageBox::Question);
        const auto* const pYes = pBox->addButton(ShownText(YesText), QMessageBox::YesRole);
        pBox->setEscapeButton(pBox->addButton(ShownText(NoText), QMessageBox::NoRole));
        Show(*pBox);
        bYes = pBox->clickedButton() == pYes;
    });
    return bYes;
}

void CMessageBoxes::Progress(std::string_view text) {
    QMetaObject::invokeMethod(
        this, [this, shown = ToQString(text)] { emit progressShown(shown); },
        QThread::currentThread() == thread() ? Qt::DirectConnection : Qt::QueuedConnection);
}

void CMessageBoxes::TellLater(const std::string& title, const std::string& text) {
    QMessageBox* const pBox = NewBox(ToQString(title), ToQString(text));
    pBox->addButton(ShownText(OkText), QMessageBox::AcceptRole);
    OpenAndForget(pBox);
}

void CMessageBoxes::AskLater(const std::string& text, std::function<void(bool bYes)> answer,
                             TEscape escape) {
    QMessageBox* const pBox = NewBox(ShownText(InformationTitle), ToQString(text));
    pBox->setIcon(QMessageBox::Question);
    auto* const pYes = pBox->addButton(ShownText(YesText), QMessageBox::YesRole);
    auto* const pNo = pBox->addButton(ShownText(NoText), QMessageBox::NoRole);
    pBox->setEscapeButton(escape == TEscape::IsYes ? pYes : pNo);
    connect(pBox, &QDialog::finished, this,
            [pBox, pYes, answer] { answer(pBox->clickedButton() == pYes); });
    OpenAndForget(pBox);
}

std::optional<bool> CMessageBoxes::AskOrCancel(std::string_view text) {
    const std::unique_ptr<QMessageBox> pBox(NewBox(ShownText(WarningTitle), ToQString(text)));
    pBox->setIcon(QMessageBox::Question);
    const auto* const pYes = pBox->addButton(ShownText(YesText), QMessageBox::YesRole);
    const auto* const pNo = pBox->addButton(ShownText(NoText), QMessageBox::NoRole);
    pBox->setEscapeButton(pBox->addButton(ShownText(CancelBoxText), QMessageBox::RejectRole));
    Show(*pBox);
    if (pBox->clickedButton() == pYes) {
        return true;
    }
    return pBox->clickedButton() == pNo ? std::optional(false) : std::nullopt;
}

std::optional<std::filesystem::path> CMessageBoxes::ChooseFile(const TUserText& title, TFileUse use,
                                                               const std::filesystem::path& start) {
    QFileDialog dialog(m_pWindow, PlainText(title));
    QStringList filters = {ShownText(AllFilesFilter)};
    if (use != TFileUse::OpenText) {
        filters.prepend(ShownText(use == TFileUse::SavePicture ? PictureFilesFilter
                                  : use == TFileUse::SavePgn   ? PgnFilesFilter
                                                               : ProblemFilesFilter));
    }
    dialog.setNameFilters(filters);
    const bool bSave = use != TFileUse::Open && use != TFileUse::OpenText;
    dialog.setAcceptMode(bSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(bSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (bSave) {
        dialog.setDefaultSuffix(use == TFileUse::SavePicture ? "svg"
                                : use == TFileUse::SavePgn   ? "pgn"
                                                             : "cp");
    }
    const QString folder = QFile::decodeName(start.parent_path().c_str());
    dialog.setDirectory(folder);
    ++m_nOpen;
    const bool bChosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    --m_nOpen;
    if (!bChosen) {
        return std::nullopt;
    }
    return std::filesystem::path(QFile::encodeName(dialog.selectedFiles().front()).toStdString());
}

}  // namespace tarnwick
