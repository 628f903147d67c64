#include "problems/epd_writer.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"

#include "chess/fen.h"
#include "chess/move_text.h"
#include "problems/export_texts.h"
#include "problems/standard_lines.h"

namespace tarnwick {
namespace {

/// Placement, side to move, castling and en passant: a FEN without its counters.
std::string FourWords(const TChessboard& board) {
    std::string fen = WriteFen(board, false);
    for (int counters = 0; counters < 2; ++counters) {
        fen.erase(fen.rfind(' '));
    }
    return fen;
}

/// EPD has no way to write a quotation mark, or a line end, in a text.
std::string QuotedText(const std::wstring& text) {
    std::string quoted = ToUtf8(text);
    std::ranges::replace(quoted, '"', '\'');
    std::ranges::replace_if(
        quoted, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return '"' + quoted + '"';
}

std::string KeyOperation(const TChessProblem& problem, CStandardLines& lines,
                         std::vector<std::string>& lost) {
    std::vector<std::string> keys;
    for (const TMove& key : problem.m_answers) {
        const std::vector<std::string> texts = lines.Texts({&key, 1});
        if (texts.empty()) {
            lost.push_back(FilledText(LostKeyText, {MoveToDisplayText(key, lines.Start())}));
        } else {
            keys.push_back(texts.front());
        }
    }
    if (keys.size() == 1) {
        return " pm " + keys.front() + ';';
    }
    std::string list;
    for (const std::string& key : keys) {
        list += (list.empty() ? "" : ", ") + key;
    }
    return keys.empty() ? "" : " c0 \"keys: " + list + "\";";
}

void AppendLine(TExportedText& exported, const TChessProblem& problem) {
    CStandardLines lines(problem);
    std::vector<std::string> lost = LossesOfAnyExport(problem);
    if (!problem.m_variants.empty()) {
        lost.emplace_back(UserText(LostVariantsText));
    }
    std::string line = FourWords(lines.Start());
    line += " bm #" + std::to_string(MovesOfStipulation(problem)) + ';';
    if (!problem.m_description.empty()) {
        line += " id " + QuotedText(problem.m_description) + ';';
        if (problem.m_description.find(L'"') != std::wstring::npos) {
            lost.emplace_back(UserText(LostQuotesText));
        }
    }
    if (problem.m_shOptions.Has(TProblemOption::HasAnswers)) {
        line += KeyOperation(problem, lines, lost);
    }
    exported.text += line + '\n';
    AddLoss(exported, problem, lost);
}

}  // namespace

TExportedText EpdOfProblems(std::span<const TChessProblem* const> problems) {
    TExportedText exported;
    for (const TChessProblem* const pProblem : problems) {
        try {
            if (pProblem->m_type != TProblemType::DirectMate || !pProblem->m_lineBoards.empty()) {
                throw ChessException(UserText(EpdMatesOnlyText));
            }
            AppendLine(exported, *pProblem);
        } catch (const ChessException& refused) {
            exported.losses.push_back({pProblem->m_id, true, refused.what()});
        }
    }
    return exported;
}

}  // namespace tarnwick
