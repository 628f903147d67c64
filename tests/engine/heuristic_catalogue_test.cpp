#include "engine/heuristics/heuristic_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "engine/heuristics/heuristic_bits.h"
#include "engine/heuristics/heuristic_messages.h"
#include "engine/heuristics/heuristic_names.h"
#include "engine/heuristics/heuristic_tooltips.h"

namespace tarnwick {
namespace {

/// Everything that the user reads about heuristics.
std::vector<const TUserText*> AllTexts() {
    std::vector<const TUserText*> texts(std::begin(HeuristicMessages), std::end(HeuristicMessages));
    const auto addControl = [&texts](const TUserText& label, const TUserText* pTooltip) {
        texts.push_back(&label);
        if (pTooltip != nullptr) {
            texts.push_back(pTooltip);
        }
    };
    for (const THeuristicEntry& entry : HeuristicCatalogue()) {
        if (entry.pTooltip != nullptr) {
            addControl(entry.label, entry.pTooltip);
        }
    }
    for (int i = 0; i < HeuristicOptionCount; ++i) {
        const auto& option = HeuristicOption(static_cast<THeuristicOption>(i));
        addControl(option.label, option.pTooltip);
    }
    for (int level = 0; level <= static_cast<int>(TForcedLevel::Threat5); ++level) {
        texts.push_back(&ForcedLevelLabel(static_cast<TForcedLevel>(level)));
    }
    for (int choice = 0; choice <= 3; ++choice) {
        texts.push_back(&ForcedWithOthersLabel(static_cast<TForcedWithOthers>(choice)));
    }
    texts.push_back(&SchedulerNoteTooltip);
    texts.push_back(&QuickModeTooltip);
    return texts;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// How often each number stands in the text.
std::map<std::string, int> NumbersIn(const std::string& text) {
    std::map<std::string, int> numbers;
    for (auto at = text.begin(); at != text.end();) {
        const auto from = std::find_if(at, text.end(), IsDigit);
        at = std::find_if_not(from, text.end(), IsDigit);
        if (from != at) {
            ++numbers[std::string(from, at)];
        }
    }
    return numbers;
}

/// A word of letters of two alphabets is a slip of the keyboard: some of them look alike.
std::string FirstMixedWord(const std::string& text) {
    std::string word;
    bool bLatin = false;
    bool bCyrillic = false;
    for (const char c : text + " ") {
        const auto byte = static_cast<unsigned char>(c);
        const bool bLatinLetter = (byte | 32) >= 'a' && (byte | 32) <= 'z' && byte < 128;
        if (bLatinLetter || IsDigit(c) || byte >= 128) {
            word += c;
            bLatin |= bLatinLetter;
            bCyrillic |= byte == 0xD0 || byte == 0xD1 || byte == 0xD2;
        } else {
            // "Фe2" is a move: a piece and a field.
            if (bLatin && bCyrillic && std::ranges::none_of(word, IsDigit)) {
                return word;
            }
            word.clear();
            bLatin = bCyrillic = false;
        }
    }
    return {};
}

TEST(HeuristicCatalogue, KnowsNoOtherNamesAndBits) {
    for (const char* name : {"", "SH_", "...", "SH_KEYLINEX", "SH_KEYLIN", "SH_SAVEQUEENROOK"}) {
        EXPECT_EQ(HeuristicBitOfName(name), 0U) << name;
    }
    for (const std::uint32_t bits : {0x100U, 0x10000000U, 0x20000000U, 0U, 0x3U}) {
        EXPECT_STREQ(HeuristicName(bits), "...") << bits;
        EXPECT_EQ(FindHeuristic(bits), nullptr) << bits;
    }
}

TEST(HeuristicTexts, SayTheSameInAllLanguages) {
    for (const TUserText* pText : AllTexts()) {
        ASSERT_TRUE(pText->pl != nullptr && pText->en != nullptr && pText->uk != nullptr)
            << (pText->en != nullptr ? pText->en : "?");
        const std::string english = pText->en;
        for (const std::string& other : {std::string(pText->pl), std::string(pText->uk)}) {
            EXPECT_EQ(NumbersIn(other), NumbersIn(english)) << other;
            EXPECT_EQ(std::ranges::count(other, '\n'), std::ranges::count(english, '\n')) << other;
            EXPECT_EQ(other.ends_with(' '), english.ends_with(' ')) << other;
            EXPECT_EQ(FirstMixedWord(other), "") << other;
        }
    }
}

}  // namespace
}  // namespace tarnwick
