#include "app/shell/about_box.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "base/filled_text.h"
#include "base/version.h"

#include "app/commands/command_table.h"
#include "app/shell/icon_set.h"
#include "app/shell/panel.h"
#include "app/shell/shell_texts.h"

namespace tarnwick {
namespace {

constexpr int PictureSize = 96;
constexpr int TextWidth = 320;

QLabel* NewLine(const QString& text, QWidget* pParent) {
    auto* pLabel = new QLabel(text, pParent);
    pLabel->setWordWrap(true);
    pLabel->setMinimumWidth(TextWidth);
    pLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return pLabel;
}

QString Filled(const TUserText& text, const std::string& value) {
    return QString::fromStdString(FilledText(text, {value}));
}

}  // namespace

CAboutBox::CAboutBox(QWidget* pParent) : QDialog(pParent) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(PlainText(*TextOfCommand(TCommand::About)));
    auto* pPicture = new QLabel(this);
    pPicture->setPixmap(ProgramIcon(TProgramIcon::Normal)
                            .pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF()));
    QLabel* pName = NewLine("Tarnwick", this);
    QFont large = pName->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    pName->setFont(large);
    auto* pButtons = new QDialogButtonBox(this);
    pButtons->addButton(ShownText(CloseText), QDialogButtonBox::RejectRole);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* pTexts = new QVBoxLayout;
    pTexts->addWidget(pName);
    pTexts->addWidget(NewLine(Filled(VersionLineText, VersionText), this));
    pTexts->addWidget(NewLine(ShownText(AboutProgramText), this));
    pTexts->addWidget(NewLine(Filled(ToolkitText, qVersion()), this));
    pTexts->addWidget(pButtons);
    auto* pLayout = new QHBoxLayout(this);
    pLayout->setSpacing(16);
    pLayout->addWidget(pPicture, 0, Qt::AlignTop);
    pLayout->addLayout(pTexts);
}

}  // namespace tarnwick
