#include "engine/heuristics/heuristic_names.h"

#include <algorithm>
#include <bit>

namespace tarnwick {
namespace {

constexpr const char* UnusedName = "...";

/// By number of the bit. Null: the bit is not used.
constexpr const char* Names[HeuristicBitCount] = {
    "SH_AREKINGSNEAR",
    "SH_SWEEPINGWHITEROOK",
    "SH_KEEPKINGONTHEEDGE",
    "SH_ONECOLORPLAYPOSSIBLE",
    "SH_ZUGZWANGTRIANGLES",
    "SH_DONTLEAVEMAINDIAGONAL",
    "SH_KEEPKINGWITHINEXTEDGE",
    "SH_DONTLETFIGUREUNBLOCK",
    nullptr,
    "SH_FINDFORCEDMATE",
    "SH_DONTRECEDEBLACKKING",
    "SH_DONTLETPROMOTEDQUEENMOVE",
    "SH_KEYLINE",
    "SH_KEYDIAGONAL",
    "SH_SAVEQUEEN/ROOK",
    "SH_DONTLOSEANYFIGURES",
    "SH_DONTLETBLACKQUEENCHECKTWICE",
    "SH_USEBLOCKBLACKPAWNSLEVEL",
    "SH_KEYFIELD",
    "SH_ASSERTBLACKKINGSURROUNDED",
    "SH_SINGLEQUEENMATE",
    "SH_3MOVESTOMATE",
    "SH_KEYWHITEFIGURE",
    "SH_CAPTUREKNIGHT",
    "SH_SKIPWORSTWHITEMOVES",
    "SH_DONTLETPROMOTEDFIGUREMOVE",
    "SH_KEEPKINGNEARCORNER",
    "SH_SEASNAKE",
    nullptr,
    nullptr,
    "SH_REDUCTIONTOGLOBREGPOS",
    "SH_ZUGZWANG",
};

constexpr char ToUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

}  // namespace

std::uint32_t HeuristicBitOfName(std::string_view name) noexcept {
    for (int i = 0; i < HeuristicBitCount; ++i) {
        if (Names[i] != nullptr &&
            std::ranges::equal(std::string_view(Names[i]), name, {}, ToUpper, ToUpper)) {
            return std::uint32_t{1} << i;
        }
    }
    return 0;
}

const char* HeuristicName(std::uint32_t bit) noexcept {
    const int number = std::countr_zero(bit);
    return std::has_single_bit(bit) && Names[number] != nullptr ? Names[number] : UnusedName;
}

}  // namespace tarnwick
