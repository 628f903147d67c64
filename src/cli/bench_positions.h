#pragma once
// The fixed set that `tarnwick-cli bench` solves. The sum of its nodes is the search signature, which
// tells whether a change of the code changed the search: change the set only for a good reason.
//
// Combinations of famous old games, basic endings, and positions of our own: with a mate and without,
// with many men and few, with castling and promotions in the lines.

#include "cli/bench_command.h"

namespace tarnwick {

// clang-format off
inline constexpr TBenchPosition BenchPositions[] = {
    // Anderssen - Kieseritzky, London 1851; Anderssen - Dufresne, Berlin 1852; Morphy - Duke of
    // Brunswick and Count Isouard, Paris 1858; Reti - Tartakower, Vienna 1910.
    {"immortal game",         "r1b1k1nr/p2p1ppp/n2B4/1p1NPN1P/6P1/3P1Q2/P1P1K3/q5b1", 5},
    {"evergreen game",        "1r2k1r1/pbppnp1p/1b3P2/8/Q7/B1PB1q2/P4PPP/3R2K1",     4, false},
    {"at the opera",          "4kb1r/p2n1ppp/4q3/4p1B1/4P3/1Q6/PPP2PPP/2KR4",        5},
    {"queen for a mate",      "rnb1kb1r/pp3ppp/2p5/4q3/4n3/3Q4/PPPB1PPP/2KR1BNR",    5},
    // Positions from the course of a game, where White attacks in vain.
    {"four knights",          "r1bqk2r/pppp1ppp/2n2n2/2b1p3/2B1P3/2N2N2/PPPP1PPP/R1BQK2R",       5},
    {"pinned knights",        "r1bq1rk1/ppp2ppp/2np1n2/4p1B1/1bB1P3/2NP1N2/PPP2PPP/R2Q1RK1",     5},
    {"bishop looks at h7",    "r1b2rk1/pp1p1ppp/2n1p3/q7/8/P1PB1N2/2P2PPP/R2Q1RK1",  5},
    {"open files",            "2kr3r/ppp2ppp/8/8/2Q5/B7/5PPP/1R4K1",                 5},
    {"weak back rank",        "6k1/5ppp/8/8/8/8/5PPP/3RR1K1",                        5},
    // Few men.
    {"king in the corner",    "7k/8/5K2/8/8/8/8/6R1",                                2},
    {"two rooks",             "8/8/3k4/8/8/8/8/R3K2R",                               6},
    {"queen and rook",        "8/8/8/3k4/8/8/8/Q3K2R",                               5},
    {"bishop and knight",     "k7/8/2K5/8/8/2N5/4B3/8",                              6},
    {"queen alone",           "8/8/8/8/4k3/8/1Q6/1K6",                               6},
    {"four pawns race",       "8/2P3P1/8/1k6/8/1K6/2p3p1/8",                         6},
    {"two pawns promote",     "8/P7/8/1P6/8/k1K5/8/8",                               6},
};
// clang-format on

}  // namespace tarnwick
