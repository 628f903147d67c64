#include "app/tables/table_tasks.h"

#include <algorithm>
#include <memory>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/filled_text.h"
#include "platform/clock.h"

#include "app/solving/progress_lines.h"
#include "app/tables/table_tasks_texts.h"
#include "tables/generation/table_factory.h"
#include "tables/register/register_reports.h"
#include "tables/register/register_texts.h"
#include "tables/verification/verify_all.h"

namespace tarnwick {
namespace {

constexpr std::int64_t ProgressEveryMs = 200;
/// A share that is smaller tells nothing of the time that is left.
constexpr double LeastTellingShare = 0.02;

std::string PercentText(double share) {
    const auto permille = static_cast<int>(share * 1000);
    return std::to_string(permille / 10) + '.' + std::to_string(permille % 10) + '%';
}

std::string GenerationText(const std::string& type, const TGenerationProgress& progress,
                           std::int64_t elapsedMs) {
    if (!progress.bPreparing) {
        return FilledText(TableInPassText,
                          {type, std::to_string(progress.pass), std::to_string(progress.found)});
    }
    const std::string done = FilledText(TablePreparedText, {type, PercentText(progress.prepared)});
    if (progress.prepared < LeastTellingShare) {
        return done;
    }
    const double leftMs = static_cast<double>(elapsedMs) * (1 / progress.prepared - 1);
    return FilledText(TimeLeftText, {done, ElapsedText(static_cast<std::uint64_t>(leftMs))});
}

std::string PlanText(const std::vector<TPlannedTable>& plan) {
    std::uint64_t files = 0;
    std::uint64_t memory = 0;
    std::string types;
    for (const TPlannedTable& planned : plan) {
        files += planned.fileBytes;
        memory = std::max(memory, planned.memoryBytes);
        types += (types.empty() ? "" : " ") + planned.type;
    }
    return FilledText(AskGenerateText, {types, MemorySizeText(files), MemorySizeText(memory)});
}

std::string MadeText(const TMadeTable& made, const std::string& type, std::int64_t elapsedMs) {
    if (!made.bComplete) {
        return FilledText(TableStoppedText, {type});
    }
    const std::string time = ElapsedText(static_cast<std::uint64_t>(elapsedMs));
    return made.longestMate == 0
               ? FilledText(TableMadeNoMateText, {type, time})
               : FilledText(TableMadeText, {type, std::to_string(made.longestMate), time});
}

/// The progress of several generations, one after the other.
class CGenerationProgress {
  public:
    explicit CGenerationProgress(TUserDialog& dialog) : m_dialog(dialog) {}

    void Begin(const std::string& type, std::size_t number, std::size_t all) {
        m_type = type;
        m_number = number;
        m_all = all;
        m_startMs = NowMs();
    }
    std::int64_t ElapsedMs() const { return NowMs() - m_startMs; }

    void Show(const TGenerationProgress& progress) {
        if (NowMs() - m_shownMs < ProgressEveryMs) {
            return;
        }
        m_shownMs = NowMs();
        const std::string now = GenerationText(m_type, progress, ElapsedMs());
        m_dialog.Progress(m_all == 1 ? now
                                     : FilledText(TableOfAllText, {std::to_string(m_number),
                                                                   std::to_string(m_all), now}));
    }

  private:
    TUserDialog& m_dialog;
    std::string m_type;
    std::size_t m_number = 1;
    std::size_t m_all = 1;
    std::int64_t m_startMs = 0;
    std::int64_t m_shownMs = 0;
};

TVerifyOptions OptionsOf(const TTableTask& task, TRepair repair, bool bPartial) {
    TVerifyOptions options;
    options.bPartial = bPartial;
    options.repair = repair;
    options.threads = task.threads;
    options.logFolder = task.logFolder;
    options.pControl = &task.control;
    return options;
}

TSetupFields FieldsOf(const TChessboard& board) {
    TSetupFields fields;
    std::ranges::copy(board.m_fields, fields.begin());
    return fields;
}

/// A register that is given back.
class CHeldRegister {
  public:
    CHeldRegister(TGlobalRegisterSet& registers, TGlobalRegister* pRegister)
        : m_registers(registers), m_pRegister(pRegister) {}
    ~CHeldRegister() { m_registers.ReleaseData(m_pRegister); }
    CHeldRegister(const CHeldRegister&) = delete;
    CHeldRegister& operator=(const CHeldRegister&) = delete;

    const TGlobalRegister& operator*() const { return *m_pRegister; }

  private:
    TGlobalRegisterSet& m_registers;
    TGlobalRegister* m_pRegister;
};

}  // namespace

// Generation.

std::string GenerateTable(const TTableTask& task, const std::string& type) {
    CGenerationProgress progress(task.dialog);
    TGenerationSettings settings;
    settings.threads = task.threads;
    settings.pControl = &task.control;
    settings.report = [&](const TGenerationProgress& now) { progress.Show(now); };
    CTableFactory factory(task.folders, settings);
    std::vector<TPlannedTable> plan = factory.Plan({type}, true, false);
    if (plan.empty()) {
        if (!task.dialog.Ask(FilledText(AskMakeAnewText, {type}))) {
            return {};
        }
        plan = factory.Plan({type}, true, true);
    }
    if (!task.dialog.Ask(PlanText(plan))) {
        return {};
    }
    std::string end;
    for (std::size_t i = 0; i < plan.size(); ++i) {
        progress.Begin(plan[i].type, i + 1, plan.size());
        const TMadeTable made = factory.Make(plan[i]);
        end = MadeText(made, plan[i].type, progress.ElapsedMs());
        if (!made.bComplete) {
            break;
        }
    }
    return end;
}

// Verification.

std::string VerifyTable(const TTableTask& task, const std::string& type, TRepair repair,
                        bool bPartial) {
    if (!HasTableFile(task.folders, type)) {
        return UserText(NoInfoOfTypeText);
    }
    const TVerifyCounts counts =
        CTableVerifier(task.folders, task.dialog, OptionsOf(task, repair, bPartial)).Verify(type);
    std::string end = FilledText(TableVerifiedText, {type, VerifyEndText(counts)});
    if (counts.faults > 0) {
        const auto log = task.logFolder / ("PrecalcFailures" + type + ".txt");
        end += FilledText(FaultsInLogText, {ToValidUtf8(log.string())});
    }
    return end;
}

std::string VerifyAllTables(const TTableTask& task, const std::string& firstType,
                            const std::function<void(const std::string& line)>& log) {
    TVerifyAllOptions options;
    options.verify = OptionsOf(task, TRepair::No, false);
    options.firstType = firstType;
    options.log = log;
    const TVerifyAllResult result = VerifyAllPositionTypes(task.folders, task.dialog, options);
    return FilledText(AllVerifiedText,
                      {std::to_string(result.verified), std::to_string(result.faulty),
                       std::to_string(result.missing.size())});
}

// Positions.

TTablePosition NeighbourOfType(TGlobalRegisterSet& registers, const TChessboard& board,
                               int direction) {
    const TRegisterOfBoard found = RegisterToWalk(registers, board);
    if (found.pRegister == nullptr) {
        return {.fields = std::nullopt, .text = found.refusal};
    }
    const CHeldRegister held(registers, found.pRegister);
    TChessboard other = board;
    std::optional<std::uint64_t> index = (*held).IndexOfPosition(board);
    while ((index = NeighbourPosition(*held, *index, direction, other))) {
        if (FaultsOfPosition(FieldsOf(other)).empty()) {
            return {.fields = FieldsOf(other), .text = PositionText(*held, *index)};
        }
    }
    return {.fields = std::nullopt, .text = UserText(NoFurtherPositionText)};
}

TTablePosition PositionByIndex(TGlobalRegisterSet& registers, const TChessboard& board,
                               std::string_view text) {
    const std::uint64_t index = ParsePositionIndex(text);
    const TRegisterOfBoard found = RegisterToWalk(registers, board);
    if (found.pRegister == nullptr) {
        return {.fields = std::nullopt, .text = found.refusal};
    }
    const CHeldRegister held(registers, found.pRegister);
    TChessboard other = board;
    if (!(*held).PositionOfIndex(index, other) || !FaultsOfPosition(FieldsOf(other)).empty()) {
        return {.fields = std::nullopt,
                .text = FilledText(NoPositionOfIndexText, {std::to_string(index)})};
    }
    return {.fields = FieldsOf(other), .text = PositionText(*held, index)};
}

CLongestMates::~CLongestMates() {
    m_walk.reset();
    m_pRegisters->ReleaseData(m_pRegister);
}

TTablePosition CLongestMates::Step(const TChessboard& board, bool bForward, TUserDialog& dialog) {
    const TRegisterOfBoard found = RegisterToWalk(*m_pRegisters, board);
    if (found.pRegister == nullptr) {
        return {.fields = std::nullopt, .text = found.refusal};
    }
    if (found.pRegister == m_pRegister) {
        m_pRegisters->ReleaseData(found.pRegister);
    } else {
        m_walk.reset();
        m_pRegisters->ReleaseData(m_pRegister);
        m_pRegister = found.pRegister;
    }
    if (!m_walk) {
        dialog.Progress(FilledText(LookingForMaxMateText, {m_pRegister->Type()}));
        m_walk.emplace(*m_pRegister, m_pRegisters->Folders());
    }
    TChessboard other = board;
    if (!(bForward ? m_walk->Next(other, dialog) : m_walk->Previous(other, dialog))) {
        return {.fields = std::nullopt,
                .text = m_walk->IsEmpty() ? UserText(NoMateInTypeText) : ""};
    }
    return {.fields = FieldsOf(other), .text = m_walk->Text(), .nMoves = m_walk->Moves()};
}

}  // namespace tarnwick
