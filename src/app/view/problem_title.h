#pragma once
// How a problem is announced: its stipulation in short, and the addresses of pages in its description.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "problems/chess_problem.h"

namespace tarnwick {

/// "#3", for a self-mate "s#3"; empty for a position, which asks for nothing.
std::string StipulationText(const TChessProblem& problem);

/// "12: #3", or the number alone.
std::string TitleText(const TChessProblem& problem);

/// A page of the web that a description names.
struct TWebAddress {
    std::size_t start = 0;  ///< In characters of the description.
    std::size_t length = 0;
};

/// A description leads to at most so many pages.
inline constexpr std::size_t MaxLinks = 5;

/// Words that begin with "http://" or "https://", in letters of either case. A full stop, a comma or a
/// bracket behind one belongs to the sentence.
std::vector<TWebAddress> WebAddresses(std::wstring_view description);

}  // namespace tarnwick
