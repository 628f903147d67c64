#pragma once

// The tables of menu texts as one.

#include <array>
#include <cstddef>
#include <iterator>

#include "app/commands/names_advanced_program.h"
#include "app/commands/names_file_position.h"
#include "app/commands/names_problem_view.h"

namespace tarnwick {

/// The tables' rows one behind the other.
template <std::size_t... Sizes>
constexpr auto RowsOf(const TCommandText (&... tables)[Sizes]) {
    std::array<const TCommandText*, (Sizes + ...)> rows{};
    std::size_t count = 0;
    const auto add = [&](const auto& table) {
        for (const TCommandText& row : table) {
            rows[count++] = &row;
        }
    };
    (add(tables), ...);
    return rows;
}

inline constexpr auto CommandTexts =
    RowsOf(FileCommandTexts, PositionCommandTexts, ProblemCommandTexts, ViewCommandTexts,
           VariantCommandTexts, AdvancedCommandTexts, ProgramCommandTexts, ContextCommandTexts);

/// For those who look at texts alone.
inline constexpr auto AllCommandNames = [] {
    std::array<const TUserText*, CommandTexts.size()> texts{};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        texts[i] = &CommandTexts[i]->text;
    }
    return texts;
}();

}  // namespace tarnwick
