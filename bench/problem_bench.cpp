// Reading and writing large problem files. A collection of 100,000 problems should open in well under
// two seconds, as the user waits for it.

#include <benchmark/benchmark.h>

#include <string>

#include "problems/cp_file_reader.h"
#include "problems/cp_writer.h"

namespace tarnwick {
namespace {

/// Problems like those of real collections: options, a tag, a description, answers.
std::string LargeFile(int count) {
    std::string text = "UTF-8\n\n";
    for (int id = 1; id <= count; ++id) {
        text += '\n' + std::to_string(id) + " #" + std::to_string(id % 20 + 2);
        text += id % 4 == 0
                    ? " AllSolutions THREADS 4\n//#TAGS\n//#tag " + std::to_string(id % 50) + "\n"
                    : "\n";
        text +=
            id % 8 == 0
                ? "//!VARIANTS\n//!{Main variant} Qc2-a4[threat] Ke8-d7 Qa4-a5\n//!ENDVARIANTS\n"
                : "";
        text += "{\n\tDescription: Author " + std::to_string(id % 1000) + ", Tourney, 1923\n";
        text +=
            "\tFEN: r1b1k2r/pp3ppp/2n1pn2/q1bp4/8/2N1PN2/PPQ1BPPP/R1B2RK1\n\tAnswer:  Qc2-a4,  "
            "Nc3:d5\n}\n";
    }
    return text;
}

void ReadProblems(benchmark::State& state) {
    const std::string text = LargeFile(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        TProblemList list;
        ReadProblemText(text, "", list);
        benchmark::DoNotOptimize(list.Size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ReadProblems)->Arg(100'000)->Unit(benchmark::kMillisecond);

void WriteProblems(benchmark::State& state) {
    TProblemList list;
    ReadProblemText(LargeFile(static_cast<int>(state.range(0))), "", list);
    for (auto _ : state) {
        benchmark::DoNotOptimize(ProblemListToText(list).size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(WriteProblems)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnwick
