#include "support/shared_problems.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace tarnwick {
namespace {

std::string SharedDataFolder() {
    const char* folder = std::getenv("TARNWICK_SHARED_DATA_DIR");
    return folder != nullptr ? folder : TARNWICK_SHARED_DATA_DIR;
}

std::vector<std::string> SortedWords(std::istringstream& line) {
    std::vector<std::string> words;
    for (std::string word; line >> word;) {
        std::erase(word, ',');
        words.push_back(word);
    }
    std::sort(words.begin(), words.end());
    return words;
}

}  // namespace

std::vector<TSharedProblem> ReadSharedProblems() {
    std::vector<TSharedProblem> problems;
    std::ifstream file(SharedDataFolder() + "/short.cp");
    for (std::string text; std::getline(file, text);) {
        std::istringstream line(text);
        std::string first;
        line >> first;
        if (first == "FEN:" && !problems.empty()) {
            line >> problems.back().fen;
        } else if (first == "Answer:" && !problems.empty()) {
            problems.back().keys = SortedWords(line);
        } else if (std::string length; line >> length && length[0] == '#') {
            problems.push_back({"short." + first, std::atoi(length.c_str() + 1), "", {}});
        }
    }
    return problems;
}

std::string SharedPosition(const std::string& fenOrId) {
    if (fenOrId.find('/') != std::string::npos) {
        return fenOrId;
    }
    for (const TSharedProblem& problem : ReadSharedProblems()) {
        if (problem.name == fenOrId) {
            return problem.fen;
        }
    }
    std::ifstream file(SharedDataFolder() + "/moremovers.epd");
    for (std::string line; std::getline(file, line);) {
        if (line.find("id \"" + fenOrId + '"') != std::string::npos) {
            return line.substr(0, line.find(' '));
        }
    }
    return "";
}

}  // namespace tarnwick
