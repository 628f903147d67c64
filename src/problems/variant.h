#pragma once
// TVariant: a named line of moves with comments that belongs to a problem. One line of text in the file:
//
//     {Main variant} Qa1-a8[threat: mate] Kh7:g6 0-0
//
// The variant named "Main variant" is special: it is the solution's chief line. Its name is shown in the
// user's language and always stored in English.

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "chess/move.h"

namespace tarnwick {

struct TVariantEntry {
    std::string m_text;      ///< The move in full notation, as the file or the program wrote it.
    TMove m_move;            ///< What the text says. Not checked against the position.
    std::wstring m_comment;  ///< Cannot hold "]", which ends it in the file.

    bool operator==(const TVariantEntry& other) const;
};

struct TVariant {
    std::wstring m_name;
    std::vector<TVariantEntry> m_entries;  ///< White moves first.

    /// Reads one variant. bTranslateMainVariantName: a main variant gets its name in the present
    /// language, whatever language the text has it in. Without braces the name is empty.
    ///
    /// Throws what ReadMoveText (chess/move_text.h) throws for a word that is no move.
    static TVariant FromText(std::wstring_view text, bool bTranslateMainVariantName);

    /// The line of the file: what FromText reads again as the same variant.
    std::wstring ToText() const;

    bool operator==(const TVariant&) const = default;
};

/// Variants of a problem by the text that ToText gives. Two lines that differ in blanks only are one
/// variant.
using TVariantMap = std::map<std::wstring, TVariant>;

/// Whether the name is that of the main variant in any of the languages.
bool IsMainVariantName(std::wstring_view name);

/// The name of the main variant in the present language.
std::wstring MainVariantName();

}  // namespace tarnwick
