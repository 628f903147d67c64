#include "app/view/problem_title.h"

#include <algorithm>
#include <cwctype>

namespace tarnwick {
namespace {

/// ASCII only: whether the text goes on at this place with the small letters, in letters of either case.
bool StandsAt(std::wstring_view text, std::size_t place, std::wstring_view small) {
    const std::wstring_view part = text.substr(place, small.size());
    return std::ranges::equal(part, small, [](wchar_t a, wchar_t b) {
        return (a >= L'A' && a <= L'Z' ? a - L'A' + L'a' : a) == b;
    });
}

/// Length of what an address begins with; 0 if none begins there.
std::size_t LengthOfScheme(std::wstring_view text, std::size_t place) {
    for (const std::wstring_view scheme : {L"http://", L"https://"}) {
        if (StandsAt(text, place, scheme)) {
            return scheme.size();
        }
    }
    return 0;
}

}  // namespace

std::string StipulationText(const TChessProblem& problem) {
    const int moves = MovesOfStipulation(problem);
    if (moves <= 0) {
        return {};
    }
    return (problem.m_type == TProblemType::SelfMate ? "s#" : "#") + std::to_string(moves);
}

std::string TitleText(const TChessProblem& problem) {
    const std::string stipulation = StipulationText(problem);
    return std::to_string(problem.m_id) + (stipulation.empty() ? "" : ": ") + stipulation;
}

std::vector<TWebAddress> WebAddresses(std::wstring_view description) {
    std::vector<TWebAddress> addresses;
    for (std::size_t place = 0; place < description.size() && addresses.size() < MaxLinks;) {
        const std::size_t scheme = LengthOfScheme(description, place);
        if (scheme == 0) {
            ++place;
            continue;
        }
        const std::size_t blank = description.find_first_of(L" \t<>\"", place);
        const std::size_t end = std::min(blank, description.size());
        std::wstring_view word = description.substr(place, end - place);
        word = word.substr(0, word.find_last_not_of(L".,;:!?)]}'") + 1);
        if (word.size() > scheme) {
            addresses.push_back({.start = place, .length = word.size()});
        }
        place = end;
    }
    return addresses;
}

}  // namespace tarnwick
