#include "cli/id_list.h"

#include <algorithm>
#include <charconv>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "chess/trimmed_text.h"

namespace tarnwick {
namespace {

[[noreturn]] void ThrowNoIdList(std::string_view text, const char* why) {
    throw ChessException("'" + ToValidUtf8(text) + "' " + why +
                         " Numbers of problems are written like this: 1,4-9");
}

int ParseId(std::string_view text, std::string_view range) {
    int id = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, id);
    if (error == std::errc::result_out_of_range) {
        ThrowNoIdList(range, "is beyond the numbers that a problem can have.");
    }
    if (error != std::errc() || stop != end || text.front() == '-') {
        ThrowNoIdList(range, "is no number and no range.");
    }
    return id;
}

}  // namespace

CIdList::TRange CIdList::ParseRange(std::string_view text) {
    const std::size_t hyphen = text.find('-');
    if (hyphen == std::string_view::npos) {
        const int id = ParseId(text, text);
        return {id, id};
    }
    const TRange range = {ParseId(Trimmed(text.substr(0, hyphen)), text),
                          ParseId(Trimmed(text.substr(hyphen + 1)), text)};
    if (range.first > range.last) {
        ThrowNoIdList(text, "runs backwards.");
    }
    return range;
}

CIdList CIdList::Parse(std::string_view text) {
    CIdList list;
    if (Trimmed(text).empty()) {
        return list;
    }
    while (true) {
        const std::size_t comma = text.find(',');
        list.m_ranges.push_back(ParseRange(Trimmed(text.substr(0, comma))));
        if (comma == std::string_view::npos) {
            return list;
        }
        text.remove_prefix(comma + 1);
    }
}

bool CIdList::Contains(int id) const {
    return m_ranges.empty() || std::ranges::any_of(m_ranges, [id](const TRange& range) {
               return range.first <= id && id <= range.last;
           });
}

std::vector<std::string> CIdList::RangesWithout(const std::vector<int>& sortedIds) const {
    std::vector<std::string> texts;
    for (const TRange& range : m_ranges) {
        const auto next = std::ranges::lower_bound(sortedIds, range.first);
        if (next == sortedIds.end() || *next > range.last) {
            const std::string first = std::to_string(range.first);
            texts.push_back(range.first == range.last ? first
                                                      : first + '-' + std::to_string(range.last));
        }
    }
    return texts;
}

}  // namespace tarnwick
