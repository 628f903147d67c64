#include "app/document/export_losses.h"

#include "base/filled_text.h"

#include "app/document/document_texts.h"
#include "app/document/loss_texts.h"

namespace tarnwick {

std::string QuestionAboutLosses(const TExportedText& exported) {
    constexpr std::size_t MaxLines = 12;
    std::string lines;
    std::size_t nShown = 0;
    for (const TExportLoss& loss : exported.losses) {
        if (++nShown > MaxLines) {
            lines +=
                FilledText(AndMoreText, {std::to_string(exported.losses.size() - MaxLines)}) + '\n';
            break;
        }
        lines += FilledText(loss.bLeftOut ? ExportLeftOutText : ExportLossText,
                            {std::to_string(loss.id), loss.what}) +
                 '\n';
    }
    return FilledText(ExportLossesText, {std::to_string(exported.losses.size()), lines});
}

}  // namespace tarnwick
