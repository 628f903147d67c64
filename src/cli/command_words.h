#pragma once
// Words that several commands share.

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>

namespace tarnwick {

/// FILE or --fen. Returns the latter.
CLI::Option* AddPositionOptions(CLI::App& command, std::string& file, std::string& fen);

/// FILE, or --fen and --mate, which need each other.
void AddProblemOptions(CLI::App& command, std::string& file, std::string& fen, int& mate);

CLI::Option* AddIdOption(CLI::App& command, std::string& ids);

/// What is wrong with a length of time in seconds or minutes; empty: nothing.
std::string DurationFault(const std::string& text);

/// Numbers in that range; CLI11 would put the range into the middle of the help.
template <typename TNumber>
CLI::Validator Between(TNumber low, TNumber high) {
    return CLI::Range(low, high).description("");
}

}  // namespace tarnwick
