#pragma once

// Elements as tables have them, for packing and unpacking.

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "base/little_endian.h"
#include "base/user_dialog.h"

namespace tarnwick {

/// Moves to mate that follow the places of four men, with a third of drawn and impossible positions. Much as
/// in a table of four men, indices near each other have values near each other.
template <typename TElement>
std::vector<TElement> MateLikeTable(std::size_t count, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::vector<TElement> table(count);
    for (std::size_t i = 1; i < count; ++i) {
        const std::size_t near = i % 10;
        const std::size_t king = i / 10 % 64;
        const std::size_t man = i / 640 % 64;
        const std::size_t value = 3 + near / 2 + (king % 8) + (king / 8) / 2 + man / 9;
        const bool bNone = king == man || (king + man + near) % 7 == 0;
        table[i] = static_cast<TElement>(bNone ? 0 : value + random() % 5 / 4);
    }
    return table;
}

/// Rows of one value: runs, alternating values, marks of unknown positions, a bit of noise. Every value is
/// below `values` or, if bMarks, the mark.
template <typename TElement>
std::vector<TElement> PatchworkTable(std::size_t count, unsigned values, bool bMarks,
                                     unsigned seed = 2) {
    std::mt19937 random(seed);
    std::vector<TElement> table;
    const auto draw = [&] {
        return bMarks && random() % 3 == 0 ? static_cast<TElement>(-1)
                                           : static_cast<TElement>(random() % values);
    };
    while (table.size() < count) {
        const unsigned kind = random() % 4;
        const std::size_t length = 1 + random() % (kind == 0 ? 900 : 40);
        const TElement first = draw();
        const TElement second = draw();
        for (std::size_t i = 0; i < length; ++i) {
            table.push_back(kind == 3 ? draw() : (kind == 2 && i % 2 != 0 ? second : first));
        }
    }
    table.resize(count);
    return table;
}

/// As in an unpacked file.
template <typename TElement>
std::vector<std::uint8_t> FileBytes(const std::vector<TElement>& table) {
    std::vector<std::uint8_t> bytes(table.size() * sizeof(TElement));
    for (std::size_t i = 0; i < table.size(); ++i) {
        StoreLittleEndian(&bytes[i * sizeof(TElement)], table[i]);
    }
    return bytes;
}

inline std::string AsText(const std::vector<std::uint8_t>& bytes) {
    return {bytes.begin(), bytes.end()};
}

/// Answers as it is told and keeps what was said.
class CKeptDialog final : public TUserDialog {
  public:
    explicit CKeptDialog(bool bAnswer = true) : m_bAnswer(bAnswer) {}
    void Tell(std::string_view text) override { told.emplace_back(text); }
    bool Ask(std::string_view text) override {
        asked.emplace_back(text);
        return m_bAnswer;
    }
    void Progress(std::string_view) override {}

    std::vector<std::string> told;
    std::vector<std::string> asked;

  private:
    bool m_bAnswer;
};

}  // namespace tarnwick
