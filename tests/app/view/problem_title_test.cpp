#include "app/view/problem_title.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

std::vector<std::wstring> Found(const std::wstring& description) {
    std::vector<std::wstring> found;
    for (const TWebAddress& address : WebAddresses(description)) {
        found.push_back(description.substr(address.start, address.length));
    }
    return found;
}

TEST(ProblemTitle, AddressesAreFoundAsOneWritesThemInASentence) {
    using TWords = std::vector<std::wstring>;
    EXPECT_EQ(Found(L"Loyd 1858"), TWords{});
    EXPECT_EQ(Found(L"(see HTTPS://a.example/x?id=3&y=(2))."),
              TWords{L"HTTPS://a.example/x?id=3&y=(2"})
        << "brackets at the end are the sentence's";
    EXPECT_EQ(Found(L"Żółw http://a.example/ż, http://b.example!"),
              (TWords{L"http://a.example/ż", L"http://b.example"}));
    EXPECT_EQ(Found(L"http:// https://. http:/x httpx://y"), TWords{}) << "nothing behind it";
    EXPECT_EQ(Found(L"http://1 http://2 http://3 http://4 http://5 http://6").size(), MaxLinks);
}

TEST(ProblemTitle, StipulationsAreWrittenAsInDiagrams) {
    TChessProblem problem;
    problem.m_id = 12;
    SetPlies(problem, PliesOfStipulation(TProblemType::DirectMate, 128));
    EXPECT_EQ(TitleText(problem), "12: #128");
    problem.m_type = TProblemType::SelfMate;
    SetPlies(problem, PliesOfStipulation(TProblemType::SelfMate, 3));
    EXPECT_EQ(TitleText(problem), "12: s#3");
    problem.m_type = TProblemType::Position;
    SetPlies(problem, PliesOfPosition);
    EXPECT_EQ(TitleText(problem), "12");
}

}  // namespace
}  // namespace tarnwick
