#pragma once

// A user whose answers are written beforehand, and small problem files, for the tests of documents.

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "app/document/problem_files.h"
#include "problems/cp_writer.h"
#include "support/temp_folder.h"

namespace tarnwick {

/// Answers questions in the order of the script and no to all behind it; keeps all that was said.
class CScriptedUser final : public TUserDialog {
  public:
    void Tell(std::string_view text) override { m_told.emplace_back(text); }
    bool Ask(std::string_view text) override {
        m_asked.emplace_back(text);
        const bool bYes = !m_answers.empty() && m_answers.front();
        if (!m_answers.empty()) {
            m_answers.pop_front();
        }
        return bYes;
    }
    void Progress(std::string_view) override {}

    void WillAnswer(std::deque<bool> answers) { m_answers = std::move(answers); }
    /// What was asked and told since the last call, questions first.
    std::vector<std::string> Heard() {
        std::vector<std::string> heard = std::exchange(m_asked, {});
        heard.insert(heard.end(), m_told.begin(), m_told.end());
        m_told.clear();
        return heard;
    }

  private:
    std::deque<bool> m_answers;
    std::vector<std::string> m_asked;
    std::vector<std::string> m_told;
};

/// A problem of a file: a mate in nMoves, with the men as a placement.
inline std::string ProblemOf(int id, int nMoves, const std::string& placement,
                             const std::string& description = "") {
    return std::to_string(id) + " #" + std::to_string(nMoves) + "\n{\n" +
           (description.empty() ? "" : "\tDesc: " + description + "\n") + "\tFEN: " + placement +
           "\n}\n\n";
}

inline constexpr const char* PlacementA = "7k/8/5K2/8/8/8/8/R7";
inline constexpr const char* PlacementB = "7k/8/6K1/8/8/8/8/Q7";
inline constexpr const char* PlacementC = "k7/8/1K6/8/8/8/8/7R";
inline constexpr const char* PlacementD = "4k3/8/4K3/8/8/8/8/7R";

/// A file of problems 3, 5 and 9 with the first three placements.
inline std::string ThreeProblems() {
    return "UTF-8\n\n" + ProblemOf(3, 2, PlacementA, "Żółw i gęś") +
           ProblemOf(5, 1, PlacementB, "Second") + ProblemOf(9, 3, PlacementC, "Third");
}

/// A document with the file "problems.cp" of that text open.
struct TOpenFile {
    explicit TOpenFile(const std::string& text) : path(folder / "problems.cp") {
        WriteBytes(path, text);
        EXPECT_TRUE(OpenProblemFile(document, path, host));
    }

    CTempFolder folder;
    std::filesystem::path path;
    CScriptedUser user;
    TFileHost host{.dialog = user};
    CDocument document;
};

inline void Describe(CDocument& document, const std::wstring& text) {
    document.Edit([&](TChessProblem& problem) { SetDescription(problem, text); });
}

}  // namespace tarnwick
