#pragma once
// The words of parameters in lists of heuristics. The same in all languages: logs and problem files have
// them.

namespace tarnwick {

/// Names and words are read in any case. Other bytes than small letters stay as they are.
constexpr char ToUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline constexpr const char* KingMustNotMoveName = "SH_DONTLETKINGMOVE";
inline constexpr const char* ExceptionsWord = "excptns";
inline constexpr const char* KingStrictWord = "STRICT";
inline constexpr const char* KingAlmostStrictWord = "ALMOST_STRICT";
inline constexpr const char* StrictWord = "strict";
inline constexpr const char* InnerCornersWord = "incl.corner";
inline constexpr const char* PawnsWord = "incl.pawns";
inline constexpr const char* PromotablePawnsWord = "incl.pawnsBeforePromo";
inline constexpr const char* EffectiveWord = "EFF";
inline constexpr const char* PreliminaryWord = "-Preliminary";
inline constexpr const char* CustomWord = "-Custom";
inline constexpr const char* CannotApplyWord = " (CannotApplyDLFUDynamically)";

/// By TForcedLevel.
inline constexpr const char* ForcedLevelWords[] = {"CheckOnly", "#1", "#1+", "#2",
                                                   "#2+",       "#3", "#4",  "#5"};
/// By mode, less 1.
inline constexpr const char* OneColourWords[] = {"WhiteFieldsOnly", "BlackFieldsOnly",
                                                 "SeparatedBlackBishop"};

}  // namespace tarnwick
