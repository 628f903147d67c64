#include <algorithm>
#include <map>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_catalogue.h"
#include "engine/heuristics/heuristic_list.h"
#include "engine/heuristics/heuristic_messages.h"
#include "engine/heuristics/heuristic_names.h"
#include "engine/heuristics/heuristic_parameters.h"
#include "engine/heuristics/heuristic_words.h"

// A list is cut into items first and read afterwards in the order of the bits, since a few parameters
// depend on which other heuristics there are.

namespace tarnwick {
namespace {

/// Texts of parameters without blanks, by bit.
using TItems = std::map<std::uint32_t, std::string>;

constexpr std::size_t MostShownBytes = 80;

constexpr bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string WithoutBlanks(std::string_view text) {
    std::string compact(text);
    std::erase_if(compact, IsBlank);
    return compact;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, ToUpper, ToUpper);
}

/// For a message: what was found may be long and of any bytes.
std::string Shown(std::string_view text) {
    const bool bCut = text.size() > MostShownBytes;
    return ToValidUtf8(text.substr(0, MostShownBytes)) + (bCut ? "..." : "");
}

[[noreturn]] void ThrowUnknown(std::string_view name) {
    std::string names = KingMustNotMoveName;
    for (const THeuristicEntry& entry : HeuristicCatalogue()) {
        names += std::string(", ") + entry.name;
    }
    throw ChessException(UserText(UnknownHeuristicText) + Shown(name) + UserText(NamesAllowedText) +
                         names);
}

[[noreturn]] void ThrowWrong(std::uint32_t bit, std::string_view parameters) {
    throw ChessException(UserText(WrongParametersText) + std::string(HeuristicName(bit)) + "(" +
                         Shown(parameters) + ")" + UserText(ParametersAllowedText) +
                         AllowedParameters(bit));
}

/// The short name of the strict form of SH_KEEPKINGONTHEEDGE stands for a word of its parameters.
std::string ParametersOfShortName(std::string_view parameters) {
    const std::string_view exceptions = ExceptionsWord;
    if (EqualsIgnoringCase(parameters.substr(0, exceptions.size()), exceptions)) {
        return KingAlmostStrictWord + std::string(parameters.substr(exceptions.size()));
    }
    return KingStrictWord + ("," + std::string(parameters));
}

void AddItem(TItems& items, std::string_view name, std::string_view parameters) {
    const bool bShortName = EqualsIgnoringCase(name, KingMustNotMoveName);
    const std::uint32_t bit = bShortName ? SH_KEEPKINGONTHEEDGE : HeuristicBitOfName(name);
    if (bit == 0) {
        ThrowUnknown(name);
    }
    std::string text = bShortName ? ParametersOfShortName(parameters) : std::string(parameters);
    if (!items.emplace(bit, std::move(text)).second) {
        throw ChessException(UserText(HeuristicTwiceText) + Shown(name));
    }
}

/// Takes the first item off a list without blanks: up to a comma that stands in no brackets.
std::string_view TakeItem(std::string_view& list) {
    const std::size_t open = list.find_first_of("(,");
    std::size_t end = open;
    if (open != std::string_view::npos && list[open] == '(') {
        const std::size_t close = list.find(')', open);
        if (close == std::string_view::npos ||
            (close + 1 < list.size() && list[close + 1] != ',')) {
            throw ChessException(UserText(HeuristicBracketText) + Shown(list));
        }
        end = close + 1;
    }
    const std::string_view item = list.substr(0, end);
    list.remove_prefix(item.size());
    return item;
}

TItems SplitList(std::string_view list) {
    TItems items;
    while (!list.empty()) {
        const std::string_view item = TakeItem(list);
        const std::size_t open = item.find('(');
        const bool bBrackets = open != std::string_view::npos;
        AddItem(items, item.substr(0, open),
                bBrackets ? item.substr(open + 1, item.size() - open - 2) : std::string_view());
        if (list == ",") {
            ThrowUnknown("");
        }
        list.remove_prefix(list.empty() ? 0 : 1);
    }
    return items;
}

/// The items become a part of the set.
void ReadItems(const TItems& items, THeuristicSet& set) {
    std::uint32_t bits = 0;
    for (const auto& [bit, text] : items) {
        bits |= bit;
    }
    set.mask |= bits;
    ResetSharedParameters(bits, set.parameters);
    for (const auto& [bit, text] : items) {
        if (!ReadHeuristicParameters(bit, text, set)) {
            ThrowWrong(bit, text);
        }
    }
}

void RefuseExcluded(const TItems& items) {
    if (items.contains(SH_FINDFORCEDMATE) && items.contains(SH_SEASNAKE)) {
        throw ChessException(UserText(ForcedMateWithSeaSnakeText));
    }
}

/// Removes the note from the end of a list without blanks.
bool TakeCannotApply(std::string& list) {
    const std::string note = WithoutBlanks(CannotApplyWord);
    const std::size_t before = list.size() - std::min(list.size(), note.size());
    if (!EqualsIgnoringCase(std::string_view(list).substr(before), note)) {
        return false;
    }
    list.resize(before);
    return true;
}

/// The words behind the last OFF, joined; bOff if there are none.
std::string ParametersOfSetting(const std::vector<std::string>& words, bool& bOff) {
    bOff = false;
    std::string text;
    for (const std::string& word : words) {
        bOff = EqualsIgnoringCase(word, "OFF");
        text = bOff ? "" : text + word;
    }
    return WithoutBlanks(text);
}

}  // namespace

THeuristicSet ParseHeuristicList(std::string_view text) {
    std::string list = WithoutBlanks(text);
    THeuristicSet set;
    set.parameters.bCannotApplyDynamically = TakeCannotApply(list);
    const TItems items = SplitList(list);
    RefuseExcluded(items);
    ReadItems(items, set);
    return set;
}

void ApplyHeuristicSettings(THeuristicSet& set, const TChessProblem& problem) {
    THeuristicSet changed = set;
    TItems items;
    for (const auto& [bit, words] : problem.m_heuristicSettings) {
        bool bOff = false;
        std::string text = ParametersOfSetting(words, bOff);
        if (bOff) {
            changed.mask &= ~bit;
        } else if (!text.empty() || (changed.mask & bit) == 0) {
            items.emplace(bit, std::move(text));
        }
    }
    RefuseExcluded(items);
    if (items.contains(SH_FINDFORCEDMATE)) {
        changed.mask &= ~SH_SEASNAKE;
    } else if (items.contains(SH_SEASNAKE)) {
        changed.mask &= ~SH_FINDFORCEDMATE;
    }
    ReadItems(items, changed);
    set = changed;
}

}  // namespace tarnwick
