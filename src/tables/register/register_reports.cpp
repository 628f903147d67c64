#include "tables/register/register_reports.h"

#include <charconv>

#include "base/chess_exception.h"
#include "base/filled_text.h"
#include "platform/clock.h"

#include "tables/register/register_texts.h"

namespace tarnwick {
namespace {

constexpr int BitsOfMegabyte = 20;

std::string Megabytes(std::uint64_t bytes) {
    return std::to_string(bytes >> BitsOfMegabyte);
}

/// The table's word on a position.
std::string VerdictText(std::uint16_t plies) {
    if (plies == 0) {
        return UserText(NoMateInPositionText);
    }
    return plies == UnknownPlies ? UserText(NoDataOnPositionText)
                                 : "#" + std::to_string(plies / 2 + 1);
}

}  // namespace

std::string RegisterStatusText(const TGlobalRegisterSet& registers) {
    std::string text = FilledText(RegisterSizeText, {Megabytes(registers.CurrentUse())});
    const auto pending = registers.Pending();
    if (!pending.empty()) {
        text += FilledText(RegistersPendingText, {std::to_string(pending.size())});
        for (const std::string& type : pending) {
            text += FilledText(RegisterLoadingText, {type});
        }
    }
    text += UserText(RegisterDetailsText);
    for (const TRegisterStatus& line : registers.Status()) {
        const std::int64_t seconds = (NowMs() - line.lastAccessMs) / 1000;
        text += line.bAvailable
                    ? FilledText(RegisterLineText,
                                 {line.type, Megabytes(line.residentBytes),
                                  std::to_string(line.useCount), std::to_string(seconds)})
                    : FilledText(RegisterUnavailableText, {line.type});
    }
    return text;
}

std::string PositionInformation(TGlobalRegisterSet& registers, const TChessboard& board) {
    if (!IsWhiteToMove(board)) {
        return UserText(NoInfoBeforeBlackText);
    }
    TGlobalRegister* pRegister = registers.FindDataFor(board);
    if (pRegister == nullptr) {
        return UserText(NoInfoOfTypeText);
    }
    const std::string text = PositionText(*pRegister, pRegister->IndexOfPosition(board));
    registers.ReleaseData(pRegister);
    return text;
}

std::string PositionText(const TGlobalRegister& subregister, std::uint64_t index) {
    return VerdictText(subregister.PliesAt(index)) +
           FilledText(PositionIndexText, {std::to_string(index)});
}

TRegisterOfBoard RegisterToWalk(TGlobalRegisterSet& registers, const TChessboard& board) {
    if (!IsWhiteToMove(board)) {
        return {nullptr, UserText(NoStepBeforeBlackText)};
    }
    TGlobalRegister* pRegister = registers.FindDataFor(board);
    return {pRegister, pRegister == nullptr ? UserText(NoStepOfTypeText) : ""};
}

std::optional<std::uint64_t> NeighbourPosition(const TGlobalRegister& subregister,
                                               std::uint64_t index, int direction,
                                               TChessboard& board) {
    const std::uint64_t count = subregister.GetIndexCount();
    while (direction > 0 ? index + 1 < count : index > 0) {
        index = direction > 0 ? index + 1 : index - 1;
        if (subregister.PositionOfIndex(index, board)) {
            return index;
        }
    }
    return std::nullopt;
}

std::uint64_t ParsePositionIndex(std::string_view text) {
    std::uint64_t index = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw ChessException(UserText(ExpectedIntegerText));
    }
    return index;
}

}  // namespace tarnwick
